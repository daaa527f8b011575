// A leitura acompanhada: o progresso anda só para a frente e chega a 1, e parar em qualquer ponto
// (ou um erro no meio) deixa a lista como estava.

#include "AjustesXML.h"

#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

#include <vector>

using namespace tavru;

namespace {

class Progresso : public teste::DocumentoXML
{
protected:
    // Um documento com `n` pontos (um composto no meio, cujos membros não contam à parte).
    QString DocumentoDePontos(int n)
    {
        QString corpo;
        for (int i = 0; i < n; ++i) {
            corpo += QStringLiteral("<Ponto Latitude=\"10°00'%1''S\" Longitude=\"040°00'00''W\"/>\r\n").arg(i % 60, 2, 10, QLatin1Char('0'));
            if (i == n / 2)
                corpo += QStringLiteral("<Composto><Ponto Latitude=\"1°00'00''S\" Longitude=\"1°00'00''W\"/>"
                                        "<Ponto Latitude=\"2°00'00''S\" Longitude=\"2°00'00''W\"/></Composto>\r\n");
        }
        return Documento(corpo);
    }

    struct TAviso
    {
        double Fracao;
        int Objetos;
    };
};

// Uma lista com dois objetos de antes, que nenhuma leitura parada pode tocar.
void DoisDeAntes(TGISObjetoList &lista, std::vector<TGISObjeto *> &antes)
{
    for (int i = 0; i < 2; ++i) {
        auto *p = new TGISPonto;
        p->AtribuirPosicao(GISPosicao(i, i));
        lista.Add(p);
        antes.push_back(p);
    }
    lista.AtribuirNomeArquivo(QStringLiteral("antes.xml"));
}

} // namespace

TEST_F(Progresso, AndaParaAFrenteEChegaAUm)
{
    const QString doc = DocumentoDePontos(40);
    TGISObjetoList lista;
    std::vector<TGISObjeto *> antes;
    DoisDeAntes(lista, antes);
    std::vector<TAviso> avisos;
    ASSERT_TRUE(lista.Ler(doc, QStringLiteral("XML"), {}, [&](double f, int n) {
        avisos.push_back({f, n});
        return true;
    }, 0));
    EXPECT_EQ(lista.Count(), 2 + 41);
    EXPECT_EQ(lista.Items(0), antes[0]); // os de antes ficam na frente, e os novos vêm em ordem
    EXPECT_EQ(lista.Items(2)->Posicao().Latitude, -36000);
    EXPECT_EQ(lista.NomeArquivo(), doc);
    ASSERT_GE(avisos.size(), 41u);
    for (size_t i = 1; i < avisos.size(); ++i) {
        EXPECT_GE(avisos[i].Fracao, avisos[i - 1].Fracao) << i;
        EXPECT_GE(avisos[i].Objetos, avisos[i - 1].Objetos) << i;
    }
    EXPECT_GT(avisos.front().Fracao, 0.0);
    EXPECT_LT(avisos.front().Fracao, 0.1);
    EXPECT_EQ(avisos.back().Fracao, 1.0);
    EXPECT_EQ(avisos.back().Objetos, 41); // os do documento, sem os de antes nem os membros do composto

    // Com o intervalo padrão, uma leitura curta avisa poucas vezes, mas sempre o fim.
    TGISObjetoList outra;
    std::vector<TAviso> poucos;
    ASSERT_TRUE(outra.Ler(doc, QStringLiteral("XML"), {}, [&](double f, int n) {
        poucos.push_back({f, n});
        return true;
    }));
    ASSERT_FALSE(poucos.empty());
    EXPECT_LT(poucos.size(), avisos.size());
    EXPECT_EQ(poucos.back().Fracao, 1.0);
}

TEST_F(Progresso, PararEmQualquerPontoDeixaAListaComoEstava)
{
    const QString doc = DocumentoDePontos(40);
    // Parar no primeiro aviso, no meio (depois do composto), no último objeto e no aviso do fim.
    for (int parar : {1, 25, 41, 42}) {
        SCOPED_TRACE(parar);
        TGISObjetoList lista;
        std::vector<TGISObjeto *> antes;
        DoisDeAntes(lista, antes);
        const std::uint64_t contador = lista.ContadorDeMudancas();
        int chamadas = 0;
        EXPECT_THROW(lista.Ler(doc, QStringLiteral("XML"), {}, [&](double, int) { return ++chamadas < parar; }, 0),
                     ELeituraCancelada);
        EXPECT_EQ(chamadas, parar); // parou quando pediu
        ASSERT_EQ(lista.Count(), 2);
        EXPECT_EQ(lista.Items(0), antes[0]);
        EXPECT_EQ(lista.Items(1), antes[1]);
        EXPECT_EQ(lista.ContadorDeMudancas(), contador); // nenhum aviso
        EXPECT_EQ(lista.NomeArquivo(), QStringLiteral("antes.xml"));
    }

    // Um erro do documento no meio da leitura acompanhada também não deixa nada.
    const QString ruim = Documento(QStringLiteral("<Ponto Latitude=\"10°00'00''S\" Longitude=\"040°00'00''W\"/>\r\n"
                                                  "<Ponto Latitude=\"xis\" Longitude=\"040°00'00''W\"/>"));
    TGISObjetoList lista;
    std::vector<TGISObjeto *> antes;
    DoisDeAntes(lista, antes);
    EXPECT_ANY_THROW(lista.Ler(ruim, QStringLiteral("XML"), {}, [](double, int) { return true; }, 0));
    EXPECT_EQ(lista.Count(), 2);
}
