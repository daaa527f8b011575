// O visualizador de informações: uma linha por campo, "Campo" e "Valor", e a limpeza.

#include <tavru/companions/components/TVisualizadorInformacoes.h>

#include <QTableWidget>
#include <gtest/gtest.h>

using namespace tavru;

TEST(TVisualizadorInformacoes, MostraCamposEValoresELimpa)
{
    TVisualizadorInformacoes v;
    EXPECT_EQ(v.Tabela()->horizontalHeaderItem(0)->text(), QStringLiteral("Campo"));
    v.AtribuirInformacoes({"Nome=Rio Azul", "Equacao=a=b", "SemValor"});
    ASSERT_EQ(v.ObterTotal(), 3);
    EXPECT_EQ(v.ObterCelula(0, 1), QStringLiteral("Rio Azul"));
    EXPECT_EQ(v.ObterCelula(1, 1), QStringLiteral("a=b"));
    EXPECT_EQ(v.ObterCelula(2, 0), QStringLiteral("SemValor"));
    v.AtribuirInformacoes({"Tipo=Cidade"}); // troca, não acumula
    EXPECT_EQ(v.ObterTotal(), 1);
    v.Limpar();
    EXPECT_EQ(v.ObterTotal(), 0);
}
