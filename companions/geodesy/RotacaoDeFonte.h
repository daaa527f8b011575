#pragma once
/// \file
/// Giro de fontes para textos inclinados.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TFont.h>

namespace tavru {

/// Gira a fonte: o escapamento passa a ser `angulo`, em décimos de grau no sentido anti-horário
/// (900 escreve de baixo para cima). O valor é guardado como veio, sem reduzir a uma volta, para
/// que quem o leia de volta encontre o que pediu; o canvas trata qualquer múltiplo de volta.
/// Nada mais na fonte muda.
TAVRU_GEODESIA_EXPORT void RotacionarFonte(TFont &fonte, int angulo);

} // namespace tavru
