#pragma once
/// \file
/// O pacote de geodésia inteiro, para quem prefere um include só: posições e retângulos do mundo
/// e a geometria plana (`GISPosicao.h`), distâncias e arcos geodésicos (`Distancia.h`), rumos
/// (`Rumo.h`), textos de coordenadas, distâncias e ângulos (`TextoGeodesico.h`), a grade UTM
/// (`UTM.h`) e o giro de fontes (`RotacaoDeFonte.h`).

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/companions/geodesy/RotacaoDeFonte.h>
#include <tavru/companions/geodesy/Rumo.h>
#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/geodesy/UTM.h>
