#include "platform/TCanvas.h"

#include <QFontMetrics>
#include <QPainter>

namespace tavru {

static_assert(sizeof(TPoint) == sizeof(QPoint) && alignof(TPoint) == alignof(QPoint),
              "TPoint e QPoint devem ter o mesmo leiaute para desenhar sem cópia");

namespace {

inline const QPoint *ComoQPoints(const TPoint *p)
{
    return reinterpret_cast<const QPoint *>(p);
}

} // namespace

TCanvas::TCanvas(QImage *imagem)
{
    AtribuirImagem(imagem);
}

TCanvas::~TCanvas()
{
    Encerrar();
}

void TCanvas::Encerrar()
{
    if (FPainter) {
        if (FPainter->isActive())
            FPainter->end();
        FPainter.reset();
    }
    FAplicado = false;
}

void TCanvas::AtribuirImagem(QImage *imagem)
{
    Encerrar();
    FImagem = imagem;
}

unsigned TCanvas::SetTextAlign(unsigned bandeiras)
{
    const unsigned anterior = FTextAlign;
    FTextAlign = bandeiras;
    return anterior;
}

QPainter *TCanvas::Preparar()
{
    if (!FImagem || FImagem->isNull())
        return nullptr;
    if (!FPainter) {
        FPainter = std::make_unique<QPainter>(FImagem);
        FPainter->setRenderHint(QPainter::Antialiasing, false);
        FAplicado = false;
    }
    if (!FAplicado || !(FPenAplicada == FPen)) {
        FPainter->setPen(FPen.ParaQPen());
        FPenAplicada = FPen;
    }
    if (!FAplicado || !(FBrushAplicado == FBrush)) {
        FPainter->setBrush(FBrush.ParaQBrush());
        FBrushAplicado = FBrush;
    }
    if (!FAplicado || !(FFontAplicada == FFont)) {
        FPainter->setFont(FFont.ParaQFont());
        FFontAplicada = FFont;
    }
    FAplicado = true;
    return FPainter.get();
}

void TCanvas::MoveTo(int x, int y)
{
    FPenPos = TPoint(x, y);
}

void TCanvas::LineTo(int x, int y)
{
    if (QPainter *p = Preparar())
        p->drawLine(FPenPos.X, FPenPos.Y, x, y);
    FPenPos = TPoint(x, y);
}

void TCanvas::Polyline(const TPoint *pontos, int quantidade)
{
    if (quantidade < 2)
        return;
    if (QPainter *p = Preparar())
        p->drawPolyline(ComoQPoints(pontos), quantidade);
}

void TCanvas::Polygon(const TPoint *pontos, int quantidade)
{
    if (quantidade < 2)
        return;
    if (QPainter *p = Preparar())
        p->drawPolygon(ComoQPoints(pontos), quantidade);
}

void TCanvas::Ellipse(int x1, int y1, int x2, int y2)
{
    if (QPainter *p = Preparar()) {
        const QRect r = QRect(QPoint(x1, y1), QPoint(x2, y2)).normalized();
        p->drawEllipse(QRect(r.left(), r.top(), std::max(0, r.width() - 2), std::max(0, r.height() - 2)));
    }
}

void TCanvas::Rectangle(int x1, int y1, int x2, int y2)
{
    if (QPainter *p = Preparar()) {
        const QRect r = QRect(QPoint(x1, y1), QPoint(x2, y2)).normalized();
        p->drawRect(QRect(r.left(), r.top(), std::max(0, r.width() - 2), std::max(0, r.height() - 2)));
    }
}

void TCanvas::FillRect(const TRect &r)
{
    if (QPainter *p = Preparar())
        p->fillRect(r.ParaQRect(), FBrush.ParaQBrush());
}

void TCanvas::TextOut(int x, int y, const QString &texto)
{
    const int largura = TextWidth(texto);
    QPainter *p = Preparar();
    if (p && !texto.isEmpty()) {
        const QFontMetrics m(p->font());
        const int h = m.height();
        int dx = 0;
        switch (FTextAlign & TA_CENTER) {
        case TA_RIGHT: dx = -largura; break;
        case TA_CENTER: dx = -largura / 2; break;
        default: break;
        }
        int dy = 0; // topo da célula do texto
        switch (FTextAlign & TA_BASELINE) {
        case TA_BOTTOM: dy = -h; break;
        case TA_BASELINE: dy = -m.ascent(); break;
        default: break;
        }
        p->save();
        p->translate(x, y);
        if (FFont.Escapement != 0)
            p->rotate(-FFont.Escapement / 10.0);
        const QRect celula(dx, dy, largura, h);
        if (FBrush.Style != bsClear && FBrush.Color != clNone)
            p->fillRect(celula, ParaQColor(FBrush.Color));
        p->setPen(ParaQColor(FFont.Color));
        p->drawText(dx, dy + m.ascent(), texto);
        p->restore();
    }
    FPenPos = TPoint(x + largura, y);
}

void TCanvas::TextRect(const TRect &r, int x, int y, const QString &texto)
{
    if (QPainter *p = Preparar()) {
        p->save();
        p->setClipRect(r.ParaQRect());
        const unsigned alinhamento = SetTextAlign(TA_LEFT | TA_TOP);
        p->setPen(ParaQColor(FFont.Color));
        const QFontMetrics m(p->font());
        p->drawText(x, y + m.ascent(), texto);
        SetTextAlign(alinhamento);
        p->restore();
    }
}

void TCanvas::StretchDraw(const TRect &r, const QImage &imagem)
{
    if (QPainter *p = Preparar())
        p->drawImage(r.ParaQRect(), imagem);
}

void TCanvas::Draw(int x, int y, const QImage &imagem)
{
    if (QPainter *p = Preparar())
        p->drawImage(x, y, imagem);
}

void TCanvas::CopyRect(const TRect &destino, TCanvas &canvasOrigem, const TRect &origem)
{
    QPainter *p = Preparar();
    if (!p)
        return;
    if (FCopyMode == cmDstInvert) {
        p->save();
        p->setCompositionMode(QPainter::RasterOp_NotDestination);
        p->fillRect(destino.ParaQRect(), Qt::white);
        p->restore();
        return;
    }
    if (canvasOrigem.FImagem) {
        if (&canvasOrigem == this) {
            const QImage copia = FImagem->copy(origem.ParaQRect());
            p->drawImage(destino.ParaQRect(), copia);
        } else {
            p->drawImage(destino.ParaQRect(), *canvasOrigem.FImagem, origem.ParaQRect());
        }
    }
}

int TCanvas::TextWidth(const QString &texto) const
{
    return QFontMetrics(FFont.ParaQFont()).horizontalAdvance(texto);
}

int TCanvas::TextHeight(const QString &texto) const
{
    Q_UNUSED(texto);
    return QFontMetrics(FFont.ParaQFont()).height();
}

QSize TCanvas::TextExtent(const QString &texto) const
{
    return QSize(TextWidth(texto), TextHeight(texto));
}

TColor TCanvas::Pixel(int x, int y)
{
    if (!FImagem || !FImagem->rect().contains(x, y))
        return clNone;
    if (FPainter && FPainter->isActive())
        FPainter->end(), FPainter.reset(), FAplicado = false;
    return DeQColor(FImagem->pixelColor(x, y));
}

} // namespace tavru
