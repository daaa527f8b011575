#pragma once
/// \file
/// A lista dona dos vértices de uma trajetória.

#include <tavru/elements/GISPontoTrajeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

namespace tavru {

class TStringList;

/// Lista de `TGISPontoTrajeto` que possui os itens: `Remove`, `Delete`, `Clear`, `AtribuirPonto`
/// e a destruição liberam; `Extract` devolve o vértice sem liberá-lo. Índices errados levantam
/// `EListError`. `Add`, `Insert`, `IndexOf`, `First` e `Last` são os da lista da plataforma.
class TAVRU_GIS_EXPORT TGISPontosTrajeto : public TObjectList<TGISPontoTrajeto>
{
public:
    TGISPontosTrajeto() : TObjectList<TGISPontoTrajeto>(true) {}

    /// O vértice do índice (continua da lista).
    TGISPontoTrajeto *ObterPonto(int indice) const { return Items(indice); }
    /// Põe `ponto` no índice; o vértice que estava lá é liberado.
    void AtribuirPonto(int indice, TGISPontoTrajeto *ponto) { SetItems(indice, ponto); }
    /// Acrescenta a `lista` (sem esvaziá-la antes) o nome de cada campo de informação de cada
    /// vértice, em ordem, que ela ainda não tem: a união dos nomes, na ordem em que aparecem
    /// primeiro, depois do que a lista já tinha. A comparação é a de `lista.IndexOf`.
    void ObterCampos(TStringList &lista) const;
};

} // namespace tavru
