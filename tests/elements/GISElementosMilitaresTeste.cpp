// Meios acompanhados e derrotas: o tamanho fixo na tela pelos padrões globais, a seta de rumo, a
// placa vermelha que devolve a caneta como estava, e a derrota pontilhada a partir do ponto certo
// e sólida de novo na sequência seguinte.

#include "CanvasGravador.h"

#include <tavru/elements/GISElementosMilitares.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {
/// As linhas (MoveTo/LineTo) desenhadas com a caneta de cor `cor`.
std::vector<std::pair<TPoint, TPoint>> Linhas(const TCanvasGravador &canvas, TColor cor)
{
    std::vector<std::pair<TPoint, TPoint>> linhas;
    TPoint de;
    for (const TChamada &c : canvas.Chamadas) {
        if (c.Nome == QLatin1String("LineTo") && c.Caneta.Color == cor)
            linhas.emplace_back(de, c.Pontos[0]);
        if (c.Nome == QLatin1String("LineTo") || c.Nome == QLatin1String("MoveTo"))
            de = c.Pontos[0];
    }
    return linhas;
}
} // namespace

TEST(TGISMeioAcompanhado, TamanhoFixoNaTelaPelosPadroesGlobais)
{
    TProjecaoUmPorUm projecao(0.1);
    TGISMeioAcompanhado doze;
    EXPECT_EQ(doze.ObterAreaDesenho(projecao), TRect(494, 494, 506, 506));
    const std::int32_t tela = TamanhoNaTelaDefault;
    const TGISPosicao mundo = TamanhoNoMundoDefault;
    TamanhoNaTelaDefault = 20;
    TamanhoNoMundoDefault = GISPosicao(300, 400);
    TGISMeioAcompanhado vinte;
    TamanhoNaTelaDefault = tela;
    TamanhoNoMundoDefault = mundo;
    EXPECT_EQ(vinte.TamanhoNoMundo(), GISPosicao(300, 400));
    for (double zoom : {0.1, 50000.0}) {
        projecao.AtribuirZoom(zoom);
        EXPECT_EQ(vinte.ObterAreaDesenho(projecao), TRect(490, 490, 510, 510)) << zoom;
        EXPECT_EQ(doze.ObterAreaDesenho(projecao).Width(), 12);
    }
}

TEST(TGISMeioAcompanhado, SetaDeRumoEPlacaVermelhaQueDevolveACaneta)
{
    TProjecaoUmPorUm projecao;
    TGISMeioAcompanhado meio; // pixel (500, 500), 12 x 12
    meio.AtribuirForma(gisCirculo);
    meio.AtribuirCor(RGB(0x80, 0, 0));
    const TColor corSeta = RGB(0xCF, 0x4F, 0x4F); // a cor com 0x4F4F4F
    TCanvasGravador canvas;
    meio.Desenhar(canvas, projecao, false);
    EXPECT_TRUE(Linhas(canvas, corSeta).empty()); // IndicadorRumo 0: sem seta

    meio.AtribuirIndicadorRumo(-0.5);
    canvas.Chamadas.clear();
    meio.Desenhar(canvas, projecao, false);
    auto seta = Linhas(canvas, corSeta);
    ASSERT_EQ(seta.size(), 3u);
    // h = 12 div 2 + 3: a haste de (C.x - 1, C.y - 9 + 1) a (C.x - 1, C.y + 9 + 1); a ponta
    // (k = 3) sai da ponta da haste para baixo, com o ajuste de pixel mais uma vez.
    EXPECT_EQ(seta[0], std::make_pair(TPoint(499, 492), TPoint(499, 510)));
    EXPECT_EQ(seta[1], std::make_pair(TPoint(499, 492), TPoint(496, 496)));
    EXPECT_EQ(seta[2], std::make_pair(TPoint(499, 492), TPoint(500, 496)));

    meio.AtribuirOrientacao(90);
    canvas.Chamadas.clear();
    meio.Desenhar(canvas, projecao, true); // também no desenho da seleção
    seta = Linhas(canvas, corSeta);
    ASSERT_EQ(seta.size(), 3u);
    EXPECT_EQ(seta[0], std::make_pair(TPoint(508, 501), TPoint(490, 501)));
    EXPECT_LT(seta[1].second.X, 508);
    EXPECT_LT(seta[2].second.X, 508);

    // A placa: um círculo vermelho e uma barra inclinada, e a caneta de quem chama volta sólida.
    TGISMeioAcompanhado placa;
    placa.AtribuirForma(gisQuadrado);
    placa.AtribuirPlacaOculta(false);
    TCanvasGravador outro;
    outro.Pen() = TPen{clBlue, 3, psDash};
    placa.Desenhar(outro, projecao, true);
    ASSERT_EQ(outro.Nomes(), QStringList({"Rectangle", "Ellipse", "MoveTo", "LineTo"}));
    const TChamada &circulo = outro.Chamadas[1];
    EXPECT_EQ(circulo.Pontos, (std::vector<TPoint>{{494, 494}, {506, 506}}));
    EXPECT_EQ(circulo.Caneta, (TPen{clRed, 2, psSolid}));
    EXPECT_EQ(circulo.Pincel.Style, bsClear);
    EXPECT_EQ(outro.Chamadas[2].Pontos[0], TPoint(496, 496)); // de noroeste (2.3562)...
    EXPECT_EQ(outro.Chamadas[3].Pontos[0], TPoint(504, 504)); // ...a sudeste (7π/4)
    EXPECT_EQ(outro.Pen(), (TPen{clBlue, 3, psSolid}));
}

TEST(TGISDerrota, PontilhadaDepoisDoIndiceESolidaDeNovoNaSequenciaSeguinte)
{
    TProjecaoUmPorUm projecao;
    TGISDerrota derrota;
    for (int s = 0; s < 2; ++s) {
        derrota.Pontos().Add(new TGISPosicaoList);
        for (int j = 0; j < 5; ++j)
            derrota.Pontos().Last()->Add(GISPosicao(s * 100, j * 50));
    }
    derrota.Pontos().Add(new TGISPosicaoList); // vazia: nada
    derrota.AtribuirOrientacao(1.0);           // ignoradas: os pontos valem como estão
    derrota.AtribuirPosicao(GISPosicao(1000, 1000));

    TCanvasGravador canvas;
    const auto estilos = [&](int indice) {
        derrota.AtribuirIndiceTracejado(indice);
        canvas.Chamadas.clear();
        derrota.Desenhar(canvas, projecao, false);
        QString s;
        for (const TChamada &c : canvas.Chamadas)
            s += c.Nome == QLatin1String("MoveTo") ? '|' : c.Caneta.Style == psSolid ? '-' : c.Caneta.Style == psDot ? '.' : '?';
        return s;
    };
    EXPECT_EQ(estilos(0), QStringLiteral("|-....|-...."));
    EXPECT_EQ(estilos(-1), QStringLiteral("|-----|-----"));
    EXPECT_EQ(estilos(2), QStringLiteral("|---..|---.."));
    EXPECT_EQ(canvas.Chamadas[0].Pontos[0], TPoint(500, 500)); // o ponto guardado (0, 0)
    EXPECT_EQ(canvas.Chamadas[5].Pontos[0], TPoint(700, 500));
    EXPECT_EQ(canvas.Chamadas[6].Pontos[0], TPoint(500, 400));
}
