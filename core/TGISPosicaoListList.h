#pragma once
/// \file
/// Lista dona de listas de posições (as várias partes de uma linha ou área).

#include <tavru/core/TGISPosicaoList.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

namespace tavru {

/// Lista de `TGISPosicaoList` que possui os itens: `Remove`, `Delete`, `Clear` e a destruição
/// liberam as listas (e com elas as posições); `Extract` devolve uma lista sem liberá-la.
/// As operações de `TObjectList` já são tipadas; índices errados levantam `EListError`.
class TAVRU_GIS_EXPORT TGISPosicaoListList : public TObjectList<TGISPosicaoList>
{
public:
    TGISPosicaoListList() : TObjectList<TGISPosicaoList>(true) {}

    /// A lista do índice (continua desta lista).
    TGISPosicaoList *ObterGISPosicaoList(int indice) const { return Items(indice); }
    /// Põe `lista` no índice; a lista que estava lá é liberada.
    void AtribuirGISPosicaoList(int indice, TGISPosicaoList *lista) { SetItems(indice, lista); }
};

} // namespace tavru
