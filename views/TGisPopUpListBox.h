#pragma once
/// \file
/// A lista instantânea dos objetos do mapa sob um clique.

#include <tavru/companions/components/TPopUpListBox.h>
#include <tavru/control/IGISMouseEvent.h>
#include <tavru/platform/Exportacao.h>

#include <functional>

namespace tavru {

class TGis;
class TLigacaoAoGis;
class TGISObjeto;

/// Lista instantânea ligada a um `TGis` como ferramenta (`IGISMouseEvent`): a cada clique no mapa
/// ela se enche com os objetos rotulados sob o ponto (`TGis::ObterListaDeObjetos`: o de cima
/// primeiro, o rótulo como texto e o objeto anexado) e, havendo pelo menos um, aparece no ponto do
/// clique. De propósito, aparece mesmo com um objeto só, e nada é selecionado até o usuário
/// escolher. Escolher um item seleciona o objeto no mapa (`SelecionarObjeto`, que pergunta ao
/// hospedeiro) e depois levanta `OnClickObjeto` com ele, mesmo que a seleção tenha sido recusada.
///
/// A lista não guarda os objetos além dos itens; por segurança, um objeto que já não está em
/// nenhuma camada do mapa quando é escolhido é ignorado (nem seleção nem evento), em vez de ser
/// usado depois de liberado.
///
/// Posse: o mapa não é possuído; a lista tira o seu registro ao ser destruída e esquece o mapa
/// quando ele é destruído.
class TAVRU_GIS_EXPORT TGisPopUpListBox : public TPopUpListBox, public IGISMouseEvent
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
public:
    /// O evento da escolha de um objeto.
    using TOnClickObjeto = std::function<void(QObject *sender, TGISObjeto *objeto)>;

    explicit TGisPopUpListBox(QWidget *parent = nullptr);
    /// Tira o registro do mapa.
    ~TGisPopUpListBox() override;

    TGis *GIS() const { return FGis; }
    /// Tira o registro do mapa anterior, guarda `gis` e se registra nele (se não for nulo).
    /// O mesmo mapa de novo não muda nada (a ordem das ferramentas nele fica).
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }

    /// Com um mapa: enche a lista com os objetos sob `ponto` e, havendo algum, aparece ali.
    void GISMouseClick(const TPoint &ponto) override;

    /// Levantado por `DoClickObjeto`.
    TOnClickObjeto OnClickObjeto;

protected:
    /// A base primeiro; depois, com um item escolhido que tem objeto, seleciona-o no mapa e chama
    /// `DoClickObjeto`.
    void DoEscolher() override;
    /// Levanta `OnClickObjeto(this, objeto)`.
    virtual void DoClickObjeto(TGISObjeto *objeto);
    /// O mapa está sendo destruído: esquece-o.
    void Notification();

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    TGis *FGis = nullptr;
};

} // namespace tavru
