// A demonstração por dentro, como um usuário novo a encontra: gravar e abrir de volta qualquer
// texto, o que o diálogo de salvar propõe, o que abrir diz, a barra de estado que segue o cursor, o
// zoom e o deslocamento, os diálogos do Qt em português e o mapa de exemplo enquadrado.

#include "ArquivosDoMapa.h"
#include "MapaEmbutido.h"
#include "TJanelaMapa.h"
#include "TraducoesDoQt.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/TProvedorDeDialogos.h>
#include <tavru/xml/ConfiguracaoXML.h>

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <gtest/gtest.h>

using namespace tavru;

namespace {

/// Os ajustes do documento XML voltam aos padrões da biblioteca no fim de cada teste, e os
/// diálogos são roteirizados.
class JanelaMapa : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(pasta.isValid());
        auto novo = std::make_unique<TDialogosRoteirizados>();
        dialogos = novo.get();
        anterior = TrocarDialogos(std::move(novo));
        casa = qgetenv("HOME");
        qputenv("HOME", pasta.path().toLocal8Bit());
    }
    void TearDown() override
    {
        TrocarDialogos(std::move(anterior));
        qputenv("HOME", casa);
        CABECALHO = cabecalho;
        ESCAPAR_TEXTOS = escapar;
    }
    QString Escrever(const QString &nome, const QByteArray &conteudo)
    {
        QFile f(pasta.filePath(nome));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(conteudo);
        return f.fileName();
    }

    QTemporaryDir pasta;
    TDialogosRoteirizados *dialogos = nullptr;
    std::unique_ptr<TProvedorDeDialogos> anterior;
    QByteArray casa;
    const QString cabecalho = CABECALHO;
    const bool escapar = ESCAPAR_TEXTOS;
};

QStringList Informacoes(const TGISObjeto &o)
{
    return o.Informacoes().Linhas();
}

} // namespace

TEST_F(JanelaMapa, OQueOAplicativoGravaSeLeDeVoltaIgual)
{
    AjustarDocumentosDoAplicativo();
    const QString textos[] = {QStringLiteral("Porto & Velho <RO>"), QStringLiteral("Łódź"), QStringLiteral("€ \"aspas\"")};
    TGis gis;
    auto *camada = new TGISCamada(QStringLiteral("Textos difíceis"));
    gis.Camadas().Add(camada);
    auto *ponto = new TGISPonto;
    ponto->AtribuirPosicao(GISPosicao(-31000, -227000));
    ponto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), textos[0]);
    ponto->Informacoes().AtribuirCampo(QStringLiteral("Irmã"), textos[1]);
    camada->Objetos().Add(ponto);
    auto *area = new TGISArea;
    area->Pontos().Add(new TGISPosicaoList);
    area->Pontos().Add(new TGISPosicaoList);
    const TGISPosicao vertices[] = {GISPosicao(-36000, -198000), GISPosicao(-36000, -162000), GISPosicao(-72001, -161999),
                                    GISPosicao(-50000, -170000), GISPosicao(-51000, -171000)};
    for (int i = 0; i < 3; ++i)
        area->InserirPonto(0, i, vertices[i]);
    area->InserirPonto(1, 0, vertices[3]);
    area->InserirPonto(1, 1, vertices[4]);
    area->CalcularLimites();
    area->Informacoes().AtribuirCampo(QStringLiteral("Moeda"), textos[2]);
    camada->Objetos().Add(area);
    auto *texto = new TGISTexto;
    texto->AtribuirTexto(textos[0] + textos[1] + textos[2]);
    camada->Objetos().Add(texto);

    const QString arquivo = pasta.filePath("difíceis.xml");
    ASSERT_NO_THROW(GravarCamada(*camada, arquivo));
    QFile gravado(arquivo);
    ASSERT_TRUE(gravado.open(QIODevice::ReadOnly));
    EXPECT_TRUE(gravado.readLine().contains("encoding=\"UTF-8\""));

    TGISCamada *lida = nullptr;
    ASSERT_NO_THROW(lida = &AbrirEmCamadaNova(gis, arquivo));
    const TGISObjetoList &objetos = lida->Objetos();
    ASSERT_EQ(objetos.Count(), 3);
    EXPECT_EQ(Informacoes(*objetos.Items(0)), Informacoes(*ponto));
    EXPECT_EQ(objetos.Items(0)->Posicao(), ponto->Posicao());
    auto *areaLida = dynamic_cast<TGISArea *>(objetos.Items(1));
    ASSERT_NE(areaLida, nullptr);
    EXPECT_EQ(Informacoes(*areaLida), Informacoes(*area));
    ASSERT_EQ(areaLida->Pontos().Count(), 2);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(areaLida->ObterPonto(i < 3 ? 0 : 1, i < 3 ? i : i - 3), vertices[i]) << i;
    auto *textoLido = dynamic_cast<TGISTexto *>(objetos.Items(2));
    ASSERT_NE(textoLido, nullptr);
    EXPECT_EQ(textoLido->Texto(), texto->Texto());
}

