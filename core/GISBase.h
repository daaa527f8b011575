#pragma once
/// \file
/// A unidade `GISBase`: posições em listas, a projeção abstrata, o objeto do mapa e a sua lista,
/// a camada e o tratador de arquivo, com as enumerações públicas.

#include <tavru/core/GISEnumeracoes.h>
#include <tavru/core/TClasseObjeto.h>
#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/core/TGISPosicaoListList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/core/TRegistraTratador.h>
#include <tavru/core/TRegistro.h>
