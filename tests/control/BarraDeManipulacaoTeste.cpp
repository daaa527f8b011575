// Barra de manipulação: botões e bitmaps, cliques nos botões e a máquina de estados com o mouse de
// verdade (retângulo, deslocamento, zoom por clique, conjuntos de estado comparados por igualdade).

#include "AuxiliaresControle.h"

#include <tavru/control/TGISBarraDeManipulacao.h>

#include <QCursor>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

class BarraDeManipulacao : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 200);
        gis.AtribuirColor(clWhite);
        NovaCamada(gis, "c").Objetos().Add(new TObjetoRet(Graus(-9, -18, 9, 18)));
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        barra.AtribuirGis(&gis);
        gis.Desenhar();
        desenhos = gis.Desenhos;
    }
    void Clicar(int botao) { QTest::mouseClick(barra.ObterBotao(botao), Qt::LeftButton); }
    bool Abaixado(int botao) const { return barra.ObterBotao(botao)->Down(); }
    int NovosDesenhos() const { return gis.Desenhos - desenhos; }
    TGISProjecao &Projecao() { return *gis.Projecao(); }
    void Apertar(Qt::MouseButton b, QPoint p) { QTest::mousePress(&gis, b, Qt::NoModifier, p); }
    void Soltar(Qt::MouseButton b, QPoint p) { QTest::mouseRelease(&gis, b, Qt::NoModifier, p); }
    void Arrastar(QPoint de, QPoint ate)
    {
        Apertar(Qt::LeftButton, de);
        QTest::mouseMove(&gis, ate);
        Soltar(Qt::LeftButton, ate);
    }

    TGisContador gis;
    TGISBarraDeManipulacao barra;
    int desenhos = 0;
};

} // namespace

TEST_F(BarraDeManipulacao, BotoesEEstados)
{
    const char *dicas[] = {"Ajustar a Janela", "Mover", "Ampliar uma Área", "Ampliar", "Reduzir"};
    ASSERT_EQ(barra.Botoes().Count(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(barra.ObterBotao(i)->Hint(), QString::fromUtf8(dicas[i]));
        EXPECT_EQ(barra.ObterBotao(i)->GroupIndex(), 1);
    }
    EXPECT_EQ(gis.MouseEvents(), (std::vector<IGISMouseEvent *>{&barra}));

    // Mover clicado de novo levanta: nenhuma ferramenta. Só o último botão fica abaixado.
    for (auto [botao, estado] : {std::pair{btnAmpliar, meAmpliar}, {btnMover, mePreMover}, {btnMover, meSemAcao},
                                 {btnAmpliarArea, mePreZoomRet}, {btnReduzir, meReduzir}}) {
        Clicar(botao);
        EXPECT_EQ(barra.Estado(), estado) << int(botao);
    }
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Abaixado(i), i == btnReduzir) << i;
    // Ajustar: ajusta na hora, nunca fica abaixado e leva a nenhuma ferramenta.
    Clicar(btnAjustar);
    EXPECT_EQ(barra.Estado(), meSemAcao);
    EXPECT_EQ(NovosDesenhos(), 1);
    EXPECT_GT(Projecao().Zoom(), 5.0);
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(Abaixado(i)) << i;

    // AtribuirEstado abaixa o botão do estado; meSemAcao não abaixa nem levanta nenhum.
    barra.AtribuirEstado(meAmpliar);
    barra.AtribuirEstado(meZoomRet);
    EXPECT_TRUE(Abaixado(btnAmpliarArea));
    EXPECT_FALSE(Abaixado(btnAmpliar));
    barra.AtribuirEstado(meSemAcao);
    EXPECT_TRUE(Abaixado(btnAmpliarArea));

    // Sem controle, o botão clicado fica abaixado e o estado não muda.
    TGISBarraDeManipulacao solta;
    QTest::mouseClick(solta.ObterBotao(btnAjustar), Qt::LeftButton);
    EXPECT_EQ(solta.Estado(), meSemAcao);
    EXPECT_TRUE(solta.ObterBotao(btnAjustar)->Down());
}