TEST_F(JanelaMapa, SalvarProponhaAPastaDoUsuarioEAbrirDizOQueLeu)
{
    TJanelaMapa janela;
    TGis &gis = *janela.Gis();
    const int camadas = gis.Camadas().Count();

    // Sem seleção, a camada de cima (montada em código, sem arquivo): o nome dela na pasta do usuário.
    dialogos->Arquivos.push_back(std::nullopt);
    janela.SalvarCamada();
    // A camada das cidades veio dos recursos embutidos: nunca ":/mapa/cidades.xml".
    TGISCamada *cidades = gis.ObterCamada(QStringLiteral("Cidades"));
    ASSERT_NE(cidades, nullptr);
    gis.SelecionarObjeto(cidades->Objetos().Items(0));
    const QString destino = pasta.filePath("minhas cidades.xml");
    dialogos->Arquivos.push_back(std::pair{destino, 1});
    janela.SalvarCamada();
    const QStringList salvar = dialogos->Perguntas.filter(QRegularExpression("^salvar: "));
    ASSERT_EQ(salvar.size(), 2);
    EXPECT_TRUE(salvar[0].endsWith(": " + pasta.filePath(gis.Camadas().Last()->Nome() + ".xml"))) << salvar[0].toStdString();
    EXPECT_TRUE(salvar[1].endsWith(": " + pasta.filePath("Cidades.xml"))) << salvar[1].toStdString();
    EXPECT_TRUE(dialogos->Mensagens.isEmpty()) << dialogos->Mensagens.join('\n').toStdString();
    ASSERT_TRUE(QFile::exists(destino));

    // Um documento sem nada que o leitor conheça não vira camada vazia.
    const QString estranho = Escrever("estranho.xml", "<CAMADA><Desconhecido/></CAMADA>");
    janela.AbrirArquivos({estranho});
    EXPECT_EQ(dialogos->Mensagens, QStringList("nenhum objeto reconhecido em " + estranho));
    EXPECT_EQ(gis.Camadas().Count(), camadas);

    // Abrir o que foi gravado: uma camada nova com nome próprio, na visão, e quantos objetos.
    janela.AbrirArquivos({destino});
    ASSERT_EQ(gis.Camadas().Count(), camadas + 1);
    EXPECT_EQ(gis.Camadas().Last()->Objetos().Count(), cidades->Objetos().Count());
    EXPECT_EQ(janela.statusBar()->currentMessage(),
              QStringLiteral("%1 objetos lidos de %2").arg(cidades->Objetos().Count()).arg(destino));
    // O nome repetido ganha um número (a busca por nome não diferencia maiúsculas).
    janela.AbrirArquivos({destino});
    EXPECT_EQ(gis.Camadas().Last()->Nome(), QStringLiteral("minhas cidades (2)"));
    gis.Camadas().Last()->Objetos().CalcularLimites();
    const TGISPosicao centro = Centro(gis.Camadas().Last()->Objetos().Limites());
    EXPECT_EQ(gis.Projecao()->Centro().Latitude, centro.Latitude);
    EXPECT_EQ(gis.Projecao()->Centro().Longitude, centro.Longitude);
}

