// A linha: deslocamentos relativos à posição e à orientação, limites, ajustes, o desenho
// otimizado e o diálogo do número de pontos.

#include "CanvasGravador.h"

#include <tavru/elements/GISLinha.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;
using namespace tavru::teste;

namespace {

std::vector<TGISPosicao> Absolutos(const TGISLinha &linha, int lista = 0)
{
    std::vector<TGISPosicao> v;
    for (int i = 0; i < linha.Pontos().Items(lista)->Count(); ++i)
        v.push_back(linha.ObterPonto(lista, i));
    return v;
}

} // namespace

TEST(Linha, DeslocamentosGiramComAOrientacao)
{
    TGISLinha linha;
    linha.AtribuirPosicao(GISPosicao(1000, 2000));
    Preencher(linha, {GISPosicao(1000, 2000), GISPosicao(1000, 2300), GISPosicao(1100, 2300)});
    EXPECT_EQ(linha.Pontos().Items(0)->ObterPosicao(2), GISPosicao(100, 300)); // guardado relativo
    const TGISPosicaoList guardados = *linha.Pontos().Items(0);

    // Um quarto de volta anti-horário: o eixo das longitudes vai para o das latitudes.
    linha.AtribuirOrientacao(M_PI / 2);
    EXPECT_EQ(Absolutos(linha),
              (std::vector<TGISPosicao>{GISPosicao(1000, 2000), GISPosicao(1300, 2000), GISPosicao(1300, 1900)}));
    EXPECT_TRUE(*linha.Pontos().Items(0) == guardados);
    linha.CalcularLimites();
    EXPECT_EQ(linha.Area(), GISRet(1000, 1900, 1300, 2000));

    // Mover leva todos os pontos junto e refaz os limites.
    linha.AtribuirPosicao(GISPosicao(0, 0));
    EXPECT_EQ(linha.ObterPonto(0, 2), GISPosicao(300, -100));
    EXPECT_EQ(linha.Limites(), GISRet(0, -100, 300, 0));

    // Gravar e ler de volta com um giro qualquer erra no máximo o arredondamento.
    linha.AtribuirOrientacao(0.7);
    linha.AtribuirPonto(0, 1, GISPosicao(-4321, 9876));
    linha.InserirPonto(0, 0, GISPosicao(55555, -12345));
    const TGISPosicao a = linha.ObterPonto(0, 2);
    const TGISPosicao b = linha.ObterPonto(0, 0);
    EXPECT_LE(std::abs(a.Latitude + 4321) + std::abs(a.Longitude - 9876), 2);
    EXPECT_LE(std::abs(b.Latitude - 55555) + std::abs(b.Longitude + 12345), 2);
}

TEST(Linha, LimitesComASequenciaZeroVaziaIncluemAOrigem)
{
    TGISLinha linha;
    EXPECT_EQ(linha.Area(), GISRet(0, 0, 0, 0));
    linha.Pontos().Add(new TGISPosicaoList);
    Preencher(linha, {GISPosicao(5000, 6000), GISPosicao(5100, 6200)});
    EXPECT_EQ(linha.Limites(), GISRet(0, 0, 5100, 6200)); // mantido de propósito
    linha.Pontos().Items(0)->Add(GISPosicao(5050, 6100));
    linha.CalcularLimites();
    EXPECT_EQ(linha.Limites(), GISRet(5000, 6000, 5100, 6200));
}

TEST(Linha, AjustarCentroEAjustarAoRetangulo)
{
    TProjecaoUmPorUm projecao;
    TGISLinha linha;
    {
        TRoteiro roteiro{"7"};
        ASSERT_TRUE(linha.ConfiguracaoPadrao(projecao, TPoint(300, 600)));
    }
    EXPECT_EQ(linha.Posicao(), GISPosicao(0, 0));
    const std::vector<TGISPosicao> antes = Absolutos(linha);
    const TGISRet limites = linha.Limites();
    linha.AjustarCentro();
    EXPECT_EQ(linha.Posicao(), Centro(limites));
    EXPECT_NE(linha.Posicao(), GISPosicao(0, 0));
    EXPECT_EQ(Absolutos(linha), antes);
    EXPECT_EQ(linha.Limites(), limites);

    // Encaixe: de (0, 0)-(100, 200) para um retângulo duas vezes maior em outro lugar.
    TGISLinha l2;
    Preencher(l2, {GISPosicao(0, 0), GISPosicao(100, 200), GISPosicao(50, 20)});
    l2.AjustarAoRetangulo(GISRet(1000, 1000, 1200, 1400));
    EXPECT_EQ(Absolutos(l2),
              (std::vector<TGISPosicao>{GISPosicao(1000, 1000), GISPosicao(1200, 1400), GISPosicao(1100, 1040)}));
    EXPECT_EQ(l2.Limites(), GISRet(0, 0, 100, 200)); // quem chama refaz
    l2.AjustarAoRetangulo(GISRet(10, 10, 10, 500)); // lado não positivo: nada
    EXPECT_EQ(l2.ObterPonto(0, 0), GISPosicao(1000, 1000));

    // Vão zero: erro de divisão, nunca infinitos; e AjustarCentro não faz nada.
    TGISLinha chata;
    Preencher(chata, {GISPosicao(10, 0), GISPosicao(10, 500)});
    EXPECT_THROW(chata.AjustarAoRetangulo(GISRet(0, 0, 100, 100)), EZeroDivide);
    chata.AjustarCentro();
    EXPECT_EQ(chata.Posicao(), GISPosicao(0, 0));
}

