// Projeções: coeficientes, arredondamento, ida e volta, zoom, ajuste a um retângulo, testes de
// pertinência e a vista do globo da projeção de experiência.

#include <tavru/core/GISProjecao.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace tavru;

namespace {
// Uma Mercator com a conversão trocada: os laços de lista têm de usar a conversão dela.
class TMercatorDeslocada : public TGISProjecaoMercator
{
public:
    TPoint MundoParaTela(const TGISPosicao &p) const override
    {
        const TPoint s = TGISProjecaoMercator::MundoParaTela(p);
        return TPoint(s.X + 1, s.Y);
    }
};
} // namespace

TEST(Mercator, CoeficientePadraoEArredondamentoParaOPar)
{
    TGISProjecaoMercator p;
    EXPECT_DOUBLE_EQ(p.Coeficiente(), 640.0 / 1296000.0);
    EXPECT_EQ(p.CentroTela(), TPoint(320, 240));
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 0)), TPoint(320, 240));
    EXPECT_EQ(p.MundoParaTela(GISPosicao(324000, 648000)), TPoint(640, 80)); // norte para cima

    // Coeficiente 0.5 exato: as meias unidades vão para o par.
    p.DoAtribuirAreaMundo(GISRet(0, 0, 100, 100));
    p.DoAtribuirAreaTela(TRect(0, 0, 50, 50));
    ASSERT_EQ(p.Coeficiente(), 0.5);
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 1)).X, 25);  // 0.5 -> 0
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 3)).X, 27);  // 1.5 -> 2
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 5)).X, 27);  // 2.5 -> 2
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, -1)).X, 25); // -0.5 -> 0
    EXPECT_EQ(p.MundoParaTela(GISPosicao(3, 0)).Y, 24);  // 25 - 1.5 = 23.5 -> 24
    EXPECT_EQ(p.MundoParaTela(GISPosicao(1, 0)).Y, 24);  // 24.5 -> 24
    EXPECT_EQ(p.TelaParaMundo(TPoint(26, 25)), GISPosicao(0, 2));
    EXPECT_EQ(p.TelaParaMundo(TPoint(25, 26)), GISPosicao(-2, 0)); // y para baixo é sul
}

TEST(Mercator, IdaEVoltaEListasIguaisAosPontos)
{
    TGISProjecaoMercator p;
    p.DoAtribuirAreaTela(TRect(0, 0, 1000, 700));
    p.AtribuirCentro(GISPosicao(-12345, 67890));
    // Com menos de um pixel por segundo de arco, pixel -> mundo -> pixel volta exato...
    for (const TPoint s : {TPoint(0, 0), TPoint(999, 1), TPoint(-37, 812), TPoint(500, 350)})
        EXPECT_EQ(p.MundoParaTela(p.TelaParaMundo(s)), s);
    // ... e com mais de um, mundo -> pixel -> mundo.
    p.DoAtribuirZoom(3000);
    ASSERT_GT(p.Coeficiente(), 1.0);
    for (const TGISPosicao w : {GISPosicao(-12345, 67890), GISPosicao(-12000, 67000), GISPosicao(-12999, 68001)})
        EXPECT_EQ(p.TelaParaMundo(p.MundoParaTela(w)), w);

    // Os laços de lista dão exatamente o que a conversão de cada ponto dá.
    TGISPosicaoList mundo;
    std::mt19937 g(7);
    std::uniform_int_distribution<int> lat(-324000, 324000), lon(-648000, 648000);
    for (int i = 0; i < 5000; ++i)
        mundo.Add(GISPosicao(lat(g), lon(g)));
    for (double zoom : {0.1, 1.0, 37.5, 50000.0}) {
        p.DoAtribuirZoom(zoom);
        std::vector<TPoint> tela;
        p.MundoParaTelaPontos(mundo, tela);
        TGISPosicaoList volta;
        p.TelaParaMundoPontos(tela, volta);
        ASSERT_EQ(volta.Count(), mundo.Count());
        for (int i = 0; i < mundo.Count(); ++i) {
            ASSERT_EQ(tela[static_cast<size_t>(i)], p.MundoParaTela(mundo[i]));
            ASSERT_EQ(volta[i], p.TelaParaMundo(tela[static_cast<size_t>(i)]));
        }
    }

    // Uma subclasse que troca a conversão não passa pelo caminho rápido.
    TMercatorDeslocada d;
    std::vector<TPoint> tela;
    d.MundoParaTelaPontos(mundo, tela);
    EXPECT_EQ(tela[0], d.MundoParaTela(mundo[0]));
}

