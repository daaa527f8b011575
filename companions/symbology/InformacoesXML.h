#pragma once
/// \file
/// O bloco de informações dos documentos XML: o registro `TInformacoes` de um objeto escrito como
/// XML e lido de volta de um nó do DOM (pugixml).

#include <tavru/platform/Exportacao.h>

#include <QString>

namespace pugi {
class xml_node;
}

namespace tavru {

class TInformacoes;

/// O texto com os caracteres especiais do XML trocados por entidades: `&` por `&amp;`, `<` por
/// `&lt;`, `>` por `&gt;` e `"` por `&quot;`. Serve para valores de atributo entre aspas duplas
/// e para texto de elemento. Os demais caracteres ficam como estão.
TAVRU_SIMBOLOGIA_EXPORT QString EscaparTextoXML(const QString &texto);

/// O bloco de informações de `strings` como texto XML, pronto para entrar num documento.
///
/// Com campos, o bloco ocupa várias linhas separadas por CR LF (o fim de linha dos documentos do
/// mapa), sem CR LF no fim: a linha `<tagBloco>`, uma linha por campo, na ordem do registro,
/// `<tagItem><tagRotulo>nome</tagRotulo><tagValor>valor</tagValor></tagItem>`, e a linha
/// `</tagBloco>`. Um registro vazio dá a marca vazia `<tagBloco/>`, numa linha só.
///
/// Nomes e valores vão como estão, a menos que `escapar` seja verdadeiro (então passam por
/// `EscaparTextoXML`): como o gravador de documentos, este bloco não escapa nada por padrão.
/// \param tagBloco, tagItem, tagRotulo, tagValor nomes das marcas (ver Tagsxml.h), em ASCII.
TAVRU_SIMBOLOGIA_EXPORT QString ObterXMLStrings(const char *tagBloco, const char *tagItem, const char *tagRotulo,
                                                const char *tagValor, const TInformacoes &strings,
                                                bool escapar = false);

/// Lê o bloco de informações de `node` para `strings`.
///
/// Procura o primeiro filho elemento de `node` chamado `tagBloco` (comparação exata); sem ele,
/// nada é lido. Cada filho do bloco chamado `tagItem`, em ordem, vira um campo acrescentado no
/// fim de `strings` (`AdicionarCampo`: nomes repetidos ficam), com o texto do filho `tagRotulo`
/// como nome e o do filho `tagValor` como valor; um filho que falta dá o texto vazio. Outros
/// filhos são ignorados. O texto de um filho é o dos seus nós de texto e CDATA, juntos; vem do DOM
/// já decodificado (entidades resolvidas, fins de linha normalizados para LF).
///
/// Um rótulo que tenha "=" não volta igual: o registro guarda "Nome=Valor" e separa no primeiro
/// "=" (ver `TInformacoes`).
/// \param limpar quando verdadeiro, `strings` é esvaziado antes da leitura (mesmo sem bloco);
///        quando falso, os campos lidos se somam aos que já havia.
/// Repare na ordem dos argumentos: na leitura vem a marca do valor antes da do rótulo.
TAVRU_SIMBOLOGIA_EXPORT void AtribuirListaXML(const pugi::xml_node &node, const char *tagBloco, const char *tagItem,
                                              bool limpar, TInformacoes &strings, const char *tagValor,
                                              const char *tagRotulo);

} // namespace tavru