TEST_F(JanelaMapa, BarraDeEstadoSegueOCursorOZoomEODeslocamento)
{
    TJanelaMapa janela;
    janela.resize(1100, 760);
    janela.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&janela));
    TGis &gis = *janela.Gis();
    auto *posicao = janela.findChild<QLabel *>(QStringLiteral("posicao"));
    auto *zoom = janela.findChild<QLabel *>(QStringLiteral("zoom"));
    ASSERT_TRUE(posicao && zoom);

    const QPoint ponto(gis.width() / 4, gis.height() / 4);
    QTest::mouseMove(&gis, ponto);
    const QString noMovimento = posicao->text();
    EXPECT_TRUE(noMovimento.startsWith("Latitude ")) << noMovimento.toStdString();
    const QString zoomAntes = zoom->text();
    EXPECT_TRUE(zoomAntes.startsWith("Zoom ")) << zoomAntes.toStdString();

    // Sem mexer o mouse: o zoom e o deslocamento (uma ferramenta mexe na projeção e redesenha)
    // mudam o que está sob o cursor.
    gis.AtribuirZoom(gis.Zoom() * 2);
    const QString comZoom = posicao->text();
    EXPECT_NE(comZoom, noMovimento);
    EXPECT_NE(zoom->text(), zoomAntes);
    TGISPosicao c = gis.Projecao()->Centro();
    gis.Projecao()->AtribuirCentro(GISPosicao(c.Latitude + 3600, c.Longitude));
    gis.Desenhar();
    EXPECT_NE(posicao->text(), comZoom);

    // O texto de cada posição (e o "fora do mundo") está em LimitesDoMundoNaBarraDeEstado.
    gis.AtribuirCentroEmGraus(QPointF(0, 0));
    QTest::mouseMove(&gis, QPoint(gis.width() / 2, gis.height() / 2));
    EXPECT_TRUE(posicao->text().startsWith("Latitude 00°")) << posicao->text().toStdString();

    QEvent saida(QEvent::Leave);
    QCoreApplication::sendEvent(&gis, &saida);
    EXPECT_TRUE(posicao->text().isEmpty());
}

TEST_F(JanelaMapa, LimitesDoMundoNaBarraDeEstado)
{
    EXPECT_EQ(TJanelaMapa::TextoDaPosicao(GISPosicao(324000, -648000)).left(9), QStringLiteral("Latitude "));
    for (const TGISPosicao &fora : {GISPosicao(324001, 0), GISPosicao(-324001, 0), GISPosicao(0, 648001), GISPosicao(0, -648001)})
        EXPECT_EQ(TJanelaMapa::TextoDaPosicao(fora), QStringLiteral("fora do mundo"));
}

TEST(MapaDeDemonstracao, AjustarAJanelaEnquadraAAmericaDoSul)
{
    TGis gis;
    gis.resize(1000, 760);
    MontarMapaEmbutido(gis);
    gis.FitToWindow();
    const TGISRet vista = ConcertaRect(gis.Projecao()->TelaParaMundoRet(gis.Projecao()->AreaTela()));
    EXPECT_TRUE(Contem(vista, GISRet(-55 * 3600, -82 * 3600, 12 * 3600, -35 * 3600)));
    // Nada puxa a vista para longe (um objeto em (0, 0), no golfo da Guiné; ilhas e rios de outros
    // continentes): o centro fica no da grade que cerca o continente (90° W a 30° W, 60° S a 20° N).
    EXPECT_NEAR(gis.Projecao()->Centro().Longitude, -60 * 3600, 3600);
    EXPECT_NEAR(gis.Projecao()->Centro().Latitude, -20 * 3600, 3600);
}

TEST(DialogosDoQt, EmPortugues)
{
    QTranslator *tradutor = CarregarTraducoesDoQt(*QCoreApplication::instance());
    ASSERT_NE(tradutor, nullptr) << "instale qt6-translations-l10n";
    QDialogButtonBox botoes(QDialogButtonBox::Cancel | QDialogButtonBox::Open);
    EXPECT_EQ(botoes.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancelar"));
    EXPECT_EQ(botoes.button(QDialogButtonBox::Open)->text(), QStringLiteral("Abrir"));
    QCoreApplication::removeTranslator(tradutor);
    delete tradutor;
}

TEST_F(JanelaMapa, OMapaDeExemploInteiroSeGravaESeAbreDeVolta)
{
    AjustarDocumentosDoAplicativo();
    TJanelaMapa janela;
    TGis &gis = *janela.Gis();
    QStringList antes;
    for (int i = 0; i < gis.Camadas().Count(); ++i)
        antes << QStringLiteral("%1 %2").arg(gis.Camadas().Items(i)->Nome()).arg(gis.Camadas().Items(i)->Objetos().Count());
    const QString mapa = pasta.filePath("exemplo.tmapa");
    gis.SalvarMapa(mapa);

    TJanelaMapa outra;
    TGis &volta = *outra.Gis();
    volta.Limpar();
    volta.AbrirMapa(mapa);
    QStringList depois;
    for (int i = 0; i < volta.Camadas().Count(); ++i)
        depois << QStringLiteral("%1 %2").arg(volta.Camadas().Items(i)->Nome()).arg(volta.Camadas().Items(i)->Objetos().Count());
    EXPECT_EQ(depois.join('\n').toStdString(), antes.join('\n').toStdString());
}
