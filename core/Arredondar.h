#pragma once
/// \file
/// O arredondamento do projeto: ao inteiro mais próximo, empates para o par.

#include <climits>
#include <cmath>
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(TAVRU_SEM_SIMD)
#  include <emmintrin.h>
#endif

namespace tavru {

/// Arredonda ao inteiro mais próximo com empates para o par (2.5 dá 2, 3.5 dá 4, -2.5 dá -2),
/// como o modo padrão do processador. Valores fora da faixa de `int` e NaN dão `INT_MIN` (o
/// "inteiro indefinido" do processador), nunca comportamento indefinido. Usa a instrução de
/// conversão do processador quando há SSE2; `TAVRU_SEM_SIMD` força o caminho portátil (mesmo
/// resultado).
inline int Arredondar(double v)
{
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(TAVRU_SEM_SIMD)
    return _mm_cvtsd_si32(_mm_set_sd(v));
#else
    const double r = std::nearbyint(v);
    if (!(r >= static_cast<double>(INT_MIN) && r <= static_cast<double>(INT_MAX)))
        return INT_MIN;
    return static_cast<int>(r);
#endif
}

} // namespace tavru
