// Barra de ferramentas base: botões rápidos com grupo, estado abaixado e "todos levantados", os
// espaços vazios da lista e o clique entregue com o índice do botão já no estado novo.

#include <tavru/companions/components/TCustomBarraDeFerramentas.h>
#include <tavru/platform/Exception.h>

#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;

namespace {

/// Barra de três botões e um espaço que anota cada clique como "índice:abaixado".
class TBarraGravadora : public TCustomBarraDeFerramentas
{
public:
    TBarraGravadora()
    {
        QImage bitmap(24, 24, QImage::Format_ARGB32);
        bitmap.fill(Qt::red);
        for (const char *dica : {"Um", "", "Dois", "Três"})
            Botoes().Add(QString::fromUtf8(dica), bitmap);
    }
    void DoClicar(int indice) override
    {
        Cliques.append(QStringLiteral("%1:%2").arg(indice).arg(ObterBotao(indice)->Down()));
    }
    QStringList Cliques;
};

} // namespace

TEST(TListaBotoes, PosicoesEspacosEGrupos)
{
    TBarraGravadora barra;
    ASSERT_EQ(barra.Botoes().Count(), 4);
    EXPECT_EQ(barra.ObterBotao(1), nullptr); // o espaço vazio conta no índice
    EXPECT_EQ(barra.ObterBotao(2)->Hint(), QStringLiteral("Dois"));
    EXPECT_FALSE(barra.ObterBotao(0)->icon().isNull());
    EXPECT_THROW(barra.ObterBotao(4), EListError);
    barra.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&barra));
    EXPECT_GE(barra.ObterBotao(2)->x() - barra.ObterBotao(0)->geometry().right(), TListaBotoes::LarguraEspaco);

    // Grupo padrão: um abaixado por vez, e um segundo clique levanta (todos levantados).
    TBotaoRapido *um = barra.ObterBotao(0);
    TBotaoRapido *dois = barra.ObterBotao(2);
    TBotaoRapido *tres = barra.ObterBotao(3);
    QTest::mouseClick(um, Qt::LeftButton);
    QTest::mouseClick(dois, Qt::LeftButton);
    EXPECT_FALSE(um->Down());
    QTest::mouseClick(dois, Qt::LeftButton);
    EXPECT_FALSE(dois->Down());
    EXPECT_EQ(barra.Cliques, QStringList({"0:1", "2:1", "2:0"}));
    dois->SetAllowAllUp(false); // sem "todos levantados" o abaixado continua abaixado
    QTest::mouseClick(dois, Qt::LeftButton);
    QTest::mouseClick(dois, Qt::LeftButton);
    EXPECT_TRUE(dois->Down());

    // Outro grupo não é afetado; abaixar por código levanta os do grupo; o grupo 0 nunca fica.
    tres->SetGroupIndex(7);
    tres->SetDown(true);
    um->SetDown(true);
    EXPECT_FALSE(dois->Down());
    EXPECT_TRUE(tres->Down());
    um->SetGroupIndex(0);
    EXPECT_FALSE(um->Down());
    QTest::mouseClick(um, Qt::LeftButton);
    EXPECT_FALSE(um->Down());
    EXPECT_EQ(barra.Cliques.last(), QStringLiteral("0:0"));
}
