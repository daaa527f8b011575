// Leitura das fontes vetoriais pelo OGR: o que cada formato traz (contagens, limites, furos,
// atributos, conversão de sistema), as camadas de uma fonte de várias, a escolha do tipo pelo
// arquivo e os erros, que deixam a lista como estava.

#include "AjudaGdal.h"

#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <sys/stat.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

int Contar(const TGISObjetoList &lista, const std::function<bool(const TGISObjeto &)> &f)
{
    int n = 0;
    for (int i = 0; i < lista.Count(); ++i)
        n += f(*lista.Items(i)) ? 1 : 0;
    return n;
}

template <typename T>
bool Eh(const TGISObjeto &o)
{
    return typeid(o) == typeid(T);
}

// Um GeoPackage com duas camadas: "cidades" (dois pontos) e "rios" (uma linha).
void GeoPackageDeDuasCamadas(const QString &nome)
{
    GDALAllRegister();
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    ASSERT_NE(driver, nullptr);
    GDALDatasetUniquePtr ds(driver->Create(nome.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
    ASSERT_NE(ds, nullptr);
    OGRSpatialReference wgs;
    wgs.importFromEPSG(4326);
    OGRLayer *cidades = ds->CreateLayer("cidades", &wgs, wkbPoint, nullptr);
    OGRFieldDefn campo("nome", OFTString);
    cidades->CreateField(&campo);
    for (auto [nomeCidade, x, y] : {std::tuple{"Belém", -48.5, -1.45}, std::tuple{"Natal", -35.2, -5.8}}) {
        OGRFeatureUniquePtr f(OGRFeature::CreateFeature(cidades->GetLayerDefn()));
        f->SetField(0, nomeCidade);
        f->SetGeometryDirectly(new OGRPoint(x, y));
        cidades->CreateFeature(f.get());
    }
    OGRLayer *rios = ds->CreateLayer("rios", &wgs, wkbLineString, nullptr);
    OGRFeatureUniquePtr f(OGRFeature::CreateFeature(rios->GetLayerDefn()));
    auto *linha = new OGRLineString;
    linha->addPoint(-60, -3);
    linha->addPoint(-50, -1);
    f->SetGeometryDirectly(linha);
    rios->CreateFeature(f.get());
}

// Um tratador de outra biblioteca que pede "*.dgn" (como o plug-in DGN, registrado depois).
class TTratadorDeDesenhos : public TGISTratadorDeArquivo
{
public:
    static const TClasseTratador Classe;
    using TGISTratadorDeArquivo::TGISTratadorDeArquivo;
    void Ler(const QString &) override {}
    void Gravar(const QString &) override {}
    bool Reconhece(QIODevice &) override { return true; } // como o do plug-in DGN
};
const TClasseTratador TTratadorDeDesenhos::Classe = TClasseTratador::De<TTratadorDeDesenhos>("TTratadorDeDesenhos");

} // namespace

TEST(LeituraOGR, GeoJSONPontosLinhasAreasComFurosEAtributos)
{
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(DadoGdal("amostra.geojson"), QStringLiteral("GeoJSON")));
    // 1 ponto + 2 do multiponto + 2 linhas + 2 áreas; a feição sem geometria é pulada.
    ASSERT_EQ(lista.Count(), 7);
    EXPECT_EQ(Contar(lista, Eh<TGISPonto>), 3);
    EXPECT_EQ(Contar(lista, Eh<TGISLinha>), 2);
    EXPECT_EQ(Contar(lista, Eh<TGISAreaComFuros>), 2);

    // Ponto: longitude e latitude diferentes, em segundos, arredondados.
    const TGISObjeto &sp = *lista.Items(0);
    EXPECT_EQ(sp.Posicao().Longitude, -167880); // -46.6333 * 3600 = -167879.88
    EXPECT_EQ(sp.Posicao().Latitude, -84782);   // -23.5505 * 3600 = -84781.8
    // Atributos na ordem dos campos, texto UTF-8, nulo como vazio.
    EXPECT_EQ(sp.Informacoes().ObterTotal(), 3);
    EXPECT_EQ(sp.Informacoes().ObterNomeCampo(0), QStringLiteral("nome"));
    EXPECT_EQ(sp.Informacoes().ObterValor(QStringLiteral("nome")), QStringLiteral("São Paulo"));
    EXPECT_EQ(sp.Informacoes().ObterValor(QStringLiteral("pop")), QStringLiteral("12325232"));
    EXPECT_EQ(sp.Informacoes().ObterValor(QStringLiteral("nota")), QString());
    // Cada ponto do multiponto leva os atributos da feição.
    EXPECT_EQ(lista.Items(2)->Informacoes().ObterValor(QStringLiteral("nome")), QStringLiteral("Faróis"));
    EXPECT_EQ(lista.Items(2)->Posicao(), (TGISPosicao{-5 * 3600 - 48 * 60, -35 * 3600 - 12 * 60}));

    // Multilinha: uma linha de duas partes, com os vértices na ordem.
    const auto &trechos = static_cast<const TGISLinha &>(*lista.Items(4));
    ASSERT_EQ(trechos.Pontos().Count(), 2);
    EXPECT_EQ(trechos.Pontos().Items(1)->Count(), 3);
    EXPECT_EQ(trechos.ObterPonto(1, 2), (TGISPosicao{-24 * 3600, -54 * 3600}));
    EXPECT_EQ(trechos.Area(), GISRet(-24 * 3600, -54 * 3600, -20 * 3600, -50 * 3600));

    // Polígono com furo: duas partes; o ponto no furo fica fora, o do anel fica dentro.
    const auto &lago = static_cast<const TGISAreaComFuros &>(*lista.Items(5));
    ASSERT_EQ(lago.Pontos().Count(), 2);
    EXPECT_EQ(lago.Area(), GISRet(-10 * 3600, -60 * 3600, -6 * 3600, -56 * 3600));
    // Multipolígono: as duas ilhas como partes de uma área só.
    EXPECT_EQ(static_cast<const TGISAreaComFuros &>(*lista.Items(6)).Pontos().Count(), 2);

    // Limites da lista: de todos os objetos.
    EXPECT_EQ(lista.Limites().Pos1.Longitude, -60 * 3600);
    EXPECT_EQ(lista.Limites().Pos2.Latitude, 3600);
    EXPECT_EQ(lista.TipoArquivo(), QStringLiteral("GeoJSON"));
}

