#include <tavru/platform/TObjectList.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

using namespace tavru;

namespace {

/// Conta as instâncias vivas, para ver quem a lista liberou.
struct Contado
{
    static int Vivos;
    int Valor;
    explicit Contado(int v) : Valor(v) { ++Vivos; }
    ~Contado() { --Vivos; }
};
int Contado::Vivos = 0;

} // namespace

TEST(ListaDeObjetos, PosseEIndicesForaDosLimites)
{
    Contado::Vivos = 0;
    {
        TObjectList<Contado> lista;
        Contado *a = new Contado(1), *b = new Contado(2), *c = new Contado(3);
        lista.Add(a);
        lista.Add(b);
        lista.Add(c);
        EXPECT_EQ(lista.Remove(b), 1);
        EXPECT_EQ(Contado::Vivos, 2);
        EXPECT_EQ(lista.Extract(a), a);
        EXPECT_EQ(Contado::Vivos, 2);
        EXPECT_EQ(lista.Count(), 1);
        EXPECT_EQ(lista.Extract(a), nullptr) << "extrair o que não está na lista não acha nada";
        EXPECT_EQ(lista.Remove(a), -1);
        delete a;
        // Trocar de lugar nunca libera.
        lista.Add(new Contado(4));
        lista.Exchange(0, 1);
        EXPECT_EQ(lista.First()->Valor, 4);
        EXPECT_EQ(Contado::Vivos, 2);
        // Substituir um item libera o anterior.
        lista.SetItems(0, new Contado(5));
        EXPECT_EQ(Contado::Vivos, 2);
    }
    EXPECT_EQ(Contado::Vivos, 0) << "a destruição libera o que a lista possui";

    TObjectList<Contado> naoPossui(false);
    Contado x(9);
    naoPossui.Add(&x);
    naoPossui.Delete(0);
    EXPECT_EQ(Contado::Vivos, 1);

    TObjectList<Contado> lista;
    EXPECT_THROW(lista.First(), EListError);
    EXPECT_THROW(lista.Last(), EListError);
    EXPECT_THROW(lista.Items(0), EListError);
    EXPECT_THROW(lista.Exchange(0, 1), EListError);
    EXPECT_THROW(lista.Insert(1, nullptr), EListError);
    lista.Insert(0, new Contado(1));
    EXPECT_THROW(lista.Delete(1), EListError);
    EXPECT_THROW(lista.Items(-1), EListError);
    try {
        lista.Items(7);
    } catch (const EListError &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("7")));
        EXPECT_STRNE(e.what(), "");
    }
}

TEST(ListaDeTextos, ObjetosAnexadosEBusca)
{
    TStringList l;
    int a = 1, b = 2;
    l.AddObject(QStringLiteral("Rios"), &a);
    l.AddObject(QStringLiteral("Cidades"), &b);
    EXPECT_EQ(l.Objeto<int>(1), &b);
    EXPECT_EQ(l.IndexOf(QStringLiteral("rios")), -1) << "a busca diferencia maiúsculas por padrão";
    l.CaseSensitive = false;
    EXPECT_EQ(l.IndexOf(QStringLiteral("rios")), 0);
    EXPECT_EQ(l.IndexOfObject(&b), 1);
    l.Insert(0, QStringLiteral("Topo"));
    EXPECT_EQ(l.Text(), QStringLiteral("Topo\r\nRios\r\nCidades\r\n"));
    l.Delete(0);
    EXPECT_THROW(l.Strings(2), EListError);
    EXPECT_THROW(l.Insert(4, QString()), EListError);
}
