// O texto: bandeiras de alinhamento, giro da fonte, a fonte que fica no canvas e a extensão.

#include "CanvasGravador.h"

#include <tavru/elements/GISTexto.h>

#include <QFontMetrics>
#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;
using namespace tavru::teste;

TEST(Texto, BandeirasDeAlinhamentoEExtensaoComAlturaIgualALargura)
{
    TGISTexto t;
    auto bandeiras = [&](int v, int h) {
        t.AtribuirAlinhamentoVertical(static_cast<std::uint8_t>(v));
        t.AtribuirAlinhamentoHorizontal(static_cast<std::uint8_t>(h));
        return t.BandeirasDeAlinhamento();
    };
    EXPECT_EQ(bandeiras(2, 2), TA_BASELINE | TA_CENTER); // padrão
    EXPECT_EQ(bandeiras(0, 0), TA_BASELINE);
    EXPECT_EQ(bandeiras(0, 1), TA_BASELINE | TA_RIGHT);
    for (int h : {0, 1, 2}) // vertical 1 soma o bit da base, que a linha de base já tem
        EXPECT_EQ(bandeiras(1, h), bandeiras(0, h)) << h;
    EXPECT_EQ(bandeiras(2, 0), TA_BASELINE | TA_CENTER); // vertical 2 centra na horizontal
    EXPECT_EQ(bandeiras(3, 7), TA_BASELINE);

    // A extensão é medida com a fonte, com a altura igual à largura.
    bandeiras(2, 2);
    t.AtribuirPosicao(GISPosicao(1000, 2000));
    EXPECT_EQ(t.Area(), GISRet(1000, 2000, 1000, 2000)); // texto vazio: tamanho zero
    t.AtribuirTexto(QStringLiteral("Porto de Santos"));
    t.Fonte().SetSize(14);
    t.MedirTexto(); // a fonte mudou por fora da API
    const int w = QFontMetrics(t.Fonte().ParaQFont()).horizontalAdvance(t.Texto());
    ASSERT_GT(w, 40);
    const struct
    {
        int v, h;
        TGISRet esperado;
    } casos[] = {
        {0, 0, GISRet(1000, 2000, 1000 + w, 2000 + w)}, // a altura é a largura, de propósito
        {1, 1, GISRet(1000 - w, 2000 - w, 1000, 2000)},
        {2, 2, GISRet(1000 - w / 2, 2000 - w / 2, 1000 + w / 2, 2000 + w / 2)},
        {3, 0, GISRet(0, 2000, 0, 2000 + w)}, // vertical fora da faixa: o lado fica em zero
    };
    for (const auto &c : casos) {
        t.AtribuirAlinhamentoVertical(static_cast<std::uint8_t>(c.v));
        t.AtribuirAlinhamentoHorizontal(static_cast<std::uint8_t>(c.h));
        EXPECT_EQ(t.Area(), c.esperado) << c.v << "," << c.h;
    }
    TProjecaoUmPorUm projecao(0.1);
    t.AtribuirAlinhamentoVertical(0); // a posição no canto de baixo, à esquerda
    const TPoint canto = projecao.MundoParaTela(t.Posicao());
    EXPECT_TRUE(t.Pertence(projecao, TPoint(canto.X + 1, canto.Y - 1)));
    EXPECT_FALSE(t.Pertence(projecao, TPoint(canto.X - 1, canto.Y)));
}

TEST(Texto, DesenhoGiraAFonteEDeixaElaNoCanvas)
{
    TProjecaoUmPorUm projecao;
    TGISTexto t;
    t.AtribuirTexto(QStringLiteral("Ilha"));
    t.AtribuirPosicao(GISPosicao(100, -50)); // pixel (450, 400)
    t.Fonte().Name = QStringLiteral("do texto");
    t.AtribuirCor(0x000000FF);
    t.AtribuirOrientacao(M_PI / 6); // 30 graus
    t.AtribuirGiroAdicional(15);
    t.AtribuirAlinhamentoHorizontal(1);
    t.AtribuirAlinhamentoVertical(0);
    TCanvasGravador canvas;
    canvas.Brush().Style = bsSolid;
    t.Desenhar(canvas, projecao, false);
    ASSERT_EQ(canvas.Chamadas.size(), 1u);
    const TChamada &c = canvas.Chamadas[0];
    EXPECT_EQ(c.Nome + c.Texto, QStringLiteral("TextOutIlha"));
    EXPECT_EQ(c.Pontos[0], TPoint(450, 400));
    EXPECT_EQ(c.Fonte.Escapement, 450);
    EXPECT_EQ(c.Fonte.Color, 0x000000FF);
    EXPECT_EQ(c.Alinhamento, TA_BASELINE | TA_RIGHT);
    EXPECT_EQ(c.Pincel.Style, bsClear);
    EXPECT_EQ(canvas.Font().Name, QStringLiteral("do texto")); // a fonte girada fica no canvas
    EXPECT_EQ(canvas.Font().Escapement, 450);

    t.AtribuirOrientacao(0.123); // 7,047 graus: 70,47 décimos arredondados
    t.AtribuirGiroAdicional(0);
    canvas.Chamadas.clear();
    canvas.Pen().Color = 0x0000FF00;
    t.Desenhar(canvas, projecao, true); // selecionado: nada é escrito
    EXPECT_TRUE(canvas.Chamadas.empty());
    EXPECT_EQ(canvas.Font().Escapement, 70);
    EXPECT_EQ(canvas.Font().Color, 0x0000FF00);
    EXPECT_TRUE(t.ConfiguracaoPadrao(projecao, TPoint(10, 10)));
    EXPECT_EQ(t.Posicao(), GISPosicao(100, -50)); // a configuração padrão não a muda
}