TEST(Mercator, ZoomLimitadoCoeficienteRecalculadoECopia)
{
    TGISProjecaoMercator p;
    const double base = p.Coeficiente();
    p.AtribuirZoom(0);
    EXPECT_EQ(p.Zoom(), 0.1);
    EXPECT_DOUBLE_EQ(p.Coeficiente(), base * 0.1);
    p.AtribuirZoom(1e6);
    EXPECT_EQ(p.Zoom(), 50000.0);
    EXPECT_DOUBLE_EQ(p.Coeficiente(), base * 50000.0);

    // Um mundo sem vão num eixo usa o fator 1.0 nesse eixo.
    p.AtribuirZoom(1);
    p.DoAtribuirAreaMundo(GISRet(0, 0, 0, 1000));
    EXPECT_DOUBLE_EQ(p.Coeficiente(), 640.0 / 1000.0);
    p.DoAtribuirAreaTela(TRect(-11, -7, 0, 0));
    EXPECT_EQ(p.CentroTela(), TPoint(-5, -3)); // divisão truncando para o zero

    // Copiar leva tela, zoom e tolerâncias, não o centro.
    TGISProjecaoMercator origem;
    origem.AtribuirErroTelaPonto(2);
    origem.DoAtribuirAreaTela(TRect(0, 0, 100, 50));
    origem.AtribuirZoom(7);
    origem.AtribuirCentro(GISPosicao(100, 200));
    TGISProjecaoMercator alvo;
    alvo.AtribuirCentro(GISPosicao(-1, -2));
    alvo.Copiar(origem);
    EXPECT_EQ(alvo.Centro(), GISPosicao(-1, -2));
    EXPECT_EQ(alvo.ErroTelaPonto(), 2.0);
    EXPECT_EQ(alvo.Coeficiente(), origem.Coeficiente()); // tela e zoom copiados, coeficiente refeito
    EXPECT_NE(dynamic_cast<TGISProjecaoMercator *>(origem.Criar().get()), nullptr);
}

TEST(Mercator, FitToRect)
{
    // Um ponto vira um quadrado de 60 segundos de arco, o zoom é limitado e o centro é o ponto.
    TGISProjecaoMercator p;
    p.DoAtribuirAreaMundo(GISRet(-3240000, -6480000, 3240000, 6480000));
    p.AtribuirZoom(1000);
    p.FitToRect(GISRet(1000, 2001, 1000, 2001));
    EXPECT_EQ(p.Zoom(), 50000.0);
    EXPECT_EQ(p.Centro(), GISPosicao(1000, 2001));

    // Um retângulo que cabe em menos de um pixel não muda nada, nem o centro.
    TGISProjecaoMercator q;
    q.FitToRect(GISRet(0, 0, 100, 100));
    EXPECT_EQ(q.Zoom(), 1.0);
    EXPECT_EQ(q.Centro(), GISPosicao(0, 0));

    // O retângulo passa a ocupar a tela no eixo que limita; o centro trunca para o zero.
    q.FitToRect(GISRet(-100001, -40001, 100000, 40000));
    EXPECT_EQ(q.Centro(), GISPosicao(0, 0));
    const TRect r = q.MundoParaTelaRet(GISRet(-100001, -40001, 100000, 40000));
    EXPECT_NEAR(r.Top - r.Bottom, 480, 5);
    EXPECT_LT(r.Right - r.Left, 640);
    q.AtribuirZoom(50000);
    q.FitToRect(GISRet(-3, -5, 0, 0));
    EXPECT_EQ(q.Centro(), GISPosicao(-1, -2));
    // Um ponto na ponta dos 32 bits (um documento pode dá-lo cru) é alargado sem dar a volta.
    q.AtribuirCentro(GISPosicao(INT32_MAX, INT32_MIN));
    q.FitToRect(GISRet(INT32_MAX, INT32_MIN, INT32_MAX, INT32_MIN));
    EXPECT_EQ(q.Centro(), GISPosicao(INT32_MAX - 15, INT32_MIN + 15));

    // Só um eixo com tamanho na tela: usa o fator desse eixo.
    TGISProjecaoMercator s;
    s.FitToRect(GISRet(-100000, 0, 100000, 0));
    const TRect t = s.MundoParaTelaRet(GISRet(-100000, 0, 100000, 0));
    EXPECT_NEAR(t.Bottom - t.Top, -480, 5);
}

