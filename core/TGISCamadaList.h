#pragma once
/// \file
/// A lista de camadas do controle do mapa.

#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISObservadores.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

#include <QString>

namespace tavru {

/// Lista de camadas que as possui (`Remove`, `Delete`, `Clear` e a destruição liberam; `Extract`
/// devolve sem liberar). O índice 0 é desenhado primeiro (embaixo).
///
/// `Add` não acrescenta uma camada que já está na lista (devolve o índice dela); use esta classe,
/// não a base, para acrescentar. `IndexOf(nome)` compara os nomes em minúsculas.
///
/// **Avisos.** Os observadores (`AdicionarObservador`) recebem, uma vez por chamada e com a
/// camada: `gmIncluido` (`Add`, `Insert`, `AtribuirGISCamada`), `gmExtraido` (`Extract`),
/// `gmLiberado` (`Remove`, `Delete`, `AtribuirGISCamada`, antes de liberar) e `gmMovido` (`Move`,
/// `Exchange`); `Clear` manda um `gmLote` só, no fim. A destruição da lista não avisa. As
/// mudanças dos objetos de uma camada são avisadas pela lista de objetos dela.
class TAVRU_GIS_EXPORT TGISCamadaList : public TObjectList<TGISCamada>
{
public:
    TGISCamadaList() : TObjectList<TGISCamada>(true) {}
    /// Libera as camadas sem avisar ninguém.
    ~TGISCamadaList() override;
    /// Esvazia a lista, liberando as camadas, com um só aviso `gmLote` no fim.
    void Clear() override;
    void AdicionarObservador(IGISObservador *observador) { FObservadores.Adicionar(observador); }
    void RemoverObservador(IGISObservador *observador) { FObservadores.Remover(observador); }

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

protected:
    void Notificar(TGISCamada *camada, TAcaoDeLista acao) override;

private:
    TGISObservadores FObservadores;
    bool FCalada = false;
};

} // namespace tavru
