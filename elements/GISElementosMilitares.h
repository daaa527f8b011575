#pragma once
/// \file
/// A unidade `GISElementosMilitares`: o meio acompanhado (com os padrões globais de tamanho
/// `TamanhoNaTelaDefault` e `TamanhoNoMundoDefault`) e a derrota.

#include "elements/GISDerrota.h"
#include "elements/GISMeioAcompanhado.h"
