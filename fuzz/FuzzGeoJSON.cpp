// Alvo de fuzzing: um GeoJSON de fora lido pelo tratador "GeoJSON" (biblioteca tavru_gdal), pelo
// registro de tratadores, como o diálogo de abrir o leria (os bytes vão para um arquivo
// temporário). A leitura lê ou levanta um erro da casa; um erro deixa a lista como estava, e o
// que é lido fica dentro do mundo.

#include "AplicacaoFuzz.h"
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/gdal/ReconheceArquivosGDAL.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return tavru::VersaoDoGdal().isEmpty() ? 1 : 0; // e a biblioteca fica ligada, com os registros

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    const QString nome = tavru::fuzz::PastaTemporaria() + QStringLiteral("/entrada.geojson");
    {
        QFile arquivo(nome);
        if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        arquivo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
    }
    tavru::TGISObjetoList lista;
    lista.Add(new tavru::TGISPonto);
    try {
        if (!lista.Ler(nome, QStringLiteral("GeoJSON")))
            std::abort(); // o tratador não está registrado
    } catch (const tavru::Exception &) {
        if (lista.Count() != 1)
            std::abort(); // um erro não deixa nada pela metade
        return 0;
    }
    if (lista.Count() < 2)
        std::abort(); // sem erro, algo foi lido
    const tavru::TGISRet r = lista.Limites();
    if (r.Pos1.Latitude < -324000 || r.Pos2.Latitude > 324000 || r.Pos1.Longitude < -648000
        || r.Pos2.Longitude > 648000)
        std::abort();
    return 0;
}
