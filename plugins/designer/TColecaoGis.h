#pragma once
/// \file
/// A coleção de componentes da casa para o Qt Designer.

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace tavru {

/// O plug-in "Tavru - Componentes GIS" do Qt Designer (e do `QUiLoader`): os sete componentes
/// visuais no grupo "GIS" da caixa de widgets, nesta ordem: `TGis`, `TGISBarraDeFerramenta`,
/// `TGISBarraDeInclusao`, `TGISBarraDeManipulacao`, `TGisPopUpListBox`, `TGISConfigurarCamadas` e
/// `TGISMiniatura` (com o espaço de nomes `tavru::`).
///
/// Num formulário, o mapa cai com o nome "gis" e as barras e visões com a propriedade `GIS`
/// (o nome do mapa a que se ligam) em "gis": soltos no mesmo formulário, já funcionam juntos.
///
/// Posse: a coleção possui as interfaces dos componentes (filhas dela).
class TColecaoGis : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface" FILE "colecao.json")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
public:
    explicit TColecaoGis(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override { return FComponentes; }

    /// "Tavru - Componentes GIS".
    static QString Descricao();
    /// "GIS".
    static QString Grupo();

private:
    QList<QDesignerCustomWidgetInterface *> FComponentes;
};

} // namespace tavru
