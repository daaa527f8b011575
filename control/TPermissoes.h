#pragma once
/// \file
/// O conjunto de permissões da unidade `GIS`, guardado para ferramentas e hospedeiros.

#include <cstdint>

namespace tavru {

/// O que o usuário pode fazer no mapa, nesta ordem (bits 0 a 3 de `TPermissoes`).
enum TPermissao : std::uint8_t { tpEditar = 0, tpInterrogar = 1, tpDeslocar = 2, tpEscalonar = 3 };

/// Conjunto de `TPermissao`: o bit `1 << item` está ligado quando o item está presente.
/// Conjuntos se comparam por igualdade.
using TPermissoes = std::uint8_t;

constexpr TPermissoes Permissao(TPermissao p) { return static_cast<TPermissoes>(1u << p); }
constexpr bool Tem(TPermissoes conjunto, TPermissao p) { return (conjunto & Permissao(p)) != 0; }

} // namespace tavru
