#pragma once
/// \file
/// A unidade `GIS`: o controle do mapa, a interface das ferramentas, as permissões, a lista de
/// camadas e a projeção Mercator.

#include "control/IGISMouseEvent.h"
#include "control/TGis.h"
#include "control/TPermissoes.h"
#include "core/TGISCamadaList.h"
#include "core/TGISProjecaoMercator.h"
