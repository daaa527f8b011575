#pragma once
/// \file
/// O tratador das figuras georreferenciadas que o GDAL lê (GeoTIFF e outras). Extensão da
/// biblioteca opcional `tavru_gdal`.

#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/gdal/ExportacaoGdal.h>

#include <QString>

namespace tavru {

class TGISObjetoList;

/// Lê uma figura georreferenciada como uma `TGISImagemGDAL`. Registrado, enquanto a biblioteca
/// `tavru_gdal` está carregada, sob "GeoTIFF" (`*.tif;*.tiff`) e "Outras figuras
/// georreferenciadas" (`*.*`: o que o GDAL abre como figura, menos JPEG, PNG, GIF e BMP, que são
/// do tratador de figuras da casa). Só lê.
class TAVRU_GDAL_EXPORT TTratadorDeImagensGDAL : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (o construtor virtual), com que ela se registra.
    static const TClasseTratador Classe;

    /// Tratador sobre `lista` (não possuída).
    explicit TTratadorDeImagensGDAL(TGISObjetoList &lista);

    /// Abre a figura numa `TGISImagemGDAL` (`TGISImagemGDAL::Abrir`) e a põe no fim da lista, cujos
    /// limites são recalculados. Um erro segue para quem chama (`EInOutError`, com o arquivo e o
    /// motivo) e a lista fica como estava.
    void Ler(const QString &nomeArquivo) override;
    /// Não grava: levanta `EInOutError`.
    void Gravar(const QString &nomeArquivo) override;
    /// Verdadeiro quando o fluxo é um arquivo que um driver de figuras do GDAL identifica, menos
    /// os de JPEG, PNG, GIF e BMP, e que nenhum tratador de outra biblioteca pede por um padrão
    /// específico.
    bool Reconhece(QIODevice &fluxo) override;
};

} // namespace tavru
