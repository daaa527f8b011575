// Alvo de fuzzing: um trio ".shp"/".shx"/".dbf" lido pelo tratador de Shapefiles. A entrada é
// [tamanho do .shp][tamanho do .shx] (dois inteiros de 32 bits, little-endian), o .shp, o .shx e
// o resto como .dbf; tamanho 0 (ou resto vazio) deixa o arquivo de fora, e o .shx que falta é
// refeito em memória. Os bytes vão para arquivos temporários, como viriam do disco. Só exceções
// da casa podem sair da leitura.

#include "AplicacaoFuzz.h"
#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/TTratadorDeShapeFile.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

void Escrever(const QString &nome, const std::uint8_t *dados, std::size_t tamanho)
{
    QFile::remove(nome);
    if (tamanho == 0)
        return;
    QFile arquivo(nome);
    if (arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        arquivo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
}

std::size_t Tamanho(const std::uint8_t *p)
{
    return std::size_t(p[0]) | (std::size_t(p[1]) << 8) | (std::size_t(p[2]) << 16) | (std::size_t(p[3]) << 24);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    if (tamanho < 8)
        return 0;
    std::size_t resto = tamanho - 8;
    const std::size_t shp = std::min(Tamanho(dados), resto);
    const std::size_t shx = std::min(Tamanho(dados + 4), resto - shp);
    const std::uint8_t *p = dados + 8;
    const QString base = tavru::fuzz::PastaTemporaria() + QStringLiteral("/fuzz");
    Escrever(base + ".shp", p, shp);
    Escrever(base + ".shx", p + shp, shx);
    Escrever(base + ".dbf", p + shp + shx, resto - shp - shx);
    tavru::TGISObjetoList lista;
    try {
        tavru::TTratadorDeShapeFile(lista).Ler(base + ".shp");
    } catch (const tavru::Exception &) {
    }
    return 0;
}
