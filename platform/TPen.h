#pragma once
/// \file
/// A caneta da plataforma: cor, largura (pixels) e estilo com os ordinais que os documentos
/// guardam.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QPen>
#include <cstdint>

namespace tavru {

/// Estilos de caneta, nos ordinais guardados em documentos.
enum TPenStyle : std::uint8_t {
    psSolid = 0,
    psDash = 1,
    psDot = 2,
    psDashDot = 3,
    psDashDotDot = 4,
    psClear = 5,
    psInsideFrame = 6
};

/// Caneta: valor simples com `Assign`. Padrão: preta, largura 1, sólida.
class TAVRU_PLATAFORMA_EXPORT TPen
{
public:
    TColor Color = clBlack;
    int Width = 1;
    TPenStyle Style = psSolid;

    void Assign(const TPen &outra) { *this = outra; }
    /// A `QPen` equivalente (`psClear` dá `Qt::NoPen`; largura 1 vira a caneta cosmética de 1 pixel).
    QPen ParaQPen() const;

    friend bool operator==(const TPen &a, const TPen &b)
    {
        return a.Color == b.Color && a.Width == b.Width && a.Style == b.Style;
    }
};

/// O estilo de Qt de um estilo de caneta (a única tabela de tradução).
TAVRU_PLATAFORMA_EXPORT Qt::PenStyle ParaQtPenStyle(TPenStyle estilo);

} // namespace tavru
