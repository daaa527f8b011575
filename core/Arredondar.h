#pragma once
/// \file
/// O arredondamento das coordenadas: ao inteiro mais próximo, empates para o par (o mesmo em
/// todas as conversões, para que gravar e ler de novo dê o mesmo inteiro); e a volta de contas de
/// 64 bits à faixa das coordenadas de 32.

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
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

/// O valor levado à faixa de 32 bits, limitado nas pontas (nunca dá a volta). Contas com
/// coordenadas do mundo ou da tela são feitas em 64 bits e voltam por aqui: um documento pode dar
/// posições e tamanhos em inteiros crus, e somá-los em 32 bits estouraria.
inline std::int32_t Saturar32(std::int64_t v)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, INT32_MIN, INT32_MAX));
}

} // namespace tavru
