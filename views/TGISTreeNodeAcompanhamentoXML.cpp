#include "TGISTreeNodeAcompanhamentoXML.h"

#include "TGISTreeNodeXMLEntidade.h"

#include <tavru/control/TGis.h>

#include <tavru/platform/Exception.h>

namespace tavru {

TGisTreeNodeXML::TFabrica TGISTreeNodeAcompanhamentoXML::Fabrica()
{
    // Só a raiz e as entidades são especiais; a profundidade não entra na decisão, mas uma
    // "Entidade" fora da raiz vira só um nó comum em `Montar` (não é ligada).
    return [](const QString &tag, const TAtributos &atributos, const QString &texto) -> TGisTreeNodeXML * {
        if (tag == QLatin1String(MarcaRaiz))
            return new TGISTreeNodeAcompanhamentoXML(tag, atributos, texto);
        if (tag == QLatin1String(MarcaEntidade))
            return new TGISTreeNodeXMLEntidade(tag, atributos, texto);
        return nullptr;
    };
}

std::unique_ptr<TGISTreeNodeAcompanhamentoXML> TGISTreeNodeAcompanhamentoXML::Montar(std::unique_ptr<TGisTreeNodeXML> raiz,
                                                                                     TGis *gis)
{
    if (raiz->Tag() != QLatin1String(MarcaRaiz))
        throw EConvertError(QStringLiteral("Não é um documento de acompanhamento: a raiz é <%1>, e não <%2>.")
                                .arg(raiz->Tag(), QLatin1String(MarcaRaiz)));
    std::unique_ptr<TGISTreeNodeAcompanhamentoXML> situacao(static_cast<TGISTreeNodeAcompanhamentoXML *>(raiz.release()));
    situacao->Vincular(gis);
    return situacao;
}

std::unique_ptr<TGISTreeNodeAcompanhamentoXML> TGISTreeNodeAcompanhamentoXML::Ler(const QString &arquivo, TGis *gis)
{
    return Montar(LerArquivo(arquivo, Fabrica()), gis);
}

std::unique_ptr<TGISTreeNodeAcompanhamentoXML> TGISTreeNodeAcompanhamentoXML::LerTexto(const QByteArray &xml, TGis *gis)
{
    return Montar(TGisTreeNodeXML::LerTexto(xml, Fabrica()), gis);
}

std::vector<TGISTreeNodeXMLEntidade *> TGISTreeNodeAcompanhamentoXML::Entidades() const
{
    std::vector<TGISTreeNodeXMLEntidade *> entidades;
    for (int i = 0; i < childCount(); ++i)
        if (TGisTreeNodeXML *f = Filho(i); f && f->Tag() == QLatin1String(MarcaEntidade))
            entidades.push_back(static_cast<TGISTreeNodeXMLEntidade *>(f));
    return entidades;
}

TGISTreeNodeXMLEntidade *TGISTreeNodeAcompanhamentoXML::Entidade(const QString &identificador) const
{
    for (TGISTreeNodeXMLEntidade *e : Entidades())
        if (e->Identificador() == identificador)
            return e;
    return nullptr;
}

void TGISTreeNodeAcompanhamentoXML::Vincular(TGis *gis)
{
    for (TGISTreeNodeXMLEntidade *e : Entidades())
        e->Vincular(gis);
}

} // namespace tavru
