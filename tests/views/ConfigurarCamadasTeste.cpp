// O painel de camadas: a lista (a de cima primeiro) segue o mapa; cada operação passa pelo veto,
// muda o mapa, avisa e redesenha uma vez; vetada, nada muda; importar e exportar passam pelo
// registro de tratadores e pelos diálogos.

#include "control/AuxiliaresControle.h"

#include <tavru/elements/GISPonto.h>
#include <tavru/platform/TProvedorDeDialogos.h>
#include <tavru/views/TGISConfigurarCamadas.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

class ConfigurarCamadas : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto roteiro = std::make_unique<TDialogosRoteirizados>();
        dialogos = roteiro.get();
        anterior = TrocarDialogos(std::move(roteiro));
        gis.resize(300, 200);
        for (const char *nome : {"A", "B", "C"}) {
            TGISCamada &c = NovaCamada(gis, nome);
            for (int i = 0; i < (nome[0] - 'A' + 1); ++i)
                c.Objetos().Add(new TObjetoRet(Graus(-10 - i, -50, -5, -45)));
        }
        gis.ObterCamada("B")->AtribuirZoomMinimo(2.5);
        painel.AtribuirGis(&gis);
        painel.OnAntesDaOperacao = [this](QObject *s, TGISOperacaoCamada op, TGISCamada *c, bool &pode) {
            EXPECT_EQ(s, &painel);
            antes << QStringLiteral("%1:%2").arg(op).arg(c ? c->Nome() : QString());
            pode = !vetar;
        };
        painel.OnDepoisDaOperacao = [this](QObject *, TGISOperacaoCamada op, TGISCamada *c) {
            depois << QStringLiteral("%1:%2").arg(op).arg(c ? c->Nome() : QString());
        };
        gis.Desenhos = 0;
    }
    void TearDown() override { TrocarDialogos(std::move(anterior)); }

    QStringList Ordem() const
    {
        QStringList nomes;
        for (int i = 0; i < gis.Camadas().Count(); ++i)
            nomes << gis.Camadas().Items(i)->Nome();
        return nomes;
    }
    QStringList Linhas() const
    {
        QStringList linhas;
        for (int r = 0; r < painel.Lista()->topLevelItemCount(); ++r)
            linhas << painel.Lista()->topLevelItem(r)->text(0);
        return linhas;
    }
    TGISCamada *Camada(const char *nome) const { return gis.ObterCamada(nome); }

    TDialogosRoteirizados *dialogos = nullptr;
    std::unique_ptr<TProvedorDeDialogos> anterior;
    TGisContador gis;
    TGISConfigurarCamadas painel;
    QStringList antes, depois;
    bool vetar = false;
};

