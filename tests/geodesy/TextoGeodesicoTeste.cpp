#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;

namespace {
constexpr double Pi = 3.14159265358979323846;
}

TEST(TextoDeGraus, EscritaEIdaEVoltaDeUmaFaixa)
{
    EXPECT_EQ(IntToGrau(-84600, true), QStringLiteral("23°30'00''S"));
    EXPECT_EQ(IntToGrau(-166500, false), QStringLiteral("046°15'00''W"));
    EXPECT_EQ(IntToGrau(0, true), QStringLiteral("00°00'00''N"));
    EXPECT_EQ(IntToGrau(0, false), QStringLiteral("000°00'00''E"));
    EXPECT_EQ(IntToGrau(324000, true), QStringLiteral("90°00'00''N"));
    EXPECT_EQ(IntToGrau(-648000, false), QStringLiteral("180°00'00''W"));
    EXPECT_EQ(IntToGrau(-1, true), QStringLiteral("00°00'01''S"));
    EXPECT_FALSE(IntToGrau(INT32_MIN, true).contains(u'"'));
    EXPECT_EQ(GrauToInt(IntToGrau(INT32_MIN, false)), INT32_MIN);

    for (std::int32_t v = -324000; v <= 324000; v += 997)
        ASSERT_EQ(GrauToInt(IntToGrau(v, true)), v);
}

TEST(TextoDeGraus, LeituraDasFormasDigitadasELixo)
{
    const std::pair<const char16_t *, std::int32_t> casos[] = {
        {u"23°30'00''S", -84600},   {u"046°15'00''W", -166500}, {u"-23.5", -84600},
        {u"23,5 S", -84600},        {u"s 23 30", -84600},       {u"S23°30'", -84600},
        {u"23:30:00S", -84600},     {u"23°30,5'N", 84630},      {u"46 15 O", -166500},
        {u"L 46.25", 166500},       {u"46°15′00″E", 166500},    {u"+0.0001", 0},
        {u"  0 ", 0},               {u"90N", 324000},           {u"180 W", -648000},
        {u"0°0'0.5\"N", 1},         {u"0 0 0.5 S", -1},         {u"10000", 36000000},
        {u"12º", 43200},            {u".5", 1800},
    };
    for (const auto &[texto, esperado] : casos)
        EXPECT_EQ(GrauToInt(QString::fromUtf16(texto)), esperado) << QString::fromUtf16(texto).toStdString();

    for (const char16_t *texto : {u"", u"   ", u"abc", u"23°30'00''X", u"N 23 S", u"-23 S", u"23 60", u"23 30 60",
                                  u"23.5 30", u"23 30.5 10", u"1 2 3 4", u"23..5", u"S", u"596524", u"23 - 30"}) {
        try {
            GrauToInt(QString::fromUtf16(texto));
            ADD_FAILURE() << "aceitou " << QString::fromUtf16(texto).toStdString();
        } catch (const EConvertError &e) {
            EXPECT_TRUE(e.Message().contains(QStringLiteral("não é uma coordenada válida")));
        }
    }
}

TEST(TextoDeDistanciaEAngulo, EscritaLeituraEUnidades)
{
    EXPECT_EQ(DistanciaToStr(2.5, true), QStringLiteral("2.5 MN"));
    EXPECT_EQ(DistanciaToStr(10.0, false), QStringLiteral("10"));
    EXPECT_EQ(DistanciaToStr(-1e-9, false), QStringLiteral("0"));
    EXPECT_EQ(AnguloToStr(Pi / 2, true), QStringLiteral("90°"));
    EXPECT_EQ(AnguloToStr(-Pi / 8, false), QStringLiteral("-22.5"));

    EXPECT_DOUBLE_EQ(StrToDistancia(QStringLiteral("2,5mn")), 2.5);
    EXPECT_DOUBLE_EQ(StrToDistancia(QStringLiteral("1852 m")), 1.0);
    EXPECT_DOUBLE_EQ(StrToDistancia(QStringLiteral("-1e2 NM")), -100.0);
    EXPECT_NEAR(StrToAngulo(QStringLiteral("45°30'")), 45.5 * Pi / 180, 1e-15);
    EXPECT_DOUBLE_EQ(StrToAngulo(QStringLiteral("1,5 rad")), 1.5);
    EXPECT_NEAR(StrToAngulo(QStringLiteral("-720")), -4 * Pi, 1e-14);

    for (double v : {0.0, 1.0 / 3, 1234567.891234567, -0.0000004, 987.6543219}) {
        EXPECT_NEAR(StrToDistancia(DistanciaToStr(v, true)), v, 1e-6);
        EXPECT_NEAR(StrToDistancia(DistanciaToStr(v, false)), v, 1e-6);
        EXPECT_NEAR(StrToAngulo(AnguloToStr(v, true)), v, 1e-6);
        EXPECT_NEAR(StrToAngulo(AnguloToStr(v, false)), v, 1e-6);
    }
    EXPECT_THROW(StrToDistancia(QStringLiteral("1 2")), EConvertError); // num ângulo são 1°2'
    for (const char16_t *texto : {u"", u"abc", u"5 milhas", u"1e999", u"nan", u"inf", u"2,5,0"}) {
        EXPECT_THROW(StrToDistancia(QString::fromUtf16(texto)), EConvertError) << QString::fromUtf16(texto).toStdString();
        EXPECT_THROW(StrToAngulo(QString::fromUtf16(texto)), EConvertError) << QString::fromUtf16(texto).toStdString();
    }
    EXPECT_THROW(StrToAngulo(QStringLiteral("45 N")), EConvertError);
    EXPECT_THROW(StrToAngulo(QStringLiteral("rad")), EConvertError);
}
