#include <tavru/companions/geodesy/GISPosicao.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tavru {

namespace {

using i64 = std::int64_t;

#if defined(__SIZEOF_INT128__)
using Produto = __int128;
#else
using Produto = long double; // exato até 2^64 nos compiladores sem inteiro de 128 bits
#endif

/// ux * vy - uy * vx sem perda: os fatores de tela chegam a 2^32 e o produto não cabe em 64 bits.
Produto Vetorial(i64 ux, i64 uy, i64 vx, i64 vy)
{
    return static_cast<Produto>(ux) * vy - static_cast<Produto>(uy) * vx;
}

int SinalVetorial(i64 ux, i64 uy, i64 vx, i64 vy)
{
    const Produto p = Vetorial(ux, uy, vx, vy);
    return (p > 0) - (p < 0);
}

/// Orientação de c em relação à reta a-b: 1 à esquerda, -1 à direita, 0 sobre ela.
int Orientacao(i64 ax, i64 ay, i64 bx, i64 by, i64 cx, i64 cy)
{
    return SinalVetorial(bx - ax, by - ay, cx - ax, cy - ay);
}

bool CruzamentoProprio(i64 a1x, i64 a1y, i64 a2x, i64 a2y, i64 b1x, i64 b1y, i64 b2x, i64 b2y)
{
    const int o1 = Orientacao(a1x, a1y, a2x, a2y, b1x, b1y);
    const int o2 = Orientacao(a1x, a1y, a2x, a2y, b2x, b2y);
    const int o3 = Orientacao(b1x, b1y, b2x, b2y, a1x, a1y);
    const int o4 = Orientacao(b1x, b1y, b2x, b2y, a2x, a2y);
    return o1 * o2 < 0 && o3 * o4 < 0;
}

double DistanciaAoSegmento(double ax, double ay, double bx, double by, double px, double py)
{
    const double dx = bx - ax;
    const double dy = by - ay;
    const double comprimento2 = dx * dx + dy * dy;
    double t = 0.0;
    if (comprimento2 > 0.0)
        t = std::clamp(((px - ax) * dx + (py - ay) * dy) / comprimento2, 0.0, 1.0);
    return std::hypot(px - (ax + t * dx), py - (ay + t * dy));
}

std::int32_t Metade(i64 a, i64 b)
{
    return static_cast<std::int32_t>((a + b) / 2); // divisão inteira trunca em direção a zero
}

std::int32_t ParaInt32(double v)
{
    constexpr double menor = std::numeric_limits<std::int32_t>::min();
    constexpr double maior = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(v))
        return 0;
    return static_cast<std::int32_t>(std::clamp(std::round(v), menor, maior));
}

bool DentroDoMundo(const TGISPosicao &p)
{
    return p.Latitude >= MundoInteiro.Pos1.Latitude && p.Latitude <= MundoInteiro.Pos2.Latitude
        && p.Longitude >= MundoInteiro.Pos1.Longitude && p.Longitude <= MundoInteiro.Pos2.Longitude;
}

} // namespace

TGISRet ConcertaRect(const TGISRet &r)
{
    return GISRet(std::min(r.Pos1.Latitude, r.Pos2.Latitude), std::min(r.Pos1.Longitude, r.Pos2.Longitude),
                  std::max(r.Pos1.Latitude, r.Pos2.Latitude), std::max(r.Pos1.Longitude, r.Pos2.Longitude));
}

TRect ConcertaRect(const TRect &r)
{
    return TRect(std::min(r.Left, r.Right), std::min(r.Top, r.Bottom), std::max(r.Left, r.Right),
                 std::max(r.Top, r.Bottom));
}

TPoint Centro(const TRect &r)
{
    return TPoint(Metade(r.Left, r.Right), Metade(r.Top, r.Bottom));
}

TGISPosicao Centro(const TGISRet &r)
{
    return GISPosicao(Metade(r.Pos1.Latitude, r.Pos2.Latitude), Metade(r.Pos1.Longitude, r.Pos2.Longitude));
}

double DistanciaAReta(const TGISPosicao &a, const TGISPosicao &b, const TGISPosicao &p)
{
    return DistanciaAoSegmento(a.Longitude, a.Latitude, b.Longitude, b.Latitude, p.Longitude, p.Latitude);
}

double DistanciaAReta(const TPoint &a, const TPoint &b, const TPoint &p)
{
    return DistanciaAoSegmento(a.X, a.Y, b.X, b.Y, p.X, p.Y);
}

bool Intercepta(const TGISPosicao &a1, const TGISPosicao &a2, const TGISPosicao &b1, const TGISPosicao &b2)
{
    return CruzamentoProprio(a1.Longitude, a1.Latitude, a2.Longitude, a2.Latitude, b1.Longitude, b1.Latitude,
                             b2.Longitude, b2.Latitude);
}

