// Barra geral: a tabela de dez lugares com os grupos, os bitmaps das barras (1x e 2x) e o único
// botão que age, o da fonte dos rótulos.

#include "AuxiliaresControle.h"

#include <tavru/control/TGISBarraDeFerramenta.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

TEST(BarraDeFerramenta, LugaresDicasGruposEBitmaps)
{
    TGISBarraDeFerramenta barra;
    const char *dicas[10] = {"Interrogar", "Editar", nullptr, "Visualizar", "Ajustar a Janela", "Ampliar uma Área",
                             "Ampliar", "Reduzir", "Altera Cor de Fundo", "Alterar a Fonte"};
    const int grupos[10] = {1, 1, -1, TListaBotoes::GrupoPadrao, 0, TListaBotoes::GrupoPadrao,
                            TListaBotoes::GrupoPadrao, TListaBotoes::GrupoPadrao, 0, 0};
    ASSERT_EQ(barra.Botoes().Count(), 10);
    for (int i = 0; i < 10; ++i) {
        TBotaoRapido *b = barra.ObterBotao(i);
        if (!dicas[i]) {
            EXPECT_EQ(b, nullptr);
            continue;
        }
        ASSERT_NE(b, nullptr) << i;
        EXPECT_EQ(b->Hint(), QString::fromUtf8(dicas[i]));
        EXPECT_EQ(b->GroupIndex(), grupos[i]) << i;
        EXPECT_FALSE(b->icon().isNull()) << i;
    }
    // Todos os bitmaps das barras, em 24 x 24 e na versão de dobro.
    for (const char *nome : {"BMP_INTERROGAR", "BMP_EDITAR", "BMP_VISUALIZAR", "BMP_AJUSTARZOOM", "BMP_ZOOMRET",
                             "BMP_AMPLIAR", "BMP_REDUZIR", "BMP_COR", "BMP_FONTE", "BMP_MOVER", "BMP_PONTO",
                             "BMP_LINHA", "BMP_AREA", "BMP_AREA_CIRCULAR", "BMP_IMAGEM"}) {
        const QString recurso = QStringLiteral(":/") + nome;
        EXPECT_EQ(QImage(recurso).size(), QSize(24, 24)) << nome;
        EXPECT_EQ(QImage(recurso + "@2x").size(), QSize(48, 48)) << nome;
    }

    // Grupo 1: Interrogar e Editar se excluem; o grupo 0 nunca fica abaixado.
    QTest::mouseClick(barra.ObterBotao(0), Qt::LeftButton);
    QTest::mouseClick(barra.ObterBotao(1), Qt::LeftButton);
    EXPECT_FALSE(barra.ObterBotao(0)->Down());
    EXPECT_TRUE(barra.ObterBotao(1)->Down());
    QTest::mouseClick(barra.ObterBotao(6), Qt::LeftButton);
    EXPECT_TRUE(barra.ObterBotao(1)->Down()); // outro grupo
    QTest::mouseClick(barra.ObterBotao(8), Qt::LeftButton);
    EXPECT_FALSE(barra.ObterBotao(8)->Down());
}

TEST(BarraDeFerramenta, SoOBotaoDaFonteAgeESoComMapa)
{
    auto roteiro = std::make_unique<TDialogosRoteirizados>();
    TDialogosRoteirizados &dialogos = *roteiro;
    auto anterior = TrocarDialogos(std::move(roteiro));
    TFont nova;
    nova.Name = QStringLiteral("DejaVu Serif");
    nova.SetSize(14);
    dialogos.Fontes = {nova, std::nullopt};

    TGisContador gis;
    gis.resize(100, 80);
    gis.FonteRotulo().Name = QStringLiteral("DejaVu Sans");
    TGISBarraDeFerramenta barra;
    QTest::mouseClick(barra.ObterBotao(9), Qt::LeftButton); // sem mapa: nada
    EXPECT_TRUE(dialogos.Perguntas.isEmpty());

    barra.AtribuirGis(&gis);
    const TColor cor = gis.Color();
    for (int i : {0, 1, 3, 4, 5, 6, 7, 8})
        QTest::mouseClick(barra.ObterBotao(i), Qt::LeftButton);
    EXPECT_EQ(gis.Desenhos, 0); // "Altera Cor de Fundo" e os outros não fazem nada
    EXPECT_EQ(gis.Color(), cor);
    EXPECT_TRUE(dialogos.Perguntas.isEmpty());

    QTest::mouseClick(barra.ObterBotao(9), Qt::LeftButton);
    EXPECT_EQ(dialogos.Perguntas, QStringList({"fonte: DejaVu Sans"})); // começa pela fonte do mapa
    EXPECT_EQ(gis.FonteRotulo().Name, QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(gis.FonteRotulo().Size(), 14);
    EXPECT_EQ(gis.Desenhos, 1);
    QTest::mouseClick(barra.ObterBotao(9), Qt::LeftButton); // cancelado: fica como estava, sem redesenho
    EXPECT_EQ(gis.FonteRotulo().Name, QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(gis.Desenhos, 1);

    // O mapa destruído é esquecido: o botão volta a não fazer nada.
    {
        TGis outro;
        barra.AtribuirGis(&outro);
    }
    EXPECT_EQ(barra.GIS(), nullptr);
    TrocarDialogos(std::move(anterior));
}
