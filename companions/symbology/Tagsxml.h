#pragma once
/// \file
/// A unidade `Tagsxml`: os nomes das marcas do bloco de informações nos documentos XML.
///
/// O bloco tem esta forma (ver `ObterXMLStrings` e `AtribuirListaXML` em InformacoesXML.h):
/// \code
/// <Informacoes>
/// <Informacao><Rotulo>Nome</Rotulo><Valor>Rio Azul</Valor></Informacao>
/// </Informacoes>
/// \endcode
/// Os nomes são ASCII, então valem tal como estão tanto para o DOM (UTF-8) quanto para o texto
/// gravado (ISO-8859-1).

namespace tavru {

/// O bloco de informações de um elemento.
inline constexpr char _INFORMACOES_[] = "Informacoes";
/// Um campo do bloco.
inline constexpr char _INFORMACAO_[] = "Informacao";
/// O rótulo (nome) de um campo.
inline constexpr char _ROTULO_[] = "Rotulo";
/// O valor de um campo.
inline constexpr char _VALOR_[] = "Valor";

} // namespace tavru
