#pragma once
/// \file
/// Distâncias e construções geodésicas sobre o elipsoide WGS-84: a distância entre duas posições,
/// o ponto a uma distância e azimute de outro, e os contornos de arcos, arcos de elipse e linhas
/// que as áreas circulares e as elipses desenham.
///
/// Unidades: distâncias em milhas náuticas (1852 m), medidas pela geodésica do WGS-84
/// (GeographicLib, erro de nanômetros); azimutes em radianos, náuticos (0 no norte, crescendo no
/// sentido horário), salvo o rumo de `TracaArcoElipse`, em graus. As posições produzidas são
/// arredondadas ao segundo de arco mais próximo, com a longitude reduzida a [-180°, 180°].
///
/// Sentido dos arcos. Um arco vai de `angulo1` a `angulo2`: no sentido horário (azimute
/// crescendo) quando `horario` é verdadeiro, no anti-horário (azimute decrescendo) quando falso,
/// sempre pelo caminho que esse sentido dá (até uma volta). Ângulos iguais (ou que diferem de uma
/// volta inteira) dão a volta completa. O primeiro ponto fica em `angulo1` e o último em `angulo2`,
/// e na volta completa o último repete exatamente o primeiro. Com isso os contornos de uma área
/// circular são anéis fechados simples:
/// - disco: `TracaArco(0, 0, ..., false)` — uma volta, primeiro e último ponto iguais;
/// - setor de `Ai` a `Af` (sentido horário de `Ai` a `Af`): raio do centro até `Af`,
///   `TracaArco(Af, Ai, ..., false)` volta pelo arco de `Af` a `Ai`, raio de `Ai` ao centro;
/// - anel e setor de anel: `TracaArco(Ai, Af, ..., true)` por fora e
///   `TracaArco(Af, Ai, ..., false)` por dentro percorrem o mesmo setor em sentidos opostos, e as
///   duas ligações (ou as pontas coincidentes do anel) fecham o contorno.
/// Pontas de arrays consecutivos coincidem (o fim de um raio é o começo do arco): o contorno pode
/// ter pontos repetidos em seguida, o que não atrapalha nem o desenho nem a paridade.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

#include <vector>

namespace tavru {

/// Metros numa milha náutica internacional.
constexpr double MetrosPorMilhaNautica = 1852.0;

/// Distância geodésica entre duas posições do mundo, em milhas náuticas (WGS-84).
TAVRU_GEODESIA_EXPORT double Distancia(const TGISPosicao &a, const TGISPosicao &b);
/// Distância entre dois pontos de tela, em pixels (euclidiana).
TAVRU_GEODESIA_EXPORT double Distancia(const TPoint &a, const TPoint &b);

/// A posição a `distancia` milhas náuticas de `origem`, saindo no `azimute` (radianos, náutico),
/// pela geodésica do WGS-84. Uma distância negativa anda para trás. Distância ou azimute não
/// finitos devolvem a própria origem (nunca uma posição indefinida).
TAVRU_GEODESIA_EXPORT TGISPosicao ObterPontoArco(const TGISPosicao &origem, double distancia, double azimute);

/// Preenche `pontos[0 .. quantidade - 1]` com o arco de círculo geodésico de `raio` milhas
/// náuticas em torno de `centro`, de `angulo1` a `angulo2` (radianos, náuticos) no sentido que
/// `horario` escolhe (ver o início deste arquivo). Um ponto só fica em `angulo1`; quantidade
/// zero ou negativa não faz nada.
TAVRU_GEODESIA_EXPORT void TracaArco(double angulo1, double angulo2, const TGISPosicao &centro, double raio,
                                     TGISPosicao *pontos, int quantidade, bool horario);
/// O mesmo, preenchendo todos os `pontos.size()` pontos do vetor (o tamanho é do chamador).
TAVRU_GEODESIA_EXPORT void TracaArco(double angulo1, double angulo2, const TGISPosicao &centro, double raio,
                                     std::vector<TGISPosicao> &pontos, bool horario);

/// Preenche os pontos com o arco de uma elipse em torno de `centro`, girada pelo `rumo` (graus,
/// náutico: o eixo de `semiEixo2` aponta para o rumo e o de `semiEixo1` para 90° à direita dele;
/// com rumo 0, `semiEixo1` é o eixo leste-oeste e `semiEixo2` o norte-sul). Os ângulos (radianos)
/// contam a partir do rumo, no sentido horário, e não são somados a ele pelo chamador: o ponto do
/// ângulo t fica na direção rumo + t, à distância (em milhas náuticas) em que essa direção corta a
/// elipse. Sentido, pontas e volta completa como em `TracaArco`; com semi-eixos iguais o
/// resultado é o de `TracaArco(rumo + angulo1, rumo + angulo2, ...)`. Um semi-eixo nulo dá uma
/// elipse sem área, cujos pontos caem no centro (nunca um valor indefinido). Semi-eixos negativos
/// valem pelo seu módulo.
TAVRU_GEODESIA_EXPORT void TracaArcoElipse(double rumo, double angulo1, double angulo2, const TGISPosicao &centro,
                                           double semiEixo1, double semiEixo2, TGISPosicao *pontos, int quantidade,
                                           bool horario);
TAVRU_GEODESIA_EXPORT void TracaArcoElipse(double rumo, double angulo1, double angulo2, const TGISPosicao &centro,
                                           double semiEixo1, double semiEixo2, std::vector<TGISPosicao> &pontos,
                                           bool horario);

/// Preenche os pontos ao longo da geodésica de `inicio` a `fim`, igualmente espaçados, com o
/// primeiro igual a `inicio` e o último igual a `fim` exatamente. Um ponto só é `inicio`.
TAVRU_GEODESIA_EXPORT void TracaLinha(const TGISPosicao &inicio, const TGISPosicao &fim, TGISPosicao *pontos,
                                      int quantidade);
TAVRU_GEODESIA_EXPORT void TracaLinha(const TGISPosicao &inicio, const TGISPosicao &fim,
                                      std::vector<TGISPosicao> &pontos);

} // namespace tavru
