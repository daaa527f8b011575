#include "TGisTreeNodeXML.h"

#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <pugixml.hpp>
#include <vector>

namespace tavru {

namespace {

QString DeUtf8(const char *utf8) { return QString::fromUtf8(utf8); }

QString TextoDoElemento(const pugi::xml_node &no)
{
    QString texto;
    for (const pugi::xml_node &filho : no.children())
        if (filho.type() == pugi::node_pcdata || filho.type() == pugi::node_cdata)
            texto += DeUtf8(filho.value());
    return texto.trimmed();
}

TGisTreeNodeXML *CriarNo(const pugi::xml_node &no, const TGisTreeNodeXML::TFabrica &fabrica)
{
    TGisTreeNodeXML::TAtributos atributos;
    for (const pugi::xml_attribute &a : no.attributes())
        atributos.append({DeUtf8(a.name()), DeUtf8(a.value())});
    const QString tag = DeUtf8(no.name());
    const QString texto = TextoDoElemento(no);
    if (fabrica)
        if (TGisTreeNodeXML *especial = fabrica(tag, atributos, texto))
            return especial;
    return new TGisTreeNodeXML(tag, atributos, texto);
}

} // namespace

TGisTreeNodeXML::TGisTreeNodeXML(const QString &tag, const TAtributos &atributos, const QString &texto)
    : QTreeWidgetItem(Tipo), FTag(tag), FAtributos(atributos), FTexto(texto)
{
    const QString nome = Atributo(QStringLiteral("Nome"));
    setText(0, nome.isEmpty() ? tag : QStringLiteral("%1: %2").arg(tag, nome));
    QStringList partes;
    for (const auto &[chave, valor] : atributos)
        if (chave != QLatin1String("Nome"))
            partes << QStringLiteral("%1=%2").arg(chave, valor);
    setText(1, partes.isEmpty() ? texto : partes.join(QStringLiteral("; ")));
}

QString TGisTreeNodeXML::Atributo(const QString &nome) const
{
    for (const auto &[chave, valor] : FAtributos)
        if (chave == nome)
            return valor;
    return {};
}

TGisTreeNodeXML *TGisTreeNodeXML::Filho(int indice) const
{
    QTreeWidgetItem *item = child(indice);
    return item && item->type() == Tipo ? static_cast<TGisTreeNodeXML *>(item) : nullptr;
}

TGisTreeNodeXML *TGisTreeNodeXML::FilhoPelaMarca(const QString &tag) const
{
    for (int i = 0; i < childCount(); ++i)
        if (TGisTreeNodeXML *f = Filho(i); f && f->Tag() == tag)
            return f;
    return nullptr;
}

std::unique_ptr<TGisTreeNodeXML> TGisTreeNodeXML::LerTexto(const QByteArray &xml, const TFabrica &fabrica)
{
    pugi::xml_document documento;
    const pugi::xml_parse_result resultado = documento.load_buffer(xml.constData(), size_t(xml.size()),
                                                                   pugi::parse_default | pugi::parse_cdata);
    if (!resultado)
        throw EConvertError(QStringLiteral("Documento XML inválido (posição %1): %2")
                                .arg(resultado.offset)
                                .arg(DeUtf8(resultado.description())));
    const pugi::xml_node raiz = documento.document_element();
    if (!raiz)
        throw EConvertError(QStringLiteral("Documento XML sem elemento raiz."));

    // Sem recursão: uma pilha de (nó do DOM, nó da árvore, profundidade), com os limites contados.
    std::unique_ptr<TGisTreeNodeXML> arvore(CriarNo(raiz, fabrica));
    struct TPasso
    {
        pugi::xml_node No;
        TGisTreeNodeXML *Item;
        int Profundidade;
    };
    std::vector<TPasso> pilha{{raiz, arvore.get(), 1}};
    int nos = 1;
    while (!pilha.empty()) {
        const TPasso passo = pilha.back();
        pilha.pop_back();
        std::vector<TPasso> filhos;
        for (const pugi::xml_node &filho : passo.No.children(/*todos*/)) {
            if (filho.type() != pugi::node_element)
                continue;
            if (passo.Profundidade + 1 > ProfundidadeMaxima)
                throw EConvertError(QStringLiteral("Documento XML com mais de %1 níveis.").arg(ProfundidadeMaxima));
            if (++nos > NosMaximos)
                throw EConvertError(QStringLiteral("Documento XML com mais de %1 elementos.").arg(NosMaximos));
            TGisTreeNodeXML *item = CriarNo(filho, fabrica);
            passo.Item->addChild(item);
            filhos.push_back({filho, item, passo.Profundidade + 1});
        }
        pilha.insert(pilha.end(), filhos.rbegin(), filhos.rend());
    }
    return arvore;
}

std::unique_ptr<TGisTreeNodeXML> TGisTreeNodeXML::LerArquivo(const QString &arquivo, const TFabrica &fabrica)
{
    std::unique_ptr<QFile> f = AbrirArquivoComum(arquivo);
    if (!f)
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    if (f->size() > TamanhoMaximo)
        throw EInOutError(QStringLiteral("%1: arquivo grande demais para uma árvore XML.").arg(arquivo));
    return LerTexto(f->readAll(), fabrica);
}

} // namespace tavru
