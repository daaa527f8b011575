#pragma once
/// \file
/// A unidade `ReconheceArquivoShapeFile`: o tratador de Shapefiles (`TTratadorDeShapeFile`), as
/// opções de leitura e o evento de validação `TAoValidar`. O tratador se registra sob o tipo
/// "ShapeFile" quando a biblioteca carrega.

#include <tavru/formats/TOpcoesLeituraShapeFile.h>
#include <tavru/formats/TTratadorDeShapeFile.h>
