#include "platform/TProvedorDeDialogos.h"

#include <gtest/gtest.h>

using namespace tavru;

TEST(Dialogos, RoteirizadosRespondemDaFilaESeCancelamQuandoVazios)
{
    auto roteiro = std::make_unique<TDialogosRoteirizados>();
    TDialogosRoteirizados *r = roteiro.get();
    auto anterior = TrocarDialogos(std::move(roteiro));
    r->Textos = {QStringLiteral("12"), std::nullopt};
    EXPECT_EQ(Dialogos().InputBox(QStringLiteral("Pontos"), QStringLiteral("Quantos?"), QStringLiteral("4")), QStringLiteral("12"));
    EXPECT_EQ(Dialogos().InputBox(QStringLiteral("Pontos"), QStringLiteral("Quantos?"), QStringLiteral("4")), QStringLiteral("4"));
    EXPECT_EQ(Dialogos().InputBox(QStringLiteral("Pontos"), QStringLiteral("Quantos?"), QStringLiteral("5")), QStringLiteral("5"));
    EXPECT_EQ(r->Perguntas.size(), 3);

    r->Arquivos = {std::make_pair(QStringLiteral("/tmp/a.xml"), 2)};
    QString nome;
    int indice = 1;
    EXPECT_TRUE(Dialogos().AbrirArquivo(QStringLiteral("Abrir"), QStringLiteral("A|*.a|B|*.b"), nome, indice));
    EXPECT_EQ(nome, QStringLiteral("/tmp/a.xml"));
    EXPECT_EQ(indice, 2);
    EXPECT_FALSE(Dialogos().SalvarArquivo(QStringLiteral("Salvar"), QString(), nome, indice));

    EXPECT_TRUE(Dialogos().Mensagem(QStringLiteral("Pronto"), QString(), mtInformacao));
    EXPECT_FALSE(Dialogos().Mensagem(QStringLiteral("Apagar?"), QString(), mtConfirmacao));
    EXPECT_EQ(r->Mensagens, QStringList({QStringLiteral("Pronto"), QStringLiteral("Apagar?")}));

    TrocarDialogos(std::move(anterior));
    EXPECT_NE(dynamic_cast<TDialogosQt *>(&Dialogos()), nullptr);
}

TEST(Dialogos, FiltrosDaCasaViramFiltrosDoQt)
{
    const QString filtro = QStringLiteral("Arquivos Compatíveis (*.xml;*.geo)|*.xml;*.geo|Arquivos XML (*.xml)|*.xml|Todos os Arquivos (*.*)|*.*");
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 2), QStringLiteral("Arquivos XML (*.xml)|*.xml"));
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 4), QString());
    EXPECT_EQ(TProvedorDeDialogos::ParDoFiltro(filtro, 0), QString());
    EXPECT_EQ(TDialogosQt::FiltroQt(QStringLiteral("XML|*.xml;*.XML|Todos|*.*")),
              QStringLiteral("XML (*.xml *.XML);;Todos (*.*)"));
}
