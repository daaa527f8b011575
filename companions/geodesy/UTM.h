#pragma once
/// \file
/// Conversão de coordenadas da grade UTM para latitude e longitude, sobre os elipsoides de
/// referência que as cartas usam.
///
/// A projeção é a Transversa de Mercator de Krüger (GeographicLib, erro de nanômetros até
/// 3900 km do meridiano central) com fator de escala 0,9996 no meridiano central
/// (6 × fuso - 183 graus), falso leste 500 000 m e falso norte 10 000 000 m no hemisfério sul.
/// O datum não muda: a latitude e a longitude saem no mesmo elipsoide da grade.

#include <tavru/platform/Exportacao.h>

#include <QChar>
#include <QString>
#include <QStringList>

namespace tavru {

/// Um elipsoide de referência: nome como a lista de escolha o mostra, semi-eixo maior (metros) e
/// inverso do achatamento (1/f), os valores publicados (NIMA TR8350.2 e as definições de cada um).
struct TElipsoide
{
    const char16_t *Nome;
    double SemiEixoMaior;
    double InversoAchatamento;
};

/// Quantos elipsoides há: o índice 0, "[ Default ]", é o WGS-84; os índices 1 a 29 seguem a ordem
/// da lista de escolha das cartas ("1 - Airy 1830" ... "29 - WGS-84").
constexpr int TotalElipsoides = 30;

/// O elipsoide do índice. "10 - Everest 1938" usa os valores do Everest de 1948
/// (6 377 304,063 m), o único Everest dessa época publicado; "3 - Astro Chuá" e
/// "19 - Hayford ( Datum: Córrego Alegre )" usam o Internacional de 1924, que é o desses datums.
/// \throws EConvertError índice fora de 0 .. `TotalElipsoides` - 1.
TAVRU_GEODESIA_EXPORT const TElipsoide &ObterElipsoide(int indice);

/// Os 30 textos da lista de escolha, na ordem dos índices e exatamente como gravados nos arquivos
/// ".geo" das cartas: "     [ Default ]", " 1 - Airy 1830", ..., " 9 - Everest 1830",
/// "10 - Everest 1938", ..., "29 - WGS-84" (números abaixo de 10 levam um espaço à frente).
TAVRU_GEODESIA_EXPORT QStringList NomesElipsoides();

/// Converte um ponto da grade UTM em latitude e longitude, em graus decimais (longitude em
/// [-180, 180]).
///
/// \param fuso       número do fuso, 1 a 60.
/// \param letra      letra da zona de latitude, C a X sem I e O (maiúscula ou minúscula): C a M
///                   ficam no hemisfério sul, N a X no norte. Só o hemisfério importa.
/// \param leste      coordenada leste (x), em metros, com o falso leste.
/// \param norte      coordenada norte (y), em metros, com o falso norte do hemisfério.
/// \param elipsoide  índice do elipsoide (ver `ObterElipsoide`).
/// \throws EConvertError fuso, letra ou elipsoide inválidos, ou coordenadas não finitas.
TAVRU_GEODESIA_EXPORT void ConverteGradeUTM_para_LatLong(int fuso, QChar letra, double leste, double norte,
                                                         int elipsoide, double &latitude, double &longitude);

/// O mesmo com a zona num texto só, o número do fuso seguido da letra: "22K", "23 k".
/// \throws EConvertError zona que não é um fuso seguido de uma letra válida, e os casos acima.
TAVRU_GEODESIA_EXPORT void ConverteGradeUTM_para_LatLong(const QString &zona, double leste, double norte,
                                                         int elipsoide, double &latitude, double &longitude);

} // namespace tavru
