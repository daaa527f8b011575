#pragma once
/// \file
/// A lista de elementos gráficos de um símbolo vetorial.

#include <tavru/companions/symbology/TElementoGrafico.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

namespace tavru {

/// Lista dona dos elementos de um símbolo vetorial, na ordem de desenho (`Add`, `Count`,
/// `Remove` libera, `Extract` devolve sem liberar; índice fora levanta `EListError`). Itens nulos
/// são aceitos e ignorados pela área e pelo desenho.
class TAVRU_SIMBOLOGIA_EXPORT TListaElementosGraficos : public TObjectList<TElementoGrafico>
{
public:
    TListaElementosGraficos() : TObjectList<TElementoGrafico>(true) {}

    TElementoGrafico *ObterElementoGrafico(int indice) const { return Items(indice); }
    /// O retângulo que contém todos os elementos, em unidades do símbolo, extremos incluídos
    /// (ver `TElementoGrafico::ObterArea`); (0, 0, 0, 0) quando nenhum ocupa lugar.
    TRect ObterArea() const;
};

} // namespace tavru
