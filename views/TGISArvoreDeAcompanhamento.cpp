#include "TGISArvoreDeAcompanhamento.h"

#include "TGISTreeNodeAcompanhamentoXML.h"
#include "TGISTreeNodeXMLEntidade.h"

#include <tavru/control/TGis.h>

#include <tavru/core/TGISObjeto.h>

#include <QHeaderView>
#include <QMenu>

namespace tavru {

TGISArvoreDeAcompanhamento::TGISArvoreDeAcompanhamento(QWidget *parent) : QTreeWidget(parent)
{
    setColumnCount(2);
    setHeaderLabels({QStringLiteral("Entidade"), QStringLiteral("Estado")});
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTreeWidget::itemChanged, this, &TGISArvoreDeAcompanhamento::ItemMudou);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [](QTreeWidgetItem *item) {
        if (TGISTreeNodeXMLEntidade *e = EntidadeDoItem(item))
            e->Ajustar();
    });
    connect(this, &QWidget::customContextMenuRequested, this, &TGISArvoreDeAcompanhamento::MostrarMenu);
}

TGISTreeNodeXMLEntidade *TGISArvoreDeAcompanhamento::EntidadeDoItem(QTreeWidgetItem *item)
{
    auto *no = item && item->type() == TGisTreeNodeXML::Tipo ? static_cast<TGisTreeNodeXML *>(item) : nullptr;
    // Só os filhos diretos de uma situação são entidades ligadas.
    auto *pai = no && no->parent() && no->parent()->type() == TGisTreeNodeXML::Tipo
                    ? static_cast<TGisTreeNodeXML *>(no->parent())
                    : nullptr;
    if (!no || !pai || no->Tag() != QLatin1String(TGISTreeNodeAcompanhamentoXML::MarcaEntidade)
        || pai->Tag() != QLatin1String(TGISTreeNodeAcompanhamentoXML::MarcaRaiz) || pai->parent())
        return nullptr;
    return static_cast<TGISTreeNodeXMLEntidade *>(no);
}

void TGISArvoreDeAcompanhamento::AtribuirGis(TGis *gis)
{
    FGis = gis;
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->type() == TGisTreeNodeXML::Tipo)
            static_cast<TGISTreeNodeAcompanhamentoXML *>(topLevelItem(i))->Vincular(gis);
}

TGISTreeNodeAcompanhamentoXML *TGISArvoreDeAcompanhamento::Abrir(const QString &arquivo)
{
    std::unique_ptr<TGISTreeNodeAcompanhamentoXML> situacao = TGISTreeNodeAcompanhamentoXML::Ler(arquivo, FGis);
    TGISTreeNodeAcompanhamentoXML *raiz = situacao.release();
    addTopLevelItem(raiz);
    raiz->setExpanded(true);
    return raiz;
}

void TGISArvoreDeAcompanhamento::ItemMudou(QTreeWidgetItem *item, int coluna)
{
    TGISTreeNodeXMLEntidade *e = coluna == 0 ? EntidadeDoItem(item) : nullptr;
    if (!e || !e->Objeto())
        return;
    // O aviso do objeto também mexe na caixa: só age quando ela difere do objeto.
    const bool marcada = item->checkState(0) == Qt::Checked;
    if (marcada != e->Objeto()->Visivel())
        marcada ? e->Mostrar() : e->Esconder();
}

void TGISArvoreDeAcompanhamento::MostrarMenu(const QPoint &ponto)
{
    TGISTreeNodeXMLEntidade *e = EntidadeDoItem(itemAt(ponto));
    if (!e)
        return;
    QMenu menu(this);
    const bool temObjeto = e->Objeto() != nullptr;
    menu.addAction(QStringLiteral("Mostrar"), this, [e] { e->Mostrar(); })->setEnabled(temObjeto);
    menu.addAction(QStringLiteral("Esconder"), this, [e] { e->Esconder(); })->setEnabled(temObjeto);
    menu.addAction(QStringLiteral("Ajustar"), this, [e] { e->Ajustar(); })->setEnabled(temObjeto);
    menu.exec(viewport()->mapToGlobal(ponto));
}

} // namespace tavru


namespace tavru {
TGis *TGISArvoreDeAcompanhamento::GIS() const
{
    return FGis;
}
} // namespace tavru
