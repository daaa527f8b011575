#pragma once
/// \file
/// Os tratadores da biblioteca opcional `tavru_gdal` e os filtros com que se registram quando ela
/// carrega (extensão). Um programa que liga `Tavru::Gdal` passa a abrir, pelo registro de
/// tratadores e pelos filtros dos diálogos:
///
/// | tipo                                | filtro                                   | grava |
/// |-------------------------------------|------------------------------------------|-------|
/// | "GeoJSON"                           | `*.geojson;*.json`                       | sim   |
/// | "GeoPackage"                        | `*.gpkg`                                 | sim   |
/// | "KML"                               | `*.kml;*.kmz`                            | não   |
/// | "GPX"                               | `*.gpx`                                  | não   |
/// | "GeoTIFF"                           | `*.tif;*.tiff`                           | não   |
/// | "Outros formatos vetoriais"         | `*.*` (o que o OGR abrir)                | não   |
/// | "Outras figuras georreferenciadas"  | `*.*` (o que o GDAL abrir como figura)   | não   |
///
/// Também põe na lista de formatos de figura (`TFileFormatList`) o formato "tif"/"tiff", lido pelo
/// GDAL (a figura inteira reprojetada para latitude e longitude, reduzida a no máximo 2048 pixels
/// no lado maior): assim uma `TGISImagem` comum (a de um documento XML, a da barra de inclusão) lê
/// um GeoTIFF em qualquer sistema de coordenadas.
///
/// A carga não chama o GDAL; os drivers são registrados no primeiro uso.
///
/// Um programa que só quer os registros e não usa nenhuma classe da biblioteca chama
/// `VersaoDoGdal()` (por exemplo, para mostrá-la): sem nenhum símbolo usado, o ligador pode deixar
/// a biblioteca de fora (`--as-needed`), e nada seria registrado.

#include <tavru/gdal/TGISImagemGDAL.h>
#include <tavru/gdal/TTratadorDeArquivosOGR.h>
#include <tavru/gdal/TTratadorDeImagensGDAL.h>

#include <QString>

namespace tavru {

/// A versão do GDAL com que a biblioteca roda ("3.6.2").
TAVRU_GDAL_EXPORT QString VersaoDoGdal();

} // namespace tavru
