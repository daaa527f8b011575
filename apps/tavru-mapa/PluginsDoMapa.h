#pragma once
/// \file
/// Os plug-ins de desenhos que a demonstração carrega ao começar.

namespace tavru {

/// Carrega os plug-ins de desenhos (`TTratadorDeArquivosDGN::CarregarPlugins`): primeiro cada
/// pasta da variável de ambiente `TAVRU_PLUGINS` (separadas como no PATH), depois a pasta de
/// plug-ins do pacote (lib/tavru/plugins/dgn ao lado do aplicativo instalado, ou a da
/// compilação). As pastas do usuário vêm antes porque, com dois plug-ins para a mesma extensão,
/// o primeiro carregado ganha: `TAVRU_PLUGINS=<pasta dgn-graus>` faz os desenhos DGN abrirem
/// como graus.
void CarregarPluginsDoMapa();

} // namespace tavru
