#include <tavru/companions/geodesy/GISPosicao.h>

#include <gtest/gtest.h>

using namespace tavru;

TEST(Retangulos, OrdemBordasArredondamentoEEstouro)
{
    EXPECT_EQ(ConcertaRect(GISRet(10, 20, -5, -30)), GISRet(-5, -30, 10, 20));
    EXPECT_EQ(ConcertaRect(TRect(10, 0, 2, 8)), TRect(2, 0, 10, 8));
    // A união toma cada retângulo em ordem, mesmo um degenerado ou invertido.
    EXPECT_EQ(Uniao(GISRet(5, 5, 5, 5), GISRet(3, 9, 1, 7)), GISRet(1, 5, 5, 9));
    // O primeiro argumento é o recipiente; as bordas contam.
    EXPECT_TRUE(Contem(GISRet(0, 0, 10, 10), GISRet(0, 0, 10, 10)));
    EXPECT_TRUE(Contem(GISRet(10, 10, 0, 0), GISRet(2, 2, 3, 3)));
    EXPECT_FALSE(Contem(GISRet(0, 0, 10, 10), GISRet(5, 5, 11, 6)));

    EXPECT_FALSE(Valida(GISRet(0, 0, 0, 0)));
    EXPECT_TRUE(Valida(GISRet(7, 7, 7, 7)));
    EXPECT_TRUE(Valida(GISRet(324000, 648000, -324000, -648000))); // fora de ordem vale
    EXPECT_FALSE(Valida(GISRet(0, -648001, 324001, 10)));
    EXPECT_TRUE(Valida(GISPosicao(0, 0)));
    EXPECT_FALSE(Valida(GISPosicao(-324001, 0)));

    EXPECT_EQ(Centro(TRect(-3, -3, 0, 0)), TPoint(-1, -1)); // trunca em direção a zero
    EXPECT_EQ(Centro(TRect(0x7fffffff, 0, 0x7fffffff, 0)), TPoint(0x7fffffff, 0)); // sem estouro
    EXPECT_EQ(Centro(GISRet(-5, 1, 0, 2)), GISPosicao(-2, 1));

    EXPECT_EQ(Escalonar(GISRet(0, 0, 0, 0), 10.0), GISRet(0, 0, 0, 0));
    EXPECT_EQ(Escalonar(GISRet(-10, 100, 10, 200), 2.0), GISRet(-20, 50, 20, 250));
    EXPECT_EQ(Escalonar(GISRet(0, 0, 10, 10), 0.5), GISRet(3, 3, 8, 8)); // 2,5 -> 3 e 7,5 -> 8
    EXPECT_EQ(Escalonar(MundoInteiro, 1e6), GISRet(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX));

    EXPECT_EQ(Inflar(TRect(0, 0, 10, 10), 3), TRect(-3, -3, 13, 13));
    EXPECT_EQ(Inflar(TRect(0, 0, 10, 10), -5), TRect(5, 5, 5, 5));

    EXPECT_TRUE(Intersecao(TRect(0, 0, 10, 10), TRect(10, 10, 20, 20))); // só tocam
    EXPECT_TRUE(Intersecao(TRect(10, 10, 0, 0), TRect(2, 2, 3, 3)));
    EXPECT_FALSE(Intersecao(TRect(0, 0, 10, 10), TRect(11, 0, 20, 10)));
    EXPECT_TRUE(PertenceRect(TPoint(10, 0), TRect(10, 10, 0, 0)));
}

TEST(Segmentos, DistanciaCruzamentoEPontoDeIntersecao)
{
    const TPoint a(0, 0), b(10, 0);
    EXPECT_DOUBLE_EQ(DistanciaAReta(a, b, TPoint(5, 3)), 3.0);
    EXPECT_DOUBLE_EQ(DistanciaAReta(a, b, TPoint(13, 4)), 5.0); // além da ponta: até a ponta
    EXPECT_DOUBLE_EQ(DistanciaAReta(a, b, TPoint(-3, -4)), 5.0);
    EXPECT_DOUBLE_EQ(DistanciaAReta(a, a, TPoint(3, 4)), 5.0); // segmento de um ponto
    EXPECT_DOUBLE_EQ(DistanciaAReta(GISPosicao(0, 0), GISPosicao(0, 100), GISPosicao(40, 50)), 40.0);

    EXPECT_TRUE(Intercepta(TPoint(0, 0), TPoint(10, 10), TPoint(0, 10), TPoint(10, 0)));
    EXPECT_FALSE(Intercepta(TPoint(0, 0), TPoint(10, 10), TPoint(10, 10), TPoint(20, 0))); // ponta comum
    EXPECT_FALSE(Intercepta(TPoint(0, 0), TPoint(10, 0), TPoint(5, 0), TPoint(5, 5)));     // encosta
    EXPECT_FALSE(Intercepta(TPoint(0, 0), TPoint(10, 0), TPoint(5, 0), TPoint(15, 0)));    // colineares
    EXPECT_FALSE(Intercepta(TPoint(0, 0), TPoint(10, 0), TPoint(0, 1), TPoint(10, 1)));
    // Coordenadas extremas: o produto vetorial passa de 64 bits e o sinal tem de continuar certo.
    const int M = INT32_MAX, m = INT32_MIN;
    EXPECT_TRUE(Intercepta(TPoint(m, m), TPoint(M, M), TPoint(m, M), TPoint(M, m)));
    EXPECT_FALSE(Intercepta(TPoint(m, m), TPoint(M, M - 1), TPoint(m, m + 1), TPoint(M, M)));
    EXPECT_TRUE(Intercepta(GISPosicao(-10, -10), GISPosicao(10, 10), GISPosicao(10, -10), GISPosicao(-10, 10)));

    TPoint p(-99, -99);
    EXPECT_TRUE(PontoIntersecao(TPoint(0, 0), TPoint(10, 10), TPoint(0, 10), TPoint(10, 0), p));
    EXPECT_EQ(p, TPoint(5, 5));
    EXPECT_TRUE(PontoIntersecao(TPoint(0, 0), TPoint(10, 0), TPoint(10, 0), TPoint(10, 7), p)); // ponta
    EXPECT_EQ(p, TPoint(10, 0));
    EXPECT_TRUE(PontoIntersecao(TPoint(0, 0), TPoint(3, 0), TPoint(1, -1), TPoint(2, 2), p));
    EXPECT_EQ(p, TPoint(1, 0)); // x = 4/3 arredondado
    p = TPoint(-99, -99);
    EXPECT_FALSE(PontoIntersecao(TPoint(0, 0), TPoint(10, 0), TPoint(11, -5), TPoint(11, 5), p)); // não chega
    EXPECT_FALSE(PontoIntersecao(TPoint(0, 0), TPoint(10, 0), TPoint(5, 0), TPoint(20, 0), p));   // colineares
    EXPECT_FALSE(PontoIntersecao(TPoint(0, 0), TPoint(0, 0), TPoint(0, 0), TPoint(5, 5), p));     // degenerado
    EXPECT_EQ(p, TPoint(-99, -99));
}

TEST(Util, StrZero)
{
    EXPECT_EQ(StrZero(1, 3), "001");
    EXPECT_EQ(StrZero(1234, 3), "1234");
    EXPECT_EQ(StrZero(-1, 3), "-01");
    EXPECT_EQ(StrZero(INT64_MIN, 1), "-9223372036854775808");
}