TEST(LeituraOGR, SistemaProjetadoConvertidoGPXEKML)
{
    // UTM 23 sul: (500000, 8000000) fica no meridiano central, -45°, e a latitude sai da
    // projeção inversa (-18,08871°, pelo gdaltransform).
    TGISObjetoList utm;
    ASSERT_TRUE(utm.Ler(DadoGdal("utm23s.geojson"), QStringLiteral("GeoJSON")));
    ASSERT_EQ(utm.Count(), 1);
    EXPECT_EQ(utm.Items(0)->Posicao().Longitude, -45 * 3600);
    EXPECT_NEAR(utm.Items(0)->Posicao().Latitude, -18.0887089 * 3600, 0.6);

    // GPX: todas as camadas (2 pontos de passagem, 1 trilha, 3 pontos da trilha).
    TGISObjetoList gpx;
    ASSERT_TRUE(gpx.Ler(DadoGdal("amostra.gpx"), QStringLiteral("GPX")));
    EXPECT_EQ(gpx.Count(), 6);
    EXPECT_EQ(gpx.Items(0)->Informacoes().ObterValor(QStringLiteral("name")), QStringLiteral("Brasília"));
    EXPECT_EQ(Contar(gpx, Eh<TGISLinha>), 1);
    // Só a camada pedida.
    TGISObjetoList trilha;
    ASSERT_TRUE(trilha.Ler(DadoGdal("amostra.gpx"), QStringLiteral("GPX"), {{QStringLiteral("Camada"), QStringLiteral("tracks")}}));
    ASSERT_EQ(trilha.Count(), 1);
    EXPECT_EQ(static_cast<const TGISLinha &>(*trilha.Items(0)).Pontos().Items(0)->Count(), 3);

    // KML: o polígono com furo vira área de duas partes.
    TGISObjetoList kml;
    ASSERT_TRUE(kml.Ler(DadoGdal("amostra.kml"), QStringLiteral("KML")));
    ASSERT_EQ(kml.Count(), 2);
    EXPECT_EQ(kml.Items(0)->Informacoes().ObterValor(QStringLiteral("Name")), QStringLiteral("Manaus"));
    ASSERT_TRUE(Eh<TGISAreaComFuros>(*kml.Items(1)));
    EXPECT_EQ(static_cast<const TGISAreaComFuros &>(*kml.Items(1)).Pontos().Count(), 2);
}

