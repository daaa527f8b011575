#include <tavru/companions/symbology/TSetor.h>

#include <tavru/platform/TCanvas.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace tavru {

namespace {
constexpr double DuasPi = 2.0 * 3.14159265358979323846;
constexpr int LadosPorVolta = 72;

int Limitar(double v)
{
    return static_cast<int>(std::clamp(v, double(INT_MIN), double(INT_MAX)));
}

double Finito(double v)
{
    return std::isfinite(v) ? v : 0.0;
}

// Acrescenta o arco de elipse de semi-eixos (rx, ry) de `de` andando `varredura` radianos
// (negativa: sentido horário), com as duas pontas.
void Arco(std::vector<TPoint> &pontos, const TTransformacaoSimbolo &t, const TPoint &c, double rx, double ry,
          double de, double varredura)
{
    const int lados = std::max(2, static_cast<int>(std::ceil(std::abs(varredura) / DuasPi * LadosPorVolta)));
    for (int i = 0; i <= lados; ++i) {
        const double a = de + varredura * i / lados;
        pontos.push_back(t.Aplicar(c.X + rx * std::cos(a), c.Y - ry * std::sin(a)));
    }
}
} // namespace

bool TSetor::ObterArea(TRect &area) const
{
    const double rx = std::abs(Finito(FRaioExterno));
    const double ry = std::abs(Finito(SemiEixoVertical(true)));
    area = TRect(Limitar(std::floor(FCentro.X - rx)), Limitar(std::floor(FCentro.Y - ry)),
                 Limitar(std::ceil(FCentro.X + rx)), Limitar(std::ceil(FCentro.Y + ry)));
    return true;
}

void TSetor::Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const
{
    const double inicial = Finito(FAnguloInicial);
    const double final_ = Finito(FAnguloFinal);
    const bool voltaInteira = inicial == final_;
    // Do inicial ao final no sentido horário: de 0 (exclusive) a uma volta.
    double varredura = std::fmod(inicial - final_, DuasPi);
    if (varredura <= 0.0)
        varredura += DuasPi;
    if (voltaInteira)
        varredura = DuasPi;
    const double rx = Finito(FRaioExterno), ry = Finito(SemiEixoVertical(true));
    const double ix = Finito(FRaioInterno), iy = Finito(SemiEixoVertical(false));

    std::vector<TPoint> pontos;
    if (ix <= 0.0) {
        if (!voltaInteira)
            pontos.push_back(t.Aplicar(FCentro.X, FCentro.Y));
        Arco(pontos, t, FCentro, rx, ry, inicial, -varredura);
    } else {
        // Por fora no sentido horário e por dentro de volta.
        Arco(pontos, t, FCentro, rx, ry, inicial, -varredura);
        Arco(pontos, t, FCentro, ix, iy, inicial - varredura, varredura);
    }
    canvas.Pen().Assign(FCaneta);
    canvas.Brush().Assign(FPincel);
    canvas.Polygon(pontos.data(), static_cast<int>(pontos.size()));
}

} // namespace tavru
