// A área (polígono regular fechado, preenchimento, cores) e o corredor (a faixa em volta da linha).

#include "CanvasGravador.h"

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISCorredor.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tavru;
using namespace tavru::teste;

TEST(Area, PoligonoRegularFechadoExplicitamenteECoresDaTabela)
{
    TProjecaoUmPorUm projecao;
    TRoteiro roteiro{"2", "6"}; // o mínimo da área é 3
    TGISArea area;
    ASSERT_TRUE(area.ConfiguracaoPadrao(projecao, TPoint(300, 300)));
    ASSERT_EQ(roteiro.Perguntas().size(), 2);
    EXPECT_EQ(roteiro.Perguntas()[0], "texto: Área: Entre com o número de Pontos de 3 a 200");
    std::vector<TPoint> p;
    area.AjustarPontos(projecao, 0, p);
    ASSERT_EQ(p.size(), 7u);
    EXPECT_EQ(p.front(), p.back());
    EXPECT_EQ(p[0], TPoint(320, 300));
    EXPECT_EQ(p[3], TPoint(280, 300));
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(std::hypot(p[i].X - 300, p[i].Y - 300), 20.0, 0.8) << i;

    // Desenho fechado e preenchido, e pertinência pelo interior.
    area.Pincel().Style = bsCross;
    area.AtribuirCor(0x00AA00AA);
    TCanvasGravador canvas;
    area.Desenhar(canvas, projecao, false);
    ASSERT_EQ(canvas.Nomes(), QStringList{"Polygon"});
    EXPECT_EQ(canvas.Chamadas[0].Pontos, p);
    EXPECT_EQ(canvas.Chamadas[0].Pincel, (TBrush{0x00AA00AA, bsCross}));
    EXPECT_TRUE(area.Pertence(projecao, TPoint(300, 300)));
    EXPECT_TRUE(area.Pertence(projecao, TPoint(310, 305)));
    EXPECT_FALSE(area.Pertence(projecao, TPoint(330, 300)));

    // A tabela de cores dá a caneta (IndiceCor) e o pincel (IndicePincel); o estilo do pincel fica.
    TTabelaDeCores tabela;
    tabela.AtribuirCores({0x00000011, 0x00000022});
    tabela.AtribuirCorPadrao(0x00000099);
    TGISCorredor corredor;
    using Par = std::pair<TGISObjeto *, TBrush *>;
    for (auto [o, pincel] : {Par{&area, &area.Pincel()}, Par{&corredor, &corredor.Pincel()}}) {
        o->AtribuirIndiceCor(1);
        o->AtualizarCores(tabela);
        EXPECT_EQ(o->Caneta().Color, 0x00000022);
        EXPECT_EQ(pincel->Color, 0x00000099) << "IndicePincel -1: a cor padrão";
    }
    area.AtribuirIndicePincel(0);
    area.AtualizarCores(tabela);
    EXPECT_EQ(area.Pincel(), (TBrush{0x00000011, bsCross}));
}

TEST(Corredor, FaixaSimetricaEDobraQueJuntaODentroEAbreOFora)
{
    TProjecaoUmPorUm projecao;
    TGISCorredor corredor;
    corredor.AtribuirEsq(1.0); // milhas náuticas: cerca de 60 pixels aqui
    corredor.AtribuirDir(1.0);
    double esq = 0, dir = 0;
    corredor.LargurasNaTela(projecao, esq, dir);
    EXPECT_NEAR(esq, 60.0, 1.0);
    EXPECT_DOUBLE_EQ(esq, dir);

    Preencher(corredor, {GISPosicao(0, -200), GISPosicao(0, 0), GISPosicao(0, 200)});
    TCanvasGravador canvas;
    corredor.Desenhar(canvas, projecao, false);
    ASSERT_EQ(canvas.Nomes(), QStringList{QStringLiteral("Polygon")});
    const std::vector<TPoint> &contorno = canvas.Chamadas[0].Pontos;
    const int w = static_cast<int>(std::lround(esq));
    // Ida pela esquerda (norte, acima na tela) e volta pela direita.
    EXPECT_EQ(contorno.front(), TPoint(300, 500 - w));
    EXPECT_EQ(contorno.back(), TPoint(300, 500 + w));
    for (const TPoint &p : contorno) {
        const TPoint espelho(p.X, 1000 - p.Y);
        EXPECT_NE(std::find(contorno.begin(), contorno.end(), espelho), contorno.end()) << p.X << "," << p.Y;
    }
    // Só a linha central toca o corredor.
    EXPECT_TRUE(corredor.Pertence(projecao, TPoint(400, 502)));
    EXPECT_FALSE(corredor.Pertence(projecao, TPoint(400, 500 - w / 2)));
    EXPECT_EQ(corredor.Area(), GISRet(0, -200, 0, 200));

    // Uma sequência de um ponto não desenha nada.
    TGISCorredor ponto;
    Preencher(ponto, {GISPosicao(10, 10)});
    canvas.Chamadas.clear();
    ponto.Desenhar(canvas, projecao, false);
    EXPECT_TRUE(canvas.Chamadas.empty());

    // Leste e depois norte (na tela: direita e depois para cima).
    const TPoint p[] = {TPoint(100, 500), TPoint(300, 500), TPoint(300, 300)};
    std::vector<TPoint> dobra;
    TGISCorredor::Contorno(p, 2, 10.0, 20.0, dobra);
    ASSERT_LE(dobra.size(), 8u);
    // Ida (esquerda, lado de dentro da curva): início, encontro das bordas, fim.
    EXPECT_EQ(dobra[0], TPoint(100, 490));
    EXPECT_EQ(dobra[1], TPoint(290, 490));
    EXPECT_EQ(dobra[2], TPoint(290, 300));
    // Volta (direita, lado de fora): as bordas não se encontram e são ligadas ponta a ponta.
    const std::vector<TPoint> volta(dobra.begin() + 3, dobra.end());
    EXPECT_EQ(volta, (std::vector<TPoint>{TPoint(320, 300), TPoint(320, 500), TPoint(300, 520), TPoint(100, 520)}));
    // Pixels na ponta da faixa de 32 bits (longe da tela): as bordas saturam em vez de dar a volta.
    const TPoint longe[] = {TPoint(INT32_MAX - 5, 0), TPoint(INT32_MAX - 5, 100)};
    TGISCorredor::Contorno(longe, 1, 10.0, 10.0, dobra);
    EXPECT_EQ(dobra, (std::vector<TPoint>{TPoint(INT32_MAX, 0), TPoint(INT32_MAX, 100), TPoint(INT32_MAX - 15, 100),
                                          TPoint(INT32_MAX - 15, 0)}));
}

