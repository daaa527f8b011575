// O plug-in do Qt Designer carregado como o Designer o carrega (QPluginLoader): a descrição, os
// sete componentes do grupo "GIS" e o que cada um dá ao Designer; e a diferença entre o widget
// criado no Designer (mapa de amostra, lista visível) e o criado por um formulário que roda.

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/views/TGisPopUpListBox.h>

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QImage>
#include <QJsonObject>
#include <QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <gtest/gtest.h>
#include <memory>

namespace {

QDesignerCustomWidgetCollectionInterface *Colecao(QPluginLoader &carregador)
{
    return qobject_cast<QDesignerCustomWidgetCollectionInterface *>(carregador.instance());
}

QDesignerCustomWidgetInterface *Componente(QDesignerCustomWidgetCollectionInterface &colecao, const QString &nome)
{
    for (auto *c : colecao.customWidgets())
        if (c->name() == nome)
            return c;
    return nullptr;
}

} // namespace

TEST(PluginDoDesigner, ColecaoGisComSeteComponentes)
{
    QPluginLoader carregador(QStringLiteral(TAVRU_PLUGIN_DESIGNER));
    const QJsonObject dados = carregador.metaData();
    EXPECT_EQ(dados.value("IID").toString(), QStringLiteral("org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface"));
    EXPECT_EQ(dados.value("MetaData").toObject().value("Description").toString(),
              QStringLiteral("Tavru - Componentes GIS"));
    auto *colecao = Colecao(carregador);
    ASSERT_NE(colecao, nullptr) << carregador.errorString().toStdString();

    const QStringList esperados = {"tavru::TGis", "tavru::TGISBarraDeFerramenta", "tavru::TGISBarraDeInclusao",
                                   "tavru::TGISBarraDeManipulacao", "tavru::TGisPopUpListBox",
                                   "tavru::TGISConfigurarCamadas", "tavru::TGISMiniatura"};
    QStringList nomes;
    for (auto *c : colecao->customWidgets()) {
        const QString nome = c->name();
        nomes << nome;
        SCOPED_TRACE(nome.toStdString());
        EXPECT_EQ(c->group(), QStringLiteral("GIS"));
        EXPECT_FALSE(c->toolTip().isEmpty());
        EXPECT_FALSE(c->whatsThis().isEmpty());
        EXPECT_FALSE(c->isContainer());
        ASSERT_FALSE(c->icon().isNull());

        // O cabeçalho global que o código gerado inclui, e que existe na árvore da casa.
        const QString cabecalho = c->includeFile();
        ASSERT_TRUE(cabecalho.startsWith("<tavru/") && cabecalho.endsWith(".h>")) << cabecalho.toStdString();
        EXPECT_TRUE(QFile::exists(TAVRU_FONTE "/" + cabecalho.mid(7).chopped(1))) << cabecalho.toStdString();

        // O XML com que o componente cai no formulário é da mesma classe.
        QDomDocument dom;
        ASSERT_TRUE(dom.setContent(c->domXml()));
        const QDomElement widget = dom.documentElement().firstChildElement("widget");
        EXPECT_EQ(widget.attribute("class"), nome);

        // O widget criado é dessa classe (com o espaço de nomes), sem pai e com um.
        std::unique_ptr<QWidget> solto(c->createWidget(nullptr));
        ASSERT_NE(solto, nullptr);
        EXPECT_STREQ(solto->metaObject()->className(), qPrintable(nome));
        QWidget pai;
        QWidget *filho = c->createWidget(&pai);
        ASSERT_NE(filho, nullptr);
        EXPECT_EQ(filho->parent(), &pai);
        // Quem se liga a um mapa publica o nome dele, que o formulário edita.
        if (nome != QLatin1String("tavru::TGis")) {
            EXPECT_TRUE(filho->setProperty("GIS", QStringLiteral("gis")));
        }
    }
    EXPECT_EQ(nomes, esperados);
}

TEST(PluginDoDesigner, NoDesignerMapaDeAmostraEListaVisivelNoProgramaComoEles)
{
    // Uma cópia do plug-in, com as suas próprias interfaces: o `initialize` do Designer não passa
    // para a instância que os testes dos formulários (o QUiLoader) usam no mesmo processo.
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const QString copia = pasta.filePath(QFileInfo(QStringLiteral(TAVRU_PLUGIN_DESIGNER)).fileName());
    ASSERT_TRUE(QFile::copy(QStringLiteral(TAVRU_PLUGIN_DESIGNER), copia));
    QPluginLoader carregador(copia);
    auto *colecao = Colecao(carregador);
    ASSERT_NE(colecao, nullptr) << carregador.errorString().toStdString();
    auto *mapa = Componente(*colecao, "tavru::TGis");
    auto *lista = Componente(*colecao, "tavru::TGisPopUpListBox");
    ASSERT_TRUE(mapa && lista);

    // Antes de `initialize` (o QUiLoader não o chama): o componente como o programa o usa.
    ASSERT_FALSE(mapa->isInitialized());
    {
        std::unique_ptr<QWidget> gis(mapa->createWidget(nullptr));
        EXPECT_EQ(static_cast<tavru::TGis *>(gis.get())->Camadas().Count(), 0);
        std::unique_ptr<QWidget> l(lista->createWidget(nullptr));
        EXPECT_TRUE(l->isWindow());
        EXPECT_EQ(l->windowType(), Qt::Popup);
    }

    // No Designer: o mapa de amostra desenhado (não uma caixa de uma cor só) e a lista comum.
    mapa->initialize(nullptr);
    lista->initialize(nullptr);
    EXPECT_TRUE(mapa->isInitialized());
    std::unique_ptr<QWidget> gis(mapa->createWidget(nullptr));
    auto *controle = static_cast<tavru::TGis *>(gis.get());
    EXPECT_GE(controle->Camadas().Count(), 2);
    gis->resize(300, 220);
    const QImage imagem = gis->grab().toImage();
    ASSERT_EQ(imagem.size(), QSize(300, 220));
    const QRgb fundo = imagem.pixel(1, 1);
    int diferentes = 0;
    for (int y = 0; y < imagem.height(); ++y)
        for (int x = 0; x < imagem.width(); ++x)
            diferentes += imagem.pixel(x, y) != fundo;
    EXPECT_GT(diferentes, 1000) << "o litoral e as cidades da amostra";
    EXPECT_LT(diferentes, 300 * 220 / 2) << "ajustado à janela, o fundo ainda domina";

    QWidget pai;
    QWidget *l = lista->createWidget(&pai);
    EXPECT_FALSE(l->isWindow());
    EXPECT_GT(static_cast<QListWidget *>(l)->count(), 0);
}
