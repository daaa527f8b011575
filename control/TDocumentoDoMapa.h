#pragma once
/// \file
/// O documento do mapa inteiro: camadas, opções do controle e visão num arquivo XML (extensão).

#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

class TGis;

/// Grava e lê o mapa inteiro de um `TGis` num documento XML em UTF-8 (extensão; o formato está
/// descrito no README). O documento guarda:
/// - cada camada, na ordem da lista: nome, tipo, visibilidade, limites de zoom, cor (ou -1),
///   caneta, pincel e a visibilidade dos objetos e dos rótulos deles (um valor por camada: todos
///   visíveis ou não; uma camada mista volta com o valor da maioria, de propósito);
/// - os objetos de cada camada: a camada que veio de um arquivo (a lista dela sabe `NomeArquivo` e
///   `TipoArquivo`, nenhum objeto entrou ou saiu depois, `MesmosObjetosDaOrigem`, e o arquivo
///   existe) é guardada como uma referência a ele, com o tipo do tratador e as opções de leitura,
///   e o caminho relativo à pasta do documento; as outras levam os objetos dentro do documento,
///   escritos pelo tratador "XML". Mudanças dentro dos objetos de uma camada referida (um ponto
///   arrastado) não entram: gravam-se gravando a camada, ou esquecendo o arquivo com
///   `AtribuirNomeArquivo("")`;
/// - as opções dos rótulos do controle (campos, fonte, halo, sem sobreposição), a seta no centro
///   da área, a barra de escala, a cor de fundo e a visão (centro e zoom).
///
/// Não guarda a projeção (o controle volta com a que tem), as tabelas de cores e de símbolos, nem
/// a seleção. Tudo roda na linha de execução da interface.
class TAVRU_GIS_EXPORT TDocumentoDoMapa
{
public:
    /// Grava o mapa de `gis` em `nomeArquivo` inteiro ou nada (o arquivo anterior fica quando a
    /// gravação falha). Não muda o mapa.
    /// \throws EInOutError quando não consegue gravar; EConvertError quando o tratador "XML" não
    ///         está registrado ou não consegue escrever os objetos de uma camada.
    static void Gravar(TGis &gis, const QString &nomeArquivo);

    /// Lê o documento num mapa de rascunho (todas as camadas, com cada arquivo referido) e só
    /// então troca o mapa de `gis` por ele: esquece a seleção, libera as camadas antigas, aplica
    /// as opções, a visão, e redesenha. Qualquer erro deixa o mapa como estava.
    /// \throws EInOutError quando o documento ou um arquivo referido não abre ou não lê (a
    ///         mensagem diz o arquivo e a camada); EConvertError quando o documento é inválido.
    static void Ler(TGis &gis, const QString &nomeArquivo);
};

} // namespace tavru
