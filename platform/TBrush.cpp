#include <tavru/platform/TBrush.h>

namespace tavru {

Qt::BrushStyle ParaQtBrushStyle(TBrushStyle estilo)
{
    switch (estilo) {
    case bsSolid: return Qt::SolidPattern;
    case bsClear: return Qt::NoBrush;
    case bsHorizontal: return Qt::HorPattern;
    case bsVertical: return Qt::VerPattern;
    case bsFDiagonal: return Qt::FDiagPattern;
    case bsBDiagonal: return Qt::BDiagPattern;
    case bsCross: return Qt::CrossPattern;
    case bsDiagCross: return Qt::DiagCrossPattern;
    }
    return Qt::SolidPattern;
}

QBrush TBrush::ParaQBrush() const
{
    if (Style == bsClear || Color == clNone)
        return QBrush(Qt::NoBrush);
    return QBrush(ParaQColor(Color), ParaQtBrushStyle(Style));
}

} // namespace tavru