TEST(LeituraOGR, GeoPackageDeVariasCamadasETipoPeloArquivo)
{
    QTemporaryDir dir;
    const QString gpkg = dir.filePath(QStringLiteral("duas.gpkg"));
    GeoPackageDeDuasCamadas(gpkg);
    TGISObjetoList todas;
    ASSERT_TRUE(todas.Ler(gpkg, QStringLiteral("GeoPackage")));
    EXPECT_EQ(todas.Count(), 3);
    TGISObjetoList rios;
    ASSERT_TRUE(rios.Ler(gpkg, QStringLiteral("GeoPackage"), {{QStringLiteral("Camada"), QStringLiteral("rios")}}));
    ASSERT_EQ(rios.Count(), 1);
    EXPECT_TRUE(Eh<TGISLinha>(*rios.Items(0)));
    EXPECT_EQ(rios.OpcoesDeLeitura().value(QStringLiteral("Camada")).toString(), QStringLiteral("rios"));

    // Uma camada que não existe: erro com as que existem, e a lista fica como estava.
    try {
        rios.Ler(gpkg, QStringLiteral("GeoPackage"), {{QStringLiteral("Camada"), QStringLiteral("lagos")}});
        FAIL();
    } catch (const EFilerError &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("\"lagos\"")));
        EXPECT_TRUE(e.Message().contains(QStringLiteral("\"cidades\", \"rios\"")));
    }
    EXPECT_EQ(rios.Count(), 1);

    // A escolha do tipo pelo arquivo: cada extensão acha o seu; um Shapefile fica com o tratador
    // da casa; uma extensão qualquer de uma fonte vetorial cai em "Outros formatos vetoriais".
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(gpkg, true), QStringLiteral("GeoPackage"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(DadoGdal("amostra.kml"), true), QStringLiteral("KML"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(DadoGdal("utm23s.tif"), true), QStringLiteral("GeoTIFF"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(QStringLiteral(TAVRU_DADOS "/shp/br_states.shp"), true),
              QStringLiteral("ShapeFile"));
    const QString csv = dir.filePath(QStringLiteral("pontos.csvt2"));
    QFile::copy(DadoGdal("amostra.geojson"), csv);
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(csv, true), QStringLiteral("Outros formatos vetoriais"));
    TGISObjetoList outros;
    ASSERT_TRUE(outros.Ler(csv, QStringLiteral("Outros formatos vetoriais")));
    EXPECT_EQ(outros.Count(), 7);
    // Um padrão específico de outra biblioteca ganha dos "*.*" do GDAL, mesmo registrado depois e
    // mesmo que o OGR também leia o arquivo.
    const QString dgn = QStringLiteral(TAVRU_DADOS "/dgn/brazil_sample.dgn");
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(dgn, true), QStringLiteral("Outros formatos vetoriais"));
    const auto registro = TGISObjetoList::ObterRegistro();
    TGISObjetoList::RegistrarTratadorDeArquivo(QStringLiteral("Desenhos"), TTratadorDeDesenhos::Classe,
                                               QStringLiteral("Desenhos (*.dgn)|*.dgn"), QString());
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(dgn, true), QStringLiteral("Desenhos"));
    TGISObjetoList::RestaurarRegistro(registro);
    // Com os "*.*" do GDAL todo nome tem vários candidatos: um FIFO não é aberto para perguntar
    // (a abertura esperaria por quem escreve), fica com o primeiro.
    const QString fifo = dir.filePath(QStringLiteral("fila.geojson"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloArquivo(fifo, true), QStringLiteral("GeoJSON"));
    EXPECT_THROW(outros.Ler(fifo, QStringLiteral("GeoJSON")), EInOutError);
    // Os filtros de gravação: só GeoJSON e GeoPackage.
    const QString escrita = TGISObjetoList::ObterFiltroCompletoDeEscrita();
    EXPECT_TRUE(escrita.contains(QStringLiteral("*.gpkg")));
    EXPECT_FALSE(escrita.contains(QStringLiteral("*.kml")));
}

