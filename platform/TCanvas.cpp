#include <tavru/platform/TCanvas.h>

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QHash>
#include <QStaticText>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <thread>
#include <vector>

namespace tavru {

static_assert(sizeof(TPoint) == sizeof(QPoint) && alignof(TPoint) == alignof(QPoint),
              "TPoint e QPoint devem ter o mesmo leiaute para desenhar sem cópia");

namespace {

inline const QPoint *ComoQPoints(const TPoint *p)
{
    return reinterpret_cast<const QPoint *>(p);
}

} // namespace

TCanvas::TCanvas(QImage *imagem) : FLinhaDona(std::this_thread::get_id())
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

void TCanvas::AtribuirSuavizar(bool ligado)
{
    FSuavizar = ligado;
    if (FPainter)
        FPainter->setRenderHint(QPainter::Antialiasing, ligado);
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

namespace {
/// Verdadeiro quando as duas fontes dispõem o texto do mesmo jeito (a cor não conta). O nome é
/// comparado primeiro pelos dados, que as cópias de uma fonte dividem.
bool MesmaForma(const TFont &a, const TFont &b)
{
    return a.Height() == b.Height() && a.Size() == b.Size() && a.Style == b.Style && a.Charset == b.Charset
        && a.Escapement == b.Escapement && (a.Name.constData() == b.Name.constData() || a.Name == b.Name);
}

/// Uma cor que nenhuma fonte tem (nem `clNone`): obriga o texto a pôr a sua caneta.
constexpr TColor CorNenhumaDoTexto = INT32_MIN;
} // namespace

QPainter *TCanvas::Preparar()
{
    return Aplicar(true);
}

QPainter *TCanvas::Aplicar(bool caneta)
{
    if (!FImagem || FImagem->isNull())
        return nullptr;
    if (!FPainter) {
        FPainter = std::make_unique<QPainter>(FImagem);
        FPainter->setRenderHint(QPainter::Antialiasing, FSuavizar);
        FAplicado = false;
    }
    if (!caneta) {
        // Quem escreve texto põe a cor do texto como caneta; sem caneta aplicada ainda, a marca
        // obriga o texto a pô-la e o próximo `Preparar` a devolver a do canvas.
        if (!FAplicado) {
            FCanetaDoTexto = true;
            FCorDoTexto = CorNenhumaDoTexto;
        }
    } else if (!FAplicado || FCanetaDoTexto || !(FPenAplicada == FPen)) {
        FCanetaDoTexto = false;
        QPen caneta = FPen.ParaQPen();
        // Numa imagem de alta densidade (razão de pixels acima de 1), a linha de um pixel tem um
        // pixel lógico de largura, como os textos e as formas, e não um pixel do aparelho.
        if (caneta.style() != Qt::NoPen && caneta.widthF() == 0.0 && FImagem->devicePixelRatio() > 1.0)
            caneta.setWidthF(1.0);
        FPainter->setPen(caneta);
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

void TCanvas::PolyPolygon(const TPoint *pontos, const int *quantidades, int aneis)
{
    QPainterPath caminho;
    caminho.setFillRule(Qt::OddEvenFill);
    for (int a = 0; a < aneis; pontos += quantidades[a], ++a) {
        if (quantidades[a] < 2)
            continue;
        caminho.moveTo(pontos[0].X, pontos[0].Y);
        for (int i = 1; i < quantidades[a]; ++i)
            caminho.lineTo(pontos[i].X, pontos[i].Y);
        caminho.closeSubpath();
    }
    if (caminho.isEmpty())
        return;
    if (QPainter *p = Preparar())
        p->drawPath(caminho);
}

namespace {
// O retângulo do contorno de uma figura de (x1, y1)-(x2, y2) com direita e base exclusivas: uma
// caneta de 1 pixel pinta de left a left + width, inclusive. Os cantos vêm em qualquer ordem.
QRect Contorno(int x1, int y1, int x2, int y2)
{
    const auto lado = [](int a, int b) { return static_cast<int>(std::max<long long>(0, std::llabs(1LL * b - a) - 1)); };
    return QRect(std::min(x1, x2), std::min(y1, y2), lado(x1, x2), lado(y1, y2));
}
} // namespace

void TCanvas::Ellipse(int x1, int y1, int x2, int y2)
{
    if (QPainter *p = Preparar())
        p->drawEllipse(Contorno(x1, y1, x2, y2));
}

void TCanvas::Rectangle(int x1, int y1, int x2, int y2)
{
    if (QPainter *p = Preparar())
        p->drawRect(Contorno(x1, y1, x2, y2));
}

void TCanvas::FillRect(const TRect &r)
{
    if (QPainter *p = Preparar())
        p->fillRect(r.ParaQRect(), FBrush.ParaQBrush());
}

/// Um texto medido e disposto numa fonte.
struct TCanvas::TTextoPronto
{
    QStaticText Texto;
    int Largura = 0;
};

/// Os textos prontos do canvas, uma tabela por fonte (as usadas por último na frente).
struct TCanvas::TTextosProntos
{
    static constexpr std::size_t MaximoDeFontes = 8;
    struct TDaFonte
    {
        TFont Fonte;
        QFont FonteQt;
        QHash<QString, TTextoPronto> Textos;
    };
    std::vector<TDaFonte> Fontes;
    /// O último texto pedido, na fonte da frente: o halo e a grade dos rótulos pedem o mesmo
    /// texto várias vezes seguidas, e a tabela grande custa uma falta de cache por consulta.
    QString UltimoTexto;
    const TTextoPronto *Ultimo = nullptr;
    /// Textos guardados em todas as fontes.
    int Total = 0;
};

const TCanvas::TTextoPronto *TCanvas::Pronto(const QString &texto) const
{
    if (!FProntos)
        FProntos = std::make_unique<TTextosProntos>();
    std::vector<TTextosProntos::TDaFonte> &fontes = FProntos->Fontes;
    auto daFonte = std::find_if(fontes.begin(), fontes.end(), [this](const auto &f) { return MesmaForma(f.Fonte, FFont); });
    if (daFonte == fontes.end()) {
        if (fontes.size() >= TTextosProntos::MaximoDeFontes) {
            FProntos->Total -= int(fontes.back().Textos.size());
            fontes.pop_back();
        }
        fontes.insert(fontes.begin(), TTextosProntos::TDaFonte{FFont, FFont.ParaQFont(), {}});
        daFonte = fontes.begin();
        FProntos->Ultimo = nullptr;
    } else if (daFonte != fontes.begin()) {
        std::rotate(fontes.begin(), daFonte, daFonte + 1);
        daFonte = fontes.begin();
        FProntos->Ultimo = nullptr;
    } else if (FProntos->Ultimo && texto == FProntos->UltimoTexto) {
        return FProntos->Ultimo;
    }
    QHash<QString, TTextoPronto> &textos = daFonte->Textos;
    auto achado = textos.constFind(texto);
    if (achado == textos.constEnd()) {
        // Cheio: o texto novo fica sem guardar (esvaziar e recomeçar faria um quadro com mais
        // rótulos que o limite preparar todos de novo a cada vez).
        if (FProntos->Total >= LimiteDeTextosProntos)
            return nullptr;
        ++FProntos->Total;
        TTextoPronto pronto;
        pronto.Largura = Metricas().horizontalAdvance(texto);
        pronto.Texto.setText(texto);
        pronto.Texto.setTextFormat(Qt::PlainText);
        pronto.Texto.prepare(QTransform(), daFonte->FonteQt);
        achado = textos.insert(texto, std::move(pronto));
    }
    FProntos->UltimoTexto = texto;
    FProntos->Ultimo = &*achado;
    return FProntos->Ultimo;
}

void TCanvas::TextOut(int x, int y, const QString &texto)
{
    const TTextoPronto *pronto =
        FFont.Escapement == 0 && std::this_thread::get_id() == FLinhaDona ? Pronto(texto) : nullptr;
    QPainter *p = pronto ? Aplicar(false) : Preparar();
    if (!p || texto.isEmpty()) {
        FPenPos = TPoint(x + TextWidth(texto), y);
        return;
    }
    const QFontMetrics &m = Metricas();
    if (pronto) {
        // O caminho dos rótulos: o texto pronto, sem salvar e restaurar o pintor (a caneta fica
        // com a cor do texto até o próximo `Preparar`).
        int dx = 0;
        switch (FTextAlign & TA_CENTER) {
        case TA_RIGHT: dx = -pronto->Largura; break;
        case TA_CENTER: dx = -pronto->Largura / 2; break;
        default: break;
        }
        int dy = 0;
        switch (FTextAlign & TA_BASELINE) {
        case TA_BOTTOM: dy = -m.height(); break;
        case TA_BASELINE: dy = -m.ascent(); break;
        default: break;
        }
        if (FBrush.Style != bsClear && FBrush.Color != clNone)
            p->fillRect(QRect(x + dx, y + dy, pronto->Largura, m.height()), ParaQColor(FBrush.Color));
        if (!FCanetaDoTexto || FCorDoTexto != FFont.Color) {
            p->setPen(ParaQColor(FFont.Color));
            FCanetaDoTexto = true;
            FCorDoTexto = FFont.Color;
        }
        p->drawStaticText(x + dx, y + dy, pronto->Texto);
        FPenPos = TPoint(x + pronto->Largura, y);
        return;
    }
    const int largura = m.horizontalAdvance(texto);
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
    FPenPos = TPoint(x + largura, y);
}

void TCanvas::TextRect(const TRect &r, int x, int y, const QString &texto)
{
    if (QPainter *p = Preparar()) {
        p->save();
        p->setClipRect(r.ParaQRect());
        p->setPen(ParaQColor(FFont.Color));
        p->drawText(x, y + Metricas().ascent(), texto);
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

const QFontMetrics &TCanvas::Metricas() const
{
    if (!FMetricas || !MesmaForma(FFonteMedida, FFont)) {
        FMetricas = std::make_unique<QFontMetrics>(FFont.ParaQFont());
        FFonteMedida = FFont;
    }
    return *FMetricas;
}

int TCanvas::TextWidth(const QString &texto) const
{
    if (std::this_thread::get_id() == FLinhaDona)
        if (const TTextoPronto *pronto = Pronto(texto))
            return pronto->Largura;
    return Metricas().horizontalAdvance(texto);
}

int TCanvas::TextHeight(const QString &texto) const
{
    Q_UNUSED(texto);
    return Metricas().height();
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
