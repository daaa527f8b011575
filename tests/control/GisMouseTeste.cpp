// O controle entrega o mouse às ferramentas: eventos de verdade do Qt (QTest), o clique montado
// como na plataforma, o clique duplo, a saída, o registro das ferramentas e a consulta dos objetos
// sob um ponto.

#include "AuxiliaresControle.h"

#include <tavru/platform/TStringList.h>

#include <QCursor>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

constexpr int S_CTRL = 1 << ssCtrl;
constexpr int S_ESQ = 1 << ssLeft;

class GisMouse : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 200);
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        gis.RegistrarMouseEvent(&ferramenta);
    }
    /// Põe o cursor do sistema no ponto do controle e esquece o que isso gerou.
    void Cursor(const QPoint &p)
    {
        QCursor::setPos(gis.mapToGlobal(p));
        QCoreApplication::processEvents();
        ferramenta.Chamadas.clear();
    }
    QString Botao(const char *o, int x, int y, int b, int s) { return QStringLiteral("%1 %2,%3 b%4 s%5").arg(o).arg(x).arg(y).arg(b).arg(s); }

    TGis gis;
    TFerramentaGravadora ferramenta;
};

} // namespace

TEST_F(GisMouse, ApertarMoverSoltarClicarEClicarDuas)
{
    Cursor(QPoint(33, 44));
    QTest::mousePress(&gis, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 20));
    QTest::mouseMove(&gis, QPoint(30, 40));
    QTest::mouseRelease(&gis, Qt::LeftButton, Qt::ControlModifier, QPoint(30, 40));
    // O clique vem com a posição do cursor do sistema e antes do soltar, como na plataforma.
    EXPECT_EQ(ferramenta.SemPinturas(), QStringList({Botao("down", 10, 20, mbLeft, S_CTRL | S_ESQ), "move 30,40",
                                                     "click 33,44", Botao("up", 30, 40, mbLeft, S_CTRL)}));

    // O segundo clique chega como o Qt o entrega (aperto, clique duplo, soltar): o clique duplo
    // leva um ponto não definido e o soltar dele não é clique.
    Cursor(QPoint(50, 60));
    QTest::mousePress(&gis, Qt::LeftButton, Qt::NoModifier, QPoint(50, 60));
    QTest::mouseDClick(&gis, Qt::LeftButton, Qt::NoModifier, QPoint(50, 60));
    QTest::mouseRelease(&gis, Qt::LeftButton, Qt::NoModifier, QPoint(50, 60));
    EXPECT_EQ(ferramenta.SemPinturas(), QStringList({Botao("down", 50, 60, mbLeft, S_ESQ), "dblclick 0,0",
                                                     Botao("up", 50, 60, mbLeft, 0)}));

    // Outros botões, ou o esquerdo solto fora do controle, não clicam.
    ferramenta.Chamadas.clear();
    QTest::mouseClick(&gis, Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseClick(&gis, Qt::MiddleButton, Qt::ShiftModifier, QPoint(6, 6));
    QTest::mousePress(&gis, Qt::LeftButton, Qt::NoModifier, QPoint(7, 7));
    QTest::mouseRelease(&gis, Qt::LeftButton, Qt::NoModifier, QPoint(450, 7));
    EXPECT_EQ(ferramenta.SemPinturas(),
              QStringList({Botao("down", 5, 5, mbRight, 1 << ssRight), Botao("up", 5, 5, mbRight, 0),
                           Botao("down", 6, 6, mbMiddle, (1 << ssShift) | (1 << ssMiddle)),
                           Botao("up", 6, 6, mbMiddle, 1 << ssShift), Botao("down", 7, 7, mbLeft, S_ESQ),
                           Botao("up", 450, 7, mbLeft, 0)}));

    // Sem botão o movimento também chega (o controle acompanha o mouse); e a saída.
    ferramenta.Chamadas.clear();
    QTest::mouseMove(&gis, QPoint(70, 80));
    QEvent saida(QEvent::Leave);
    QCoreApplication::sendEvent(&gis, &saida);
    EXPECT_EQ(ferramenta.Chamadas, QStringList({"move 70,80", "leave"}));
}