TEST_F(BarraDeManipulacao, RetanguloComElasticoInvertidoAmpliaSoAcimaDeDezPixels)
{
    Clicar(btnAmpliarArea);
    const QImage mapa = gis.Buffer().copy();
    auto tela = [&](int x, int y) { return gis.ImagemTela().pixel(x, y) & 0xFFFFFF; };
    auto original = [&](int x, int y) { return mapa.pixel(x, y) & 0xFFFFFF; };
    Apertar(Qt::LeftButton, QPoint(100, 50));
    QTest::mouseMove(&gis, QPoint(120, 70));
    EXPECT_EQ(tela(110, 60), ~original(110, 60) & 0xFFFFFF);
    EXPECT_EQ(tela(125, 75), original(125, 75));
    QTest::mouseMove(&gis, QPoint(111, 60)); // o elástico anterior é apagado
    EXPECT_EQ(tela(115, 65), original(115, 65));
    EXPECT_EQ(tela(105, 55), ~original(105, 55) & 0xFFFFFF);
    EXPECT_EQ(gis.Buffer(), mapa); // o mapa não é redesenhado pelo elástico
    EXPECT_EQ(NovosDesenhos(), 0);
    Soltar(Qt::LeftButton, QPoint(111, 60)); // 11 x 10: não amplia, mas redesenha
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), 1.0);
    EXPECT_EQ(NovosDesenhos(), 1);
    EXPECT_EQ(gis.ImagemTela(), gis.Buffer());
    EXPECT_EQ(barra.Estado(), mePreZoomRet);

    const TGISPosicao a = Projecao().TelaParaMundo(TPoint(100, 50));
    const TGISPosicao b = Projecao().TelaParaMundo(TPoint(111, 61));
    Arrastar(QPoint(100, 50), QPoint(111, 61)); // 11 x 11
    EXPECT_GT(Projecao().Zoom(), 10.0);
    EXPECT_NEAR(Projecao().Centro().Latitude, (a.Latitude + b.Latitude) / 2, 2);
    EXPECT_NEAR(Projecao().Centro().Longitude, (a.Longitude + b.Longitude) / 2, 2);
    EXPECT_EQ(barra.Estado(), mePreZoomRet);
}

TEST_F(BarraDeManipulacao, ConjuntosDeEstadoComparadosPorIgualdade)
{
    auto comeca = [&](TShiftState shift) {
        barra.GISMouseDown(TPoint(10, 10), mbLeft, shift);
        const TBarraManipulacaoEstado estado = barra.Estado();
        barra.GISMouseUp(TPoint(10, 10), mbLeft, 0);
        return estado;
    };
    EXPECT_EQ(comeca(Shift(ssCtrl)), meZoomRet);
    EXPECT_EQ(comeca(Shift(ssCtrl) | Shift(ssLeft)), meSemAcao);
    EXPECT_EQ(comeca(Shift(ssCtrl) | Shift(ssShift)), meSemAcao);
    EXPECT_EQ(comeca(Shift(ssLeft) | Shift(ssRight)), meZoomRet);
    EXPECT_EQ(comeca(Shift(ssLeft) | Shift(ssRight) | Shift(ssAlt)), meSemAcao);
    // Com o mouse de verdade, ctrl com o esquerdo chega como {ctrl, esquerdo}: não há retângulo.
    QTest::mousePress(&gis, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 10));
    EXPECT_EQ(barra.Estado(), meSemAcao);
    QTest::mouseRelease(&gis, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 10));
}

