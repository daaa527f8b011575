#pragma once
/// \file
/// A unidade dos elementos do mapa: inclui as classes concretas de objetos.

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
