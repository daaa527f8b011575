// Gravação de GeoJSON e GeoPackage: o que se grava volta igual (formas, partes, furos, atributos),
// o que não se grava é recusado sem tocar no arquivo.

#include "AjudaGdal.h"

#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace tavru;
using namespace tavru::teste;

namespace {

TGISPosicaoList *Anel(std::initializer_list<TGISPosicao> pontos)
{
    auto *lista = new TGISPosicaoList;
    for (const TGISPosicao &p : pontos)
        lista->Add(p);
    return lista;
}

// Um ponto, uma linha de duas partes, uma área com furo e uma área comum de duas partes, com
// campos que não são os mesmos em todos os objetos.
void Montar(TGISObjetoList &lista)
{
    auto *ponto = new TGISPonto;
    ponto->AtribuirPosicao(TGISPosicao{-3600, -7200}); // latitude -1°, longitude -2°
    ponto->Informacoes().AdicionarCampo(QStringLiteral("nome"), QStringLiteral("Ilha d'Água"));
    lista.Add(ponto);

    auto *linha = new TGISLinha;
    linha->Pontos().Add(Anel({{0, 0}, {3600, 7200}}));
    linha->Pontos().Add(Anel({{-3600, 0}, {-7200, 3600}, {-10800, 0}}));
    linha->CalcularLimites();
    linha->Informacoes().AdicionarCampo(QStringLiteral("tipo"), QStringLiteral("rio"));
    lista.Add(linha);

    auto *lago = new TGISAreaComFuros;
    lago->Pontos().Add(Anel({{0, 0}, {0, 36000}, {36000, 36000}, {36000, 0}}));
    lago->Pontos().Add(Anel({{3600, 3600}, {7200, 3600}, {7200, 7200}, {3600, 7200}}));
    lago->CalcularLimites();
    lago->Informacoes().AdicionarCampo(QStringLiteral("nome"), QStringLiteral("Lago"));
    lago->Informacoes().AdicionarCampo(QStringLiteral("tipo"), QStringLiteral("água"));
    lista.Add(lago);

    auto *ilhas = new TGISArea;
    ilhas->Pontos().Add(Anel({{100000, 100000}, {100000, 110000}, {110000, 100000}}));
    ilhas->Pontos().Add(Anel({{200000, 200000}, {200000, 210000}, {210000, 200000}}));
    ilhas->CalcularLimites();
    lista.Add(ilhas);
}

} // namespace

TEST(GravacaoOGR, GeoJSONEGeoPackageVoltamIguais)
{
    QTemporaryDir dir;
    for (const char *nome : {"ida.geojson", "ida.gpkg"}) {
        SCOPED_TRACE(nome);
        const QString arquivo = dir.filePath(QString::fromLatin1(nome));
        TGISObjetoList lista;
        Montar(lista);
        ASSERT_TRUE(lista.Gravar(arquivo, QString::fromLatin1(QByteArray(nome).endsWith("gpkg") ? "GeoPackage" : "GeoJSON")));

        TGISObjetoList volta;
        ASSERT_TRUE(volta.Ler(arquivo, TGISObjetoList::ObterTipoPeloArquivo(arquivo, true)));
        ASSERT_EQ(volta.Count(), 4);
        EXPECT_EQ(volta.Items(0)->Posicao(), (TGISPosicao{-3600, -7200}));
        // Os campos são a união, na ordem em que aparecem; o que um objeto não tem fica vazio.
        EXPECT_EQ(volta.Items(0)->Informacoes().Linhas(),
                  QStringList({QStringLiteral("nome=Ilha d'Água"), QStringLiteral("tipo=")}));
        EXPECT_EQ(volta.Items(2)->Informacoes().ObterValor(QStringLiteral("tipo")), QStringLiteral("água"));

        const auto &linha = dynamic_cast<const TGISLinha &>(*volta.Items(1));
        ASSERT_EQ(linha.Pontos().Count(), 2);
        EXPECT_EQ(linha.ObterPonto(1, 2), (TGISPosicao{-10800, 0}));

        // A área com furo: um polígono de dois anéis (fechados ao gravar: um ponto a mais cada).
        const auto *lago = dynamic_cast<const TGISAreaComFuros *>(volta.Items(2));
        ASSERT_NE(lago, nullptr);
        ASSERT_EQ(lago->Pontos().Count(), 2);
        EXPECT_EQ(lago->Pontos().Items(0)->Count(), 5);
        EXPECT_EQ(lago->Area(), GISRet(0, 0, 36000, 36000));
        // A área comum de duas partes: duas partes de volta, lado a lado.
        const auto *ilhas = dynamic_cast<const TGISAreaComFuros *>(volta.Items(3));
        ASSERT_NE(ilhas, nullptr);
        EXPECT_EQ(ilhas->Pontos().Count(), 2);
        EXPECT_EQ(ilhas->Area(), GISRet(100000, 100000, 210000, 210000));
    }
}

TEST(GravacaoOGR, ObjetosQueNaoSeGravamEExtensaoDesconhecidaNaoTocamNoArquivo)
{
    QTemporaryDir dir;
    const QString arquivo = dir.filePath(QStringLiteral("velho.geojson"));
    {
        QFile f(arquivo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("anterior");
    }
    TGISObjetoList lista;
    Montar(lista);
    lista.Add(new TGISTexto);
    lista.Add(new TGISAreaCircular);
    try {
        lista.Gravar(arquivo, QStringLiteral("GeoJSON"));
        FAIL();
    } catch (const EInvalidOperation &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("4 (TGISTexto), 5 (TGISAreaCircular)"))) << e.Message().toStdString();
    }
    QFile f(arquivo);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("anterior"));

    lista.Delete(5);
    lista.Delete(4);
    EXPECT_THROW(lista.Gravar(dir.filePath(QStringLiteral("mapa.kml")), QStringLiteral("GeoJSON")), EInOutError);
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("mapa.kml"))));
    // Uma pasta no lugar do arquivo: erro com o motivo, nada criado ao lado.
    const QString pasta = dir.filePath(QStringLiteral("pasta.gpkg"));
    ASSERT_TRUE(QDir().mkdir(pasta));
    EXPECT_THROW(lista.Gravar(pasta, QStringLiteral("GeoPackage")), EInOutError);
}
