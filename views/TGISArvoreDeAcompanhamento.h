#pragma once
/// \file
/// A árvore de acompanhamento: as entidades de uma situação, com mostrar, esconder e ajustar.

#include <tavru/platform/Exportacao.h>

#include <QPointer>
#include <QTreeWidget>

namespace tavru {

class TGis;
class TGISTreeNodeAcompanhamentoXML;
class TGISTreeNodeXMLEntidade;

/// Árvore (`QTreeWidget`, colunas "Entidade" e "Estado") que mostra situações de acompanhamento
/// (`TGISTreeNodeAcompanhamentoXML`) ligadas a um `TGis`. Em cada entidade: a caixa mostra ou
/// esconde o objeto, o clique duplo ajusta o mapa a ele, e o menu de contexto tem "Mostrar",
/// "Esconder" e "Ajustar". Cada ação redesenha o mapa uma vez. Trocar o mapa liga as entidades de
/// novo. O mapa não é possuído (`QPointer`). Extensão.
class TAVRU_GIS_EXPORT TGISArvoreDeAcompanhamento : public QTreeWidget
{
    Q_OBJECT
public:
    explicit TGISArvoreDeAcompanhamento(QWidget *parent = nullptr);

    TGis *GIS() const;
    void AtribuirGis(TGis *gis);
    /// Lê o documento numa situação nova, no fim da árvore, aberta; devolve a raiz (possuída pela
    /// árvore). Erros de leitura seguem para quem chama, e a árvore fica como estava.
    TGISTreeNodeAcompanhamentoXML *Abrir(const QString &arquivo);
    /// A entidade do item, ou nula se o item não é de entidade.
    static TGISTreeNodeXMLEntidade *EntidadeDoItem(QTreeWidgetItem *item);

private:
    QPointer<TGis> FGis;
    void ItemMudou(QTreeWidgetItem *item, int coluna);
    void MostrarMenu(const QPoint &ponto);
};

} // namespace tavru
