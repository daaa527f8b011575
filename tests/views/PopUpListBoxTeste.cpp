// A lista instantânea dos objetos sob um clique: aparece com um ou mais objetos rotulados (o de
// cima primeiro) e nunca sem nenhum; escolher seleciona e avisa, mesmo com a seleção recusada; o
// registro no mapa segue o mapa atribuído e a vida dos dois.

#include "control/AuxiliaresControle.h"

#include <tavru/views/GisPopUpListBox.h>

#include <QCursor>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

const TClasseObjeto TObjetoRet::Descritor = TClasseObjeto::De<TObjetoRet>("TObjetoRet");

namespace {

class PopUpListBox : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 300);
        TGISCamada &baixo = NovaCamada(gis, "baixo");
        baixo.Objetos().Add(new TObjetoRet(Graus(-30, -70, 0, -30), nullptr, "A"));
        baixo.Objetos().Add(new TObjetoRet(Graus(-20, -60, -10, -40), nullptr, "B"));
        baixo.Objetos().Add(new TObjetoRet(Graus(-20, -60, -10, -40))); // sem rótulo: nunca aparece
        NovaCamada(gis, "cima").Objetos().Add(new TObjetoRet(Graus(-16, -52, -14, -48), nullptr, "C"));
        NovaCamada(gis, "fundo", gtcPanoDeFundo).Objetos().Add(new TObjetoRet(Graus(-40, -80, 10, -20), nullptr, "F"));
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        gis.Zerado();
        gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), 5.0); // a tela vai de 86° W a 14° W
        lista.AtribuirGis(&gis);
        lista.OnClickObjeto = [this](QObject *sender, TGISObjeto *o) {
            EXPECT_EQ(sender, &lista);
            avisados << o;
        };
    }
    QPoint Pixel(double lat, double lon)
    {
        const TPoint p = gis.Projecao()->MundoParaTela(GISPosicao(std::int32_t(lat * 3600), std::int32_t(lon * 3600)));
        return QPoint(p.X, p.Y);
    }
    /// Um clique no mapa; a lista aberta antes é fechada (como faz o clique fora dela).
    void Clicar(QPoint p)
    {
        lista.hide();
        QCursor::setPos(gis.mapToGlobal(p));
        QTest::mouseClick(&gis, Qt::LeftButton, Qt::NoModifier, p);
    }
    TGISObjeto *Objeto(const char *camada, int i) { return gis.ObterCamada(camada)->Objetos().Items(i); }

    TGis gis;
    TGisPopUpListBox lista;
    QList<TGISObjeto *> avisados;
};

} // namespace

TEST_F(PopUpListBox, ApareceComUmOuMaisObjetosENuncaSemNenhum)
{
    EXPECT_EQ(gis.MouseEvents(), (std::vector<IGISMouseEvent *>{&lista}));
    Clicar(Pixel(-25, -65)); // só A
    EXPECT_TRUE(lista.isVisible());
    EXPECT_EQ(lista.Items().Textos(), QStringList({"A"}));
    EXPECT_EQ(lista.count(), 1);
    EXPECT_EQ(gis.ObjetoSelecionado(), nullptr); // nada selecionado antes da escolha

    Clicar(Pixel(-15, -50)); // C em cima, depois B e A (o último da camada primeiro)
    EXPECT_TRUE(lista.isVisible());
    EXPECT_EQ(lista.Items().Textos(), QStringList({"C", "B", "A"}));
    EXPECT_EQ(lista.geometry().topLeft(), gis.mapToGlobal(Pixel(-15, -50)));
    EXPECT_EQ(lista.ItemIndex(), -1);

    // Fora de tudo que tem rótulo (o fundo não conta): a lista se esvazia e não aparece.
    Clicar(Pixel(5, -25));
    EXPECT_FALSE(lista.isVisible());
    EXPECT_EQ(lista.Items().Count(), 0);
    EXPECT_TRUE(avisados.isEmpty());
}

TEST_F(PopUpListBox, EscolherSelecionaEAvisaMesmoComASelecaoRecusada)
{
    Clicar(Pixel(-15, -50));
    // Um clique de verdade no segundo item.
    QTest::mouseClick(lista.viewport(), Qt::LeftButton, Qt::NoModifier, lista.visualItemRect(lista.item(1)).center());
    EXPECT_FALSE(lista.isVisible());
    EXPECT_EQ(lista.ItemIndex(), 1);
    EXPECT_EQ(gis.ObjetoSelecionado(), Objeto("baixo", 1));
    EXPECT_EQ(avisados, QList<TGISObjeto *>({Objeto("baixo", 1)}));

    // Recusada pelo hospedeiro: a seleção fica, o aviso vem com o objeto escolhido.
    gis.OnMudaObjetoSelecionado = [](QObject *, TGISObjeto *, bool &podeMudar) { podeMudar = false; };
    Clicar(Pixel(-15, -50));
    lista.setCurrentRow(0);
    QTest::keyClick(&lista, Qt::Key_Return);
    EXPECT_EQ(gis.ObjetoSelecionado(), Objeto("baixo", 1));
    EXPECT_EQ(avisados, QList<TGISObjeto *>({Objeto("baixo", 1), Objeto("cima", 0)}));

    // Esc fecha sem escolher.
    Clicar(Pixel(-15, -50));
    QTest::keyClick(&lista, Qt::Key_Escape);
    EXPECT_FALSE(lista.isVisible());
    EXPECT_EQ(lista.ItemIndex(), -1);
    EXPECT_EQ(avisados.size(), 2);

    // Um objeto tirado do mapa depois do clique é ignorado, em vez de usado depois de liberado.
    gis.OnMudaObjetoSelecionado = nullptr;
    Clicar(Pixel(-15, -50));
    gis.SelecionarObjeto(nullptr);
    gis.ObterCamada("cima")->Objetos().Delete(0);
    lista.Escolher(0);
    EXPECT_EQ(gis.ObjetoSelecionado(), nullptr);
    EXPECT_EQ(avisados.size(), 2);
    EXPECT_THROW(lista.Escolher(7), EListError);
}

TEST_F(PopUpListBox, RegistroSegueOMapaEAVidaDosDois)
{
    {
        TGis outro;
        lista.AtribuirGis(&outro);
        EXPECT_TRUE(gis.MouseEvents().empty());
        EXPECT_EQ(outro.MouseEvents(), (std::vector<IGISMouseEvent *>{&lista}));
    }
    EXPECT_EQ(lista.GIS(), nullptr); // o mapa destruído é esquecido
    Clicar(Pixel(-15, -50));
    EXPECT_FALSE(lista.isVisible());
    {
        TGisPopUpListBox outra;
        outra.AtribuirGis(&gis);
        EXPECT_EQ(gis.MouseEvents().size(), 1u);
    }
    EXPECT_TRUE(gis.MouseEvents().empty()); // a lista destruída tirou o registro
}
