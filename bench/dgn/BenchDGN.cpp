// Benchmark da importação de desenhos DGN: 10.000 linhas de 100 vértices (um milhão de vértices,
// que o escritor do GDAL divide em cadeias complexas de três partes,
// dentro de -60..-30 de longitude e -30..0 de latitude, semente fixa), gravadas pelo driver DGN
// do GDAL na pasta de trabalho na primeira execução.
//
// Mede, na mesma execução e cada uma a melhor de três:
// - o OGR sozinho: abrir o desenho e ler cada feição e a sua geometria (a referência: o que o
//   plug-in não pode deixar de gastar), antes e depois das importações (vale a melhor);
// - a importação pelo plug-in de graus (`TGISObjetoList::Ler`): os registros e os objetos;
// - a importação pelo plug-in da grade, com um ".geo", que converte cada vértice da grade UTM.
// Meta: a importação em graus em no máximo 1,5 × a leitura do OGR.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/TTratadorDeArquivosDGN.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <chrono>
#include <cstdio>
#include <random>

using namespace tavru;

#include "MedidasDeBench.h"

using namespace tavru::bench;

namespace {

bool GravarDesenho(const QString &caminho)
{
    GDALAllRegister();
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("DGN");
    if (!driver)
        return false;
    const char *opcoes[] = {"MASTER_UNIT_NAME=dg", "SUB_UNITS_PER_MASTER_UNIT=1000", "UOR_PER_SUB_UNIT=1000", nullptr};
    GDALDatasetUniquePtr desenho(
        driver->Create(QFile::encodeName(caminho).constData(), 0, 0, 0, GDT_Unknown, const_cast<char **>(opcoes)));
    if (!desenho)
        return false;
    OGRLayer *camada = desenho->CreateLayer("elements", nullptr, wkbUnknown, nullptr);
    if (!camada)
        return false;
    std::mt19937 gerador(15);
    std::uniform_real_distribution<double> lon(-60.0, -30.0), lat(-30.0, 0.0), passo(-0.01, 0.01);
    for (int i = 0; i < 10000; ++i) {
        OGRLineString linha;
        double x = lon(gerador), y = lat(gerador);
        for (int j = 0; j < 100; ++j) {
            linha.addPoint(x, y);
            x += passo(gerador);
            y += passo(gerador);
        }
        OGRFeature feicao(camada->GetLayerDefn());
        feicao.SetGeometry(&linha);
        if (camada->CreateFeature(&feicao) != OGRERR_NONE)
            return false;
    }
    return true;
}

/// O OGR sozinho: feições e geometrias; devolve o total de vértices.
long LerComOgr(const QString &caminho)
{
    const char *const drivers[] = {"DGN", nullptr};
    GDALDatasetUniquePtr desenho(GDALDataset::Open(QFile::encodeName(caminho).constData(),
                                                   GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers, nullptr, nullptr));
    if (!desenho)
        return 0;
    long vertices = 0;
    double soma = 0;
    for (OGRLayer *camada : desenho->GetLayers()) {
        camada->ResetReading();
        while (OGRFeatureUniquePtr feicao{camada->GetNextFeature()}) {
            const OGRGeometry *g = feicao->GetGeometryRef();
            if (!g)
                continue;
            // As linhas de 100 vértices vêm como cadeias complexas (várias partes).
            if (wkbFlatten(g->getGeometryType()) == wkbMultiLineString) {
                for (const OGRLineString *l : *g->toMultiLineString()) {
                    vertices += l->getNumPoints();
                    soma += l->getX(0);
                }
            } else if (wkbFlatten(g->getGeometryType()) == wkbLineString) {
                vertices += g->toLineString()->getNumPoints();
                soma += g->toLineString()->getX(0);
            }
        }
    }
    return soma == 0 ? -vertices : vertices;
}

template <typename F>
double Melhor(F &&f)
{
    double melhor = 1e300;
    for (int i = 0; i < 3; ++i) {
        const auto inicio = Relogio::now();
        f();
        melhor = std::min(melhor, Segundos(inicio));
    }
    return melhor;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    GDALAllRegister();
    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::temp().filePath("tavru-bench-dgn");
    QDir().mkpath(pasta);
    const QString desenho = QDir(pasta).filePath("milhao.dgn");
    if (!QFileInfo::exists(desenho) && !GravarDesenho(desenho)) {
        std::fprintf(stderr, "Não foi possível gravar %s\n", qPrintable(desenho));
        return 1;
    }
    QFile::remove(QDir(pasta).filePath("milhao.geo"));
    // O plug-in da grade acha o ".geo" por perto e não pergunta nada; a grade é a do fuso 23 sul.
    const QString grade = QDir(pasta).filePath("milhao_grade.dgn");
    QFile::remove(grade);
    QFile::copy(desenho, grade);
    QFile geo(QDir(pasta).filePath("milhao_grade.geo"));
    if (geo.open(QIODevice::WriteOnly))
        geo.write("Fuso=23\r\nZona=K\r\nElipsoide=18 - GRS 1980\r\nUnidade=kilometros\r\n");
    geo.close();

    long vertices = 0;
    const double ogr = Melhor([&] { vertices = LerComOgr(desenho); });

    auto importar = [](const char *subpasta, const QString &arquivo, int &objetos) {
        TTratadorDeArquivosDGN::AtualizarPlugins(QStringLiteral(TAVRU_PLUGINS_PACOTE "/") + subpasta);
        const QString tipo = TTratadorDeArquivosDGN::Plugins().value(0);
        return Melhor([&] {
            TGISObjetoList lista;
            lista.Ler(arquivo, tipo);
            objetos = lista.Count();
        });
    };
    int objetosGraus = 0, objetosGrade = 0;
    const double graus = importar("dgn-graus", desenho, objetosGraus);
    const double emGrade = importar("dgn", grade, objetosGrade);
    TTratadorDeArquivosDGN::LiberarPlugins();
    const double ogr2 = Melhor([&] { vertices = LerComOgr(desenho); });
    const double ogrMelhor = std::min(ogr, ogr2);

    std::printf("desenho: %s (%.1f MB, %ld vértices)\n", qPrintable(desenho), QFileInfo(desenho).size() / 1e6, vertices);
    std::printf("OGR sozinho (feições e geometrias): %8.3f s (antes %.3f, depois %.3f)\n", ogrMelhor, ogr, ogr2);
    std::printf("importar em graus (%d objetos):     %8.3f s  = %.2f x OGR (meta: até 1,5)\n", objetosGraus, graus,
                graus / ogrMelhor);
    std::printf("importar da grade UTM (%d objetos): %8.3f s  = %.2f x OGR\n", objetosGrade, emGrade, emGrade / ogrMelhor);
    return 0;
}
