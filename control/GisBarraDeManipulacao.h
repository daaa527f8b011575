#pragma once
/// \file
/// A unidade `GisBarraDeManipulacao`: a barra de navegação do mapa.

#include <tavru/control/TGISBarraDeManipulacao.h>
