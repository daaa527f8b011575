#pragma once
/// \file
/// A lista de camadas do controle do mapa.

#include <tavru/core/TGISCamada.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

#include <QString>

namespace tavru {

/// Lista de camadas que as possui (`Remove`, `Delete`, `Clear` e a destruição liberam; `Extract`
/// devolve sem liberar). O índice 0 é desenhado primeiro (embaixo).
///
/// `Add` não acrescenta uma camada que já está na lista (devolve o índice dela); use esta classe,
/// não a base, para acrescentar. `IndexOf(nome)` compara os nomes em minúsculas.
class TAVRU_GIS_EXPORT TGISCamadaList : public TObjectList<TGISCamada>
{
public:
    TGISCamadaList() : TObjectList<TGISCamada>(true) {}

    /// Acrescenta a camada no fim, a menos que ela já esteja na lista; devolve o índice dela.
    int Add(TGISCamada *camada);
    using TObjectList<TGISCamada>::IndexOf;
    /// Índice da primeira camada cujo nome, em minúsculas, é `nome` em minúsculas; ou -1.
    int IndexOf(const QString &nome) const;
    /// A camada do índice (continua da lista).
    TGISCamada *ObterGISCamada(int indice) const { return Items(indice); }
    /// Põe `camada` no índice; a camada que estava lá é liberada.
    void AtribuirGISCamada(int indice, TGISCamada *camada) { SetItems(indice, camada); }
    /// A primeira camada que contém o objeto, ou nula.
    TGISCamada *ObterCamadaPeloObjeto(const TGISObjeto *objeto) const;
};

} // namespace tavru
