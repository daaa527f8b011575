#include <tavru/gdal/TTratadorDeImagensGDAL.h>
#include "GdalComum_p.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/gdal/TGISImagemGDAL.h>
#include <tavru/platform/Exception.h>

#include <gdal.h>

#include <QFileDevice>
#include <QFileInfo>
#include <cstring>
#include <memory>

namespace tavru {

using namespace gdal;

const TClasseTratador TTratadorDeImagensGDAL::Classe =
    TClasseTratador::De<TTratadorDeImagensGDAL>("TTratadorDeImagensGDAL");

TTratadorDeImagensGDAL::TTratadorDeImagensGDAL(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista) {}

void TTratadorDeImagensGDAL::Ler(const QString &nomeArquivo)
{
    auto imagem = std::make_unique<TGISImagemGDAL>();
    imagem->Abrir(nomeArquivo);
    Lista().Add(imagem.release());
    Lista().CalcularLimites();
}

void TTratadorDeImagensGDAL::Gravar(const QString &nomeArquivo)
{
    throw EInOutError(QStringLiteral("O arquivo \"%1\" não foi gravado: as figuras do GDAL só se leem.")
                          .arg(QFileInfo(nomeArquivo).fileName()));
}

bool TTratadorDeImagensGDAL::Reconhece(QIODevice &fluxo)
{
    auto *arquivo = qobject_cast<QFileDevice *>(&fluxo);
    if (!arquivo || arquivo->fileName().isEmpty() || OutroTratadorPede(arquivo->fileName()))
        return false;
    IniciarGdal();
    TSilenciarGdal silencio;
    GDALDriverH driver =
        GDALIdentifyDriverEx(NomeParaGdal(arquivo->fileName()).constData(), GDAL_OF_RASTER, nullptr, nullptr);
    if (!driver)
        return false;
    const char *nome = GDALGetDriverShortName(driver);
    for (const char *da_casa : {"PNG", "JPEG", "GIF", "BMP"})
        if (std::strcmp(nome, da_casa) == 0)
            return false;
    return true;
}

} // namespace tavru
