#pragma once
/// \file
/// Os ajustes da unidade `ReconheceArquivoXML`: variáveis públicas, lidas a cada uso pelo leitor
/// e pelo gravador de documentos XML do mapa. Mudá-las vale para o processo todo (não há travas:
/// tudo roda na linha de execução da interface).

#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

/// Nome do elemento raiz: escrito por `Gravar` e por `ObterObjeto`, comparado por `Ler` sem
/// distinguir maiúsculas. Padrão "CAMADA".
extern TAVRU_GIS_EXPORT QString TAG_RAIZ;

/// Primeira linha de todo documento gravado. Padrão
/// `<?xml version="1.0" encoding="ISO-8859-1"?>`.
///
/// A codificação declarada aqui é a usada para gravar o documento: "ISO-8859-1" (ou "latin1"),
/// "UTF-8" e "US-ASCII", sem distinguir maiúsculas; um cabeçalho sem `encoding` grava UTF-8, como
/// o XML manda. Outra codificação levanta `EConvertError` antes de qualquer gravação. Na leitura
/// vale a declaração do próprio documento (ISO-8859-1 ou UTF-8).
extern TAVRU_GIS_EXPORT QString CABECALHO;

/// Modo das cores `Cor` e `CorPreenchimento`, na gravação e na leitura: falso (padrão) grava a
/// cor em hexadecimal (`0000FF` é o vermelho puro, `0x00BBGGRR`); verdadeiro grava e lê o código
/// de cor do objeto na tabela de cores, em decimal (`IndiceCor`, e `IndicePincel` no
/// preenchimento), sem tocar nas cores da caneta e do pincel.
extern TAVRU_GIS_EXPORT bool USAR_TABELA_DE_SIMBOLOS;

/// Falso por padrão: o gravador põe textos, nomes de arquivo e de fonte e o bloco de informações
/// tal como estão, e um `"`, `<` ou `&` neles dá um documento que um leitor de XML conforme recusa
/// (o formato é assim; o leitor desta casa tolera `<` e `&` soltos, mas não aspas). Verdadeiro
/// troca `&`, `<`, `>` e `"` pelas entidades do XML nos valores de atributo e nos textos, e o
/// documento se lê de volta igual.
extern TAVRU_GIS_EXPORT bool ESCAPAR_TEXTOS;

} // namespace tavru
