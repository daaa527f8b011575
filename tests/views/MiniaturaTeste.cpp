// O mapa de situação: o retângulo da visão principal no pixel certo, o clique que centra o mapa,
// a imagem guardada que só se refaz quando as camadas mudam; e o objeto escondido, que o mapa
// não desenha nem acha.

#include "control/AuxiliaresControle.h"

#include <tavru/views/TGISMiniatura.h>

#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

class Miniatura : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 300);
        // Mais larga que alta, e fora do equador: as escalas de latitude e longitude diferem.
        TGISCamada &a = NovaCamada(gis, "A");
        a.Objetos().Add(new TObjetoRet(Graus(-30, -70, -20, -40)));
        a.AtribuirZoomMinimo(1000.0); // fora do zoom do mapa: a miniatura mostra assim mesmo
        NovaCamada(gis, "B").Objetos().Add(new TObjetoRet(Graus(0, -50, 5, -45)));
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        gis.FitToWindow();
        zoom = gis.Zoom() * 4; // um quarto da extensão de cada lado
        gis.Visao(GISPosicao(-25 * 3600, -55 * 3600), zoom);
        mini.resize(200, 160);
        mini.AtribuirGis(&gis);
    }
    static bool Vermelho(QRgb c) { return qRed(c) > 200 && qGreen(c) < 60 && qBlue(c) < 60; }

    TGis gis;
    TGISMiniatura mini;
    double zoom = 0.0;
};

TEST_F(Miniatura, RetanguloDaVisaoNoPixelEDesenhadoEmVermelho)
{
    const TGISProjecao &p = *gis.Projecao();
    const TGISRet visao = p.TelaParaMundoRet(p.AreaTela());
    // Os cantos do mundo da visão principal caem nos cantos do retângulo.
    const QRect r = mini.RetanguloDaVisao();
    const TGISPosicao noroeste = mini.PosicaoDoPixel(r.topLeft());
    const TGISPosicao sudeste = mini.PosicaoDoPixel(r.bottomRight());
    const TGISRet v = ConcertaRect(visao);
    const TGISPosicao tamanhoDoPixel = mini.PosicaoDoPixel(QPoint(1, 1));
    const TGISPosicao origem = mini.PosicaoDoPixel(QPoint(0, 0));
    const double pixelLat = std::abs(double(tamanhoDoPixel.Latitude - origem.Latitude));
    const double pixelLon = std::abs(double(tamanhoDoPixel.Longitude - origem.Longitude));
    EXPECT_NEAR(noroeste.Latitude, v.Pos2.Latitude, pixelLat);
    EXPECT_NEAR(sudeste.Latitude, v.Pos1.Latitude, pixelLat);
    EXPECT_NEAR(noroeste.Longitude, v.Pos1.Longitude, pixelLon);
    EXPECT_NEAR(sudeste.Longitude, v.Pos2.Longitude, pixelLon);
    EXPECT_LT(r.width(), mini.width() / 2); // um quarto da extensão
    EXPECT_GT(r.width(), 3);

    // A borda esquerda é vermelha; o meio do retângulo, não.
    const QImage tela = mini.grab().toImage();
    EXPECT_TRUE(Vermelho(tela.pixel(r.left(), r.center().y())));
    EXPECT_FALSE(Vermelho(tela.pixel(r.center())));

    // O retângulo segue a visão principal.
    gis.Visao(GISPosicao(-10 * 3600, -60 * 3600), zoom);
    EXPECT_LT(mini.RetanguloDaVisao().center().y(), r.center().y());
    EXPECT_LT(mini.RetanguloDaVisao().center().x(), r.center().x());
}