TEST_F(ConfigurarCamadas, ListaACamadaDeCimaPrimeiroComColunasESegueOMapa)
{
    EXPECT_EQ(Linhas(), QStringList({"C", "B", "A"}));
    const QTreeWidgetItem *b = painel.Lista()->topLevelItem(1);
    EXPECT_EQ(b->text(3), "2");
    EXPECT_EQ(b->text(2), QStringLiteral("2,5 – 50000"));
    EXPECT_EQ(b->checkState(0), Qt::Checked);
    EXPECT_TRUE(b->icon(1).isNull()); // sem cor própria

    // Mudanças feitas direto no mapa aparecem na volta ao laço de eventos.
    NovaCamada(gis, "D");
    gis.Camadas().Delete(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(Linhas(), QStringList({"D", "C", "B"}));
    // A contagem acompanha cada desenho do mapa.
    Camada("C")->Objetos().Add(new TObjetoRet(Graus(-1, -1, 1, 1)));
    gis.Desenhar();
    EXPECT_EQ(painel.Lista()->topLevelItem(1)->text(3), "4");
}

TEST_F(ConfigurarCamadas, SubirEDescerRespeitamAsPontasEOVeto)
{
    painel.EscolherCamada(Camada("C")); // a de cima
    EXPECT_FALSE(painel.Subir(Camada("C")));
    EXPECT_EQ(Ordem(), QStringList({"A", "B", "C"}));
    EXPECT_TRUE(antes.isEmpty()); // nem chega a perguntar
    EXPECT_FALSE(painel.Descer(Camada("A")));

    EXPECT_TRUE(painel.Subir(Camada("B")));
    EXPECT_EQ(Ordem(), QStringList({"A", "C", "B"}));
    EXPECT_EQ(Linhas(), QStringList({"B", "C", "A"}));
    EXPECT_EQ(gis.Desenhos, 1);
    EXPECT_EQ(antes, QStringList({"4:B"}));
    EXPECT_EQ(depois, QStringList({"4:B"}));
    EXPECT_EQ(painel.CamadaEscolhida(), Camada("B"));

    vetar = true;
    EXPECT_FALSE(painel.Descer(Camada("B")));
    EXPECT_EQ(Ordem(), QStringList({"A", "C", "B"}));
    EXPECT_EQ(gis.Desenhos, 1);
    EXPECT_EQ(depois.size(), 1);

    // Mover a qualquer lugar (o arrastar da lista): a de cima vai para baixo de todas.
    vetar = false;
    EXPECT_TRUE(painel.Mover(Camada("B"), 0));
    EXPECT_EQ(Ordem(), QStringList({"B", "A", "C"}));
    EXPECT_FALSE(painel.Mover(Camada("B"), 3)); // um além do fim
}

TEST_F(ConfigurarCamadas, CaixaDeVisibilidadeMudaACamadaOuVoltaQuandoVetada)
{
    QTreeWidgetItem *a = painel.Lista()->topLevelItem(2);
    vetar = true;
    a->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(Camada("A")->Visivel());
    EXPECT_EQ(painel.Lista()->topLevelItem(2)->checkState(0), Qt::Checked);
    EXPECT_EQ(gis.Desenhos, 0);

    vetar = false;
    painel.Lista()->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(Camada("A")->Visivel());
    EXPECT_TRUE(Camada("B")->Visivel());
    EXPECT_EQ(gis.Desenhos, 1);
    EXPECT_EQ(depois, QStringList({"6:A"}));
}

TEST_F(ConfigurarCamadas, CorPerguntaConfirmaERecoloreTodosOsObjetos)
{
    const TColor vermelho = 0x0000FF;
    painel.EscolherCor = [&](TColor &cor) {
        EXPECT_EQ(cor, clNone);
        cor = vermelho;
        return true;
    };
    painel.EscolherCamada(Camada("B"));
    dialogos->Confirmacoes = {false};
    painel.PerguntarEColorir();
    EXPECT_EQ(Camada("B")->Cor(), clNone);

    vetar = true;
    dialogos->Confirmacoes = {true};
    painel.PerguntarEColorir();
    EXPECT_EQ(Camada("B")->Cor(), clNone);
    EXPECT_EQ(gis.Desenhos, 0);

    vetar = false;
    dialogos->Confirmacoes = {true};
    painel.PerguntarEColorir();
    EXPECT_EQ(Camada("B")->Cor(), vermelho);
    for (int i = 0; i < Camada("B")->Objetos().Count(); ++i)
        EXPECT_EQ(Camada("B")->Objetos().Items(i)->ObterCor(), vermelho);
    EXPECT_EQ(Camada("A")->Objetos().Items(0)->ObterCor(), clNone);
    EXPECT_FALSE(painel.Lista()->topLevelItem(1)->icon(1).isNull());
    EXPECT_EQ(gis.Desenhos, 1);
}

TEST_F(ConfigurarCamadas, InserirERemoverComEsemVeto)
{
    dialogos->Textos = {std::nullopt, QStringLiteral("Rios")};
    painel.PerguntarEInserir(); // cancelado
    EXPECT_EQ(gis.Camadas().Count(), 3);
    vetar = true;
    painel.PerguntarEInserir(); // vetado: a camada nova é liberada
    EXPECT_EQ(gis.Camadas().Count(), 3);
    EXPECT_EQ(antes, QStringList({"0:Rios"}));

    vetar = false;
    EXPECT_TRUE(painel.Inserir(QStringLiteral("Rios")));
    EXPECT_EQ(Ordem(), QStringList({"A", "B", "C", "Rios"}));
    EXPECT_EQ(Camada("Rios")->Objetos().Count(), 0);
    EXPECT_EQ(painel.CamadaEscolhida(), Camada("Rios"));
    EXPECT_EQ(gis.Desenhos, 1);

    vetar = true;
    EXPECT_FALSE(painel.Remover(Camada("B")));
    EXPECT_EQ(gis.Camadas().Count(), 4);
    vetar = false;
    painel.EscolherCamada(Camada("B"));
    painel.PerguntarERemover();
    EXPECT_EQ(Ordem(), QStringList({"A", "C", "Rios"}));
    EXPECT_EQ(Linhas(), QStringList({"Rios", "C", "A"}));
    EXPECT_EQ(depois.last(), "1:"); // a camada já foi liberada
    EXPECT_EQ(gis.Desenhos, 2);
}

TEST_F(ConfigurarCamadas, ExportarEImportarPeloRegistro)
{
    QTemporaryDir pasta;
    TGISCamada &pontos = NovaCamada(gis, "Pontos");
    for (int i = 0; i < 3; ++i) {
        auto *p = new TGISPonto;
        p->AtribuirPosicao(GISPosicao(-15 * 3600 + i * 60, -47 * 3600 - i * 90));
        pontos.Objetos().Add(p);
    }
    QCoreApplication::processEvents();
    const QString arquivo = pasta.filePath("cidades.xml");
    painel.EscolherCamada(&pontos);
    dialogos->Arquivos = {std::make_pair(arquivo, 1)};
    painel.PerguntarEExportar();
    ASSERT_TRUE(QFileInfo::exists(arquivo)) << dialogos->Mensagens.join('\n').toStdString();
    EXPECT_EQ(gis.Desenhos, 0); // gravar não muda o que se vê

    dialogos->Arquivos = {std::make_pair(arquivo, 1)};
    painel.PerguntarEImportar();
    ASSERT_EQ(gis.Camadas().Count(), 5);
    TGISCamada *lida = gis.Camadas().Last();
    EXPECT_EQ(lida->Nome(), "cidades");
    ASSERT_EQ(lida->Objetos().Count(), 3);
    EXPECT_EQ(lida->Objetos().Items(2)->Posicao().Longitude, -47 * 3600 - 180);
    EXPECT_EQ(Linhas().first(), "cidades");
    EXPECT_EQ(depois, QStringList({"3:Pontos", "2:cidades"}));

    // O mesmo arquivo de novo: outro nome. Vetado: nada entra.
    vetar = true;
    dialogos->Arquivos = {std::make_pair(arquivo, 1)};
    painel.PerguntarEImportar();
    EXPECT_EQ(antes.last(), "2:cidades (2)");
    EXPECT_EQ(gis.Camadas().Count(), 5);

    // Um arquivo que não existe: mensagem de erro, o mapa fica como estava.
    vetar = false;
    dialogos->Arquivos = {std::make_pair(pasta.filePath("nada.xml"), 1)};
    painel.PerguntarEImportar();
    EXPECT_EQ(gis.Camadas().Count(), 5);
    EXPECT_EQ(dialogos->Mensagens.size(), 1);
}

TEST_F(ConfigurarCamadas, MapaDestruidoAntesDoPainel)
{
    auto *outro = new TGis;
    NovaCamada(*outro, "X");
    TGISConfigurarCamadas p;
    p.AtribuirGis(outro);
    EXPECT_EQ(p.Lista()->topLevelItemCount(), 1);
    delete outro;
    QCoreApplication::processEvents();
    EXPECT_EQ(p.GIS(), nullptr);
    p.Atualizar();
    EXPECT_EQ(p.Lista()->topLevelItemCount(), 0);
    EXPECT_FALSE(p.Inserir(QStringLiteral("Y")));
}

} // namespace
