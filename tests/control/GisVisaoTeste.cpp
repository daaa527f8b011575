// Visão e camadas: ordem das camadas, ajustes da visão, zoom inteligente e a projeção do hospedeiro.

#include "AuxiliaresControle.h"

#include <tavru/companions/components/TSeta.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Mercator que anota cada retângulo pedido a `FitToRect`.
class TProjecaoGravadora : public TGISProjecaoMercator
{
public:
    void FitToRect(const TGISRet &r) override
    {
        Ajustes.push_back(r);
        TGISProjecaoMercator::FitToRect(r);
    }
    std::vector<TGISRet> Ajustes;
};

/// Controle 400 x 200 com uma projeção do hospedeiro (que ele não libera).
class GisVisao : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 200);
        gis.AtribuirProjecao(&projecao);
        gis.Desenhar();
    }
    QStringList Nomes() const
    {
        TStringList nomes;
        gis.ObterNomesCamadas(nomes);
        return nomes.Textos();
    }

    TProjecaoGravadora projecao;
    TGisContador gis;
};

} // namespace

TEST_F(GisVisao, OrdemDasCamadas)
{
    for (const char *nome : {"A", "B", "C"})
        NovaCamada(gis, nome);
    EXPECT_EQ(gis.ObterCamada("b"), gis.Camadas().Items(1));
    EXPECT_EQ(gis.ObterCamada("x"), nullptr);
    gis.TrazerParaFrente("a");
    gis.TrazerParaFrente("A"); // já no topo: nada muda
    EXPECT_EQ(Nomes(), QStringList({"B", "C", "A"}));
    gis.EnviarParaTras("c");
    gis.EnviarParaTras("C");
    EXPECT_EQ(Nomes(), QStringList({"C", "B", "A"}));
    gis.MoverParaFrente("C");
    gis.MoverParaTras("A");
    EXPECT_EQ(Nomes(), QStringList({"B", "A", "C"}));
    gis.MoverParaFrente("nenhuma");
    EXPECT_THROW(gis.MoverParaFrente("C"), EListError);
    EXPECT_THROW(gis.MoverParaTras("B"), EListError);
    EXPECT_EQ(Nomes(), QStringList({"B", "A", "C"}));
    EXPECT_EQ(gis.Desenhos, 1); // nenhuma redesenha
}

TEST_F(GisVisao, AjustesDaVisao)
{
    gis.FitToWindow();
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(0, 0, 0, 0)); // nada visível
    EXPECT_EQ(gis.Desenhos, 2);

    TGISCamada &visivel = NovaCamada(gis, "v");
    Incluir(visivel, GISRet(3600, 3600, 7200, 7200));
    visivel.Objetos().Add(nullptr);
    Incluir(visivel, GISRet(-10800, -3600, 0, 0));
    TGISCamada &falha = NovaCamada(gis, "falha"); // fora do zoom: medida no ajuste, nunca desenhada
    falha.AtribuirZoomMaximo(0.05);
    Incluir(falha, {})->FFalhar = true;
    Incluir(NovaCamada(gis, "escondida"), MundoInteiro);
    gis.ObterCamada("escondida")->AtribuirVisivel(false);
    gis.FitToWindow();
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(-10800, -3600, 7200, 7200));
    // Enquanto as duas latitudes do retângulo somado forem 0, o objeto seguinte o substitui.
    visivel.Objetos().Clear();
    Incluir(visivel, GISRet(0, 100, 0, 200));
    Incluir(visivel, GISRet(10, 10, 20, 20));
    gis.FitToWindow();
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(10, 10, 20, 20));

    // Ajustar à camada calcula limites degenerados, mas ajusta ao retângulo de ajuste (zero).
    visivel.Objetos().AtribuirLimites(GISRet(5, 1, 5, 9));
    gis.FitToCamada("V");
    EXPECT_EQ(visivel.Objetos().Limites(), GISRet(0, 10, 20, 200));
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(0, 0, 0, 0));
    // A área de um objeto cresce 10 em cada coordenada; índice errado é erro da lista.
    gis.ZoomArea("v", 1);
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(0, 0, 30, 30));
    EXPECT_THROW(gis.ZoomArea("v", 2), EListError);
    visivel.Objetos().Add(nullptr);
    gis.ZoomArea("v", 2); // lugar vazio: nada
    gis.ZoomArea("nenhuma", 0);
    EXPECT_EQ(projecao.Ajustes.size(), 5u);
    EXPECT_EQ(gis.Desenhos, 4); // nem FitToCamada nem ZoomArea redesenham

    gis.Visao(GISPosicao(1000, -2000), 3.5);
    EXPECT_EQ(projecao.Centro(), GISPosicao(1000, -2000));
    EXPECT_DOUBLE_EQ(projecao.Zoom(), 3.5);
    EXPECT_EQ(gis.Desenhos, 5);
}

