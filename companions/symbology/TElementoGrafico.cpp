#include <tavru/companions/symbology/TElementoGrafico.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tavru {

namespace {
constexpr double LimitePixel = 1073741824.0; // 2^30: longe de estourar somas de 32 bits

int Pixel(double v)
{
    if (!(v == v)) // NaN
        return 0;
    return static_cast<int>(std::lround(std::clamp(v, -LimitePixel, LimitePixel)));
}
} // namespace

TTransformacaoSimbolo::TTransformacaoSimbolo(const TRect &area, const TRect &tela, double angulo)
    : FAngulo(std::isfinite(angulo) ? angulo : 0.0)
{
    const double esquerda = std::min(tela.Left, tela.Right);
    const double topo = std::min(tela.Top, tela.Bottom);
    const double largura = std::abs(double(tela.Right) - tela.Left);
    const double altura = std::abs(double(tela.Bottom) - tela.Top);
    FLado = static_cast<int>(std::min(largura, altura));
    // Os pixels do retângulo vão de esquerda a esquerda + largura - 1.
    FTx = esquerda + (largura - 1) / 2.0;
    FTy = topo + (altura - 1) / 2.0;
    FCx = (double(area.Left) + area.Right) / 2.0;
    FCy = (double(area.Top) + area.Bottom) / 2.0;
    const double w = double(area.Right) - area.Left;
    const double h = double(area.Bottom) - area.Top;
    const double ex = w > 0 ? std::max(0.0, largura - 1) / w : HUGE_VAL;
    const double ey = h > 0 ? std::max(0.0, altura - 1) / h : HUGE_VAL;
    FEscala = std::min(ex, ey);
    if (FEscala == HUGE_VAL)
        FEscala = 1.0;
    FCos = std::cos(FAngulo);
    FSen = std::sin(FAngulo);
}

TPoint TTransformacaoSimbolo::Aplicar(double x, double y) const
{
    const double dx = (x - FCx) * FEscala;
    const double dy = (y - FCy) * FEscala;
    // Giro anti-horário na tela, onde y cresce para baixo.
    return TPoint(Pixel(FTx + dx * FCos + dy * FSen), Pixel(FTy - dx * FSen + dy * FCos));
}

TElementoGrafico::~TElementoGrafico() = default;

} // namespace tavru
