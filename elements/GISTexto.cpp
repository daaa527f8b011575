#include <tavru/elements/GISTexto.h>

#include <tavru/companions/geodesy/RotacaoDeFonte.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QFontMetrics>
#include <algorithm>
#include <cstdint>
#include <QGuiApplication>

namespace tavru {

const TClasseObjeto TGISTexto::Descritor = TClasseObjeto::De<TGISTexto>("TGISTexto");

namespace {

constexpr double Pi = 3.14159265358979323846;

} // namespace

TGISTexto::TGISTexto()
{
    Medir();
}

TGISTexto::~TGISTexto() = default;

bool TGISTexto::ObterValido() const
{
    return Valida(Posicao());
}

void TGISTexto::AtribuirCor(TColor cor)
{
    FFonte.Color = cor;
    Mudou();
}

TColor TGISTexto::ObterCor() const
{
    return FFonte.Color;
}

bool TGISTexto::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    (void)projecao.TelaParaMundo(ponto); // convertido e não guardado, de propósito
    return true;
}

unsigned TGISTexto::BandeirasDeAlinhamento() const
{
    unsigned bandeiras = TA_BASELINE;
    switch (FAlinhamentoVertical) {
    case 1: bandeiras |= TA_BOTTOM; break;
    case 2: bandeiras |= TA_CENTER; break;
    default: break;
    }
    switch (FAlinhamentoHorizontal) {
    case 1: bandeiras |= TA_RIGHT; break;
    case 2: bandeiras |= TA_CENTER; break;
    default: break;
    }
    return bandeiras;
}

void TGISTexto::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    const TPoint p = projecao.MundoParaTela(Posicao());
    TFont &fonteDoCanvas = canvas.Font();
    const int angulo = Arredondar(Orientacao() * 180.0 / Pi * 10.0 + FGiroAdicional * 10.0);
    RotacionarFonte(FFonte, angulo);
    canvas.Font().Assign(FFonte);
    canvas.SetTextAlign(BandeirasDeAlinhamento());
    canvas.Brush().Style = bsClear;
    if (!selecionado)
        canvas.TextOut(p.X, p.Y, FTexto);
    else
        canvas.Font().Color = canvas.Pen().Color;
    // A "restauração" com a própria fonte do canvas não muda nada: o canvas fica com a fonte do
    // texto, de propósito.
    canvas.Font().Assign(fonteDoCanvas);
}

void TGISTexto::AtribuirFonte(const TFont &fonte)
{
    FFonte.Assign(fonte);
    MedirTexto();
}

void TGISTexto::AtribuirTexto(const QString &texto)
{
    FTexto = texto;
    MedirTexto();
}

void TGISTexto::MedirTexto()
{
    Medir();
    Mudou();
}

void TGISTexto::Medir()
{
    // Uma QFontMetrics local por medida: nada de estado de medida compartilhado entre textos.
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        FLargura = FAltura = QFontMetrics(FFonte.ParaQFont()).horizontalAdvance(FTexto); // a altura é a largura, de propósito
        return;
    }
    FLargura = static_cast<int>(std::min<qsizetype>(12 * FTexto.size(), INT32_MAX));
    FAltura = 12;
}

void TGISTexto::MedirTexto(int &largura, int &altura) const
{
    largura = FLargura;
    altura = FAltura;
}

TGISRet TGISTexto::Area() const
{
    const int w = FLargura;
    const int h = FAltura;
    const TGISPosicao p = Posicao();
    TGISRet r = GISRet(0, 0, 0, 0);
    switch (FAlinhamentoVertical) {
    case 0: r.Pos1.Latitude = p.Latitude; r.Pos2.Latitude = p.Latitude + h; break;
    case 1: r.Pos1.Latitude = p.Latitude - h; r.Pos2.Latitude = p.Latitude; break;
    case 2: r.Pos1.Latitude = p.Latitude - h / 2; r.Pos2.Latitude = p.Latitude + h / 2; break;
    default: break;
    }
    switch (FAlinhamentoHorizontal) {
    case 0: r.Pos1.Longitude = p.Longitude; r.Pos2.Longitude = p.Longitude + w; break;
    case 1: r.Pos1.Longitude = p.Longitude - w; r.Pos2.Longitude = p.Longitude; break;
    case 2: r.Pos1.Longitude = p.Longitude - w / 2; r.Pos2.Longitude = p.Longitude + w / 2; break;
    default: break;
    }
    return r;
}

bool TGISTexto::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    return PertenceRect(ponto, projecao.MundoParaTelaRet(Area()));
}

} // namespace tavru
