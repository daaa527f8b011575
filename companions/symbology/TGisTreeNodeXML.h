#pragma once
/// \file
/// Nó de árvore feito de um elemento XML: a marca, os atributos, o texto e os filhos.

#include <tavru/platform/Exportacao.h>

#include <QList>
#include <QPair>
#include <QString>
#include <QTreeWidgetItem>
#include <functional>
#include <memory>

namespace tavru {

/// Item de árvore (`QTreeWidgetItem`) que mostra um elemento XML: a coluna 0 traz a marca (ou, se
/// o elemento tem o atributo "Nome", "marca: nome") e a coluna 1 os outros atributos ("a=1; b=2")
/// ou, sem atributos, o texto do elemento. Os filhos elemento viram nós filhos, na ordem do
/// documento; comentários e instruções de processamento ficam de fora.
///
/// **Leitura.** `LerTexto` e `LerArquivo` montam a árvore de um documento inteiro pela raiz. A
/// entrada não é confiável: um documento malformado, com mais de `ProfundidadeMaxima` níveis ou
/// mais de `NosMaximos` elementos levanta `EConvertError` com uma mensagem em português e nada é
/// devolvido; um arquivo que não é comum ou é maior que `TamanhoMaximo` levanta `EInOutError`.
///
/// **Fábrica.** Quem quer nós especiais para certas marcas passa uma fábrica: ela recebe a marca,
/// os atributos e o texto de cada elemento e devolve um nó novo (possuído pela árvore) ou nulo
/// para o nó comum. Os filhos entram depois de o nó ser criado.
///
/// Posse: como todo `QTreeWidgetItem`, cada nó possui os filhos; a raiz é de quem a pediu (ou da
/// árvore em que for posta).
class TAVRU_SIMBOLOGIA_EXPORT TGisTreeNodeXML : public QTreeWidgetItem
{
public:
    using TAtributos = QList<QPair<QString, QString>>;
    using TFabrica = std::function<TGisTreeNodeXML *(const QString &tag, const TAtributos &atributos, const QString &texto)>;

    /// O `type()` dos nós desta classe e das derivadas (para o teste de tipo).
    static constexpr int Tipo = QTreeWidgetItem::UserType + 0x7A0;
    static constexpr int ProfundidadeMaxima = 256;
    static constexpr int NosMaximos = 200000;
    /// O maior arquivo que `LerArquivo` aceita, em bytes.
    static constexpr qint64 TamanhoMaximo = 64 * 1024 * 1024;

    TGisTreeNodeXML(const QString &tag, const TAtributos &atributos, const QString &texto);

    QString Tag() const { return FTag; }
    const TAtributos &Atributos() const { return FAtributos; }
    /// O valor do atributo (nome exato), ou vazio.
    QString Atributo(const QString &nome) const;
    /// O texto do elemento (os nós de texto e CDATA juntos, sem brancos nas pontas).
    QString Texto() const { return FTexto; }
    /// O filho `indice` se é um nó XML, senão nulo.
    TGisTreeNodeXML *Filho(int indice) const;
    /// O primeiro filho com a marca, ou nulo.
    TGisTreeNodeXML *FilhoPelaMarca(const QString &tag) const;

    /// A árvore do documento `xml` (texto com a codificação que a declaração dele diz).
    static std::unique_ptr<TGisTreeNodeXML> LerTexto(const QByteArray &xml, const TFabrica &fabrica = {});
    /// A árvore do arquivo.
    static std::unique_ptr<TGisTreeNodeXML> LerArquivo(const QString &arquivo, const TFabrica &fabrica = {});

private:
    QString FTag;
    TAtributos FAtributos;
    QString FTexto;
};

} // namespace tavru
