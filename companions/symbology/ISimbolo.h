#pragma once
/// \file
/// A interface dos símbolos de uma tabela de símbolos.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

#include <QString>

namespace tavru {

class TCanvas;

/// Um símbolo que sabe se desenhar ajustado a um retângulo de tela e girado.
///
/// Ângulos em radianos, no sentido anti-horário na tela (com o norte para cima), como a
/// orientação dos objetos do mapa: π/2 leva o que aponta para o leste a apontar para o norte.
/// O símbolo desenha com a caneta e o pincel correntes do canvas, a menos que traga cores suas.
class TAVRU_SIMBOLOGIA_EXPORT ISimbolo
{
public:
    virtual ~ISimbolo() = default;
    /// Nome do símbolo na tabela (pode ser vazio).
    virtual QString Nome() const = 0;
    /// Desenha o símbolo ajustado a `r` (pixels) e girado de `angulo` radianos em torno do
    /// centro de `r`.
    virtual void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const = 0;
};

} // namespace tavru
