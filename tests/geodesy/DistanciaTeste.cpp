#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/companions/geodesy/Rumo.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;

namespace {

constexpr double Pi = 3.14159265358979323846;
const TGISPosicao JFK = GISPosicao(146160, -265680); // 40.6 N, 73.8 W
const TGISPosicao LHR = GISPosicao(185760, -1800); // 51.6 N, 0.5 W
} // namespace

// Valores de referência publicados com a GeographicLib (exemplos de Geodesic e GeodSolve).
TEST(Geodesica, ValoresDeReferenciaECasosDeBorda)
{
    EXPECT_NEAR(Distancia(JFK, LHR), 5551759.400319 / 1852.0, 1e-6);
    // 5500 km a 51° de JFK: 51.884564506 N, 1.141172861 W.
    EXPECT_EQ(ObterPontoArco(JFK, 5.5e6 / 1852.0, 51.0 * Pi / 180.0), GISPosicao(186784, -4108));
    // Um grau de meridiano no equador: 110 574,389 m.
    EXPECT_NEAR(Distancia(GISPosicao(0, 0), GISPosicao(3600, 0)), 110574.389 / 1852.0, 1e-5);

    EXPECT_EQ(ObterPontoArco(JFK, 0.0, 1.0), JFK);
    EXPECT_EQ(ObterPontoArco(JFK, NAN, 0.0), JFK);
    // Atravessar o antimeridiano devolve longitude dentro do mundo.
    const TGISPosicao p = ObterPontoArco(GISPosicao(0, 647000), 60.0, Pi / 2);
    EXPECT_LT(p.Longitude, -640000);
    EXPECT_TRUE(Valida(p));
    // Um quarto de meridiano do equador para o norte chega ao polo.
    EXPECT_EQ(ObterPontoArco(GISPosicao(0, 0), 10001965.7293 / 1852.0, 0.0).Latitude, 324000);
}

TEST(Arcos, SentidoPontasVoltaCompletaElipseELinha)
{
    const TGISPosicao c = GISPosicao(-84600, -166500);
    std::vector<TGISPosicao> a(5);
    TracaArco(0, Pi / 2, c, 10.0, a, true); // horário: norte, ..., leste
    EXPECT_EQ(a.front(), ObterPontoArco(c, 10.0, 0));
    EXPECT_EQ(a.back(), ObterPontoArco(c, 10.0, Pi / 2));
    EXPECT_EQ(a[2], ObterPontoArco(c, 10.0, Pi / 4));
    TracaArco(0, Pi / 2, c, 10.0, a, false); // anti-horário: os outros três quartos
    EXPECT_EQ(a[2], ObterPontoArco(c, 10.0, -3 * Pi / 4));
    for (double fim : {0.0, 2 * Pi, 2 * Pi + 1e-12}) {
        std::vector<TGISPosicao> disco(50);
        TracaArco(0.3, 0.3 + fim, c, 10.0, disco, false);
        EXPECT_EQ(disco.front(), disco.back());
        EXPECT_EQ(disco[25], ObterPontoArco(c, 10.0, 0.3 - 2 * Pi * 25 / 49));
    }
    TracaArco(1.0, 2.0, c, 10.0, nullptr, 0, true); // nada a preencher

    std::vector<TGISPosicao> e(9), k(9);
    TracaArcoElipse(30.0, 0, 0, c, 12.0, 12.0, e, true); // semi-eixos iguais: o círculo
    TracaArco(30.0 * Pi / 180, 30.0 * Pi / 180, c, 12.0, k, true);
    EXPECT_EQ(e, k);
    // Rumo 90: o semi-eixo 2 (proa) aponta para o leste, o semi-eixo 1 (través) para o sul.
    TracaArcoElipse(90.0, 0, Pi / 2, c, 3.0, 20.0, e, true);
    EXPECT_EQ(e.front(), ObterPontoArco(c, 20.0, Pi / 2));
    EXPECT_EQ(e.back(), ObterPontoArco(c, 3.0, Pi));
    TracaArcoElipse(0.0, 0, 0, c, 5.0, 0.0, e, true); // sem área: no centro, nunca indefinido
    EXPECT_EQ(e[2], c);

    std::vector<TGISPosicao> l(3);
    TracaLinha(GISPosicao(0, 0), GISPosicao(0, 7200), l);
    EXPECT_EQ(l, (std::vector{GISPosicao(0, 0), GISPosicao(0, 3600), GISPosicao(0, 7200)})); // o equador
}

TEST(Rumos, GrauEMarinha)
{
    EXPECT_DOUBLE_EQ(MarinhaToGrau(0), 90.0);
    EXPECT_DOUBLE_EQ(GrauToMarinha(90), 0.0);
    EXPECT_DOUBLE_EQ(GrauToMarinha(180), 270.0);
    EXPECT_DOUBLE_EQ(GrauToMarinha(MarinhaToGrau(123.25)), 123.25);
    EXPECT_LT(GrauToMarinha(90 + 1e-15), 360.0);
}
