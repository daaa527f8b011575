#pragma once
// Escrita de um texto girado num ponto de referência, com o meio vertical que o canvas não tem.

#include <tavru/platform/TCanvas.h>

#include <QString>
#include <cmath>

namespace tavru {

/// Escreve `texto` com a fonte que o canvas já tem, girada de `graus` (anti-horário), pincel
/// transparente. `horizontal` é `TA_LEFT`, `TA_RIGHT` ou `TA_CENTER`; `vertical` é `TA_TOP`,
/// `TA_BOTTOM` ou -1 para o meio da célula do texto (o ponto de referência é deslocado de meia
/// altura no sentido do giro).
inline void EscreverGirado(TCanvas &canvas, TPoint referencia, const QString &texto, unsigned horizontal,
                           int vertical, double graus)
{
    const double radianos = graus * 3.14159265358979323846 / 180.0;
    canvas.Font().Escapement = static_cast<int>(std::lround(graus * 10.0));
    canvas.Brush().Style = bsClear;
    if (vertical < 0) {
        const double meia = canvas.TextHeight(texto) / 2.0;
        referencia.X -= static_cast<int>(std::lround(meia * std::sin(radianos)));
        referencia.Y -= static_cast<int>(std::lround(meia * std::cos(radianos)));
        vertical = TA_TOP;
    }
    canvas.SetTextAlign(horizontal | static_cast<unsigned>(vertical));
    canvas.TextOut(referencia.X, referencia.Y, texto);
}

} // namespace tavru
