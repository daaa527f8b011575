#pragma once
/// \file
/// A unidade `GIS`: o controle do mapa, a interface das ferramentas, as permissões, a lista de
/// camadas e a projeção Mercator.

#include <tavru/control/IGISMouseEvent.h>
#include <tavru/control/TDocumentoDoMapa.h>
#include <tavru/control/TGis.h>
#include <tavru/control/TPermissoes.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecaoMercator.h>
