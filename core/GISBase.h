#pragma once
/// \file
/// A unidade `GISBase`: posições em listas, a projeção abstrata, o objeto do mapa e a sua lista,
/// a camada e o tratador de arquivo, com as enumerações públicas.

#include "core/GISEnumeracoes.h"
#include "core/TClasseObjeto.h"
#include "core/TClasseTratador.h"
#include "core/TGISCamada.h"
#include "core/TGISObjeto.h"
#include "core/TGISObjetoList.h"
#include "core/TGISPosicaoList.h"
#include "core/TGISPosicaoListList.h"
#include "core/TGISProjecao.h"
#include "core/TGISTratadorDeArquivo.h"
#include "core/TRegistraTratador.h"
#include "core/TRegistro.h"
