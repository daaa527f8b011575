#pragma once
/// \file
/// A unidade `GisPopUpListBox`: a lista instantânea dos objetos sob um clique.

#include <tavru/views/TGisPopUpListBox.h>
