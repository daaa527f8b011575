#pragma once
/// \file
/// Textos de coordenadas, distâncias e ângulos, nos dois sentidos.
///
/// O separador decimal escrito é sempre o ponto, qualquer que seja o idioma do sistema; na leitura
/// vale ponto ou vírgula. Todo texto escrito aqui é lido de volta pela função par: a posição
/// exatamente, distâncias e ângulos a menos de um milionésimo da sua unidade. Os textos não levam
/// aspas duplas, `<` nem `&`, e podem ir tal como estão num atributo XML entre aspas duplas.
/// Texto que não se lê levanta `EConvertError` com mensagem em português, que cita o texto com
/// `CitarValor` (no máximo 60 caracteres, e o comprimento quando é mais longo).

#include <tavru/platform/Exportacao.h>

#include <QString>
#include <cstdint>

namespace tavru {

/// Coordenada em graus, minutos e segundos com a letra do hemisfério, a partir de segundos de
/// arco (a unidade de `TGISPosicao`).
///
/// Latitude com dois dígitos de grau e N/S, longitude com três dígitos e E/W; minutos e segundos
/// sempre com dois dígitos; os minutos levam `'` e os segundos duas aspas simples `''` (nunca a
/// aspa dupla). Exemplos: latitude -84600 dá `23°30'00''S`, longitude -166500 dá `046°15'00''W`.
/// O zero é do hemisfério norte ou leste: `00°00'00''N`, `000°00'00''E`. Os extremos são
/// `90°00'00''N`, `180°00'00''W`. O valor é um número inteiro de segundos, então nunca há fração.
/// Valores fora do mundo são escritos do mesmo modo, com mais dígitos de grau quando precisam.
TAVRU_GEODESIA_EXPORT QString IntToGrau(std::int32_t valor, bool ehLatitude);

/// Lê uma coordenada em graus e devolve segundos de arco, arredondando ao segundo mais próximo
/// (meio segundo para longe de zero).
///
/// Aceita o que `IntToGrau` escreve e as formas que se digitam, sem distinguir maiúsculas:
/// - graus decimais (`-23.5`, `23,5`), graus e minutos (`23 30.5`), graus, minutos e segundos
///   (`23°30'00''`, `23 30 00`, `23:30:00`); as marcas `°`, `º`, `'`, `"`, `′`, `″` e espaços
///   separam os números, que são sempre graus, minutos e segundos nessa ordem; só o último pode
///   ter fração; minutos e segundos ficam abaixo de 60;
/// - a letra do hemisfério antes ou depois: N ou S; E, L (leste), W ou O (oeste). S, W e O dão
///   valores negativos. Um sinal `-` ou `+` serve no lugar da letra, nunca junto com ela.
/// Os graus não são limitados ao mundo (quem precisa testa com `Valida`), só à faixa de 32 bits.
/// \throws EConvertError texto vazio, que não é coordenada, com duas letras, letra e sinal juntos,
///         minutos ou segundos de 60 em diante, ou fora da faixa.
TAVRU_GEODESIA_EXPORT std::int32_t GrauToInt(const QString &texto);

/// Distância em milhas náuticas como texto: até seis casas decimais, sem zeros à direita
/// (`2.5`, `10`, `0.333333`). Com `comUnidade` o texto termina em ` MN` (`2.5 MN`), como os
/// documentos de mapa a guardam. Valores não finitos saem como `nan`/`inf` e não se leem de volta.
TAVRU_GEODESIA_EXPORT QString DistanciaToStr(double valor, bool comUnidade);
/// Lê uma distância e a devolve em milhas náuticas. Um número (ponto ou vírgula decimal, sinal e
/// expoente opcionais) seguido, ou não, da unidade: `MN` ou `NM` (milhas náuticas, a unidade
/// quando nada se diz), `KM` (quilômetros) ou `M` (metros), com ou sem espaço, sem distinguir
/// maiúsculas. \throws EConvertError texto que não é uma distância.
TAVRU_GEODESIA_EXPORT double StrToDistancia(const QString &texto);

/// Ângulo em radianos como texto em graus decimais, até seis casas, sem zeros à direita
/// (π/2 dá `90`); com `comUnidade` o texto termina em `°` (`90°`), como os documentos de mapa o
/// guardam. O ângulo não é reduzido a uma volta.
TAVRU_GEODESIA_EXPORT QString AnguloToStr(double valor, bool comUnidade);
/// Lê um ângulo e o devolve em radianos. Graus (a unidade quando nada se diz), em decimal
/// (`90`, `-12,5°`, `90 graus`) ou em graus, minutos e segundos como `GrauToInt` os lê, sem letra
/// de hemisfério (`45°30'`); ou radianos, terminando em `rad` (`1.5708 rad`).
/// \throws EConvertError texto que não é um ângulo.
TAVRU_GEODESIA_EXPORT double StrToAngulo(const QString &texto);

} // namespace tavru
