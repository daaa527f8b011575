#pragma once
/// \file
/// O mapa de amostra que um mapa mostra no Qt Designer.

namespace tavru {

class TGis;

/// Põe no mapa o litoral e as cidades rotuladas do mapa de exemplo (embutidos no plug-in), com o
/// fundo da cor do mar, e o mantém ajustado à janela a cada mudança de tamanho: no formulário, o
/// mapa aparece como mapa, e não como uma caixa branca. Um documento que não se lê fica de fora
/// (o formulário abre do mesmo jeito).
void MontarMapaDeAmostra(TGis &gis);

} // namespace tavru