TEST(Linha, DesenharOtimizadoMedeDoUltimoPontoMantido)
{
    TCanvasGravador canvas;
    const TPoint p[] = {TPoint(10, 10), TPoint(11, 11), TPoint(12, 12), TPoint(30, 30), TPoint(31, 29)};
    DesenharOtimizado(canvas, p, 4, true);
    DesenharOtimizado(canvas, p, 3, false);
    DesenharOtimizado(canvas, p, 0, true);
    const TPoint q[] = {TPoint(0, 0), TPoint(2, 0), TPoint(2, 1)}; // 2 pixels num eixo já contam
    DesenharOtimizado(canvas, q, 2, true);
    const TPoint longe[] = {TPoint(INT32_MIN, INT32_MIN), TPoint(0, 0)}; // pixel na ponta da faixa
    DesenharOtimizado(canvas, longe, 1, true);
    EXPECT_EQ(canvas.Resumo(), QStringLiteral("Polyline 10,10 12,12 30,30; Polygon 10,10 12,12 30,30; "
                                              "Polyline 10,10; Polyline 0,0 2,0; "
                                              "Polyline -2147483648,-2147483648 0,0"));
}

// O diálogo do número de pontos é o mesmo da área e da trajetória: conferido por inteiro aqui.
TEST(Linha, DialogoDoNumeroDePontos)
{
    TProjecaoUmPorUm projecao;
    {
        TRoteiro roteiro{"abc", "1", "201", "0"}; // pergunta de novo até um número válido; 0 desiste
        TGISLinha linha;
        EXPECT_FALSE(linha.ConfiguracaoPadrao(projecao, TPoint(500, 500)));
        EXPECT_EQ(linha.Pontos().Count(), 0);
        ASSERT_EQ(roteiro.Perguntas().size(), 4);
        EXPECT_EQ(roteiro.Perguntas()[0], "texto: Linha: Entre com o número de Pontos de 2 a 200");
        TRoteiro duzentos{"200"};
        EXPECT_TRUE(linha.ConfiguracaoPadrao(projecao, TPoint(500, 500)));
        EXPECT_EQ(linha.Pontos().Items(0)->Count(), 200);
    }
    TRoteiro roteiro{}; // cancelar devolve o padrão "2"
    TGISLinha linha;
    ASSERT_TRUE(linha.ConfiguracaoPadrao(projecao, TPoint(500, 500)));
    EXPECT_EQ(Absolutos(linha),
              (std::vector{projecao.TelaParaMundo(TPoint(490, 500)), projecao.TelaParaMundo(TPoint(500, 500))}));
    // Senoide de seis pontos: passo 2 pi / 2, zero nos pontos pares.
    TRoteiro seis{"6"};
    TGISLinha onda;
    ASSERT_TRUE(onda.ConfiguracaoPadrao(projecao, TPoint(100, 200)));
    std::vector<TPoint> pontos;
    onda.AjustarPontos(projecao, 0, pontos);
    ASSERT_EQ(pontos.size(), 6u);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(pontos[i], TPoint((i - 3) * 10 + 100, static_cast<int>(std::lround(std::sin(i * M_PI) * 20.0)) + 200));
    EXPECT_EQ(onda.Limites(), ConcertaRect(projecao.TelaParaMundoRet(TRect(70, 200, 120, 200))));
}

TEST(Linha, DesenhoEPertinencia)
{
    TProjecaoUmPorUm projecao;
    TGISLinha linha;
    linha.Caneta().Color = 0x00112233;
    Preencher(linha, {GISPosicao(0, 0), GISPosicao(0, 100), GISPosicao(100, 100)});
    linha.Pontos().Add(new TGISPosicaoList); // sequência vazia: pulada
    TCanvasGravador canvas;
    canvas.Brush().Style = bsSolid;
    linha.Desenhar(canvas, projecao, false);
    EXPECT_EQ(canvas.Resumo(), QStringLiteral("Polyline 500,500 600,500 600,400"));
    EXPECT_EQ(canvas.Chamadas[0].Caneta.Color, 0x00112233);
    EXPECT_EQ(canvas.Chamadas[0].Pincel.Style, bsClear);
    EXPECT_TRUE(linha.Pertence(projecao, TPoint(550, 503)));
    EXPECT_TRUE(linha.Pertence(projecao, TPoint(597, 450)));
    EXPECT_FALSE(linha.Pertence(projecao, TPoint(550, 450)));
    linha.AtribuirCor(0x00445566);
    EXPECT_EQ(linha.Caneta().Color, 0x00445566);
}
