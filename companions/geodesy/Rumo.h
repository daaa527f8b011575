#pragma once
/// \file
/// Conversão entre o ângulo matemático e o rumo náutico, ambos em graus.
///
/// Ângulo matemático: 0 no leste, crescendo no sentido anti-horário. Rumo náutico: 0 no norte,
/// crescendo no sentido horário. A conversão é a mesma nos dois sentidos (90 - x), por isso as
/// duas funções são inversas uma da outra; o resultado vem sempre reduzido a [0, 360).

#include <tavru/platform/Exportacao.h>

namespace tavru {

/// O rumo náutico (graus, [0, 360)) da direção cujo ângulo matemático é `graus`:
/// `GrauToMarinha(90)` = 0 (norte), `GrauToMarinha(0)` = 90 (leste), `GrauToMarinha(180)` = 270.
/// Um valor não finito volta como veio.
TAVRU_GEODESIA_EXPORT double GrauToMarinha(double graus);
/// O ângulo matemático (graus, [0, 360)) do rumo náutico `rumo`: `MarinhaToGrau(0)` = 90.
TAVRU_GEODESIA_EXPORT double MarinhaToGrau(double rumo);

} // namespace tavru
