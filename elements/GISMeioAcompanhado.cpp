#include <tavru/elements/GISMeioAcompanhado.h>

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tavru {

std::int32_t TamanhoNaTelaDefault = 12;
TGISPosicao TamanhoNoMundoDefault{0, 0};

namespace {
constexpr double Pi = 3.14159265358979323846;
constexpr double GrausParaRadianos = Pi / 180.0;
/// O ângulo do começo da barra da placa, com as suas quatro casas.
constexpr double AnguloBarraInicio = 2.3562;
constexpr double AnguloBarraFim = 5.497792653589793; // 7π/4
} // namespace

const TClasseObjeto TGISMeioAcompanhado::Descritor =
    TClasseObjeto::De<TGISMeioAcompanhado>("TGISMeioAcompanhado");

TGISMeioAcompanhado::TGISMeioAcompanhado()
{
    AtribuirTamanhoNoMundo(TamanhoNoMundoDefault);
    TamanhoNaTela(TPoint(TamanhoNaTelaDefault, TamanhoNaTelaDefault));
}

TGISMeioAcompanhado::~TGISMeioAcompanhado() = default;

void TGISMeioAcompanhado::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    TGISPonto::Desenhar(canvas, projecao, selecionado); // faz o leiaute do ponto
    if (FIndicadorRumo != 0.0)
        DesenharRumo(canvas, projecao);
    if (!FPlacaOculta)
        DesenharPlaca(canvas, projecao);
}

void TGISMeioAcompanhado::Medidas(const TGISProjecao &projecao, TPoint &c, int &l)
{
    const TRect r = ObterAreaDesenho(projecao);
    c = projecao.MundoParaTela(Posicao());
    l = std::max(std::abs(r.Bottom - r.Top), std::abs(r.Right - r.Left));
}

void TGISMeioAcompanhado::DesenharRumo(TCanvas &canvas, const TGISProjecao &projecao)
{
    TPoint c;
    int l = 0;
    Medidas(projecao, c, l);
    const double a = Pi / 2 - Orientacao() * GrausParaRadianos;
    TPen &caneta = canvas.Pen();
    caneta.Style = psSolid;
    caneta.Width = 1;
    caneta.Color = ObterCor() | 0x4F4F4F;

    const int h = l / 2 + 3;
    const TPoint p1(Arredondar(c.X + h * std::cos(a) - 1), Arredondar(c.Y - h * std::sin(a) + 1));
    const TPoint p2(Arredondar(c.X + h * std::cos(a + Pi) - 1), Arredondar(c.Y - h * std::sin(a + Pi) + 1));
    canvas.MoveTo(p1.X, p1.Y);
    canvas.LineTo(p2.X, p2.Y);

    const int k = h / 3;
    const double ponta = 150.0 * GrausParaRadianos;
    const TPoint q1(Arredondar(p1.X + k * std::cos(a + ponta) - 1), Arredondar(p1.Y - k * std::sin(a + ponta) + 1));
    const TPoint q2(Arredondar(p1.X + k * std::cos(a - ponta) - 1), Arredondar(p1.Y - k * std::sin(a - ponta) + 1));
    canvas.MoveTo(p1.X, p1.Y);
    canvas.LineTo(q1.X, q1.Y);
    canvas.MoveTo(p1.X, p1.Y);
    canvas.LineTo(q2.X, q2.Y);
}

void TGISMeioAcompanhado::DesenharPlaca(TCanvas &canvas, const TGISProjecao &projecao)
{
    TPoint c;
    int l = 0;
    Medidas(projecao, c, l);
    TPen &caneta = canvas.Pen();
    const TColor corAntes = caneta.Color;
    const int larguraAntes = caneta.Width;
    caneta.Color = clRed;
    caneta.Width = 2;
    caneta.Style = psSolid;
    canvas.Brush().Style = bsClear;

    const int r = l / 2;
    canvas.Ellipse(c.X - r, c.Y - r, c.X + r, c.Y + r);
    canvas.MoveTo(Arredondar(c.X + r * std::cos(AnguloBarraInicio)), Arredondar(c.Y - r * std::sin(AnguloBarraInicio)));
    canvas.LineTo(Arredondar(c.X + r * std::cos(AnguloBarraFim)), Arredondar(c.Y - r * std::sin(AnguloBarraFim)));

    caneta.Color = corAntes;
    caneta.Width = larguraAntes;
}

} // namespace tavru
