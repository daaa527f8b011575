#pragma once
/// \file
/// A unidade `GISBarraDeInclusao`: a barra de inclusão e o registro de classes dos seus botões.

#include <tavru/control/TGISBarraDeInclusao.h>
