#include <tavru/platform/TPen.h>

namespace tavru {

Qt::PenStyle ParaQtPenStyle(TPenStyle estilo)
{
    switch (estilo) {
    case psSolid: return Qt::SolidLine;
    case psDash: return Qt::DashLine;
    case psDot: return Qt::DotLine;
    case psDashDot: return Qt::DashDotLine;
    case psDashDotDot: return Qt::DashDotDotLine;
    case psClear: return Qt::NoPen;
    case psInsideFrame: return Qt::SolidLine;
    }
    return Qt::SolidLine;
}

QPen TPen::ParaQPen() const
{
    if (Style == psClear || Color == clNone)
        return QPen(Qt::NoPen);
    QPen caneta(ParaQColor(Color));
    caneta.setStyle(ParaQtPenStyle(Style));
    caneta.setWidth(Width <= 1 ? 0 : Width);
    caneta.setCapStyle(Qt::RoundCap);
    caneta.setJoinStyle(Qt::RoundJoin);
    return caneta;
}

} // namespace tavru
