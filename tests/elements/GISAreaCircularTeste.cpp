// Áreas circulares e elipses: o contorno nos quatro casos com as quantidades fixas, o sentido dos
// arcos e o rumo, o desenho fechado de novo, a pertinência com furo e a configuração padrão.

#include "CanvasGravador.h"

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/elements/GISElipse.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

constexpr double Pi = 3.14159265358979323846;
const TGISPosicao C = GISPosicao(3600, -7200);

std::vector<TGISPosicao> Contorno(double menor, double maior, double ai, double af, double orientacao = Pi / 2)
{
    TGISAreaCircular a;
    a.AtribuirPosicao(C);
    a.AtribuirRaioMenor(menor);
    a.AtribuirRaioMaior(maior);
    a.AtribuirAzimuteInicial(ai);
    a.AtribuirAzimuteFinal(af);
    a.AtribuirOrientacao(orientacao);
    TGISPosicaoList lista;
    a.ObterPontos(lista);
    return std::vector<TGISPosicao>(lista.begin(), lista.end());
}

/// Os pontos de `de` a `ate` estão a `raio` milhas do centro (um segundo de arco de folga).
void NoRaio(const std::vector<TGISPosicao> &p, int de, int ate, double raio)
{
    for (int i = de; i <= ate; ++i)
        EXPECT_NEAR(Distancia(C, p[size_t(i)]), raio, 0.02) << "ponto " << i;
}

} // namespace

TEST(TGISAreaCircular, ContornoNosQuatroCasosComAsQuantidadesFixasEORumo)
{
    const auto disco = Contorno(0, 2, 1, 1);
    ASSERT_EQ(disco.size(), 50u);
    NoRaio(disco, 0, 49, 2);

    // Setor de norte (0) a leste (π/2): 10 pontos do centro ao leste, 30 pelo arco de volta ao
    // norte, passando pelo nordeste, e 10 ao centro.
    const auto setor = Contorno(0, 2, 0, Pi / 2);
    ASSERT_EQ(setor.size(), 50u);
    EXPECT_EQ(setor[0], C);
    EXPECT_EQ(setor[9], setor[10]);
    NoRaio(setor, 10, 39, 2);
    EXPECT_GT(setor[10].Longitude, C.Longitude + 100);
    EXPECT_GT(setor[25].Latitude, C.Latitude);
    EXPECT_GT(setor[25].Longitude, C.Longitude);
    EXPECT_GT(setor[39].Latitude, C.Latitude + 100);
    EXPECT_EQ(setor[49], C);
    EXPECT_EQ(Contorno(-1, 2, 0, Pi / 2), setor);

    // Anel: 30 no externo e 20 no interno.
    const auto anel = Contorno(1, 3, 0.5, 0.5);
    ASSERT_EQ(anel.size(), 50u);
    NoRaio(anel, 0, 29, 3);
    NoRaio(anel, 30, 49, 1);
    EXPECT_EQ(anel[0], anel[29]);

    // Setor de anel: 18 no externo, 5 na ligação, 22 no interno e 5 na volta.
    const auto fatia = Contorno(1, 3, 0, Pi / 2);
    ASSERT_EQ(fatia.size(), 50u);
    NoRaio(fatia, 0, 17, 3);
    NoRaio(fatia, 23, 44, 1);
    EXPECT_EQ(fatia[17], fatia[18]); // a ligação sai do fim do arco externo
    EXPECT_EQ(fatia[22], fatia[23]); // e chega ao começo do interno
    EXPECT_EQ(fatia[49], fatia[0]);
    EXPECT_GT(fatia[0].Latitude, C.Latitude + 100);   // o externo sai do norte
    EXPECT_GT(fatia[17].Longitude, C.Longitude + 100); // e chega ao leste
    EXPECT_GT(fatia[33].Latitude, C.Latitude + 30);    // o interno volta por dentro do setor,
    EXPECT_GT(fatia[33].Longitude, C.Longitude + 30);  // não pelo outro lado: o anel é simples
    const auto largo = Contorno(1, 3, 5.0, 1.0);       // do oeste ao leste passando pelo norte
    EXPECT_GT(largo[9].Latitude, C.Latitude + 150);
    EXPECT_GT(largo[33].Latitude, C.Latitude + 50);

    // O rumo em graus gira o setor como radianos: orientação leste (rumo 90) leva norte-leste a
    // leste-sul.
    const auto p = Contorno(0, 2, 0, Pi / 2, 0.0);
    EXPECT_LT(p[10].Latitude, C.Latitude - 100);
    EXPECT_NEAR(p[10].Longitude, C.Longitude, 1);
    EXPECT_GT(p[39].Longitude, C.Longitude + 100);
    EXPECT_NEAR(p[39].Latitude, C.Latitude, 1);
}

