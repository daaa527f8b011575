// Listas de posições: cópias por valor, ocorrências repetidas e erros de índice.

#include <tavru/core/TGISPosicaoList.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

using namespace tavru;

namespace {
const TGISPosicao A = GISPosicao(10, 20), B = GISPosicao(30, 40), C = GISPosicao(-5, 7);
}

TEST(TGISPosicaoList, CopiasPrimeiraOcorrenciaEIndicesErrados)
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

    // Ausentes e índices errados levantam sem mudar a lista; inserir no fim vale.
    EXPECT_THROW(l.Remove(A), EListError);
    EXPECT_THROW(l.Extract(A), EListError);
    EXPECT_THROW(l.ObterPosicao(2), EListError);
    EXPECT_THROW(l.AtribuirPosicao(-1, B), EListError);
    EXPECT_THROW(l.Insert(3, B), EListError);
    EXPECT_EQ(l.Count(), 2);
    l.Insert(2, A);
    EXPECT_EQ(l.Last(), A);
    TGISPosicaoList vazia;
    EXPECT_THROW(vazia.First(), EListError);
    EXPECT_THROW(vazia.Last(), EListError);
}

