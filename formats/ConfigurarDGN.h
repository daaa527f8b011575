#pragma once
/// \file
/// A unidade do diálogo da grade UTM dos desenhos DGN.

#include <tavru/formats/TfrmConfigurarDGN.h>
