#pragma once
/// \file
/// O descritor de classe dos tratadores de arquivo (o "construtor virtual" deles).

#include <tavru/core/TDescritorDeClasse.h>

namespace tavru {

class TGISObjetoList;
class TGISTratadorDeArquivo;

/// Descreve uma classe concreta de tratador de arquivo, criada sobre a lista de objetos em que
/// trabalha (não possuída pelo tratador). O registro de tratadores guarda classes por ele; cada
/// classe concreta declara `static const TClasseTratador Classe;` (ver `TDescritorDeClasse`).
using TClasseTratador = TDescritorDeClasse<TGISTratadorDeArquivo, TGISObjetoList &>;

} // namespace tavru
