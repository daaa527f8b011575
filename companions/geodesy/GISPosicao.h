#pragma once
/// \file
/// Posições e retângulos do mundo, e as funções geométricas de que o núcleo precisa.
///
/// Unidade do mundo: o segundo de arco. A latitude vai de -324000 (90° S) a 324000 (90° N) e a
/// longitude de -648000 (180° W) a 648000 (180° E); graus viram unidades multiplicando por 3600.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

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
/// O centro de um retângulo de tela ((Left + Right) div 2, (Top + Bottom) div 2), truncando em
/// direção a zero (a soma é feita em 64 bits, sem estouro).
TAVRU_GEODESIA_EXPORT TPoint Centro(const TRect &r);
/// O centro de um retângulo do mundo, cada eixo (a + b) div 2 truncando.
TAVRU_GEODESIA_EXPORT TGISPosicao Centro(const TGISRet &r);

/// Distância do ponto `p` ao segmento `a`-`b` (ao ponto mais próximo do segmento, extremos
/// incluídos), na unidade dos argumentos: segundos de arco tomados como plano (latitude e
/// longitude na mesma escala, sem geodésia) ou pixels. Um ponto além de uma ponta mede até essa
/// ponta; um segmento de pontas iguais mede até o ponto.
TAVRU_GEODESIA_EXPORT double DistanciaAReta(const TGISPosicao &a, const TGISPosicao &b, const TGISPosicao &p);
TAVRU_GEODESIA_EXPORT double DistanciaAReta(const TPoint &a, const TPoint &b, const TPoint &p);

/// Verdadeiro quando os segmentos `a1`-`a2` e `b1`-`b2` se cruzam propriamente: cada um tem as
/// pontas do outro estritamente em lados opostos. Tocar numa ponta, passar por um vértice ou
/// sobrepor-se em linha não conta (é o que a contagem de paridade de um ponto numa área precisa).
/// O cálculo é exato em inteiros, em qualquer faixa de coordenadas.
TAVRU_GEODESIA_EXPORT bool Intercepta(const TGISPosicao &a1, const TGISPosicao &a2, const TGISPosicao &b1, const TGISPosicao &b2);
TAVRU_GEODESIA_EXPORT bool Intercepta(const TPoint &a1, const TPoint &a2, const TPoint &b1, const TPoint &b2);

/// Ponto de encontro dos segmentos de tela `a1`-`a2` e `b1`-`b2`, pontas incluídas.
///
/// Verdadeiro quando os segmentos têm exatamente um ponto em comum (cruzando-se ou tocando-se numa
/// ponta); `ponto` recebe esse ponto, arredondado ao pixel mais próximo. Falso quando não se
/// encontram, quando são paralelos ou estão sobre a mesma reta (sem ponto único) ou quando um deles
/// tem as pontas iguais; `ponto` fica como estava. É o teste do contorno de um corredor: duas
/// bordas deslocadas consecutivas que se cruzam (lado de dentro da curva) dão um vértice só; as que
/// não se encontram (lado de fora) deixam o chamador ligá-las ponta a ponta. O teste de inclusão é
/// exato em inteiros.
TAVRU_GEODESIA_EXPORT bool PontoIntersecao(const TPoint &a1, const TPoint &a2, const TPoint &b1, const TPoint &b2,
                                           TPoint &ponto);

/// O menor retângulo que contém os dois (cada um tomado em ordem).
TAVRU_GEODESIA_EXPORT TGISRet Uniao(const TGISRet &a, const TGISRet &b);
/// Verdadeiro quando o retângulo é uma extensão válida: não é o retângulo vazio `GISRet(0, 0, 0, 0)`
/// dos objetos sem extensão, e os dois cantos ficam dentro do mundo (bordas incluídas). A ordem dos
/// cantos não importa (um retângulo ainda não concertado vale), e um retângulo de um ponto só
/// (cantos iguais) vale, desde que não seja o vazio.
TAVRU_GEODESIA_EXPORT bool Valida(const TGISRet &r);
/// Verdadeiro quando a posição fica dentro do mundo (bordas incluídas). Aqui (0, 0) vale: é uma
/// posição como outra qualquer, não uma extensão vazia.
TAVRU_GEODESIA_EXPORT bool Valida(const TGISPosicao &p);
/// Verdadeiro quando os dois retângulos de tela (tomados em ordem) têm área em comum ou se tocam.
TAVRU_GEODESIA_EXPORT bool Intersecao(const TRect &a, const TRect &b);
/// Verdadeiro quando `fora` contém `dentro` inteiro (ambos tomados em ordem, bordas incluídas):
/// o primeiro argumento é o recipiente.
TAVRU_GEODESIA_EXPORT bool Contem(const TGISRet &fora, const TGISRet &dentro);
/// Verdadeiro quando o ponto está no retângulo de tela (tomado em ordem, bordas incluídas).
TAVRU_GEODESIA_EXPORT bool PertenceRect(const TPoint &p, const TRect &r);
/// O retângulo escalado pelo fator em torno do seu centro: cada canto c vira
/// centro + (c - centro) × fator, arredondado ao inteiro mais próximo (meios para longe de zero)
/// e limitado à faixa de 32 bits (não ao mundo). A ordem dos cantos é mantida (um fator negativo a
/// inverte); `GISRet(0, 0, 0, 0)` escalado continua vazio.
TAVRU_GEODESIA_EXPORT TGISRet Escalonar(const TGISRet &r, double fator);
/// O retângulo de tela crescido de `d` pixels em cada lado (`Left` e `Top` diminuem, `Right` e
/// `Bottom` aumentam, como faz a plataforma; um `d` negativo encolhe). Espera um retângulo em ordem.
TAVRU_GEODESIA_EXPORT TRect Inflar(const TRect &r, int d);

/// O número em decimal, com zeros à esquerda até a largura (`StrZero(1, 3)` = "001"). Um número
/// mais largo sai inteiro; um negativo leva o sinal na frente, contando na largura
/// (`StrZero(-1, 3)` = "-01").
TAVRU_GEODESIA_EXPORT QString StrZero(long long numero, int largura);

} // namespace tavru
