#pragma once
// Medidas comuns aos benchmarks: o relógio, os segundos desde um instante e o heap em uso.

#include <chrono>
#include <malloc.h>

namespace tavru::bench {

using Relogio = std::chrono::steady_clock;

/// Segundos desde `inicio`.
inline double Segundos(Relogio::time_point inicio)
{
    return std::chrono::duration<double>(Relogio::now() - inicio).count();
}

/// Memória do heap em uso (bytes), somando os blocos mapeados à parte (mallinfo2 da glibc).
inline double HeapEmUso()
{
    const struct mallinfo2 m = mallinfo2();
    return static_cast<double>(m.uordblks + m.hblkhd);
}

} // namespace tavru::bench
