// Benchmark da leitura de Shapefiles: 10.000 linhas de 100 vértices (um milhão de vértices, semente
// fixa, dentro do Brasil) com dois campos de atributo por registro, gravadas pelo nosso gravador.
//
// Mede, na mesma execução, a melhor de três de cada:
// - o shapelib sozinho: cada registro lido (SHPReadObject, vértices somados) e os dois campos do
//   .dbf lidos como texto, sem objetos (o limite);
// - o mesmo só com o .shp (sem atributos), para referência;
// - `Ler` do tratador (objetos, atributos decodificados, limites);
// - só construir os mesmos 10.000 objetos (linhas de 100 vértices zerados, dois atributos), sem ler
//   nada: o piso que o modelo de objetos da casa impõe a qualquer leitor.
// E a memória que a camada lida ocupa (mallinfo2, antes e depois, com a lista viva), contra
// 12 bytes por vértice + 300 por objeto + os textos dos atributos (2 bytes por caractere das
// linhas "Nome=Valor" guardadas).
//
// Metas: Ler em no máximo 1,5 × o shapelib sozinho; a memória dentro da conta acima.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/formats/TTratadorDeShapeFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <random>
#include <shapefil.h>

using namespace tavru;

#include "LinhasDeBench.h"

using namespace tavru::bench;

namespace {

constexpr int Linhas = 10000;
constexpr int Vertices = 100;

void Gerar(const QString &nome)
{
    TGISObjetoList lista;
    SortearLinhas(lista, Linhas, Vertices, 0x5AF11E);
    TTratadorDeShapeFile(lista).Gravar(nome);
}

// O shapelib sozinho: registros e vértices (e os campos do .dbf, quando `atributos`).
double ShapelibSozinho(const QString &nome, bool atributos, long long &vertices)
{
    const auto inicio = Relogio::now();
    const QByteArray base = QFile::encodeName(nome.left(nome.size() - 4));
    SHPHandle shp = SHPOpen(base.constData(), "rb");
    DBFHandle dbf = atributos ? DBFOpen(base.constData(), "rb") : nullptr;
    SHPSetFastModeReadObject(shp, 1); // o modo mais rápido do shapelib, como o tratador
    int n = 0;
    SHPGetInfo(shp, &n, nullptr, nullptr, nullptr);
    vertices = 0;
    std::size_t bytes = 0;
    for (int i = 0; i < n; ++i) {
        SHPObject *o = SHPReadObject(shp, i);
        vertices += o->nVertices;
        SHPDestroyObject(o); // no modo rápido, só devolve os vetores ao shapelib
        if (dbf)
            for (int c = 0; c < 2; ++c)
                bytes += std::strlen(DBFReadStringAttribute(dbf, i, c));
    }
    if (dbf)
        DBFClose(dbf);
    SHPClose(shp);
    const double t = Segundos(inicio);
    if (atributos && bytes == 0)
        std::printf("(nenhum atributo lido?)\n");
    return t;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir temporaria;
    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : temporaria.path();
    const QString nome = QDir(pasta).filePath(QStringLiteral("linhas.shp"));
    auto inicio = Relogio::now();
    Gerar(nome);
    std::printf("Gerado e gravado %s (%.1f MB) em %.2f s\n", qPrintable(nome), QFile(nome).size() / 1e6, Segundos(inicio));

    double melhorShp = 1e9, melhorShapelib = 1e9, melhorLer = 1e9, melhorObjetos = 1e9;
    long long vertices = 0;
    double memoria = 0, textos = 0;
    int objetos = 0;
    for (int rodada = 0; rodada < 3; ++rodada) {
        melhorShp = std::min(melhorShp, ShapelibSozinho(nome, false, vertices));
        melhorShapelib = std::min(melhorShapelib, ShapelibSozinho(nome, true, vertices));
        melhorObjetos = std::min(melhorObjetos, MontarLinhasSemLeitura(Linhas, Vertices));
        const double antes = HeapEmUso();
        {
            TGISObjetoList lista;
            inicio = Relogio::now();
            lista.Ler(nome, QStringLiteral("ShapeFile"));
            melhorLer = std::min(melhorLer, Segundos(inicio));
            memoria = HeapEmUso() - antes;
            objetos = lista.Count();
            textos = 0;
            for (int i = 0; i < lista.Count(); ++i)
                for (const QString &l : lista.Items(i)->Informacoes().Linhas())
                    textos += 2.0 * l.size();
        }
    }
    const double meta = 12.0 * vertices + 300.0 * objetos + textos;
    std::printf("%d registros, %lld vértices\n", objetos, vertices);
    std::printf("shapelib só o .shp:             %7.1f ms\n", melhorShp * 1e3);
    std::printf("shapelib .shp + 2 campos .dbf:  %7.1f ms  (o limite)\n", melhorShapelib * 1e3);
    std::printf("Ler do tratador:                %7.1f ms  = %.2f x o limite (meta <= 1,5); %.2f x só o .shp\n",
                melhorLer * 1e3, melhorLer / melhorShapelib, melhorLer / melhorShp);
    std::printf("só construir os objetos:        %7.1f ms  (o piso do modelo); Ler - objetos = %.2f x o limite\n",
                melhorObjetos * 1e3, (melhorLer - melhorObjetos) / melhorShapelib);
    std::printf("memória da camada: %.1f MB = %.2f bytes/vértice com tudo; meta %.1f MB "
                "(12 B/vértice + 300 B/objeto + %.1f MB de textos) -> %.2f x a meta\n",
                memoria / 1e6, memoria / vertices, meta / 1e6, textos / 1e6, memoria / meta);
    return 0;
}
