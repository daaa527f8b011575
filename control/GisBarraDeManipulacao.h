#pragma once
/// \file
/// A unidade `GisBarraDeManipulacao`: a barra de navegação do mapa.

#include "control/TGISBarraDeManipulacao.h"
