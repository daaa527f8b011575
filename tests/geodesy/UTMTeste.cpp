#include <tavru/companions/geodesy/UTM.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

using namespace tavru;

namespace {
constexpr double Tolerancia = 1e-6; // graus: cerca de 0,1 m, a precisão dos valores publicados
constexpr int Wgs84 = 29, Clarke1866 = 7, Hayford = 19;
} // namespace

TEST(GradeUTM, PontosPublicadosEElipsoides)
{
    double lat = 0, lon = 0;
    // GeographicLib (GeoConvert): 33.3 44.4 = 38n 444140.54 3684706.36, WGS-84.
    ConverteGradeUTM_para_LatLong(38, u'S', 444140.54, 3684706.36, Wgs84, lat, lon);
    EXPECT_NEAR(lat, 33.3, Tolerancia);
    EXPECT_NEAR(lon, 44.4, Tolerancia);
    ConverteGradeUTM_para_LatLong(QStringLiteral("38s"), 444140.54, 3684706.36, 0, lat, lon); // [ Default ]
    EXPECT_NEAR(lat, 33.3, Tolerancia);
    // Snyder, Map Projections (p. 269), Clarke 1866: 40°30'N 73°30'W = x 127106.5 m, y 4484124.4 m
    // a partir do meridiano de 75°W (fuso 18).
    ConverteGradeUTM_para_LatLong(QStringLiteral("18T"), 627106.5, 4484124.4, Clarke1866, lat, lon);
    EXPECT_NEAR(lat, 40.5, Tolerancia);
    EXPECT_NEAR(lon, -73.5, Tolerancia);
    // O mesmo ponto espelhado no sul: o falso norte de 10 000 000 m entra pela letra da zona.
    ConverteGradeUTM_para_LatLong(QStringLiteral(" 18 g "), 627106.5, 10000000.0 - 4484124.4, Clarke1866, lat,
                                  lon);
    EXPECT_NEAR(lat, -40.5, Tolerancia);
    EXPECT_NEAR(lon, -73.5, Tolerancia);

    double latW = 0, lonW = 0, latH = 0, lonH = 0;
    ConverteGradeUTM_para_LatLong(QStringLiteral("23K"), 333000.0, 7395000.0, Wgs84, latW, lonW);
    ConverteGradeUTM_para_LatLong(QStringLiteral("23K"), 333000.0, 7395000.0, Hayford, latH, lonH);
    EXPECT_NEAR(latW, -23.55, 0.01); // São Paulo
    EXPECT_NEAR(lonW, -46.63, 0.01);
    EXPECT_GT(std::abs(latW - latH), 1e-5); // dezenas de metros entre os elipsoides
}

TEST(GradeUTM, NomesEErros)
{
    const QStringList nomes = NomesElipsoides();
    ASSERT_EQ(nomes.size(), TotalElipsoides);
    EXPECT_EQ(nomes[0], "     [ Default ]");
    EXPECT_EQ(nomes[Wgs84], "29 - WGS-84"); // o índice do nome é o do elipsoide

    double lat = 0, lon = 0;
    for (int indice : {-1, 30})
        EXPECT_THROW(ConverteGradeUTM_para_LatLong(QStringLiteral("22K"), 5e5, 7e6, indice, lat, lon), EConvertError);
    for (const char *zona : {"", "K", "61K", "0K", "22I", "22O", "22Y", "22", "xK"})
        EXPECT_THROW(ConverteGradeUTM_para_LatLong(QString::fromLatin1(zona), 5e5, 7e6, 0, lat, lon), EConvertError)
            << zona;
    EXPECT_THROW(ConverteGradeUTM_para_LatLong(22, u'K', NAN, 7e6, 0, lat, lon), EConvertError);
}