TEST_F(BarraDeManipulacao, BotaoDoMeioEDireitoEmCadaEstado)
{
    for (int botao : {-1, int(btnAmpliarArea), int(btnMover)}) {
        if (botao >= 0)
            Clicar(botao);
        const TBarraManipulacaoEstado antes = barra.Estado();
        Apertar(Qt::MiddleButton, QPoint(40, 40));
        EXPECT_EQ(barra.Estado(), meZoomRet) << antes;
        Soltar(Qt::MiddleButton, QPoint(40, 40));
        EXPECT_EQ(barra.Estado(), antes);
    }
    // Nas ferramentas de zoom só o direito passa: o do meio é ignorado, o direito desloca e, ao
    // soltar, a ferramenta volta.
    for (int botao : {int(btnAmpliar), int(btnReduzir)}) {
        Clicar(botao);
        const TBarraManipulacaoEstado ferramenta = barra.Estado();
        const TPoint pressionado = barra.PontoPressionado();
        Apertar(Qt::MiddleButton, QPoint(61, 61));
        EXPECT_EQ(barra.Estado(), ferramenta);
        EXPECT_EQ(barra.PontoPressionado(), pressionado);
        Soltar(Qt::MiddleButton, QPoint(61, 61));
        Apertar(Qt::RightButton, QPoint(60, 60));
        EXPECT_EQ(barra.Estado(), meMover);
        Soltar(Qt::RightButton, QPoint(60, 60));
        EXPECT_EQ(barra.Estado(), ferramenta);
        EXPECT_TRUE(Abaixado(botao));
    }
}

TEST_F(BarraDeManipulacao, DeslocamentoSegueOMouseEZoomPorClique)
{
    Clicar(btnMover);
    const TGISPosicao agarrado = Projecao().TelaParaMundo(TPoint(100, 100));
    Apertar(Qt::LeftButton, QPoint(100, 100));
    QTest::mouseMove(&gis, QPoint(130, 90));
    QTest::mouseMove(&gis, QPoint(160, 75));
    EXPECT_EQ(NovosDesenhos(), 2); // um redesenho por movimento
    Soltar(Qt::LeftButton, QPoint(160, 75));
    EXPECT_EQ(NovosDesenhos(), 2);
    EXPECT_EQ(barra.Estado(), mePreMover);
    EXPECT_EQ(Projecao().MundoParaTela(agarrado), TPoint(160, 75)); // sob o mouse

    // Ampliar e reduzir: centra no ponto do cursor e multiplica o zoom por 1.2 e 0.8.
    Clicar(btnAmpliar);
    const QPoint p(300, 40);
    const TGISPosicao alvo = Projecao().TelaParaMundo(TPoint(p.x(), p.y()));
    const double zoom = Projecao().Zoom();
    QCursor::setPos(gis.mapToGlobal(p));
    QTest::mouseClick(&gis, Qt::LeftButton, Qt::NoModifier, p);
    EXPECT_EQ(Projecao().Centro(), alvo);
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), static_cast<double>(1.2L * zoom));
    Clicar(btnReduzir);
    QTest::mouseClick(&gis, Qt::LeftButton, Qt::NoModifier, p);
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), static_cast<double>(0.8L * static_cast<long double>(1.2L * zoom)));
    Clicar(btnReduzir); // sem ferramenta, o clique não mexe na visão
    const double depois = Projecao().Zoom();
    QTest::mouseClick(&gis, Qt::LeftButton, Qt::NoModifier, p);
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), depois);

    // Arrastar sempre para o mesmo lado leva o centro ao fim da faixa de 32 bits, sem estourar.
    Clicar(btnMover);
    gis.Visao(GISPosicao(0, INT32_MAX - 1000), 0.1); // 10 pixels são 324000 segundos de arco
    Arrastar(QPoint(200, 100), QPoint(190, 100));
    EXPECT_EQ(Projecao().Centro().Longitude, INT32_MAX);
}

TEST(BarraDeManipulacaoVida, RegistroTrocaEDestruicaoEmQualquerOrdem)
{
    auto *primeiro = new TGis;
    TGis segundo;
    auto *barra = new TGISBarraDeManipulacao;
    barra->AtribuirGis(primeiro);
    barra->AtribuirGis(&segundo);
    EXPECT_TRUE(primeiro->MouseEvents().empty());
    delete barra;
    EXPECT_TRUE(segundo.MouseEvents().empty());

    barra = new TGISBarraDeManipulacao;
    barra->AtribuirGis(primeiro);
    delete primeiro; // o controle morre antes: a barra o esquece
    EXPECT_EQ(barra->GIS(), nullptr);
    delete barra;
    auto *pai = new TGis; // a barra filha do controle morre com ele
    (new TGISBarraDeManipulacao(pai))->AtribuirGis(pai);
    delete pai;
}
