// Listas de posições: cópias por valor, ocorrências repetidas, erros de índice e posse.

#include "core/TGISPosicaoListList.h"
#include "platform/Exception.h"

#include <gtest/gtest.h>

using namespace tavru;

namespace {
const TGISPosicao A = GISPosicao(10, 20), B = GISPosicao(30, 40), C = GISPosicao(-5, 7);
}

TEST(TGISPosicaoList, GuardaCopiasEAgeNaPrimeiraOcorrencia)
{
    TGISPosicaoList l;
    EXPECT_EQ(l.Add(A), 0);
    EXPECT_EQ(l.Add(B), 1);
    EXPECT_EQ(l.Add(A), 2);
    l.Insert(0, C);
    const TGISPosicao antes = l.ObterPosicao(1);
    l.AtribuirPosicao(1, B);
    EXPECT_EQ(antes, A); // a cópia anterior não muda
    EXPECT_EQ(l[1], B);
    l.AtribuirPosicao(1, A);

    EXPECT_EQ(l.IndexOf(A), 1);
    EXPECT_EQ(l.Remove(A), 1); // a primeira das duas
    EXPECT_EQ(l.IndexOf(A), 2);
    EXPECT_EQ(l.Extract(A), A);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.First(), C);
    EXPECT_EQ(l.Last(), B);
    EXPECT_EQ(l.IndexOf(GISPosicao(20, 10)), -1); // latitude e longitude trocadas não valem
}

TEST(TGISPosicaoList, AusentesEIndicesErradosLevantam)
{
    TGISPosicaoList l;
    EXPECT_THROW(l.First(), EListError);
    EXPECT_THROW(l.Last(), EListError);
    l.Add(A);
    EXPECT_THROW(l.Remove(B), EListError);
    EXPECT_THROW(l.Extract(B), EListError);
    EXPECT_THROW(l.ObterPosicao(1), EListError);
    EXPECT_THROW(l.AtribuirPosicao(-1, B), EListError);
    EXPECT_THROW(l.Insert(2, B), EListError);
    EXPECT_EQ(l.Count(), 1);
    EXPECT_EQ(l.First(), A);
    l.Insert(1, B); // no fim vale
    EXPECT_EQ(l.Last(), B);
}

TEST(TGISPosicaoListList, PossuiAsListas)
{
    // A liberação é conferida pelo AddressSanitizer: nada vaza, nada é liberado duas vezes.
    auto *ll = new TGISPosicaoListList;
    auto *l1 = new TGISPosicaoList;
    l1->Add(A);
    auto *l2 = new TGISPosicaoList;
    ll->Add(l1);
    ll->Add(l2);
    ll->Add(new TGISPosicaoList);
    EXPECT_EQ(ll->ObterGISPosicaoList(0)->First(), A);

    EXPECT_EQ(ll->Extract(l2), l2); // não libera
    l2->Add(B);
    EXPECT_EQ(ll->Remove(l1), 0); // libera
    ll->AtribuirGISPosicaoList(0, l2); // libera a que estava no 0
    EXPECT_EQ(ll->First(), l2);
    EXPECT_THROW(ll->ObterGISPosicaoList(1), EListError);
    delete ll; // libera l2 e as posições dela
}
