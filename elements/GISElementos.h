#pragma once
/// \file
/// A unidade dos elementos do mapa: inclui as classes concretas de objetos.

#include "elements/GISArea.h"
#include "elements/GISCorredor.h"
#include "elements/GISLinha.h"
#include "elements/GISPonto.h"
#include "elements/GISTexto.h"
#include "elements/GISAreaCircular.h"
#include "elements/GISComposto.h"
#include "elements/GISElipse.h"
#include "elements/GISImagem.h"
