#pragma once
/// \file
/// A unidade `GISProjecao`: a projeção de experiência (a projeção base vem junto).

#include <tavru/core/TGISProjecao.h>
#include <tavru/core/TGISProjecaoTeste.h>
