// Barra de inclusão: o registro do programa (padrões, repetição, remoção), os botões que ele dá, a
// divisão inteira da largura, o botão que volta para cima só com mapa e a inclusão de cada classe
// padrão no ponto clicado.

#include "AuxiliaresControle.h"

#include <tavru/companions/components/TBotaoRapido.h>
#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/control/TGISBarraDeInclusao.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

class BarraDeInclusao : public ::testing::Test
{
protected:
    void SetUp() override
    {
        registro = TGISBarraDeInclusao::ObterRegistro();
        pai.resize(600, 40);
    }
    void TearDown() override { TGISBarraDeInclusao::RestaurarRegistro(registro); }
    /// Uma barra nova, filha de `pai` e mostrada, com `largura` x 30 pixels.
    TGISBarraDeInclusao &Barra(int largura)
    {
        barra = std::make_unique<TGISBarraDeInclusao>(&pai);
        pai.show();
        barra->show();
        barra->resize(largura, 30);
        return *barra;
    }
    QStringList Dicas(const TGISBarraDeInclusao &b) const
    {
        QStringList d;
        for (int i = 0; i < b.Count(); ++i)
            d << b.ObterBotao(i)->Hint();
        return d;
    }

    std::vector<TGISBarraDeInclusao::TRegistro> registro;
    QWidget pai;
    std::unique_ptr<TGISBarraDeInclusao> barra;
};

const QStringList Padroes = {"Incluir Ponto", "Incluir Linha", "Incluir Área", "Incluir Área Circular",
                             "Incluir Imagem"};

} // namespace

