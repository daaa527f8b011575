#include <tavru/platform/TProvedorDeDialogos.h>

#include <gtest/gtest.h>

using namespace tavru;

TEST(Dialogos, RoteirizadosRespondemDaFilaESeCancelamQuandoVazios)
{
    auto roteiro = std::make_unique<TDialogosRoteirizados>();
    TDialogosRoteirizados *r = roteiro.get();
    auto anterior = TrocarDialogos(std::move(roteiro));
    r->Textos = {"12", std::nullopt};
    EXPECT_EQ(Dialogos().InputBox("Pontos", "Quantos?", "4"), "12");
    EXPECT_EQ(Dialogos().InputBox("Pontos", "Quantos?", "4"), "4"); // cancelado: o padrão
    EXPECT_EQ(Dialogos().InputBox("Pontos", "Quantos?", "5"), "5"); // fila vazia: cancelado
    EXPECT_EQ(r->Perguntas.size(), 3);

    r->Arquivos = {std::make_pair(QString("/tmp/a.xml"), 2)};
    QString nome;
    int indice = 1;
    EXPECT_TRUE(Dialogos().AbrirArquivo("Abrir", "A|*.a|B|*.b", nome, indice));
    EXPECT_EQ(nome, "/tmp/a.xml");
    EXPECT_EQ(indice, 2);
    EXPECT_FALSE(Dialogos().SalvarArquivo("Salvar", QString(), nome, indice));
    EXPECT_TRUE(Dialogos().Mensagem("Pronto", QString(), mtInformacao));
    EXPECT_FALSE(Dialogos().Mensagem("Apagar?", QString(), mtConfirmacao));
    EXPECT_EQ(r->Mensagens, QStringList({"Pronto", "Apagar?"}));

    TrocarDialogos(std::move(anterior));
    EXPECT_NE(dynamic_cast<TDialogosQt *>(&Dialogos()), nullptr);
}

TEST(Dialogos, FiltrosDaCasaViramFiltrosDoQt)
{
    const QString filtro = "Compatíveis (*.xml;*.geo)|*.xml;*.geo|Arquivos XML (*.xml)|*.xml|Todos (*.*)|*.*";
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 2), "Arquivos XML (*.xml)|*.xml");
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 4), QString());
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 0), QString());
    EXPECT_EQ(TDialogosQt::FiltroQt("XML|*.xml;*.XML|Todos|*.*"), "XML (*.xml *.XML);;Todos (*.*)");
    EXPECT_EQ(TDialogosQt::FiltroQt("Arquivos XML (*.xml;*.XML)|*.xml;*.XML"), "Arquivos XML (*.xml *.XML)");
}
