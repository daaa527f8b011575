#pragma once
/// \file
/// O descritor de classe dos objetos do mapa (o "construtor virtual" das classes de elementos).

#include <tavru/core/TDescritorDeClasse.h>

namespace tavru {

class TGISObjeto;

/// Descreve uma classe concreta de objeto do mapa, criada sem argumentos com os padrões do
/// construtor. Cada classe concreta declara `static const TClasseObjeto Descritor;` e o devolve
/// em `TGISObjeto::Classe()` (ver `TDescritorDeClasse`).
using TClasseObjeto = TDescritorDeClasse<TGISObjeto>;

} // namespace tavru
