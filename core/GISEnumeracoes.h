#pragma once
/// \file
/// Enumerações públicas do núcleo do mapa, com os valores na ordem em que ferramentas, camadas e
/// documentos os guardam.

#include <cstdint>

namespace tavru {

/// Estado de interação do mapa, mantido pelas ferramentas.
enum TGISEstado : std::uint8_t {
    geVisualizando,
    gePreMovimentacao,
    geMovendo,
    gePreAmpliacaoPonto,
    gePreReducaoPonto,
    gePreAmpliacaoRet,
    geAmpliandoPonto,
    geAmpliandoRet,
    geReduzindo,
    geArrastandoPontoEdicao,
    geInserindo
};

/// Modo do mapa: só ver, ou editar.
enum TGISModo : std::uint8_t { gmVisualizacao, gmEdicao };

/// O que o usuário pode fazer com os objetos de uma camada. A ordem importa: as consultas só
/// olham camadas de tipo `gtcInterrogavel` ou acima.
enum TGISTipoCamada : std::uint8_t {
    gtcPanoDeFundo, ///< fundo: desenhada, nunca consultada
    gtcInterrogavel, ///< consultável
    gtcEditavel     ///< consultável e editável
};

} // namespace tavru
