#pragma once
/// \file
/// A unidade `GISBarraDeFerramenta`: a barra de ferramentas geral do mapa.

#include <tavru/control/TGISBarraDeFerramenta.h>
