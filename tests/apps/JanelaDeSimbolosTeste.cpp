// A doca de símbolos da demonstração: um objeto selecionado vira símbolo, a tabela vai para o
// arquivo e volta numa doca nova, e o símbolo escolhido é posto num quadrado de 64 pixels
// centrado no clique.

#include "../../apps/tavru-mapa/TJanelaDeSimbolos.h"

#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>

#include <QMainWindow>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tavru;

TEST(JanelaDeSimbolos, GuardaColocaEGuardaNoArquivo)
{
    QTemporaryDir pasta;
    const QString arquivo = pasta.filePath(QStringLiteral("dados/simbolos.xml"));
    QMainWindow janela;
    auto *gis = new TGis(&janela);
    janela.setCentralWidget(gis);
    gis->resize(400, 300);
    auto *camada = new TGISCamada(QStringLiteral("Áreas"));
    auto *area = new TGISArea;
    auto *parte = new TGISPosicaoList;
    for (const TGISPosicao &p : {GISPosicao(0, 0), GISPosicao(36000, 0), GISPosicao(36000, 72000)})
        parte->Add(p);
    area->Pontos().Add(parte);
    area->CalcularLimites();
    area->Pincel().Color = 0x000000FF;
    area->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("Triângulo"));
    camada->Objetos().Add(area);
    gis->Camadas().Add(camada);
    gis->Zerado();
    gis->FitToWindow();

    auto *doca = new TJanelaDeSimbolos(gis, &janela, arquivo);
    EXPECT_EQ(gis->TabelaDeSimbolos(), &doca->Tabela());
    EXPECT_FALSE(doca->GuardarSelecionado()); // nada selecionado
    gis->SelecionarObjeto(area);
    ASSERT_TRUE(doca->GuardarSelecionado());
    ASSERT_EQ(doca->Tabela().ObterTotal(), 1);
    EXPECT_EQ(doca->Tabela().ObterSimbolo(0)->Nome(), QStringLiteral("Triângulo"));

    // Sem escolher, o clique não põe nada; escolhido, põe uma área no quadrado do clique.
    EXPECT_FALSE(doca->ColocarEm(TPoint(300, 230)));
    doca->EscolherSimbolo(0);
    ASSERT_TRUE(doca->ColocarEm(TPoint(300, 230)));
    const int indice = gis->Camadas().IndexOf(QStringLiteral("Símbolos"));
    ASSERT_GE(indice, 0);
    const TGISObjetoList &postos = gis->Camadas().ObterGISCamada(indice)->Objetos();
    ASSERT_EQ(postos.Count(), 1);
    const auto *posta = dynamic_cast<const TGISArea *>(postos[0]);
    ASSERT_TRUE(posta);
    EXPECT_EQ(posta->Pincel().Color, 0x000000FF);
    const TRect tela = ConcertaRect(gis->Projecao()->MundoParaTelaRet(posta->Area()));
    EXPECT_GE(tela.Left, 300 - 33);
    EXPECT_LE(tela.Right, 300 + 33);
    EXPECT_GE(tela.Top, 230 - 33);
    EXPECT_LE(tela.Bottom, 230 + 33);
    EXPECT_GT(std::max(tela.Width(), tela.Height()), 40);
    EXPECT_EQ(gis->Buffer().pixelColor(300 - 15, 230 - 5), QColor(255, 0, 0)); // desenhada

    // A tabela sobreviveu no arquivo.
    QMainWindow outra;
    auto *outroGis = new TGis(&outra);
    TJanelaDeSimbolos lida(outroGis, &outra, arquivo);
    EXPECT_EQ(lida.Tabela().ObterXML(), doca->Tabela().ObterXML());
}
