// Camadas e lista de camadas: cor, visibilidade, nomes livres, buscas, inversão e ordem.

#include "ObjetosDeTeste.h"

#include <tavru/core/TGISCamadaList.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

using namespace tavru;
using tavru::teste::TObjetoTeste;

namespace {
QString Ordem(const TGISCamada &c)
{
    QString s;
    for (const TGISObjeto *o : c.Objetos())
        s += o->Informacoes().ObterValor(QStringLiteral("Nome"));
    return s;
}

TGISCamada *CamadaCom(const QString &nomes)
{
    auto *c = new TGISCamada(QStringLiteral("Teste"));
    for (const QChar n : nomes)
        c->Objetos().Add(new TObjetoTeste(QString(n)));
    return c;
}
} // namespace

TEST(TGISCamada, CorEVisibilidade)
{
    std::unique_ptr<TGISCamada> c(CamadaCom(QStringLiteral("AB")));
    c->AtribuirCor(clRed);
    EXPECT_TRUE(c->CorAtribuida());
    for (const TGISObjeto *o : c->Objetos())
        EXPECT_EQ(o->ObterCor(), clRed);
    c->AtribuirCor(clNone); // tira a cor da camada, não muda os objetos
    EXPECT_FALSE(c->CorAtribuida());
    EXPECT_EQ(c->Objetos()[1]->ObterCor(), clRed);

    c->Visibilidade(false, true);
    for (const TGISObjeto *o : c->Objetos()) {
        EXPECT_FALSE(o->Visivel());
        EXPECT_TRUE(o->RotuloVisivel());
    }
}

TEST(TGISCamada, ProximoNomeEBuscas)
{
    TGISCamada c(QStringLiteral("Pontos"));
    EXPECT_EQ(c.ObterProximoNome(QStringLiteral("Ponto")), QStringLiteral("Ponto001"));
    c.Objetos().Add(new TObjetoTeste(QStringLiteral("Ponto001")));
    c.Objetos().Add(new TObjetoTeste(QStringLiteral("Ponto003")));
    EXPECT_EQ(c.ObterProximoNome(QStringLiteral("Ponto")), QStringLiteral("Ponto002"));

    auto *o = new TObjetoTeste(QStringLiteral("Ponto003"));
    o->AtribuirCodigo(77);
    c.Objetos().Add(o);
    EXPECT_EQ(c.ObterIndiceObjeto(QStringLiteral("Nome"), QStringLiteral("Ponto003")), 1);
    EXPECT_EQ(c.ObterIndiceObjeto(QStringLiteral("Nome"), QStringLiteral("Ponto004")), -1);
    EXPECT_EQ(c.ObterIndiceObjeto(77u), 2);
    EXPECT_EQ(c.ObterIndiceObjeto(78u), -1);
    EXPECT_EQ(c.ObterIndiceObjeto(0u), 0);
    EXPECT_EQ(c.ObterIndiceObjeto(o), 2);
    TObjetoTeste fora;
    EXPECT_EQ(c.ObterIndiceObjeto(&fora), -1);
}

TEST(TGISCamada, InverterOrdemMantemOLimite)
{
    for (const auto &[antes, depois] : {std::pair{"ABCDE", "EDCBA"}, std::pair{"ABCD", "DBCA"},
                                        std::pair{"AB", "AB"}, std::pair{"A", "A"}}) {
        std::unique_ptr<TGISCamada> c(CamadaCom(QString::fromLatin1(antes)));
        c->InverterOrdem();
        EXPECT_EQ(Ordem(*c), QString::fromLatin1(depois)) << antes;
    }
    TGISCamada vazia(QStringLiteral("Vazia"));
    EXPECT_THROW(vazia.InverterOrdem(), EListError);
}

TEST(TGISCamadaList, AddSemRepetirEBuscas)
{
    TGISCamadaList l;
    auto *rios = new TGISCamada(QStringLiteral("Rios"));
    auto *estradas = new TGISCamada(QStringLiteral("Estradas"));
    EXPECT_EQ(l.Add(rios), 0);
    EXPECT_EQ(l.Add(estradas), 1);
    EXPECT_EQ(l.Add(rios), 0);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.IndexOf(QStringLiteral("RIOS")), 0);
    EXPECT_EQ(l.IndexOf(QStringLiteral("Ferrovias")), -1);

    auto *o = new TObjetoTeste;
    estradas->Objetos().Add(o);
    EXPECT_EQ(l.ObterCamadaPeloObjeto(o), estradas);
    TObjetoTeste fora;
    EXPECT_EQ(l.ObterCamadaPeloObjeto(&fora), nullptr);
}