TEST_F(GisVisao, VisualizarObjeto)
{
    TGISCamada &c = NovaCamada(gis, "c");
    TObjetoRet *o = Incluir(c, Graus(10, 20, 28, 56));
    // 200%: a extensão dobrada enche a tela, o objeto ocupa a metade dela e fica no centro.
    gis.VisualizarObjeto(o, true, 200);
    const TRect r = ConcertaRect(projecao.MundoParaTelaRet(o->Area()));
    EXPECT_NEAR(r.Width(), 200, 1);
    EXPECT_NEAR(r.Height(), 100, 1);
    EXPECT_EQ(projecao.Centro(), Centro(o->Area()));
    EXPECT_EQ(gis.ObjetoSelecionado(), o);

    // Um ponto metade fora da tela é trazido só o bastante para caber com a margem da seta.
    gis.Visao(GISPosicao(0, 0), 1.0);
    auto *ponto = new TGISPonto;
    ponto->TamanhoNaTela(TPoint(10, 10));
    ponto->AtribuirPosicao(GISPosicao(0, 3240 * 198)); // x = 398
    c.Objetos().Add(ponto);
    gis.Seta().AtribuirTamanho(20);
    gis.VisualizarObjeto(ponto, false, 0);
    const TRect p = ponto->ObterAreaDesenho(projecao);
    EXPECT_NEAR(p.Right + 20, 400, 1);
    EXPECT_EQ(p.Top, 95);
    EXPECT_EQ(gis.ObjetoSelecionado(), ponto);
}

TEST_F(GisVisao, ZoomInteligente)
{
    TGISCamada &larga = NovaCamada(gis, "larga");
    Incluir(larga, Graus(-9, -36, 9, 36)); // 80 x 20 pixels com zoom 1: enche a altura com zoom 10
    TGISCamada &ponto = NovaCamada(gis, "ponto");
    Incluir(ponto, GISRet(3600, 3600, 3600, 3600));
    ponto.AtribuirZoomMinimo(0.5);
    auto *imagem = new TGISImagem;
    imagem->AtribuirArea(GISRet(-3600, -3600, 3600, 3600));
    NovaCamada(gis, "imagens").Objetos().Add(imagem);

    gis.Visao(GISPosicao(0, 0), 2.0);
    gis.CalcularZoomInteligente();
    EXPECT_DOUBLE_EQ(larga.ZoomMinimo(), 10.0);
    EXPECT_DOUBLE_EQ(larga.ZoomMaximo(), 50000.0);
    EXPECT_DOUBLE_EQ(ponto.ZoomMinimo(), 0.5); // extensão de largura zero: fica
    EXPECT_DOUBLE_EQ(imagem->Escala(), 90.0);  // mundo 648000 x 1296000 sobre 7200 x 7200
    EXPECT_EQ(gis.Desenhos, 2);
}

TEST_F(GisVisao, CoordenadasForaDoMundoNaoEstouram)
{
    // Um documento pode dar inteiros crus fora do mundo: as contas da visão ficam nos 32 bits.
    TGISCamada &c = NovaCamada(gis, "c");
    Incluir(c, GISRet(0, 0, INT32_MAX, INT32_MAX));
    projecao.DoAtribuirZoom(50000.0); // o canto de cima projeta fora dos 32 bits (sem desenhar)
    gis.CalcularZoomInteligente();
    EXPECT_GT(c.ZoomMinimo(), 0.0);
    gis.ZoomArea("c", 0);
    EXPECT_EQ(projecao.Ajustes.back(), GISRet(-10, -10, INT32_MAX, INT32_MAX));
    auto *ponto = new TGISPonto; // à direita da tela, junto do fim da faixa
    ponto->AtribuirPosicao(GISPosicao(0, INT32_MAX - 100));
    c.Objetos().Add(ponto);
    gis.Visao(GISPosicao(0, INT32_MAX - 700000), 1.0);
    gis.VisualizarObjeto(ponto, false, 0);
    EXPECT_EQ(gis.ObjetoSelecionado(), ponto);
}

TEST(GisProjecao, PadraoTrocadaENuncaLiberada)
{
    auto *gis = new TGis;
    TGISProjecao *padrao = gis->Projecao();
    ASSERT_NE(dynamic_cast<TGISProjecaoMercator *>(padrao), nullptr);
    auto hospedeira = std::make_unique<TGISProjecaoMercator>();
    gis->AtribuirProjecao(hospedeira.get());
    gis->resize(50, 40);
    gis->Desenhar();
    EXPECT_EQ(hospedeira->AreaTela(), TRect(0, 0, 50, 40));
    gis->AtribuirProjecao(nullptr);
    EXPECT_EQ(gis->Projecao(), padrao);
    gis->AtribuirProjecao(hospedeira.get());
    delete gis; // a do hospedeiro continua viva (o ASan veria o contrário)
    hospedeira->DoAtribuirZoom(2.0);

    TGis vazio; // sem tamanho: buffer nulo, nenhum erro
    vazio.resize(0, 0);
    vazio.Desenhar();
    EXPECT_TRUE(vazio.Buffer().isNull());
}
