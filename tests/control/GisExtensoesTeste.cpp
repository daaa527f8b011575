// O que o controle tem além do comportamento de referência: sinais do Qt (seleção, visão, cursor),
// Zoom e Centro como propriedades, ajuste à camada de verdade, a seta no centro da área, o halo
// dos rótulos e os rótulos sem sobreposição (com a grade que os testa).

#include "AuxiliaresControle.h"

#include <tavru/companions/components/TSeta.h>
#include <tavru/control/TGradeDeRotulos_p.h>
#include <tavru/platform/TStringList.h>

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Controle 400 x 200 de fundo branco, mostrado (para receber o mouse e os redimensionamentos):
/// com zoom 1 cada pixel tem 0,9 grau (3240 segundos de arco) e (0, 0) cai no pixel (200, 100).
class GisExtensoes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 200);
        gis.AtribuirColor(clWhite);
        gis.Rotulos().Add("Nome");
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
    }
    /// Rótulos em preto sobre branco, objetos invisíveis (caneta e pincel brancos).
    void SoRotulos()
    {
        gis.Pen().Color = clWhite;
        gis.Brush().Color = clWhite;
        gis.FonteRotulo().Color = clBlack;
        gis.FonteRotulo().SetHeight(-16);
    }
    /// A primeira coluna do buffer com um pixel que não é branco, ou -1.
    int PrimeiraColunaPintada() const
    {
        const QImage &b = gis.Buffer();
        for (int x = 0; x < b.width(); ++x)
            for (int y = 0; y < b.height(); ++y)
                if ((b.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF)
                    return x;
        return -1;
    }

    TGis gis;
};

} // namespace

TEST_F(GisExtensoes, SinalDeSelecaoSoQuandoASelecaoMudaDepoisDaPergunta)
{
    TGISCamada &c = NovaCamada(gis, "c");
    TObjetoRet *a = Incluir(c, Graus(0, 0, 1, 1), "a", true);
    TObjetoRet *b = Incluir(c, Graus(2, 2, 3, 3), "b", true);
    QList<TGISObjeto *> avisos;
    QList<TGISObjeto *> selecionadosNoAviso;
    QObject::connect(&gis, &TGis::ObjetoSelecionadoMudou, [&](TGISObjeto *o) {
        avisos << o;
        selecionadosNoAviso << gis.ObjetoSelecionado();
    });
    bool pode = false;
    gis.OnMudaObjetoSelecionado = [&](QObject *, TGISObjeto *, bool &podeMudar) { podeMudar = pode; };

    gis.SelecionarObjeto(a); // recusado: nada muda, nada se avisa
    EXPECT_TRUE(avisos.isEmpty());
    pode = true;
    gis.SelecionarObjeto(a);
    gis.SelecionarObjeto(a); // o mesmo: nada
    pode = false;
    gis.SelecionarObjeto(b); // recusado
    pode = true;
    gis.SelecionarObjeto(b);
    gis.SelecionarObjeto(nullptr);
    gis.SelecionarObjeto(nullptr);
    EXPECT_EQ(avisos, (QList<TGISObjeto *>{a, b, nullptr}));
    EXPECT_EQ(selecionadosNoAviso, avisos); // o aviso vem com a seleção já feita

    // Limpar esquece a seleção sem perguntar, mas avisa; sem seleção, não.
    gis.SelecionarObjeto(a);
    avisos.clear();
    gis.Limpar();
    EXPECT_EQ(avisos, (QList<TGISObjeto *>{nullptr}));
    gis.Limpar();
    EXPECT_EQ(avisos.size(), 1);
}