bool Intercepta(const TPoint &a1, const TPoint &a2, const TPoint &b1, const TPoint &b2)
{
    return CruzamentoProprio(a1.X, a1.Y, a2.X, a2.Y, b1.X, b1.Y, b2.X, b2.Y);
}

bool PontoIntersecao(const TPoint &a1, const TPoint &a2, const TPoint &b1, const TPoint &b2, TPoint &ponto)
{
    const i64 rx = i64(a2.X) - a1.X, ry = i64(a2.Y) - a1.Y;
    const i64 sx = i64(b2.X) - b1.X, sy = i64(b2.Y) - b1.Y;
    const i64 qx = i64(b1.X) - a1.X, qy = i64(b1.Y) - a1.Y;
    Produto d = Vetorial(rx, ry, sx, sy);
    if (d == 0 || (rx == 0 && ry == 0) || (sx == 0 && sy == 0))
        return false;
    // a1 + t·r = b1 + u·s, com t = (q × s) / d e u = (q × r) / d; ambos em [0, 1].
    Produto nt = Vetorial(qx, qy, sx, sy);
    Produto nu = Vetorial(qx, qy, rx, ry);
    if (d < 0) {
        d = -d;
        nt = -nt;
        nu = -nu;
    }
    if (nt < 0 || nt > d || nu < 0 || nu > d)
        return false;
    const double t = static_cast<double>(nt) / static_cast<double>(d);
    ponto = TPoint(static_cast<int>(std::lround(a1.X + t * rx)), static_cast<int>(std::lround(a1.Y + t * ry)));
    return true;
}

TGISRet Uniao(const TGISRet &a, const TGISRet &b)
{
    const TGISRet x = ConcertaRect(a);
    const TGISRet y = ConcertaRect(b);
    return GISRet(std::min(x.Pos1.Latitude, y.Pos1.Latitude), std::min(x.Pos1.Longitude, y.Pos1.Longitude),
                  std::max(x.Pos2.Latitude, y.Pos2.Latitude), std::max(x.Pos2.Longitude, y.Pos2.Longitude));
}

bool Valida(const TGISRet &r)
{
    return r != GISRet(0, 0, 0, 0) && DentroDoMundo(r.Pos1) && DentroDoMundo(r.Pos2);
}

bool Valida(const TGISPosicao &p)
{
    return DentroDoMundo(p);
}

bool Intersecao(const TRect &a, const TRect &b)
{
    const TRect x = ConcertaRect(a);
    const TRect y = ConcertaRect(b);
    return x.Left <= y.Right && y.Left <= x.Right && x.Top <= y.Bottom && y.Top <= x.Bottom;
}

bool Contem(const TGISRet &fora, const TGISRet &dentro)
{
    const TGISRet f = ConcertaRect(fora);
    const TGISRet d = ConcertaRect(dentro);
    return f.Pos1.Latitude <= d.Pos1.Latitude && f.Pos1.Longitude <= d.Pos1.Longitude
        && d.Pos2.Latitude <= f.Pos2.Latitude && d.Pos2.Longitude <= f.Pos2.Longitude;
}

bool PertenceRect(const TPoint &p, const TRect &r)
{
    const TRect o = ConcertaRect(r);
    return p.X >= o.Left && p.X <= o.Right && p.Y >= o.Top && p.Y <= o.Bottom;
}

TGISRet Escalonar(const TGISRet &r, double fator)
{
    const double cLat = (static_cast<double>(r.Pos1.Latitude) + r.Pos2.Latitude) / 2.0;
    const double cLong = (static_cast<double>(r.Pos1.Longitude) + r.Pos2.Longitude) / 2.0;
    auto escala = [fator](double c, std::int32_t v) { return ParaInt32(c + (v - c) * fator); };
    return GISRet(escala(cLat, r.Pos1.Latitude), escala(cLong, r.Pos1.Longitude), escala(cLat, r.Pos2.Latitude),
                  escala(cLong, r.Pos2.Longitude));
}

TRect Inflar(const TRect &r, int d)
{
    return TRect(r.Left - d, r.Top - d, r.Right + d, r.Bottom + d);
}

QString StrZero(long long numero, int largura)
{
    if (numero < 0) {
        // O sinal ocupa uma das casas: StrZero(-1, 3) = "-01".
        const unsigned long long modulo = 0ULL - static_cast<unsigned long long>(numero);
        return QStringLiteral("-") + QString::number(modulo).rightJustified(std::max(largura - 1, 0), u'0');
    }
    return QString::number(numero).rightJustified(std::max(largura, 0), u'0');
}

} // namespace tavru
