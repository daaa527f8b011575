#pragma once
/// \file
/// O pincel da plataforma: cor e estilo com os ordinais que os documentos guardam.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QBrush>
#include <cstdint>

namespace tavru {

/// Estilos de pincel, nos ordinais guardados em documentos.
enum TBrushStyle : std::uint8_t {
    bsSolid = 0,
    bsClear = 1,
    bsHorizontal = 2,
    bsVertical = 3,
    bsFDiagonal = 4,
    bsBDiagonal = 5,
    bsCross = 6,
    bsDiagCross = 7
};

/// Pincel: valor simples com `Assign`. Padrão: branco e sólido.
class TAVRU_PLATAFORMA_EXPORT TBrush
{
public:
    TColor Color = clWhite;
    TBrushStyle Style = bsSolid;

    void Assign(const TBrush &outro) { *this = outro; }
    /// O `QBrush` equivalente (`bsClear` dá `Qt::NoBrush`).
    QBrush ParaQBrush() const;

    friend bool operator==(const TBrush &a, const TBrush &b) { return a.Color == b.Color && a.Style == b.Style; }
};

/// O estilo de Qt de um estilo de pincel (a única tabela de tradução).
TAVRU_PLATAFORMA_EXPORT Qt::BrushStyle ParaQtBrushStyle(TBrushStyle estilo);

} // namespace tavru
