#include <tavru/core/TGISProjecaoTeste.h>

#include <tavru/core/ProjecaoLinear_p.h>

#include <cmath>

namespace tavru {

namespace {
constexpr double RadianosPorGrau = 3.14159265358979323846 / 180.0;
}

TGISProjecaoTeste::TGISProjecaoTeste()
{
    CalcularCoef();
}

void TGISProjecaoTeste::CalcularCoef()
{
    linear::CalcularCoef(AreaTela(), AreaMundo(), Zoom(), FCoeficiente, FCentroTela);
}

void TGISProjecaoTeste::DoAtribuirZoom(double zoom)
{
    TGISProjecao::DoAtribuirZoom(zoom);
    CalcularCoef();
}

void TGISProjecaoTeste::DoAtribuirAreaTela(const TRect &r)
{
    TGISProjecao::DoAtribuirAreaTela(r);
    CalcularCoef();
}

void TGISProjecaoTeste::DoAtribuirAreaMundo(const TGISRet &r)
{
    TGISProjecao::DoAtribuirAreaMundo(r);
    CalcularCoef();
}

std::unique_ptr<TGISProjecao> TGISProjecaoTeste::Criar() const
{
    return std::make_unique<TGISProjecaoTeste>();
}

void TGISProjecaoTeste::Copiar(const TGISProjecao &origem)
{
    TGISProjecao::Copiar(origem);
    CalcularCoef();
}

void TGISProjecaoTeste::FitToRect(const TGISRet &r)
{
    AjustarAoRetangulo(r);
}

bool TGISProjecaoTeste::Visivel(const TGISRet &) const
{
    return true;
}

std::int64_t TGISProjecaoTeste::Envolver(std::int64_t v, std::int64_t lo, std::int64_t hi)
{
    const std::int64_t periodo = hi - lo + 1;
    std::int64_t resto = (v - lo) % periodo;
    if (resto < 0)
        resto += periodo;
    return lo + resto;
}

TPoint TGISProjecaoTeste::MundoParaTela(const TGISPosicao &p) const
{
    std::int64_t dLat = Envolver(std::int64_t(p.Latitude) - Centro().Latitude, -648000, 648000);
    if (dLat < -324000)
        dLat += 324000;
    else if (dLat > 324000)
        dLat -= 324000;
    const std::int64_t dLong = Envolver(std::int64_t(p.Longitude) - Centro().Longitude, -648000, 648000);
    const double a = static_cast<double>(dLat) / 3600.0 * RadianosPorGrau;
    const double b = static_cast<double>(dLong) / 3600.0 * RadianosPorGrau;
    return TPoint(Arredondar(std::cos(a) * std::cos(b) * FCoeficiente + FCentroTela.X),
                  Arredondar(FCentroTela.Y - std::sin(b) * std::cos(a) * FCoeficiente));
}

TGISPosicao TGISProjecaoTeste::TelaParaMundo(const TPoint &p) const
{
    linear::VerificarCoef(FCoeficiente);
    return linear::TelaParaMundo(p, {FCoeficiente, FCentroTela, Centro()});
}

} // namespace tavru
