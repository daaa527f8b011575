// Um formulário com os sete componentes, carregado como um programa o carrega: pelo QUiLoader (com
// o plug-in) e pelo código que o uic gera. O que o formulário guarda chega aos componentes, e as
// barras e visões se ligam ao mapa pelo nome, embora ele venha depois delas no formulário.

#include "ui_formulario.h"

#include <tavru/companions/components/TBotaoRapido.h>
#include <tavru/control/TGISBarraDeFerramenta.h>
#include <tavru/control/TGISBarraDeInclusao.h>
#include <tavru/control/TGISBarraDeManipulacao.h>
#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/views/TGISConfigurarCamadas.h>
#include <tavru/views/TGISMiniatura.h>
#include <tavru/views/TGisPopUpListBox.h>

#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <gtest/gtest.h>
#include <memory>

using namespace tavru;

namespace {

/// O que o formulário guarda e as ligações ao mapa, depois de ele aparecer.
void ConferirFormulario(QWidget &formulario)
{
    auto *gis = formulario.findChild<TGis *>("gis");
    ASSERT_NE(gis, nullptr);
    EXPECT_EQ(gis->CorQt(), QColor(32, 160, 64));
    EXPECT_EQ(gis->TextosRotulos(), QStringList({"Nome", "Sigla"}));
    EXPECT_EQ(gis->Camadas().Count(), 0) << "no programa, nada do mapa de amostra do Designer";

    auto *inclusao = formulario.findChild<TGISBarraDeInclusao *>("barraDeInclusao");
    ASSERT_NE(inclusao, nullptr);
    EXPECT_TRUE(inclusao->ObterFlat());
    ASSERT_GE(inclusao->Count(), 2);
    EXPECT_EQ(inclusao->ObterBotao(0)->Hint(), QStringLiteral("Cidade"));
    EXPECT_EQ(inclusao->ObterBotao(1)->Hint(), QStringLiteral("Estrada"));

    formulario.show();
    QApplication::processEvents();
    auto *manipulacao = formulario.findChild<TGISBarraDeManipulacao *>("barraDeManipulacao");
    auto *geral = formulario.findChild<TGISBarraDeFerramenta *>("barraDeFerramenta");
    auto *camadas = formulario.findChild<TGISConfigurarCamadas *>("configurarCamadas");
    auto *miniatura = formulario.findChild<TGISMiniatura *>("miniatura");
    auto *lista = formulario.findChild<TGisPopUpListBox *>("listaDeObjetos");
    ASSERT_TRUE(manipulacao && geral && camadas && miniatura && lista);
    EXPECT_EQ(manipulacao->GIS(), gis);
    EXPECT_EQ(geral->GIS(), gis);
    EXPECT_EQ(inclusao->GIS(), gis);
    EXPECT_EQ(camadas->GIS(), gis);
    EXPECT_EQ(miniatura->GIS(), gis);
    EXPECT_EQ(lista->GIS(), gis);
    EXPECT_EQ(manipulacao->NomeDoGis(), QStringLiteral("gis"));
    // A lista instantânea fica escondida até o clique.
    EXPECT_TRUE(lista->isWindow());
    EXPECT_FALSE(lista->isVisible());
    // A barra de manipulação ligada manda no mapa.
    const double zoom = gis->Zoom();
    manipulacao->AtribuirEstado(meAmpliar);
    manipulacao->GISMouseClick(TPoint{gis->width() / 2, gis->height() / 2});
    EXPECT_NEAR(gis->Zoom(), zoom * 1.2, zoom * 1e-6);
}

} // namespace

TEST(Formulario, PeloQUiLoader)
{
    QUiLoader carregador;
    carregador.addPluginPath(QStringLiteral(TAVRU_PASTA_PLUGIN_DESIGNER));
    for (const char *classe : {"tavru::TGis", "tavru::TGISMiniatura", "tavru::TGisPopUpListBox"})
        EXPECT_TRUE(carregador.availableWidgets().contains(QLatin1String(classe))) << classe;
    QFile arquivo(QStringLiteral(TAVRU_FORMULARIO));
    ASSERT_TRUE(arquivo.open(QIODevice::ReadOnly));
    std::unique_ptr<QWidget> formulario(carregador.load(&arquivo));
    ASSERT_NE(formulario, nullptr) << carregador.errorString().toStdString();
    ConferirFormulario(*formulario);
}

TEST(Formulario, PeloCodigoGeradoPeloUic)
{
    QWidget formulario;
    Ui::Formulario ui;
    ui.setupUi(&formulario);
    EXPECT_EQ(ui.gis->objectName(), QStringLiteral("gis"));
    ConferirFormulario(formulario);
}

TEST(Formulario, LigacaoPeloNome)
{
    QWidget janela;
    auto *painel = new QWidget(&janela);
    auto *barra = new TGISBarraDeManipulacao(painel);
    auto *feito = new TGis(&janela);
    barra->AtribuirGis(feito);

    // Um nome vazio não desfaz a ligação feita em código; um nome que não existe também não.
    barra->AtribuirNomeDoGis(QString());
    QApplication::processEvents();
    EXPECT_EQ(barra->GIS(), feito);
    barra->AtribuirNomeDoGis(QStringLiteral("mapaPrincipal"));
    QApplication::processEvents();
    EXPECT_EQ(barra->GIS(), feito);
    EXPECT_EQ(TLigacaoAoGis::AcharGis(*barra, QStringLiteral("mapaPrincipal")), nullptr);

    // O mapa com esse nome aparece depois, noutro ramo da janela: achado quando a janela aparece.
    auto *outroRamo = new QWidget(&janela);
    auto *principal = new TGis(outroRamo);
    principal->setObjectName(QStringLiteral("mapaPrincipal"));
    janela.show();
    QApplication::processEvents();
    EXPECT_EQ(barra->GIS(), principal);

    // O mapa ligado é destruído: a barra o esquece, e um mapa novo de mesmo nome é ligado de novo.
    delete principal;
    EXPECT_EQ(barra->GIS(), nullptr);
    auto *novo = new TGis(outroRamo);
    novo->setObjectName(QStringLiteral("mapaPrincipal"));
    barra->AtribuirNomeDoGis(QStringLiteral("mapaPrincipal"));
    QApplication::processEvents();
    EXPECT_EQ(barra->GIS(), novo);

    // Ligada em código e pelo nome ao mesmo mapa (como a janela da demonstração), com outra
    // ferramenta registrada entre as duas ligações: a barra fica onde estava na ordem das
    // ferramentas, e a lista instantânea também (reinscrita depois das outras, um arrasto era
    // tratado em dobro).
    auto *lista = new TGisPopUpListBox(&janela);
    lista->AtribuirGis(novo);
    auto *segunda = new TGISBarraDeManipulacao(painel);
    segunda->AtribuirGis(novo);
    const std::vector<IGISMouseEvent *> ordem = novo->MouseEvents();
    ASSERT_EQ(ordem.size(), 3u);
    lista->AtribuirNomeDoGis(QStringLiteral("mapaPrincipal"));
    barra->AtribuirGis(novo);
    barra->AtribuirNomeDoGis(QStringLiteral("mapaPrincipal"));
    QApplication::processEvents();
    EXPECT_EQ(novo->MouseEvents(), ordem);
}
