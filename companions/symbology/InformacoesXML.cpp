#include <tavru/companions/symbology/InformacoesXML.h>

#include <tavru/companions/components/TInformacoes.h>

#include <pugixml.hpp>

namespace tavru {

QString EscaparTextoXML(const QString &texto)
{
    qsizetype extra = 0;
    for (const QChar c : texto) {
        switch (c.unicode()) {
        case u'&': extra += 4; break;
        case u'<':
        case u'>': extra += 3; break;
        case u'"': extra += 5; break;
        default: break;
        }
    }
    if (extra == 0)
        return texto;
    QString r;
    r.reserve(texto.size() + extra);
    for (const QChar c : texto) {
        switch (c.unicode()) {
        case u'&': r += QLatin1String("&amp;"); break;
        case u'<': r += QLatin1String("&lt;"); break;
        case u'>': r += QLatin1String("&gt;"); break;
        case u'"': r += QLatin1String("&quot;"); break;
        default: r += c; break;
        }
    }
    return r;
}

QString ObterXMLStrings(const char *tagBloco, const char *tagItem, const char *tagRotulo, const char *tagValor,
                        const TInformacoes &strings, bool escapar)
{
    const QLatin1String bloco(tagBloco), item(tagItem), rotulo(tagRotulo), valor(tagValor);
    if (strings.ObterTotal() == 0)
        return QLatin1Char('<') + bloco + QLatin1String("/>");

    const QLatin1String fimDeLinha("\r\n");
    QString r = QLatin1Char('<') + bloco + QLatin1Char('>');
    for (int i = 0; i < strings.ObterTotal(); ++i) {
        QString nome = strings.ObterNomeCampo(i);
        QString texto = strings.ObterValorCampo(i);
        if (escapar) {
            nome = EscaparTextoXML(nome);
            texto = EscaparTextoXML(texto);
        }
        r += fimDeLinha + QLatin1Char('<') + item + QLatin1String("><") + rotulo + QLatin1Char('>') + nome
            + QLatin1String("</") + rotulo + QLatin1String("><") + valor + QLatin1Char('>') + texto
            + QLatin1String("</") + valor + QLatin1String("></") + item + QLatin1Char('>');
    }
    r += fimDeLinha + QLatin1String("</") + bloco + QLatin1Char('>');
    return r;
}

namespace {
// O texto de um elemento: os seus filhos de texto e CDATA, juntos, em ordem.
QString TextoDe(const pugi::xml_node &elemento)
{
    QByteArray texto;
    for (pugi::xml_node filho = elemento.first_child(); filho; filho = filho.next_sibling())
        if (filho.type() == pugi::node_pcdata || filho.type() == pugi::node_cdata)
            texto += filho.value();
    return QString::fromUtf8(texto);
}
} // namespace

void AtribuirListaXML(const pugi::xml_node &node, const char *tagBloco, const char *tagItem, bool limpar,
                      TInformacoes &strings, const char *tagValor, const char *tagRotulo)
{
    if (limpar)
        strings.Limpar();
    const pugi::xml_node bloco = node.child(tagBloco);
    if (!bloco)
        return;
    for (pugi::xml_node campo = bloco.child(tagItem); campo; campo = campo.next_sibling(tagItem))
        strings.AdicionarCampo(TextoDe(campo.child(tagRotulo)), TextoDe(campo.child(tagValor)));
}

} // namespace tavru
