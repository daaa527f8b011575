#include <tavru/elements/GISArea.h>

#include <tavru/elements/Deslocamento.h>

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <cmath>

namespace tavru {

const TClasseObjeto TGISArea::Descritor = TClasseObjeto::De<TGISArea>("TGISArea");

bool AtualizarCoresComPincel(const TTabelaDeCores &tabela, std::int32_t indiceCor, TPen &caneta,
                             std::int32_t indicePincel, TBrush &pincel)
{
    const TColor corCaneta = tabela.ObterCor(indiceCor);
    const TColor corPincel = tabela.ObterCor(indicePincel);
    if (caneta.Color == corCaneta && pincel.Color == corPincel)
        return false;
    caneta.Color = corCaneta;
    pincel.Color = corPincel; // o estilo do pincel fica
    return true;
}

TGISArea::TGISArea() = default;

TGISArea::~TGISArea() = default;

void TGISArea::AtribuirCor(TColor cor)
{
    FPincel.Color = cor;
    Mudou();
}

TColor TGISArea::ObterCor() const
{
    return FPincel.Color;
}

void TGISArea::AtualizarCores(const TTabelaDeCores &tabela)
{
    if (AtualizarCoresComPincel(tabela, IndiceCor(), Caneta(), FIndicePincel, FPincel))
        Mudou();
}

bool TGISArea::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const int n = PerguntarNumeroDePontos(QStringLiteral("Área"), QStringLiteral("Entre com o número de Pontos de 3 a 200"), 3);
    if (n == 0)
        return false;
    auto lista = new TGISPosicaoList;
    Pontos().Add(lista);
    lista->Reservar(n + 1);
    const double passo = 2 * 3.14159265358979323846 / n;
    for (int i = 0; i < n; ++i) {
        const TPoint p(Arredondar(std::cos(i * passo) * 20.0 + ponto.X),
                       Arredondar(std::sin(i * passo) * 20.0 + ponto.Y));
        lista->Add(projecao.TelaParaMundo(p));
    }
    lista->Add(lista->First()); // fechada explicitamente
    CalcularLimites();
    return true;
}

void TGISArea::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Assign(FPincel);
        canvas.Pen().Assign(Caneta());
    }
    DesenharSequencias(canvas, projecao, false);
}

bool TGISArea::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    std::vector<TPoint> pontos;
    for (int i = 0; i < Pontos().Count(); ++i) {
        if (Pontos().Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        if (projecao.PertenceAArea(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto))
            return true;
    }
    return false;
}

} // namespace tavru
