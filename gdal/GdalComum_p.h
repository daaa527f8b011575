#pragma once
// O que os tratadores do GDAL dividem: a carga dos drivers, os erros do GDAL em silêncio (lidos
// depois, para a mensagem), nomes de arquivo para o GDAL e o sistema de latitude e longitude.

#include <tavru/core/Arredondar.h>

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <cstdint>

class OGRSpatialReference;

namespace tavru::gdal {

/// Registra os drivers do GDAL uma vez por processo.
void IniciarGdal();

/// Enquanto vive, os erros do GDAL não vão para a saída de erros (ficam para `Motivo`).
class TSilenciarGdal
{
public:
    TSilenciarGdal();
    ~TSilenciarGdal();
    TSilenciarGdal(const TSilenciarGdal &) = delete;
    TSilenciarGdal &operator=(const TSilenciarGdal &) = delete;
    /// A última mensagem de erro do GDAL, ou `padrao` quando não há.
    static QString Motivo(const QString &padrao);
};

/// O nome como o GDAL o quer (UTF-8).
QByteArray NomeParaGdal(const QString &nome);

/// O WGS 84 geográfico, com longitude em x e latitude em y.
const OGRSpatialReference &Wgs84();

/// Verdadeiro quando outro tratador do registro (de uma classe que não é dos tratadores do GDAL)
/// tem um padrão de leitura específico (não "*.*") que casa com o nome do arquivo: os tipos "*.*"
/// do GDAL cedem a ele (um ".dgn" fica com o plug-in DGN, registrado depois desta biblioteca).
bool OutroTratadorPede(const QString &arquivo);

/// Enquanto vive, nesta linha de execução, o formato GeoTIFF da lista de figuras recusa na hora
/// (sem ler o arquivo): `TGISImagemGDAL::Abrir` chama a leitura da imagem comum só para que ela
/// guarde o nome do arquivo, e uma recusa não deixa nada no cache de figuras da imagem comum.
class TSoONome
{
public:
    TSoONome();
    ~TSoONome();
    TSoONome(const TSoONome &) = delete;
    TSoONome &operator=(const TSoONome &) = delete;
    static bool Ativo();
};

/// Um arquivo do GDAL em memória (/vsimem/), com um nome único e a extensão dada, apagado no fim.
/// Com `bytes`, o arquivo é esses bytes (não copiados: `bytes` tem de viver mais que ele).
class TArquivoEmMemoria
{
public:
    explicit TArquivoEmMemoria(const QString &extensao, const QByteArray &bytes = QByteArray());
    ~TArquivoEmMemoria();
    TArquivoEmMemoria(const TArquivoEmMemoria &) = delete;
    TArquivoEmMemoria &operator=(const TArquivoEmMemoria &) = delete;
    const char *Nome() const { return FNome.constData(); }
    /// Uma cópia do conteúdo atual.
    QByteArray Bytes() const;

private:
    QByteArray FNome;
};

/// Graus para segundos de arco arredondados; falso fora de ±180/±90 (com uma folga de
/// arredondamento, cortada no limite) ou não finito. Em linha: roda uma vez por vértice.
inline bool GrausParaSegundos(double longitude, double latitude, std::int32_t &lonSegundos, std::int32_t &latSegundos)
{
    constexpr double Folga = 1e-6;
    if (!(longitude >= -180.0 - Folga && longitude <= 180.0 + Folga && latitude >= -90.0 - Folga
          && latitude <= 90.0 + Folga))
        return false;
    lonSegundos = std::clamp(Arredondar(longitude * 3600.0), -648000, 648000);
    latSegundos = std::clamp(Arredondar(latitude * 3600.0), -324000, 324000);
    return true;
}

} // namespace tavru::gdal