TEST_F(BarraDeInclusao, RegistroPadraoRepetidoERemovido)
{
    const auto entradas = TGISBarraDeInclusao::ObterRegistro();
    ASSERT_EQ(entradas.size(), 5u);
    const TClasseObjeto *classes[] = {&TGISPonto::Descritor, &TGISLinha::Descritor, &TGISArea::Descritor,
                                      &TGISAreaCircular::Descritor, &TGISImagem::Descritor};
    for (size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(entradas[i].Classe, classes[i]);
        EXPECT_EQ(entradas[i].Hint, Padroes[int(i)]);
        EXPECT_EQ(entradas[i].Bitmap.deviceIndependentSize().toSize(), QSize(24, 24));
    }
    TGISBarraDeInclusao &b = Barra(500);
    EXPECT_EQ(Dicas(b), Padroes);
    EXPECT_EQ(b.ObterHints().Textos(), Padroes);
    for (int i = 0; i < 5; ++i) // grupos e levantar: pelo clique, em BotaoClicadoVoltaParaCimaSoComMapa
        EXPECT_EQ(&b.ObterClasse(i), classes[i]);

    // Uma classe registrada de novo dá outro botão; o bitmap é uma cópia.
    QImage bitmap(24, 24, QImage::Format_ARGB32);
    bitmap.fill(Qt::red);
    TGISBarraDeInclusao::RegistrarBotao(TGISPonto::Descritor, QStringLiteral("Outro Ponto"), bitmap);
    bitmap.fill(Qt::blue);
    EXPECT_EQ(TGISBarraDeInclusao::ObterRegistro().back().Bitmap.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(b.Count(), 5); // os botões são os do último CriarComponentes
    b.CriarComponentes();
    EXPECT_EQ(Dicas(b), Padroes + QStringList{"Outro Ponto"});

    // Tirar o registro tira só a primeira das duas; uma classe que não está não tira nada.
    TGISBarraDeInclusao::RemoverRegistroBotao(TGISPonto::Descritor);
    TGISBarraDeInclusao::RemoverRegistroBotao(TGISTexto::Descritor);
    b.CriarComponentes();
    EXPECT_EQ(Dicas(b), Padroes.mid(1) + QStringList{"Outro Ponto"});
    EXPECT_EQ(&b.ObterClasse(4), &TGISPonto::Descritor);
    EXPECT_THROW(b.ObterBotao(5), EListError);

    // Sem nenhuma entrada, nenhum botão (e nada quebra).
    TGISBarraDeInclusao::RestaurarRegistro({});
    b.CriarComponentes();
    EXPECT_EQ(b.Count(), 0);
}

TEST_F(BarraDeInclusao, LarguraDivididaEmPartesInteirasEClienteEncolhe)
{
    TGISBarraDeInclusao &b = Barra(500);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(b.ObterBotao(i)->geometry(), QRect(100 * i, 0, 100, 30)) << i;
    b.resize(503, 30);
    EXPECT_EQ(b.width(), 500);
    EXPECT_EQ(b.ObterBotao(4)->geometry(), QRect(400, 0, 100, 30));

    // Um botão escondido não conta nem empurra os seguintes: quatro de 125.
    b.ObterBotao(1)->hide();
    b.RedimensionarBotoes();
    EXPECT_EQ(b.width(), 500);
    EXPECT_EQ(b.ObterBotao(0)->geometry(), QRect(0, 0, 125, 30));
    EXPECT_EQ(b.ObterBotao(2)->geometry(), QRect(125, 0, 125, 30));
    EXPECT_EQ(b.ObterBotao(4)->geometry(), QRect(375, 0, 125, 30));

    // Dicas novas vão para os botões dos seus índices; os de fora da lista ficam com as que tinham.
    TStringList dicas;
    dicas.AtribuirTextos({"A", "B"});
    b.AtribuirHints(dicas);
    EXPECT_EQ(Dicas(b), QStringList({"A", "B", "Incluir Área", "Incluir Área Circular", "Incluir Imagem"}));
    EXPECT_EQ(b.ObterHints().Textos(), QStringList({"A", "B"}));

    EXPECT_FALSE(b.ObterFlat());
    EXPECT_FALSE(b.ObterBotao(0)->autoRaise());
    b.AtribuirFlat(true);
    EXPECT_TRUE(b.ObterBotao(3)->autoRaise());
}

TEST_F(BarraDeInclusao, BotaoClicadoVoltaParaCimaSoComMapa)
{
    TGISBarraDeInclusao &b = Barra(500);
    QList<int> clicados;
    b.OnClicar = [&](TGISBarraDeInclusao &, int i) { clicados << i; };
    QTest::mouseClick(b.ObterBotao(2), Qt::LeftButton);
    EXPECT_TRUE(b.ObterBotao(2)->Down()); // sem mapa fica abaixado
    QTest::mouseClick(b.ObterBotao(3), Qt::LeftButton);
    EXPECT_TRUE(b.ObterBotao(2)->Down()); // cada botão no seu grupo
    EXPECT_TRUE(b.ObterBotao(3)->Down());

    TGis gis;
    b.AtribuirGis(&gis);
    QTest::mouseClick(b.ObterBotao(4), Qt::LeftButton);
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(b.ObterBotao(i)->Down()) << i; // com mapa, todos levantados
    EXPECT_EQ(clicados, QList<int>({2, 3, 4}));
}

TEST_F(BarraDeInclusao, CadaClassePadraoIncluidaNoPontoClicadoESelecionada)
{
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const QString arquivo = pasta.filePath("foto.png");
    QImage foto(8, 6, QImage::Format_RGB32);
    foto.fill(Qt::green);
    ASSERT_TRUE(foto.save(arquivo));

    auto roteiro = std::make_unique<TDialogosRoteirizados>();
    TDialogosRoteirizados &dialogos = *roteiro;
    auto anterior = TrocarDialogos(std::move(roteiro));
    dialogos.Textos = {QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("0")};
    dialogos.Arquivos = {std::make_pair(arquivo, 1), std::make_pair(pasta.filePath("nao-existe.png"), 1)};

    TGis gis;
    gis.resize(400, 300);
    gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), 40.0);
    gis.Zerado();
    TGISCamada &camada = NovaCamada(gis, "Inclusões", gtcEditavel);
    const TGISProjecao &projecao = *gis.Projecao();
    const TPoint clique(150, 110);
    const TGISPosicao w = projecao.TelaParaMundo(clique);

    const auto registro = TGISBarraDeInclusao::ObterRegistro();
    std::vector<TGISObjeto *> incluidos;
    for (size_t i = 0; i < registro.size(); ++i) {
        TGISObjeto *o = TGISBarraDeInclusao::IncluirObjeto(*registro[i].Classe, gis, camada, clique,
                                                           QStringLiteral("Novo %1").arg(i));
        ASSERT_NE(o, nullptr) << i;
        EXPECT_EQ(&o->Classe(), registro[i].Classe);
        EXPECT_EQ(gis.ObjetoSelecionado(), o);
        EXPECT_EQ(camada.Objetos().Last(), o);
        EXPECT_EQ(gis.ObterRotulo(*o), QStringLiteral("Novo %1").arg(i));
        incluidos.push_back(o);
    }
    EXPECT_EQ(incluidos[0]->Posicao(), w); // ponto
    auto *linha = static_cast<TGISLinha *>(incluidos[1]);
    EXPECT_EQ(linha->Pontos().Items(0)->Count(), 4);
    EXPECT_EQ((*linha->Pontos().Items(0))[2], w); // a senoide passa pelo clique no terceiro ponto
    auto *area = static_cast<TGISArea *>(incluidos[2]);
    const TGISPosicaoList &contorno = *area->Pontos().Items(0);
    ASSERT_EQ(contorno.Count(), 6); // cinco e o fechamento
    for (int i = 0; i < 5; ++i) // num círculo de 20 pixels em volta do clique
        EXPECT_NEAR(Distancia(projecao.MundoParaTela(contorno[i]), clique), 20.0, 1.5) << i;
    EXPECT_EQ(incluidos[3]->Posicao(), w); // área circular
    auto *imagem = static_cast<TGISImagem *>(incluidos[4]);
    EXPECT_EQ(imagem->NomeArquivoImagem(), arquivo);
    const TRect r = ConcertaRect(projecao.MundoParaTelaRet(imagem->AreaImagem())); // 20 pixels em volta do clique
    EXPECT_LE(Distancia(Centro(r), clique), 1.5);
    EXPECT_NEAR(r.Width(), 40, 2);
    EXPECT_NEAR(r.Height(), 40, 2);
    // Um objeto incluído pode ser achado com o mouse (tem rótulo): o ponto, em cima de tudo embaixo.
    EXPECT_NE(gis.ObterObjeto(clique), nullptr);

    // O usuário desiste (0 pontos): nada incluído, a seleção fica. Uma imagem ilegível: o erro segue.
    const int total = camada.Objetos().Count();
    EXPECT_EQ(TGISBarraDeInclusao::IncluirObjeto(TGISLinha::Descritor, gis, camada, clique), nullptr);
    EXPECT_THROW(TGISBarraDeInclusao::IncluirObjeto(TGISImagem::Descritor, gis, camada, clique), EInOutError);
    EXPECT_EQ(camada.Objetos().Count(), total);
    EXPECT_EQ(gis.ObjetoSelecionado(), incluidos[4]);
    TrocarDialogos(std::move(anterior));
}
