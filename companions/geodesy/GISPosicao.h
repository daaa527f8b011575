#pragma once
/// \file
/// Posições e retângulos do mundo, e as funções geométricas de que o núcleo precisa.
///
/// Unidade do mundo: o segundo de arco. A latitude vai de -324000 (90° S) a 324000 (90° N) e a
/// longitude de -648000 (180° W) a 648000 (180° E); graus viram unidades multiplicando por 3600.

#include "platform/Exportacao.h"
#include "platform/TPoint.h"

#include <QString>
#include <cstdint>

namespace tavru {

/// Posição do mundo: latitude e longitude em segundos de arco, nesta ordem.
struct TGISPosicao
{
    std::int32_t Latitude = 0;
    std::int32_t Longitude = 0;

    friend constexpr bool operator==(const TGISPosicao &a, const TGISPosicao &b)
    {
        return a.Latitude == b.Latitude && a.Longitude == b.Longitude;
    }
    friend constexpr bool operator!=(const TGISPosicao &a, const TGISPosicao &b) { return !(a == b); }
};

/// Retângulo do mundo: dois cantos seguidos (latitude 1, longitude 1, latitude 2, longitude 2).
/// Não se ordena sozinho: `ConcertaRect` põe o primeiro canto no mínimo e o segundo no máximo.
struct TGISRet
{
    TGISPosicao Pos1;
    TGISPosicao Pos2;

    friend constexpr bool operator==(const TGISRet &a, const TGISRet &b) { return a.Pos1 == b.Pos1 && a.Pos2 == b.Pos2; }
    friend constexpr bool operator!=(const TGISRet &a, const TGISRet &b) { return !(a == b); }
};

constexpr TGISPosicao GISPosicao(std::int32_t latitude, std::int32_t longitude)
{
    return TGISPosicao{latitude, longitude};
}

constexpr TGISRet GISRet(std::int32_t lat1, std::int32_t long1, std::int32_t lat2, std::int32_t long2)
{
    return TGISRet{TGISPosicao{lat1, long1}, TGISPosicao{lat2, long2}};
}

/// O mundo inteiro.
constexpr TGISRet MundoInteiro = GISRet(-324000, -648000, 324000, 648000);

/// O retângulo com o primeiro canto no mínimo e o segundo no máximo de cada eixo.
TAVRU_GEODESIA_EXPORT TGISRet ConcertaRect(const TGISRet &r);
/// O retângulo de tela com Left <= Right e Top <= Bottom.
TAVRU_GEODESIA_EXPORT TRect ConcertaRect(const TRect &r);
/// O centro de um retângulo de tela ((Left + Right) div 2, (Top + Bottom) div 2), truncando.
TAVRU_GEODESIA_EXPORT TPoint Centro(const TRect &r);
/// O centro de um retângulo do mundo, cada eixo (a + b) div 2 truncando.
TAVRU_GEODESIA_EXPORT TGISPosicao Centro(const TGISRet &r);

/// Distância do ponto `p` ao segmento `a`-`b` (ao ponto mais próximo do segmento, extremos
/// incluídos), na unidade dos argumentos.
TAVRU_GEODESIA_EXPORT double DistanciaAReta(const TGISPosicao &a, const TGISPosicao &b, const TGISPosicao &p);
TAVRU_GEODESIA_EXPORT double DistanciaAReta(const TPoint &a, const TPoint &b, const TPoint &p);

/// Verdadeiro quando os segmentos `a1`-`a2` e `b1`-`b2` se cruzam propriamente.
TAVRU_GEODESIA_EXPORT bool Intercepta(const TGISPosicao &a1, const TGISPosicao &a2, const TGISPosicao &b1, const TGISPosicao &b2);
TAVRU_GEODESIA_EXPORT bool Intercepta(const TPoint &a1, const TPoint &a2, const TPoint &b1, const TPoint &b2);

/// O menor retângulo que contém os dois (cada um tomado em ordem).
TAVRU_GEODESIA_EXPORT TGISRet Uniao(const TGISRet &a, const TGISRet &b);
/// Verdadeiro quando o retângulo é uma extensão válida (não é o retângulo vazio dos objetos sem
/// extensão, e fica dentro do mundo).
TAVRU_GEODESIA_EXPORT bool Valida(const TGISRet &r);
/// Verdadeiro quando os dois retângulos de tela (tomados em ordem) têm área em comum ou se tocam.
TAVRU_GEODESIA_EXPORT bool Intersecao(const TRect &a, const TRect &b);
/// Verdadeiro quando `fora` contém `dentro` inteiro (ambos tomados em ordem, bordas incluídas):
/// o primeiro argumento é o recipiente.
TAVRU_GEODESIA_EXPORT bool Contem(const TGISRet &fora, const TGISRet &dentro);
/// Verdadeiro quando o ponto está no retângulo de tela (tomado em ordem, bordas incluídas).
TAVRU_GEODESIA_EXPORT bool PertenceRect(const TPoint &p, const TRect &r);
/// O retângulo escalado pelo fator em torno do seu centro.
TAVRU_GEODESIA_EXPORT TGISRet Escalonar(const TGISRet &r, double fator);
/// O retângulo de tela crescido de `d` pixels em cada lado.
TAVRU_GEODESIA_EXPORT TRect Inflar(const TRect &r, int d);

/// O número em decimal, com zeros à esquerda até a largura (`StrZero(1, 3)` = "001").
TAVRU_GEODESIA_EXPORT QString StrZero(long long numero, int largura);

} // namespace tavru
