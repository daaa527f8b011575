// Trajetórias: vértices travados diante da edição, do encaixe num retângulo e do recentrar; os
// campos dos vértices; o desenho com os rótulos pendurados; o diálogo de pontos.

#include "CanvasGravador.h"

#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

std::vector<TGISPosicao> Absolutas(const TGISTrajeto &t)
{
    std::vector<TGISPosicao> v;
    for (int i = 0; i < t.Pontos().Count(); ++i)
        v.push_back(t.ObterGISPosicao(i));
    return v;
}

void Inserir(TGISTrajeto &t, std::initializer_list<TGISPosicao> posicoes)
{
    for (const TGISPosicao &p : posicoes)
        t.InserirPosicao(t.Pontos().Count(), p);
    t.CalcularLimites();
}

} // namespace

TEST(TGISTrajeto, TravadoNaoMudaPelaEdicaoNemPeloEncaixeMasMudaDeReferencial)
{
    TGISTrajeto t;
    Inserir(t, {GISPosicao(0, 0), GISPosicao(100, 100), GISPosicao(200, 400)});
    t.ObterPonto(1)->AtribuirFixo(true);
    t.AtribuirGISPosicao(1, GISPosicao(50, 50)); // sem efeito e sem aviso
    EXPECT_EQ(t.ObterGISPosicao(1), GISPosicao(100, 100));
    auto *novo = new TGISPontoTrajeto;
    EXPECT_FALSE(t.AtribuirPonto(1, novo)); // recusado: continua de quem chamou
    delete novo;

    // Metade do tamanho, centro em (1000, 2000): só os soltos vão.
    t.AjustarAoRetangulo(GISRet(950, 1900, 1050, 2100));
    EXPECT_EQ(Absolutas(t), (std::vector<TGISPosicao>{{950, 1900}, {100, 100}, {1050, 2100}}));

    t.CalcularLimites();
    t.AjustarCentro();
    EXPECT_EQ(t.Posicao(), GISPosicao(575, 1100));
    EXPECT_EQ(Absolutas(t), (std::vector<TGISPosicao>{{950, 1900}, {100, 100}, {1050, 2100}}));
    EXPECT_EQ(t.ObterPonto(1)->Posicao(), GISPosicao(-475, -1000)); // o travado também
    t.AtribuirPosicao(GISPosicao(0, 0));
    EXPECT_EQ(t.ObterGISPosicao(1), GISPosicao(-475, -1000));

    TGISTrajeto reto; // vão nulo: falha ao mover um vértice solto
    Inserir(reto, {GISPosicao(0, 0), GISPosicao(0, 100)});
    EXPECT_THROW(reto.AjustarAoRetangulo(GISRet(0, 0, 10, 10)), EZeroDivide);
}

TEST(TGISTrajeto, CamposDosVerticesSemRepetirNaOrdemEmQueAparecem)
{
    TGISPontosTrajeto pontos;
    for (const QStringList &nomes : {QStringList{"A", "B"}, QStringList{"B", "C"}}) {
        pontos.Add(new TGISPontoTrajeto);
        for (const QString &nome : nomes)
            pontos.Last()->Informacoes().AtribuirCampo(nome, QStringLiteral("1"));
    }
    TStringList lista;
    lista.AtribuirTextos({"Z", "B"});
    pontos.ObterCampos(lista);
    EXPECT_EQ(lista.Textos(), QStringList({"Z", "B", "A", "C"}));
}

TEST(TGISTrajeto, RotulosDosTravadosPenduradosAbaixoCentrados)
{
    TProjecaoUmPorUm projecao;
    TGISTrajeto t;
    Inserir(t, {GISPosicao(0, -300), GISPosicao(100, 0), GISPosicao(0, 300), GISPosicao(1, 301)});
    t.ObterPonto(0)->AtribuirRotulo(QStringLiteral("solto")); // solto: sem rótulo
    t.ObterPonto(1)->AtribuirFixo(true);
    t.ObterPonto(1)->AtribuirRotulo(QStringLiteral("Boia 7"));
    t.ObterPonto(2)->AtribuirFixo(true); // travado sem rótulo
    t.ObterPonto(3)->AtribuirFixo(true);
    t.ObterPonto(3)->AtribuirRotulo(QStringLiteral("Fim")); // vértice desbastado da linha

    TCanvasGravador canvas;
    canvas.SetTextAlign(TA_CENTER | TA_BASELINE);
    t.Desenhar(canvas, projecao, false);
    ASSERT_EQ(canvas.Nomes(), QStringList({"Polyline", "TextOut", "TextOut"}));
    EXPECT_EQ(canvas.Chamadas[0].Pontos, (std::vector<TPoint>{{200, 500}, {500, 400}, {800, 500}}));
    EXPECT_EQ(canvas.Chamadas[1].Pontos[0], TPoint(500 - canvas.TextWidth(QStringLiteral("Boia 7")) / 2, 400));
    EXPECT_EQ(canvas.Chamadas[1].Alinhamento, unsigned(TA_LEFT | TA_TOP));
    EXPECT_EQ(canvas.Chamadas[2].Pontos[0], TPoint(801 - canvas.TextWidth(QStringLiteral("Fim")) / 2, 499));
    EXPECT_EQ(canvas.TextAlign(), unsigned(TA_CENTER | TA_BASELINE));
    EXPECT_TRUE(t.Pertence(projecao, TPoint(350, 452)));
    EXPECT_FALSE(t.Pertence(projecao, TPoint(350, 500)));
    EXPECT_FALSE(TGISTrajeto().Pertence(projecao, TPoint(500, 500)));
}

TEST(TGISTrajeto, DialogoDePontosEsvaziaAntesEZeroDesiste)
{
    TProjecaoUmPorUm projecao;
    TRoteiro roteiro{"0", "9"};
    TGISTrajeto t;
    Inserir(t, {GISPosicao(7, 7)});
    EXPECT_FALSE(t.ConfiguracaoPadrao(projecao, TPoint(500, 500)));
    EXPECT_EQ(t.Pontos().Count(), 1);
    EXPECT_TRUE(t.ConfiguracaoPadrao(projecao, TPoint(500, 500)));
    ASSERT_EQ(t.Pontos().Count(), 9);
    EXPECT_EQ(t.ObterGISPosicao(0), GISPosicao(0, -40));
    EXPECT_EQ(t.ObterGISPosicao(1), GISPosicao(-17, -30)); // senoide de 20 pixels
    EXPECT_EQ(t.Limites(), GISRet(-17, -40, 17, 40));
}