TEST_F(GisExtensoes, VisaoMudouComZoomCentroTamanhoEProjecaoMexidaDireto)
{
    QSignalSpy visao(&gis, &TGis::VisaoMudou); // a visão de quando o controle apareceu já foi avisada
    gis.Desenhar();
    gis.Desenhar();
    EXPECT_EQ(visao.count(), 0) << "o mesmo desenho não avisa de novo";

    // Uma ferramenta que mexe direto na projeção e redesenha também é vista.
    gis.Projecao()->AtribuirCentro(GISPosicao(3600, 7200));
    gis.Desenhar();
    EXPECT_EQ(visao.count(), 1);

    // O redimensionamento avisa mesmo com o controle desabilitado (que não desenha).
    gis.setEnabled(false);
    gis.resize(300, 200); // numa janela de cima, o redimensionamento chega pelo sistema de janelas
    EXPECT_TRUE(QTest::qWaitFor([&] { return gis.width() == 300; }));
    EXPECT_EQ(visao.count(), 2);
    gis.setEnabled(true);

    // As propriedades: o centro em graus com x = longitude e y = latitude.
    EXPECT_EQ(gis.property("Centro").toPointF(), QPointF(2.0, 1.0));
    ASSERT_TRUE(gis.setProperty("Centro", QPointF(-45.5, -23.25)));
    EXPECT_EQ(visao.count(), 3);
    EXPECT_EQ(gis.Projecao()->Centro().Latitude, -83700);
    EXPECT_EQ(gis.Projecao()->Centro().Longitude, -163800);
    ASSERT_TRUE(gis.setProperty("Zoom", 4.0));
    EXPECT_DOUBLE_EQ(gis.property("Zoom").toDouble(), 4.0);
    EXPECT_EQ(visao.count(), 4);
    gis.AtribuirZoom(std::nan(""));
    gis.AtribuirCentroEmGraus(QPointF(INFINITY, 0));
    EXPECT_DOUBLE_EQ(gis.Zoom(), 4.0);
    EXPECT_EQ(gis.CentroEmGraus(), QPointF(-45.5, -23.25));
    EXPECT_EQ(visao.count(), 4);
    // Um centro absurdo satura em vez de transbordar.
    gis.AtribuirCentroEmGraus(QPointF(1e12, -1e12));
    EXPECT_EQ(gis.Projecao()->Centro().Longitude, INT32_MAX);
    EXPECT_EQ(gis.Projecao()->Centro().Latitude, INT32_MIN);

    const QMetaObject *meta = gis.metaObject();
    for (const char *nome : {"Zoom", "Centro"})
        EXPECT_EQ(meta->property(meta->indexOfProperty(nome)).notifySignal().name(), QByteArray("VisaoMudou")) << nome;
}

TEST_F(GisExtensoes, PosicaoDoCursorNoMovimentoEACadaMudancaDaVisao)
{
    QList<TGISPosicao> posicoes;
    int saidas = 0;
    QObject::connect(&gis, &TGis::PosicaoDoCursorMudou, [&](const TGISPosicao &p) { posicoes << p; });
    QObject::connect(&gis, &TGis::CursorSaiu, [&] { ++saidas; });
    gis.Desenhar();

    QTest::mouseMove(&gis, QPoint(300, 50));
    ASSERT_EQ(posicoes.size(), 1);
    EXPECT_EQ(posicoes[0].Latitude, 50 * 3240);
    EXPECT_EQ(posicoes[0].Longitude, 100 * 3240);

    // O zoom muda o que está sob o cursor parado.
    gis.AtribuirZoom(2.0);
    ASSERT_EQ(posicoes.size(), 2);
    EXPECT_EQ(posicoes[1].Latitude, 50 * 1620);
    EXPECT_EQ(posicoes[1].Longitude, 100 * 1620);

    // Fora do mapa, a visão muda sem falar do cursor.
    QEvent saida(QEvent::Leave);
    QCoreApplication::sendEvent(&gis, &saida);
    EXPECT_EQ(saidas, 1);
    gis.AtribuirZoom(3.0);
    EXPECT_EQ(posicoes.size(), 2);
}

