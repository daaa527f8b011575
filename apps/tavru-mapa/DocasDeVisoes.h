#pragma once
/// \file
/// As docas das visões em volta do mapa na demonstração: o painel de camadas, o mapa de situação e
/// a árvore de acompanhamento.

class QMainWindow;
class QMenu;

namespace tavru {

class TGis;

/// Põe à direita de `janela`, abaixo das que já estão lá, as docas "Camadas" (o painel de camadas de `gis`), "Situação" (o
/// mapa de situação) e "Acompanhamento" (a situação de exemplo, `data/acompanhamento.xml`
/// embutido, ligada à camada de plotagem) e acrescenta ao menu `exibir` a ação de mostrar cada uma.
void MontarDocasDeVisoes(QMainWindow &janela, TGis &gis, QMenu &exibir);

} // namespace tavru
