#pragma once
/// \file
/// Um componente da casa na caixa de widgets do Qt Designer.

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <functional>

namespace tavru {

/// A descrição de um componente na caixa de widgets: o nome da classe (com o espaço de nomes,
/// como um formulário o escreve), o cabeçalho que o código gerado inclui (`<tavru/...>`), o
/// recurso do ícone (um bitmap das barras), a dica, o "o que é isto", o XML com o nome e as
/// propriedades com que o componente cai no formulário, e a fábrica. A fábrica recebe se o
/// componente está sendo criado no Designer (`projeto`) ou por um formulário que roda.
struct TDescricaoComponente
{
    QString Classe;
    QString Cabecalho;
    QString Icone;
    QString Dica;
    QString OQueE;
    QString DomXml;
    std::function<QWidget *(QWidget *parent, bool projeto)> Criar;
};

/// Um componente da coleção "GIS": a interface que o Qt Designer e o `QUiLoader` usam para criar
/// o widget e mostrá-lo na caixa de widgets.
///
/// O Designer chama `initialize` antes de criar o primeiro widget; o `QUiLoader` não. É assim que
/// a fábrica sabe se está no Designer (mapa de amostra, lista instantânea como lista comum) ou
/// num formulário que roda (o componente como o programa o usa).
class TComponenteGis : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)
public:
    TComponenteGis(TDescricaoComponente descricao, QObject *parent);

    QString name() const override { return FDescricao.Classe; }
    QString group() const override;
    QString toolTip() const override { return FDescricao.Dica; }
    QString whatsThis() const override { return FDescricao.OQueE; }
    QString includeFile() const override { return FDescricao.Cabecalho; }
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QString domXml() const override { return FDescricao.DomXml; }
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override { return FInicializado; }
    void initialize(QDesignerFormEditorInterface *core) override;

private:
    TDescricaoComponente FDescricao;
    bool FInicializado = false;
};

} // namespace tavru