TEST(LeituraOGR, ErrosDeixamAListaComoEstava)
{
    QTemporaryDir dir;
    TGISObjetoList lista;
    lista.Add(new TGISPonto);
    const auto falha = [&](const QString &arquivo, const QString &tipo, const QString &trecho) {
        SCOPED_TRACE(arquivo.toStdString());
        try {
            lista.Ler(arquivo, tipo);
            ADD_FAILURE() << "sem erro";
        } catch (const Exception &e) {
            EXPECT_TRUE(e.Message().contains(trecho)) << e.Message().toStdString();
        }
        EXPECT_EQ(lista.Count(), 1);
    };
    const auto escrever = [&](const char *nome, const QByteArray &bytes) {
        QFile f(dir.filePath(QString::fromLatin1(nome)));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return f.fileName();
    };
    falha(dir.filePath(QStringLiteral("nada.geojson")), QStringLiteral("GeoJSON"), QStringLiteral("não existe"));
    falha(dir.path(), QStringLiteral("GeoJSON"), QStringLiteral("é uma pasta"));
    falha(escrever("lixo.geojson", "isto não é GeoJSON {"), QStringLiteral("GeoJSON"),
          QStringLiteral("não é uma fonte vetorial"));
    falha(escrever("vazio.geojson", R"({"type":"FeatureCollection","features":[
          {"type":"Feature","properties":{"a":1},"geometry":null}]})"),
          QStringLiteral("GeoJSON"), QStringLiteral("Nenhum objeto reconhecido em \"vazio.geojson\""));
    // Um ponto fora do mundo depois de um bom: nada entra.
    falha(escrever("fora.geojson", R"({"type":"FeatureCollection","features":[
          {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[10,10]}},
          {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[10,10],[500000,7000000]]}}]})"),
          QStringLiteral("GeoJSON"), QStringLiteral("fora de ±180/±90"));
    // Um vértice não finito também.
    falha(escrever("nan.geojson", R"({"type":"FeatureCollection","features":[
          {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1e400,10]}}]})"),
          QStringLiteral("GeoJSON"), QStringLiteral("fora de ±180/±90"));
    // Um atributo em ISO-8859-1 num formato que é UTF-8: erro que diz o campo, não "S?o Paulo".
    falha(escrever("latin1.geojson", "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\","
                                     "\"properties\":{\"nome\":\"S\xe3o Paulo\"},\"geometry\":{\"type\":\"Point\","
                                     "\"coordinates\":[-46,-23]}}]}"),
          QStringLiteral("GeoJSON"), QStringLiteral("campo \"nome\" não está em UTF-8: \"S\u00e3o Paulo\""));
    // Um FIFO não é aberto (a leitura esperaria para sempre por quem escreva nele).
    const QString fifo = dir.filePath(QStringLiteral("fila.geojson"));
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    falha(fifo, QStringLiteral("GeoJSON"), QStringLiteral("é um FIFO"));
    // Cortados no meio: um GeoJSON e um GeoPackage de verdade.
    const QByteArray bom = R"({"type":"FeatureCollection","features":[
          {"type":"Feature","properties":{"nome":"a"},"geometry":{"type":"Point","coordinates":[-47,-15]}},
          {"type":"Feature","properties":{"nome":"b"},"geometry":{"type":"Point","coordinates":[-43,-22]}}]})";
    falha(escrever("cortado.geojson", bom.left(bom.size() / 2)), QStringLiteral("GeoJSON"),
          QStringLiteral("não é uma fonte vetorial"));
    const QString gpkg = dir.filePath(QStringLiteral("inteiro.gpkg"));
    GeoPackageDeDuasCamadas(gpkg);
    QFile inteiro(gpkg);
    ASSERT_TRUE(inteiro.open(QIODevice::ReadOnly));
    falha(escrever("cortado.gpkg", inteiro.readAll().left(3000)), QStringLiteral("GeoPackage"),
          QStringLiteral("cortado.gpkg"));
}
