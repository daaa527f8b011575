#pragma once
/// \file
/// A unidade `GISElementosMilitares`: o meio acompanhado (com os padrões globais de tamanho
/// `TamanhoNaTelaDefault` e `TamanhoNoMundoDefault`) e a derrota.

#include <tavru/elements/GISDerrota.h>
#include <tavru/elements/GISMeioAcompanhado.h>
