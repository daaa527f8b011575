#pragma once
/// \file
/// A parte do mapa embutido que mostra a figura de satélite e os objetos de plotagem.

#include <tavru/companions/geodesy/GISPosicao.h>

namespace tavru {

class TGis;

/// A posição de graus decimais (latitude, longitude), arredondada ao segundo de arco.
TGISPosicao Graus(double lat, double lon);

/// Acrescenta a camada "Satélite" (o recorte do Blue Marble sobre o Brasil, lido dos recursos
/// ":/raster/bluemarble_brazil.png" com o seu ".geo") e, na camada "Plotagem" (criada por cima de
/// tudo se ainda não existe), os objetos que o documento XML não guarda como tais: um setor de
/// coroa, uma elipse, um composto de três círculos girado de um quarto de volta, um trajeto com um
/// vértice travado e rotulado, dois meios acompanhados com seta de rumo e um com a placa, e uma
/// derrota tracejada a partir do terceiro ponto.
void MontarSatelite(TGis &gis);
void MontarPlotagem(TGis &gis);

} // namespace tavru
