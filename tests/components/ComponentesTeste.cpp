// Registro de informações (campos por nome e por índice, linhas "Nome=Valor", erros de índice) e
// tabela de cores (índices fora da lista caem na cor padrão).

#include <tavru/companions/components/TInformacoes.h>
#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

using namespace tavru;

TEST(TInformacoes, CamposPorNomeEIndice)
{
    TInformacoes info;
    EXPECT_EQ(info.ObterIndiceCampo(QStringLiteral("Nome")), -1);
    EXPECT_EQ(info.ObterValor(QStringLiteral("Nome")), QString());
    EXPECT_EQ(info.AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("Rio Azul")), 0);
    EXPECT_EQ(info.AtribuirCampo(QStringLiteral("Equacao"), QStringLiteral("a=b")), 1);
    EXPECT_EQ(info.AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("Rio Verde")), 0); // troca
    EXPECT_EQ(info.AdicionarCampo(QStringLiteral("Nome"), QStringLiteral("outro")), 2);     // repete
    EXPECT_EQ(info.ObterTotal(), 3);
    EXPECT_EQ(info.ObterValor(QStringLiteral("Nome")), QStringLiteral("Rio Verde"));
    EXPECT_EQ(info.ObterIndiceCampo(QStringLiteral("nome")), -1); // diferencia maiúsculas
    EXPECT_EQ(info.ObterNomeCampo(1), QStringLiteral("Equacao"));
    EXPECT_EQ(info.ObterValorCampo(1), QStringLiteral("a=b")); // o valor pode ter "="
    EXPECT_EQ(info.Linhas(), QStringList({"Nome=Rio Verde", "Equacao=a=b", "Nome=outro"}));

    info.AtribuirValorCampo(2, QStringLiteral("x"));
    info.RemoverCampo(0);
    EXPECT_EQ(info.Linhas(), QStringList({"Equacao=a=b", "Nome=x"}));
    EXPECT_THROW(info.ObterNomeCampo(2), EListError);
    EXPECT_THROW(info.ObterValorCampo(-1), EListError);
    EXPECT_THROW(info.RemoverCampo(2), EListError);

    const TInformacoes lida(QStringList({"SemValor", "Tipo="}));
    EXPECT_EQ(lida.ObterNomeCampo(0), QStringLiteral("SemValor"));
    EXPECT_EQ(lida.ObterValorCampo(0), QString());
    EXPECT_EQ(lida.ObterIndiceCampo(QStringLiteral("Tipo")), 1);
}

TEST(TTabelaDeCores, ForaDaListaDaCorPadrao)
{
    TTabelaDeCores t;
    EXPECT_EQ(t.ObterTotal(), 0);
    EXPECT_EQ(t.ObterCor(0), clBlack);
    t.AtribuirCorPadrao(clGray);
    EXPECT_EQ(t.Adicionar(clRed), 0);
    EXPECT_EQ(t.Adicionar(clBlue), 1);
    EXPECT_EQ(t.ObterCor(1), clBlue);
    EXPECT_EQ(t.ObterCor(2), clGray);
    EXPECT_EQ(t.ObterCor(-1), clGray);
    t.AtribuirCor(0, clLime);
    EXPECT_EQ(t.ObterCor(0), clLime);
    EXPECT_THROW(t.AtribuirCor(2, clLime), EListError);
    t.Remover(0);
    EXPECT_EQ(t.ObterCor(0), clBlue);
}
