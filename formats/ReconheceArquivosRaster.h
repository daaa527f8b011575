#pragma once
/// \file
/// A unidade `ReconheceArquivosRaster`: o tratador de figuras georreferenciadas
/// (`TTratadorArquivosRasters`). Quando a biblioteca carrega, ele se registra sob seis tipos, nesta
/// ordem (tipo, filtro de leitura, filtro de gravação):
///
/// | tipo | leitura | gravação |
/// |---|---|---|
/// | "jpeg" | "Arquivo do JPEG (*.jpg)\|*.jpg" | o mesmo |
/// | "png" | "Arquivo do PNG (*.png)\|*.jpg" | "Arquivo do png (*.png)\|*.png" |
/// | "gif" | "Arquivo do gif (*.gif)\|*.gif" | o mesmo |
/// | "Bitmap" | "Arquivo bitmap (*.bmp)\|*.bmp" | o mesmo |
/// | "windows meta file" | "Arquivo MetaFile (*.wmf)\|*.wmf" | o mesmo |
/// | "e meta file" | "Arquivo MetaFile (*.emf)\|*.emf" | o mesmo |
///
/// O filtro de leitura do "png" traz o padrão *.jpg, e fica assim de propósito: a busca pela
/// extensão acha "png" para ".png" pela descrição "(*.png)". Os seis saem do registro quando a
/// biblioteca descarrega.

#include <tavru/formats/TTratadorArquivosRasters.h>