TEST(TGISAreaCircular, DesenhoFechadoDeNovoPertinenciaExtensaoECores)
{
    TProjecaoUmPorUm projecao;
    TGISAreaCircular a;
    a.AtribuirRaioMenor(1); // ~60 pixels
    a.AtribuirRaioMaior(3); // ~180 pixels
    TTabelaDeCores tabela;
    tabela.Adicionar(clYellow);
    tabela.AtribuirCorPadrao(clBlue);
    a.Pincel().Style = bsCross;
    a.AtualizarCores(tabela); // pincel no índice 0, caneta no -1 (a cor padrão)

    QImage imagem(1000, 1000, QImage::Format_ARGB32_Premultiplied);
    imagem.fill(Qt::white);
    TCanvasGravador canvas(&imagem);
    a.Desenhar(canvas, projecao, false);
    ASSERT_EQ(canvas.Nomes(), QStringList({"Polygon"}));
    auto amarelos = [&](int x, int y) { // numa janela de 17 x 17 pixels
        int n = 0;
        for (int dy = -8; dy <= 8; ++dy)
            for (int dx = -8; dx <= 8; ++dx)
                n += canvas.Pixel(x + dx, y + dy) == clYellow;
        return n;
    };
    EXPECT_GT(amarelos(500, 380), 0); // a faixa é pintada...
    EXPECT_EQ(amarelos(500, 500), 0); // ...o furo não
    const TChamada &poligono = canvas.Chamadas[0];
    ASSERT_EQ(poligono.Pontos.size(), 51u);
    EXPECT_EQ(poligono.Pontos.front(), poligono.Pontos.back());
    EXPECT_EQ(poligono.Pincel, (TBrush{clYellow, bsCross}));
    EXPECT_EQ(poligono.Caneta.Color, clBlue);

    EXPECT_TRUE(a.Pertence(projecao, TPoint(500, 380)));  // na faixa
    EXPECT_FALSE(a.Pertence(projecao, TPoint(500, 500))); // no furo
    EXPECT_FALSE(a.Pertence(projecao, TPoint(500, 260))); // fora

    const TGISRet r = a.Area();
    EXPECT_NEAR(r.Pos2.Latitude, 181, 2);
    EXPECT_NEAR(r.Pos1.Latitude, -181, 2);
}

TEST(TGISAreaCircular, ConfiguracaoPadraoDaUmSetorDeAnelDeVoltaInteira)
{
    TProjecaoUmPorUm projecao;
    TGISAreaCircular a;
    ASSERT_TRUE(a.ConfiguracaoPadrao(projecao, TPoint(510, 490)));
    EXPECT_EQ(a.Posicao(), GISPosicao(10, 10));
    EXPECT_DOUBLE_EQ(a.RaioMenor(), Distancia(GISPosicao(10, 10), GISPosicao(10, 20)) / 35.0);
    EXPECT_DOUBLE_EQ(a.RaioMaior(), Distancia(GISPosicao(10, 10), GISPosicao(10, 30)) / 35.0);
    EXPECT_DOUBLE_EQ(a.AzimuteFinal(), 2 * Pi);
    TGISPosicaoList p;
    a.ObterPontos(p);
    EXPECT_EQ(p.Count(), 50);
    EXPECT_EQ(p[0], p[17]); // o externo dá a volta inteira e as ligações vêm depois
}

TEST(TGISElipse, SemiEixosEORumo)
{
    TGISElipse e;
    e.AtribuirRaioMaior(2);  // leste-oeste com rumo 0
    e.AtribuirRaioMaiorY(1); // norte-sul com rumo 0
    const auto extremo = [&e](bool longe) {
        TGISPosicaoList p;
        e.ObterPontos(p);
        EXPECT_EQ(p.Count(), 50);
        TGISPosicao m = p[0];
        for (const TGISPosicao &q : p)
            if ((Distancia(TGISPosicao(), q) > Distancia(TGISPosicao(), m)) == longe)
                m = q;
        return m;
    };
    TGISPosicao m = extremo(true);
    EXPECT_NEAR(Distancia(TGISPosicao(), m), 2, 0.05);
    EXPECT_LT(std::abs(m.Latitude), 10);
    EXPECT_NEAR(Distancia(TGISPosicao(), extremo(false)), 1, 0.05);

    e.AtribuirOrientacao(0.0); // rumo 90: um quarto de volta
    m = extremo(true);
    EXPECT_NEAR(Distancia(TGISPosicao(), m), 2, 0.05);
    EXPECT_LT(std::abs(m.Longitude), 10);
}

TEST(TGISAreaCircular, ContornoGuardadoAcompanhaCadaDadoQueODefine)
{
    TGISElipse e;
    e.AtribuirRaioMaior(10);
    e.AtribuirRaioMaiorY(10);
    TGISRet antes = e.Area();
    const auto mudou = [&](const char *dado) {
        const TGISRet agora = e.Area();
        EXPECT_NE(agora, antes) << dado;
        antes = agora;
    };
    e.AtribuirRaioMaior(20);
    mudou("raio maior");
    e.AtribuirRaioMaiorY(30);
    mudou("semi-eixo da elipse");
    e.AtribuirPosicao(GISPosicao(3600, 3600));
    mudou("posição");
    e.AtribuirOrientacao(0.3);
    mudou("orientação");
    e.AtribuirAzimuteFinal(1.0);
    mudou("azimute");
    e.AtribuirRaioMenor(5);
    e.AtribuirRaioMenorY(5);
    mudou("raio menor");
    TGISPosicaoList direto;
    e.ObterPontos(direto);
    ASSERT_EQ(direto.Count(), e.Contorno().Count());
    for (int i = 0; i < direto.Count(); ++i)
        EXPECT_EQ(direto[i], e.Contorno()[i]);
}
