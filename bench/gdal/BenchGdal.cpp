// Benchmark da leitura de fontes vetoriais pelo OGR: 10.000 linhas de 100 vértices (um milhão de
// vértices, semente fixa, dentro do Brasil) com dois campos de texto, gravadas pelo nosso gravador
// em GeoJSON e em GeoPackage.
//
// Mede, na mesma execução, a melhor de três de cada, para cada formato:
// - o OGR sozinho: a fonte aberta, cada feição lida, a geometria e os vértices dela percorridos
//   (getPoints para vetores) e os dois campos lidos como texto, sem objetos (o limite);
// - `Ler` do tratador (objetos, atributos, limites, pela lista de rascunho);
// - só construir os mesmos 10.000 objetos (linhas de 100 vértices zerados, dois atributos), sem ler
//   nada: o piso que o modelo de objetos da casa impõe a qualquer leitor.
// Meta: Ler em no máximo 1,3 × o OGR sozinho nos dois formatos.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/gdal/ReconheceArquivosGDAL.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

using namespace tavru;

#include "LinhasDeBench.h"

using namespace tavru::bench;

namespace {

constexpr int Linhas = 10000;
constexpr int Vertices = 100;

void Gerar(const QString &geojson, const QString &gpkg)
{
    TGISObjetoList lista;
    SortearLinhas(lista, Linhas, Vertices, 0x6DA1);
    lista.Gravar(geojson, QStringLiteral("GeoJSON"));
    lista.Gravar(gpkg, QStringLiteral("GeoPackage"));
}

// O OGR sozinho: feições, vértices e os dois campos, sem objetos.
double OgrSozinho(const QString &nome, long long &vertices)
{
    const auto inicio = Relogio::now();
    GDALDatasetUniquePtr fonte(GDALDataset::Open(QFile::encodeName(nome).constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    vertices = 0;
    std::size_t bytes = 0;
    std::vector<double> x, y;
    double soma = 0;
    for (OGRLayer *camada : fonte->GetLayers()) {
        for (const auto &feicao : *camada) {
            const OGRGeometry *g = feicao->GetGeometryRef();
            if (g && wkbFlatten(g->getGeometryType()) == wkbLineString) {
                const OGRLineString *l = g->toLineString();
                const int n = l->getNumPoints();
                x.resize(n);
                y.resize(n);
                l->getPoints(x.data(), sizeof(double), y.data(), sizeof(double));
                for (int i = 0; i < n; ++i)
                    soma += x[i] + y[i];
                vertices += n;
            }
            for (int c = 0; c < 2; ++c)
                bytes += std::strlen(feicao->GetFieldAsString(c));
        }
    }
    const double t = Segundos(inicio);
    if (bytes == 0 || soma == 0)
        std::printf("(nada lido?)\n");
    return t;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    std::printf("GDAL %s\n", qPrintable(VersaoDoGdal()));
    QTemporaryDir temporaria;
    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : temporaria.path();
    const QString geojson = QDir(pasta).filePath(QStringLiteral("linhas.geojson"));
    const QString gpkg = QDir(pasta).filePath(QStringLiteral("linhas.gpkg"));
    auto inicio = Relogio::now();
    Gerar(geojson, gpkg);
    std::printf("Gravados %s (%.1f MB) e %s (%.1f MB) em %.2f s\n", qPrintable(geojson), QFile(geojson).size() / 1e6,
                qPrintable(gpkg), QFile(gpkg).size() / 1e6, Segundos(inicio));

    for (const auto &[nome, tipo] : {std::pair{geojson, QStringLiteral("GeoJSON")}, std::pair{gpkg, QStringLiteral("GeoPackage")}}) {
        double melhorOgr = 1e9, melhorLer = 1e9, melhorObjetos = 1e9;
        long long vertices = 0;
        int objetos = 0;
        for (int rodada = 0; rodada < 3; ++rodada) {
            melhorOgr = std::min(melhorOgr, OgrSozinho(nome, vertices));
            melhorObjetos = std::min(melhorObjetos, MontarLinhasSemLeitura(Linhas, Vertices));
            TGISObjetoList lista;
            inicio = Relogio::now();
            lista.Ler(nome, tipo);
            melhorLer = std::min(melhorLer, Segundos(inicio));
            objetos = lista.Count();
        }
        std::printf("%s: %d objetos, %lld vértices\n", qPrintable(tipo), objetos, vertices);
        std::printf("  OGR sozinho:  %8.1f ms\n", melhorOgr * 1e3);
        std::printf("  Ler:          %8.1f ms  = %.2f x o OGR sozinho (meta: 1,3 x)\n", melhorLer * 1e3,
                    melhorLer / melhorOgr);
        std::printf("  só os objetos: %7.1f ms  (OGR + objetos = %.2f x o OGR sozinho)\n", melhorObjetos * 1e3,
                    (melhorOgr + melhorObjetos) / melhorOgr);
    }
    return 0;
}
