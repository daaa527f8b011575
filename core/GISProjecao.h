#pragma once
/// \file
/// A unidade `GISProjecao`: a projeção de experiência (a projeção base vem junto).

#include "core/TGISProjecao.h"
#include "core/TGISProjecaoTeste.h"
