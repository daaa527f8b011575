#pragma once
// Contas comuns às projeções lineares (Mercator e teste): o coeficiente, o centro da tela e as
// conversões ponto a ponto. Um único núcleo por direção serve à conversão de um ponto (virtual) e
// aos laços de listas, de modo que os dois caminhos dão sempre o mesmo resultado. Não instalado.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/Arredondar.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TPoint.h>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace tavru {
namespace linear {

static_assert(sizeof(TPoint) == 8 && sizeof(TGISPosicao) == 8, "pares de inteiros de 32 bits, sem folga");

// Coeficiente (pixels por segundo de arco, zoom incluído) e centro da tela.
inline void CalcularCoef(const TRect &tela, const TGISRet &mundo, double zoom, double &coeficiente, TPoint &centroTela)
{
    const double dLong = std::fabs(static_cast<double>(std::int64_t(mundo.Pos2.Longitude) - mundo.Pos1.Longitude));
    const double dLat = std::fabs(static_cast<double>(std::int64_t(mundo.Pos2.Latitude) - mundo.Pos1.Latitude));
    const double h = dLong == 0.0 ? 1.0 : std::fabs(static_cast<double>(std::int64_t(tela.Right) - tela.Left)) / dLong;
    const double v = dLat == 0.0 ? 1.0 : std::fabs(static_cast<double>(std::int64_t(tela.Bottom) - tela.Top)) / dLat;
    coeficiente = (h < v ? h : v) * zoom;
    centroTela = TPoint(static_cast<int>((std::int64_t(tela.Left) + tela.Right) / 2),
                        static_cast<int>((std::int64_t(tela.Top) + tela.Bottom) / 2));
}

inline void VerificarCoef(double coeficiente)
{
    if (coeficiente == 0.0)
        throw EZeroDivide(QStringLiteral("Divisão por zero: o coeficiente da projeção é nulo (área da tela vazia)"));
}

// Soma inteira que dá a volta em vez de transbordar (como a soma das instruções vetoriais).
inline int SomarComVolta(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

// Parâmetros de uma conversão, copiados uma vez por chamada.
struct TParametros
{
    double Coeficiente;
    TPoint CentroTela;
    TGISPosicao Centro;
};

// x = Round((long - centro.long) * c) + ctX; y = Round(ctY - (lat - centro.lat) * c).
inline TPoint MundoParaTela(const TGISPosicao &p, const TParametros &k)
{
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(TAVRU_SEM_SIMD)
    // Um par (lat, long) por vez: (ctY + dLat * -c, dLong * c), arredondados juntos.
    std::int64_t bruto;
    std::memcpy(&bruto, &p, sizeof bruto);
    const __m128d pos = _mm_cvtepi32_pd(_mm_cvtsi64_si128(bruto));
    const __m128d d = _mm_sub_pd(pos, _mm_set_pd(k.Centro.Longitude, k.Centro.Latitude));
    const __m128d t = _mm_add_pd(_mm_mul_pd(d, _mm_set_pd(k.Coeficiente, -k.Coeficiente)),
                                 _mm_set_pd(0.0, k.CentroTela.Y));
    const __m128i r = _mm_add_epi32(_mm_cvtpd_epi32(t), _mm_set_epi32(0, 0, k.CentroTela.X, 0));
    const __m128i xy = _mm_shuffle_epi32(r, _MM_SHUFFLE(3, 2, 0, 1));
    TPoint s;
    const std::int64_t saida = _mm_cvtsi128_si64(xy);
    std::memcpy(static_cast<void *>(&s), &saida, sizeof s);
    return s;
#else
    const double dLat = static_cast<double>(p.Latitude) - k.Centro.Latitude;
    const double dLong = static_cast<double>(p.Longitude) - k.Centro.Longitude;
    return TPoint(SomarComVolta(Arredondar(dLong * k.Coeficiente + 0.0), k.CentroTela.X),
                  Arredondar(dLat * -k.Coeficiente + k.CentroTela.Y));
#endif
}

// lat = Round((ctY - y) / c) + centro.lat; long = Round((x - ctX) / c) + centro.long.
// O chamador garante c != 0 (VerificarCoef).
inline TGISPosicao TelaParaMundo(const TPoint &p, const TParametros &k)
{
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(TAVRU_SEM_SIMD)
    std::int64_t bruto;
    std::memcpy(&bruto, &p, sizeof bruto);
    const __m128i yx = _mm_shuffle_epi32(_mm_cvtsi64_si128(bruto), _MM_SHUFFLE(3, 2, 0, 1));
    const __m128d q = _mm_cvtepi32_pd(yx); // (y, x)
    const __m128d d = _mm_add_pd(_mm_mul_pd(q, _mm_set_pd(1.0, -1.0)),
                                 _mm_set_pd(-static_cast<double>(k.CentroTela.X), k.CentroTela.Y));
    const __m128d t = _mm_div_pd(d, _mm_set1_pd(k.Coeficiente));
    const __m128i r = _mm_add_epi32(_mm_cvtpd_epi32(t), _mm_set_epi32(0, 0, k.Centro.Longitude, k.Centro.Latitude));
    TGISPosicao s;
    const std::int64_t saida = _mm_cvtsi128_si64(r);
    std::memcpy(static_cast<void *>(&s), &saida, sizeof s);
    return s;
#else
    const double dy = -static_cast<double>(p.Y) + k.CentroTela.Y;
    const double dx = static_cast<double>(p.X) + -static_cast<double>(k.CentroTela.X);
    return GISPosicao(SomarComVolta(Arredondar(dy / k.Coeficiente), k.Centro.Latitude),
                      SomarComVolta(Arredondar(dx / k.Coeficiente), k.Centro.Longitude));
#endif
}

} // namespace linear
} // namespace tavru