TEST_F(GisExtensoes, AjustarACamadaUsaOsLimitesDeVerdade)
{
    // Uma faixa larga e baixa: 40 graus de longitude por 5 de latitude, ao sul do equador.
    TGISCamada &faixa = NovaCamada(gis, "Faixa");
    Incluir(faixa, Graus(-10, 20, -8, 30), "oeste", true);
    Incluir(faixa, Graus(-7, 50, -5, 60), "leste", true);
    Incluir(NovaCamada(gis, "Outra"), Graus(60, -100, 70, -90), "longe", true);
    NovaCamada(gis, "Vazia").Objetos().Add(nullptr);
    gis.Desenhar();
    const TGISPosicao antes = gis.Projecao()->Centro();
    const double zoomAntes = gis.Zoom();

    gis.AjustarACamada("desconhecida");
    gis.AjustarACamada("Vazia");
    EXPECT_EQ(gis.Projecao()->Centro().Longitude, antes.Longitude);
    EXPECT_EQ(gis.Zoom(), zoomAntes);

    QSignalSpy visao(&gis, &TGis::VisaoMudou);
    gis.AjustarACamada("FAIXA"); // o nome sem diferenciar maiúsculas, como ObterCamada
    EXPECT_EQ(visao.count(), 1) << "redesenha";
    EXPECT_EQ(gis.Projecao()->Centro().Latitude, -7 * 3600 - 1800);
    EXPECT_EQ(gis.Projecao()->Centro().Longitude, 40 * 3600);
    // A largura manda: os 40 graus enchem os 400 pixels (a menos do arredondamento da projeção,
    // que mede a extensão em pixels inteiros no zoom anterior).
    const TGISRet mundo = ConcertaRect(gis.Projecao()->TelaParaMundoRet(gis.Projecao()->AreaTela()));
    EXPECT_NEAR(mundo.Pos2.Longitude - mundo.Pos1.Longitude, 40 * 3600, 3600);
    EXPECT_LT(mundo.Pos2.Latitude - mundo.Pos1.Latitude, 25 * 3600);
}

TEST_F(GisExtensoes, SetaNoCentroDaAreaSoQuandoAPosicaoFicaFora)
{
    // Como uma linha lida de um documento: a posição (0, 0), a área longe dela.
    TObjetoRet *linha = Incluir(NovaCamada(gis, "c"), Graus(9, 18, 27, 54), "linha", true);
    gis.SelecionarObjeto(linha);
    EXPECT_EQ(gis.Seta().Posicao(), TPoint(200, 100)) << "padrão: a posição, como no desenho de referência";

    gis.AtribuirSetaNoCentroDaArea(true);
    gis.Desenhar();
    EXPECT_EQ(gis.Seta().Posicao(), TPoint(240, 80)); // o centro da área: 18° N, 36° E

    // A posição dentro da área continua sendo o alvo.
    linha->AtribuirPosicao(GISPosicao(int(10.8 * 3600), int(19.8 * 3600)));
    gis.Desenhar();
    EXPECT_EQ(gis.Seta().Posicao(), TPoint(222, 88));
}

TEST_F(GisExtensoes, HaloDeDoisPixelsPorBaixoDoTexto)
{
    SoRotulos();
    Incluir(NovaCamada(gis, "c"), Graus(-9, -9, 9, 9), "HHHH", true);
    gis.Desenhar();
    const int semHalo = PrimeiraColunaPintada();
    ASSERT_GT(semHalo, 150);
    const QImage texto = gis.Buffer();

    gis.AtribuirCorDoHalo(clRed);
    gis.Desenhar();
    EXPECT_EQ(PrimeiraColunaPintada(), semHalo - 2);
    int vermelhos = 0, diferentesDoTexto = 0;
    for (int y = 0; y < texto.height(); ++y)
        for (int x = 0; x < texto.width(); ++x) {
            const QRgb h = gis.Buffer().pixel(x, y) & 0xFFFFFF;
            vermelhos += h == 0xFF0000;
            // O texto fica por cima: onde ele é preto, continua preto.
            diferentesDoTexto += (texto.pixel(x, y) & 0xFFFFFF) == 0 && h != 0;
        }
    EXPECT_GT(vermelhos, 100);
    EXPECT_EQ(diferentesDoTexto, 0);

    gis.AtribuirCorDoHalo(clNone);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer(), texto);
}