TEST_F(Miniatura, CliqueEArrastoCentramOMapaSemMudarOZoom)
{
    const QPoint alvo(40, 120);
    QTest::mouseClick(&mini, Qt::LeftButton, Qt::NoModifier, alvo);
    const TGISPosicao esperado = mini.PosicaoDoPixel(alvo);
    EXPECT_NEAR(gis.Projecao()->Centro().Latitude, esperado.Latitude, 1);
    EXPECT_NEAR(gis.Projecao()->Centro().Longitude, esperado.Longitude, 1);
    EXPECT_DOUBLE_EQ(gis.Zoom(), zoom);
    EXPECT_NEAR(mini.RetanguloDaVisao().center().x(), alvo.x(), 1);
    EXPECT_NEAR(mini.RetanguloDaVisao().center().y(), alvo.y(), 1);

    // O botão direito não mexe.
    QTest::mouseClick(&mini, Qt::RightButton, Qt::NoModifier, QPoint(150, 20));
    EXPECT_NEAR(gis.Projecao()->Centro().Latitude, esperado.Latitude, 1);
}

TEST_F(Miniatura, ImagemGuardadaSoSeRefazQuandoAsCamadasMudam)
{
    mini.Imagem();
    const auto antes = mini.Redesenhos();
    for (int i = 0; i < 5; ++i) {
        gis.Visao(GISPosicao(-25 * 3600, (-60 + i) * 3600), zoom);
        mini.RetanguloDaVisao();
        mini.grab();
    }
    EXPECT_EQ(mini.Redesenhos(), antes);

    gis.ObterCamada("B")->Objetos().Add(new TObjetoRet(Graus(-1, -41, 1, -39)));
    mini.Imagem();
    EXPECT_EQ(mini.Redesenhos(), antes + 1);
    gis.ObterCamada("A")->AtribuirVisivel(false);
    mini.Imagem();
    EXPECT_EQ(mini.Redesenhos(), antes + 2);
    mini.Imagem();
    EXPECT_EQ(mini.Redesenhos(), antes + 2);
}

TEST_F(Miniatura, CamadasEscolhidasDefinemAExtensao)
{
    // Só B: a extensão é a de B, então o canto sudoeste de B fica no canto da miniatura (ou numa
    // borda, pela proporção).
    mini.AtribuirCamadas({"b"});
    const TGISPosicao centro = mini.PosicaoDoPixel(QPoint(mini.width() / 2, mini.height() / 2));
    EXPECT_NEAR(centro.Latitude, 2.5 * 3600, 0.1 * 3600);
    EXPECT_NEAR(centro.Longitude, -47.5 * 3600, 0.1 * 3600);
    mini.AtribuirCamadas({});
    const TGISPosicao todas = mini.PosicaoDoPixel(QPoint(mini.width() / 2, mini.height() / 2));
    EXPECT_LT(todas.Latitude, 0);
}

TEST(ObjetoEscondido, NaoEDesenhadoNemAchadoPeloClique)
{
    TGis gis;
    gis.resize(200, 200);
    gis.AtribuirColor(0xFFFFFF);
    TGISCamada &c = NovaCamada(gis, "C");
    auto *o = new TObjetoRet(Graus(-10, -10, 10, 10), nullptr, QStringLiteral("O"));
    o->AtribuirCor(0x0000FF);
    o->AtribuirRotuloVisivel(true);
    c.Objetos().Add(o);
    gis.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
    gis.Zerado(); // os rótulos vêm do campo "Nome"
    gis.FitToWindow();
    const TPoint meio = gis.Projecao()->MundoParaTela(GISPosicao(0, 0));
    EXPECT_EQ(gis.ObterObjeto(meio), o);
    EXPECT_NE(gis.Buffer().pixel(meio.X, meio.Y) & 0xFFFFFF, 0xFFFFFFu);

    o->AtribuirVisivel(false);
    gis.Desenhar();
    EXPECT_EQ(gis.ObterObjeto(meio), nullptr);
    EXPECT_EQ(gis.Buffer().pixel(meio.X, meio.Y) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(c.Objetos().Count(), 1); // continua na camada
}

} // namespace