TEST_F(GisMouse, RegistroDasFerramentas)
{
    struct TRemovedora : TFerramentaGravadora
    {
        std::function<void()> AoPintar;
        void GISPaint() override { TFerramentaGravadora::GISPaint(), AoPintar(); }
    };
    struct TFerramentaQObject : QObject, TFerramentaGravadora
    {
    };
    TRemovedora removedora;
    TFerramentaGravadora vitima;
    removedora.AoPintar = [&] { gis.RemoverRegistroMouseEvent(&vitima); };
    auto *ferramentaQt = new TFerramentaQObject;
    const std::vector<IGISMouseEvent *> todas{&ferramenta, &removedora, &vitima, ferramentaQt};
    for (IGISMouseEvent *f : todas)
        gis.RegistrarMouseEvent(f); // a primeira já estava registrada: não repete
    EXPECT_EQ(gis.MouseEvents(), todas);

    // Uma ferramenta tirada durante o aviso não é chamada depois; uma QObject destruída é esquecida.
    ferramenta.Chamadas.clear();
    gis.Desenhar();
    EXPECT_EQ(ferramenta.Chamadas, QStringList({"paint"}));
    EXPECT_TRUE(vitima.Chamadas.isEmpty());
    EXPECT_EQ(ferramentaQt->Chamadas, QStringList({"paint"}));
    delete ferramentaQt;
    gis.RemoverRegistroMouseEvent(&removedora);
    gis.RemoverRegistroMouseEvent(&removedora);
    EXPECT_EQ(gis.MouseEvents(), (std::vector<IGISMouseEvent *>{&ferramenta}));
    gis.Desenhar();
    EXPECT_EQ(ferramenta.Chamadas.size(), 2);
}

TEST_F(GisMouse, ObjetosSobOPonto)
{
    // Com zoom 1, a posição (0, 0) cai no pixel (200, 100) e cada pixel tem 0,9 grau.
    gis.Rotulos().Add("Nome");
    auto objeto = [&](TGISCamada &c, const char *nome) { return Incluir(c, Graus(-9, -9, 9, 9), nome); };
    objeto(NovaCamada(gis, "fundo", gtcPanoDeFundo), "Fundo");
    TGISCamada &baixo = NovaCamada(gis, "baixo");
    TObjetoRet *b1 = objeto(baixo, "B1");
    baixo.Objetos().Add(nullptr);
    TObjetoRet *b2 = objeto(baixo, "B2");
    TGISCamada &cima = NovaCamada(gis, "cima", gtcEditavel);
    TObjetoRet *c1 = objeto(cima, "C1");
    objeto(cima, "")->Informacoes().AtribuirCampo("Outro", "sem rótulo");
    objeto(cima, "NaoAcerta")->FAcertavel = false;
    objeto(NovaCamada(gis, "escondida"), "Escondida");
    gis.ObterCamada("escondida")->AtribuirVisivel(false);
    TGISCamada &distante = NovaCamada(gis, "distante");
    objeto(distante, "Distante");
    distante.AtribuirZoomMinimo(1.5);
    // Uma extensão de largura zero ganha ErroTelaPonto x Zoom / 2 de margem (2,5 dá 2).
    TObjetoRet *pontual = Incluir(NovaCamada(gis, "pontual"), GISRet(0, 3240 * 50, 0, 3240 * 50), "P");
    gis.Desenhar();

    TStringList lista;
    lista.Add("antigo");
    gis.ObterListaDeObjetos(TPoint(200, 100), lista);
    EXPECT_EQ(lista.Textos(), QStringList({"C1", "B2", "B1"}));
    EXPECT_EQ(lista.Objects(0), c1);
    EXPECT_EQ(lista.Objects(1), b2);
    EXPECT_EQ(lista.Objects(2), b1);
    EXPECT_EQ(gis.ObterObjeto(TPoint(200, 100)), c1);
    EXPECT_EQ(gis.ObterObjeto(TPoint(20, 20)), nullptr);
    EXPECT_EQ(gis.ObterObjeto(TPoint(200, 92)), c1); // junto da borda de cima (a margem não encolhe)

    // A margem decide quem chega a `Pertence`: 2 pixels em volta do ponto.
    pontual->FAcertaTudo = true;
    EXPECT_EQ(gis.ObterObjeto(TPoint(252, 98)), pontual);
    EXPECT_EQ(gis.ObterObjeto(TPoint(253, 100)), nullptr);
    gis.Visao(GISPosicao(0, 0), 1.5); // no limite da camada distante, ela entra por cima
    EXPECT_EQ(gis.ObterObjeto(TPoint(200, 100))->Informacoes().ObterValor("Nome"), QStringLiteral("Distante"));
}
