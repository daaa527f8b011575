// Objetos do mapa e a lista de objetos: dependência, cores, tabela de símbolos da classe,
// extensão e buscas.

#include "ObjetosDeTeste.h"

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>

#include <gtest/gtest.h>

#include <memory>

using namespace tavru;
using tavru::teste::TObjetoTeste;

const TClasseObjeto TObjetoTeste::ClasseTeste = TClasseObjeto::De<TObjetoTeste>("TObjetoTeste");

TEST(Dependencia, IncluirMoveNaHoraEAtualizaEmOrdemEmCadeiaSemRecursarEmCiclo)
{
    QStringList diario;
    TObjetoTeste pai("pai", &diario), a("a", &diario), b("b", &diario), neto("neto", &diario);
    pai.AtribuirPosicao(GISPosicao(10, 20));
    pai.IncluirDependente(&a);
    EXPECT_EQ(a.Posicao(), GISPosicao(10, 20)); // salta para o pai na hora
    a.AtribuirPosicao(GISPosicao(0, 0));
    pai.IncluirDependente(&a); // de novo: uma ligação só, mas salta outra vez
    EXPECT_EQ(a.Posicao(), GISPosicao(10, 20));
    EXPECT_EQ(pai.Dependentes().Count(), 1);
    EXPECT_EQ(a.Pais().Count(), 1);

    pai.IncluirDependente(&b);
    a.IncluirDependente(&neto);
    diario.clear();
    pai.AtribuirPosicao(GISPosicao(5, 6));
    EXPECT_EQ(diario, QStringList({"pai", "a", "neto", "b"}));
    EXPECT_EQ(neto.Posicao(), GISPosicao(5, 6));

    neto.IncluirDependente(&pai); // ciclo: cada um se atualiza uma vez por rodada
    diario.clear();
    pai.AtribuirPosicao(GISPosicao(7, 8));
    EXPECT_EQ(diario.count("pai"), 2); // a própria chamada e a volta pelo ciclo
    EXPECT_EQ(a.Posicao(), GISPosicao(7, 8));

    pai.RemoverDependente(&a);
    EXPECT_EQ(pai.Dependentes().Count(), 1);
    EXPECT_EQ(a.Pais().Count(), 0);
}

TEST(Dependencia, DestruirPaiOuFilhoDesfazAsLigacoes)
{
    auto pai = std::make_unique<TObjetoTeste>();
    auto filho = std::make_unique<TObjetoTeste>();
    TObjetoTeste outroPai;
    pai->IncluirDependente(filho.get());
    outroPai.IncluirDependente(filho.get());
    pai.reset();
    EXPECT_EQ(filho->Pais().Count(), 1);
    EXPECT_EQ(filho->Pais()[0], &outroPai);

    TObjetoTeste dependente;
    filho->IncluirDependente(&dependente);
    filho.reset();
    EXPECT_EQ(outroPai.Dependentes().Count(), 0);
    EXPECT_EQ(dependente.Pais().Count(), 0);
    outroPai.AtribuirPosicao(GISPosicao(3, 3)); // nenhum ponteiro solto (AddressSanitizer)
}

TEST(TGISObjeto, CorDaTabelaValidadeETabelaDeSimbolosDaClasse)
{
    TTabelaDeCores cores;
    cores.AtribuirCores({clRed, clBlue});
    cores.AtribuirCorPadrao(clGreen);
    TObjetoTeste o;
    o.AtualizarCores(cores); // IndiceCor -1: a cor padrão
    EXPECT_EQ(o.ObterCor(), clGreen);
    o.AtribuirIndiceCor(1);
    o.AtualizarCores(cores);
    EXPECT_EQ(o.ObterCor(), clBlue);

    EXPECT_FALSE(o.ObterValido()); // extensão vazia
    o.FArea = GISRet(0, 0, 10, 10);
    EXPECT_TRUE(o.ObterValido());

    EXPECT_EQ(TGISObjeto::ObterTabelaSimbolos(), nullptr);
    {
        TTabelaDeSimbolos simbolos;
        TGISObjeto::AtribuirTabelaSimbolos(&simbolos);
        EXPECT_EQ(TGISObjeto::ObterTabelaSimbolos(), &simbolos);
    }
    EXPECT_EQ(TGISObjeto::ObterTabelaSimbolos(), nullptr); // esquecida ao ser destruída
}

TEST(TGISObjetoList, CalcularLimitesEBuscaExata)
{
    TGISObjetoList l;
    l.AtribuirLimites(GISRet(1, 2, 3, 4));
    l.CalcularLimites();
    EXPECT_EQ(l.Limites(), GISRet(1, 2, 3, 4)); // vazia: fica como estava
    EXPECT_EQ(TGISObjetoList().Limites(), MundoInteiro);

    auto *a = new TObjetoTeste;
    a->FArea = GISRet(10, 10, 20, 20);
    auto *b = new TObjetoTeste;
    b->FArea = GISRet(-5, 15, 0, 30);
    l.Add(a);
    l.CalcularLimites();
    EXPECT_EQ(l.Limites(), GISRet(10, 10, 20, 20)); // o anterior não entra
    l.Add(b);
    l.CalcularLimites();
    EXPECT_EQ(l.Limites(), GISRet(-5, 10, 20, 30));

    // A busca por campo e valor é exata e acha o primeiro.
    auto *rio = new TObjetoTeste("Rio");
    l.Add(rio);
    l.Add(new TObjetoTeste("Rio"));
    EXPECT_EQ(l.ObterObjeto("Nome", "Rio"), rio);
    EXPECT_EQ(l.ObterObjeto("Nome", "rio"), nullptr);
    EXPECT_EQ(l.ObterObjeto("nome", "Rio"), nullptr);
    EXPECT_EQ(l.ObterObjeto("Tipo", QString()), nullptr); // campo ausente não é campo vazio
}

