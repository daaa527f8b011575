#include <tavru/companions/geodesy/Rumo.h>

#include <cmath>

namespace tavru {

namespace {

double Reduzir(double graus)
{
    if (!std::isfinite(graus))
        return graus;
    double r = std::fmod(graus, 360.0);
    if (r < 0.0)
        r += 360.0;
    return r >= 360.0 ? 0.0 : r + 0.0; // -1e-20 + 360 arredonda para 360; + 0.0 tira o -0
}

} // namespace

double GrauToMarinha(double graus)
{
    return Reduzir(90.0 - graus);
}

double MarinhaToGrau(double rumo)
{
    return Reduzir(90.0 - rumo);
}

} // namespace tavru
