#include <tavru/elements/GISTexto.h>

#include <tavru/companions/geodesy/RotacaoDeFonte.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QGuiApplication>

namespace tavru {

const TClasseObjeto TGISTexto::Descritor = TClasseObjeto::De<TGISTexto>("TGISTexto");

namespace {

constexpr double Pi = 3.14159265358979323846;

/// O canvas de medida: sem imagem, só mede texto, e guarda a última fonte posta nele. Um por
/// linha de execução, porque a extensão do texto é pedida também por quem desenha fora da linha
/// da interface. Nulo sem aplicação gráfica.
TCanvas *CanvasDaAplicacao()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return nullptr;
    thread_local TCanvas canvas;
    return &canvas;
}

} // namespace

TGISTexto::TGISTexto() = default;

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

void TGISTexto::MedirTexto(int &largura, int &altura) const
{
    if (TCanvas *canvas = CanvasDaAplicacao()) {
        canvas->Font().Assign(FFonte);
        largura = altura = canvas->TextWidth(FTexto); // a altura é a largura, de propósito
        return;
    }
    largura = 12 * static_cast<int>(FTexto.size());
    altura = 12;
}

TGISRet TGISTexto::Area() const
{
    int w = 0;
    int h = 0;
    MedirTexto(w, h);
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