TEST(Mercator, VisivelSoRecusaOQueOTesteExatoRecusa)
{
    TGISProjecaoMercator p;
    p.DoAtribuirAreaTela(TRect(0, 0, 800, 600));
    p.FitToRect(GISRet(-10000, -20000, 10000, 20000));
    const TRect tela = p.AreaTela();
    std::mt19937 aleatorio(7);
    std::uniform_int_distribution<int> canto(-40000, 40000), lado(0, 300);
    int recusados = 0;
    for (int i = 0; i < 20000; ++i) {
        const int lat = canto(aleatorio), lon = canto(aleatorio);
        const TGISRet r = GISRet(lat, lon, lat + lado(aleatorio), lon + lado(aleatorio));
        const bool exato = Intersecao(p.MundoParaTelaRet(r), tela);
        if (exato) {
            ASSERT_TRUE(p.Visivel(r)) << lat << " " << lon;
        }
        recusados += !p.Visivel(r);
    }
    EXPECT_GT(recusados, 10000) << "o teste barato recusa a maior parte do que está fora";
}

TEST(Mercator, TelaVaziaLevantaEmVezDeDarInfinito)
{
    TGISProjecaoMercator p;
    p.DoAtribuirAreaTela(TRect(10, 0, 10, 480)); // largura zero: coeficiente zero
    EXPECT_EQ(p.Coeficiente(), 0.0);
    EXPECT_THROW(p.TelaParaMundo(TPoint(1, 1)), EZeroDivide);
    EXPECT_THROW(p.ProporcaoMundoTelaHorizontal(), EZeroDivide);
    TGISPosicaoList l;
    l.Add(GISPosicao(1, 1));
    const TPoint pontos[] = {TPoint(1, 2), TPoint(3, 4)};
    EXPECT_THROW(p.TelaParaMundoPontos(pontos, 2, l), EZeroDivide);
    EXPECT_EQ(l.Count(), 0);
    EXPECT_DOUBLE_EQ(TGISProjecaoMercator().ProporcaoMundoTela(), 648000.0 / 480.0); // a menor
}

