// Os registros da biblioteca pela vida dela: os tratadores vetoriais e de figuras do GDAL e o
// formato GeoTIFF da lista de formatos de figura. Um registro que falha (um tipo já registrado
// por outro) é avisado, anotado em `FalhasDeRegistro` e pulado: nada escapa de um inicializador
// estático.

#include "FonteGDAL_p.h"
#include "GdalComum_p.h"

#include <tavru/companions/geodesy/TFileFormatList.h>
#include <tavru/core/TRegistraTratador.h>
#include <tavru/gdal/ReconheceArquivosGDAL.h>
#include <tavru/gdal/TTratadorDeImagensGDAL.h>
#include <tavru/platform/Exception.h>

#include <gdal.h>

#include <QIODevice>
#include <QtGlobal>

namespace tavru {
namespace {

QString Filtro(const char *descricao, const char *padroes)
{
    return QStringLiteral("%1 (%2)|%2").arg(QString::fromUtf8(descricao), QString::fromLatin1(padroes));
}

// A ordem conta: os "*.*" vêm por último, para que um arquivo com extensão conhecida ache o seu
// tipo primeiro (`ObterTipoPeloArquivo`).
const TRegistraTratador GeoJSON(QStringLiteral("GeoJSON"), TTratadorDeArquivosOGR::Classe,
                                Filtro("GeoJSON", "*.geojson;*.json"), Filtro("GeoJSON", "*.geojson;*.json"));
const TRegistraTratador GeoPackage(QStringLiteral("GeoPackage"), TTratadorDeArquivosOGR::Classe,
                                   Filtro("GeoPackage", "*.gpkg"), Filtro("GeoPackage", "*.gpkg"));
const TRegistraTratador KML(QStringLiteral("KML"), TTratadorDeArquivosOGR::Classe, Filtro("KML", "*.kml;*.kmz"),
                            QString());
const TRegistraTratador GPX(QStringLiteral("GPX"), TTratadorDeArquivosOGR::Classe, Filtro("GPX", "*.gpx"), QString());
const TRegistraTratador GeoTIFF(QStringLiteral("GeoTIFF"), TTratadorDeImagensGDAL::Classe,
                                Filtro("GeoTIFF", "*.tif;*.tiff"), QString());
const TRegistraTratador OutrosVetoriais(QStringLiteral("Outros formatos vetoriais"), TTratadorDeArquivosOGR::Classe,
                                        Filtro("Outros formatos vetoriais", "*.*"), QString());
const TRegistraTratador OutrasFiguras(QStringLiteral("Outras figuras georreferenciadas"),
                                      TTratadorDeImagensGDAL::Classe,
                                      Filtro("Outras figuras georreferenciadas", "*.*"), QString());

constexpr int LadoDoGeoTIFF = 2048;
constexpr qint64 LimiteDoFluxo = qint64(256) << 20;

// O formato GeoTIFF da lista de formatos de figura.
class TRegistroGeoTIFF
{
public:
    TRegistroGeoTIFF()
    {
        try {
            TFormatoGrafico formato;
            formato.Extensoes = {QStringLiteral("tif"), QStringLiteral("tiff")};
            formato.Descricao = QStringLiteral("GeoTIFF");
            formato.Ler = [](QIODevice &fluxo, const std::function<void(QSize)> &conferir) {
                // O fluxo vem aberto (às vezes sem nome): os bytes vão para um arquivo em memória
                // do GDAL, até o limite das figuras da imagem comum.
                if (gdal::TSoONome::Ativo())
                    throw EInOutError(QStringLiteral("(só o nome)"));
                const qint64 tamanho = fluxo.size();
                if (tamanho > LimiteDoFluxo)
                    throw EInOutError(QStringLiteral("O GeoTIFF tem %1 MB, mais que os %2 MB que a imagem comum lê; "
                                                     "abra-o pelo tratador \"GeoTIFF\".")
                                          .arg(tamanho >> 20)
                                          .arg(LimiteDoFluxo >> 20));
                const QByteArray bytes = fluxo.readAll();
                const gdal::TArquivoEmMemoria memoria(QStringLiteral("tif"), bytes);
                const gdal::TFonteGDAL fonte(QString::fromUtf8(memoria.Nome()));
                const QImage previa = fonte.Previa(LadoDoGeoTIFF);
                if (previa.isNull())
                    throw EInOutError(QStringLiteral("O GeoTIFF não se lê pelo GDAL."));
                conferir(previa.size());
                return previa;
            };
            TFileFormatList::Registrar(formato);
            FFormato = true;
        } catch (const std::exception &erro) {
            qWarning("Tavru: o formato GeoTIFF não entrou na lista de figuras: %s", erro.what());
        }
    }
    ~TRegistroGeoTIFF()
    {
        if (FFormato)
            TFileFormatList::Remover(QStringLiteral("tif"));
    }
    TRegistroGeoTIFF(const TRegistroGeoTIFF &) = delete;
    TRegistroGeoTIFF &operator=(const TRegistroGeoTIFF &) = delete;

private:
    bool FFormato = false;
};

const TRegistroGeoTIFF RegistroGeoTIFF;

} // namespace
QString VersaoDoGdal()
{
    return QString::fromLatin1(GDALVersionInfo("RELEASE_NAME"));
}

} // namespace tavru