TEST_F(GisExtensoes, RotulosSemSobreposicaoOPrimeiroEscritoVale)
{
    SoRotulos();
    // Na mesma camada, na ordem dos objetos: o terceiro cai sobre o primeiro, o segundo longe.
    TGISCamada &baixo = NovaCamada(gis, "baixo");
    Incluir(baixo, Graus(0, -90, 0, -90), "Alfa", true);
    Incluir(baixo, Graus(0, 90, 0, 90), "Beta", true);
    Incluir(baixo, Graus(0, -88, 0, -88), "Gama", true);
    EXPECT_EQ(RotulosCamadaACamada(gis).size(), 3) << "desligado, como no desenho de referência";
    gis.AtribuirRotulosSemSobreposicao(true);
    const QStringList textos = RotulosCamadaACamada(gis);
    ASSERT_EQ(textos.size(), 2);
    EXPECT_TRUE(textos[0].startsWith("Alfa@"));
    EXPECT_TRUE(textos[1].startsWith("Beta@"));

    // Entre camadas, num desenho inteiro: o rótulo da camada de cima que cai sobre o de "Beta"
    // some, e o mapa fica igual ao de uma camada de cima sem rótulo.
    TGISCamada &cima = NovaCamada(gis, "cima");
    TObjetoRet *sobreposto = Incluir(cima, Graus(0, 90, 0, 90), "Delta", true);
    gis.Desenhar();
    const QImage semSobreposicao = gis.Buffer();
    sobreposto->AtribuirRotuloVisivel(false);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer(), semSobreposicao);
    gis.AtribuirRotulosSemSobreposicao(false);
    sobreposto->AtribuirRotuloVisivel(true);
    gis.Desenhar();
    EXPECT_NE(gis.Buffer(), semSobreposicao);
}

TEST(GradeDeRotulos, SobreposicaoDentroEForaDaTela)
{
    TGradeDeRotulos grade(TRect(0, 0, 400, 200));
    EXPECT_TRUE(grade.Ocupar(TRect(100, 100, 110, 110)));
    EXPECT_TRUE(grade.Ocupar(TRect(110, 100, 120, 110))) << "bordas que se tocam não se sobrepõem";
    EXPECT_TRUE(grade.Ocupar(TRect(100, 110, 110, 120)));
    EXPECT_FALSE(grade.Ocupar(TRect(109, 109, 111, 111)));
    EXPECT_TRUE(grade.Ocupar(TRect(105, 105, 105, 130))) << "uma caixa vazia nunca se sobrepõe";

    // Uma caixa grande ocupa todas as células que cobre.
    EXPECT_TRUE(grade.Ocupar(TRect(200, 0, 399, 199)));
    EXPECT_FALSE(grade.Ocupar(TRect(300, 90, 301, 91)));

    // Fora da tela, em todos os lados, a grade continua separando e juntando certo.
    EXPECT_TRUE(grade.Ocupar(TRect(-5000, -5000, -4990, -4990)));
    EXPECT_TRUE(grade.Ocupar(TRect(-3000, -5000, -2990, -4990)));
    EXPECT_FALSE(grade.Ocupar(TRect(-4995, -4995, -4985, -4985)));
    EXPECT_TRUE(grade.Ocupar(TRect(2000000000, 5000, 2100000000, 5010)));
    EXPECT_FALSE(grade.Ocupar(TRect(2099999999, 5009, 2147483647, 5020)));
    // Uma caixa que atravessa a tela inteira cruza as que já estão em qualquer célula.
    EXPECT_FALSE(grade.Ocupar(TRect(-100000, 115, 100000, 116)));
}
