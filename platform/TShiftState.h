#pragma once
/// \file
/// Botões do mouse e o conjunto de estado de teclas modificadoras da plataforma.

#include <Qt>
#include <cstdint>

namespace tavru {

/// Botões do mouse, nesta ordem.
enum TMouseButton : std::uint8_t { mbLeft = 0, mbRight = 1, mbMiddle = 2 };

/// Elementos do conjunto de estado (bits 0 a 6).
enum TShiftStateItem : std::uint8_t { ssShift = 0, ssAlt = 1, ssCtrl = 2, ssLeft = 3, ssRight = 4, ssMiddle = 5, ssDouble = 6 };

/// Conjunto de `TShiftStateItem`: o bit `1 << item` está ligado quando o item está presente.
/// Conjuntos se comparam por igualdade (`==`), não por inclusão.
using TShiftState = std::uint8_t;
constexpr TShiftState Shift(TShiftStateItem item) { return static_cast<TShiftState>(1u << item); }

/// O conjunto de estado de um evento do Qt: teclas modificadoras e botões pressionados.
inline TShiftState ShiftDeQt(Qt::KeyboardModifiers teclas, Qt::MouseButtons botoes)
{
    TShiftState s = 0;
    if (teclas & Qt::ShiftModifier) s |= Shift(ssShift);
    if (teclas & Qt::AltModifier) s |= Shift(ssAlt);
    if (teclas & Qt::ControlModifier) s |= Shift(ssCtrl);
    if (botoes & Qt::LeftButton) s |= Shift(ssLeft);
    if (botoes & Qt::RightButton) s |= Shift(ssRight);
    if (botoes & Qt::MiddleButton) s |= Shift(ssMiddle);
    return s;
}

} // namespace tavru