TEST(Pertinencia, ToleranciasEstritasEAneisAbertosOuFechados)
{
    TGISProjecaoMercator p;
    TGISPosicaoList linha;
    linha.Add(GISPosicao(0, 0));
    linha.Add(GISPosicao(100, 0));
    EXPECT_FALSE(p.PertenceALinha(linha, GISPosicao(50, 5))); // a exatamente 5.0
    EXPECT_TRUE(p.PertenceALinha(linha, GISPosicao(50, 4)));
    TGISPosicaoList um;
    um.Add(GISPosicao(50, 0));
    EXPECT_FALSE(p.PertenceALinha(um, GISPosicao(50, 0))); // menos de dois pontos

    const TPoint tela[] = {TPoint(0, 0), TPoint(0, 100), TPoint(100, 100)};
    EXPECT_FALSE(p.PertenceALinha(tela, 2, TPoint(105, 100)));
    EXPECT_TRUE(p.PertenceALinha(tela, 2, TPoint(104, 100)));
    EXPECT_FALSE(p.PertenceALinha(tela, 0, TPoint(0, 0)));
    p.AtribuirErroTelaLinha(6);
    EXPECT_TRUE(p.PertenceALinha(tela, 2, TPoint(105, 100)));

    EXPECT_TRUE(p.Equivalentes(GISPosicao(0, 0), GISPosicao(4, -4)));
    EXPECT_FALSE(p.Equivalentes(GISPosicao(0, 0), GISPosicao(5, 0)));
    EXPECT_FALSE(p.Equivalentes(GISPosicao(0, 0), GISPosicao(0, -5)));
    EXPECT_TRUE(p.Equivalentes(TPoint(10, 10), TPoint(14, 6)));
    EXPECT_FALSE(p.Equivalentes(TPoint(10, 10), TPoint(15, 10)));

    // Anel aberto e fechado respondem igual.
    // No mundo o segmento vem do canto sudoeste do mundo e cruza a aresta de fechamento.
    TGISPosicaoList aberto;
    for (const TGISPosicao q : {GISPosicao(100, 0), GISPosicao(100, 100), GISPosicao(0, 100), GISPosicao(0, 0)})
        aberto.Add(q);
    TGISPosicaoList fechado = aberto;
    fechado.Add(aberto.First());
    for (const TGISPosicaoList *l : {&aberto, &fechado}) {
        EXPECT_TRUE(p.PertenceAArea(*l, GISPosicao(50, 50)));
        EXPECT_FALSE(p.PertenceAArea(*l, GISPosicao(50, 150)));
        EXPECT_FALSE(p.PertenceAArea(*l, GISPosicao(-50, 50)));
    }
    // Na tela o segmento vem de (-10, -10) e cruza a aresta de fechamento (0,0)-(100,0).
    const TPoint telaAberta[] = {TPoint(100, 0), TPoint(100, 100), TPoint(0, 100), TPoint(0, 0)};
    const TPoint telaFechada[] = {TPoint(100, 0), TPoint(100, 100), TPoint(0, 100), TPoint(0, 0), TPoint(100, 0)};
    EXPECT_TRUE(p.PertenceAArea(telaAberta, 3, TPoint(50, 30)));
    EXPECT_TRUE(p.PertenceAArea(telaFechada, 4, TPoint(50, 30)));
    EXPECT_FALSE(p.PertenceAArea(telaAberta, 3, TPoint(150, 30)));
    EXPECT_FALSE(p.PertenceAArea(telaFechada, 4, TPoint(150, 30)));
    EXPECT_FALSE(p.PertenceAArea(TGISPosicaoList(), GISPosicao(0, 0)));
}

TEST(ProjecaoTeste, VistaDoGloboDaAVoltaEInversaLinear)
{
    TGISProjecaoTeste p;
    p.DoAtribuirAreaMundo(GISRet(-1, -1, 1, 1)); // coeficiente 240: globo de 240 pixels
    ASSERT_EQ(p.Coeficiente(), 240.0);
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 0)), TPoint(560, 240));
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 648000)), TPoint(80, 240)); // 180° a leste: lado oeste
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 324000)), TPoint(320, 0));
    // Além de 180° dá a volta (período de uma volta mais um segundo).
    EXPECT_EQ(p.MundoParaTela(GISPosicao(0, 684000)), p.MundoParaTela(GISPosicao(0, -612000)));
    EXPECT_EQ(TGISProjecaoTeste::Envolver(648001, -648000, 648000), -648000);
    EXPECT_EQ(TGISProjecaoTeste::Envolver(-648001, -648000, 648000), 648000);
    // A latitude além de 90° volta só um quarto de volta.
    EXPECT_EQ(p.MundoParaTela(GISPosicao(400000, 200000)), p.MundoParaTela(GISPosicao(76000, 200000)));
    // A ida e volta não devolve a posição: a inversa é a linear.
    EXPECT_EQ(p.TelaParaMundo(p.CentroTela()), p.Centro());
    EXPECT_NE(p.TelaParaMundo(p.MundoParaTela(GISPosicao(0, 0))), GISPosicao(0, 0));
    EXPECT_NE(dynamic_cast<TGISProjecaoTeste *>(p.Criar().get()), nullptr);
}
