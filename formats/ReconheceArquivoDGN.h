#pragma once
/// \file
/// A unidade do tratador de desenhos DGN por plug-ins: o tratador e o contrato dos plug-ins.

#include <tavru/formats/PluginDGN.h>
#include <tavru/formats/TTratadorDeArquivosDGN.h>
