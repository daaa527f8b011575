#pragma once
/// \file
/// A fonte da plataforma: nome, tamanho em pontos, altura em pixels, cor, número de conjunto de
/// caracteres, estilo e escapamento (rotação em décimos de grau, anti-horária).

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QFont>
#include <QString>
#include <cstdint>

namespace tavru {

/// Estilos de fonte, como bits de `TFontStyles`.
enum TFontStyle : std::uint8_t { fsBold = 0, fsItalic = 1, fsUnderline = 2, fsStrikeOut = 3 };
/// Conjunto de `TFontStyle`: o bit `1 << estilo` está ligado quando o estilo está presente.
using TFontStyles = std::uint8_t;
constexpr TFontStyles Estilo(TFontStyle e) { return static_cast<TFontStyles>(1u << e); }

/// Fonte: valor simples com `Assign`. `Size` (pontos) e `Height` (pixels, negativa como na
/// plataforma: `Height = -Size * 96 / 72`) andam juntos: atribuir um recalcula o outro.
/// Padrão: "DejaVu Sans", 8 pontos, cor `clWindowText`, conjunto 1 (padrão), sem estilo,
/// escapamento 0.
class TAVRU_PLATAFORMA_EXPORT TFont
{
public:
    static constexpr int PixelsPorPolegada = 96;

    QString Name = QStringLiteral("DejaVu Sans");
    TColor Color = clWindowText;
    int Charset = 1;
    TFontStyles Style = 0;
    /// Rotação do texto em décimos de grau, no sentido anti-horário.
    int Escapement = 0;

    int Size() const { return FSize; }
    void SetSize(int pontos);
    int Height() const { return FHeight; }
    void SetHeight(int pixels);

    void Assign(const TFont &outra) { *this = outra; }
    /// A `QFont` equivalente (tamanho em pixels, sem a rotação: o canvas gira o texto).
    QFont ParaQFont() const;
    /// Toma de `fonte` o nome, a altura (pixels; uma fonte dada em pontos é convertida a
    /// `PixelsPorPolegada`) e o estilo. Cor, conjunto de caracteres e escapamento ficam.
    void AtribuirQFont(const QFont &fonte);

    friend bool operator==(const TFont &a, const TFont &b)
    {
        return a.Name == b.Name && a.Color == b.Color && a.Charset == b.Charset && a.Style == b.Style
            && a.Escapement == b.Escapement && a.FSize == b.FSize && a.FHeight == b.FHeight;
    }

private:
    int FSize = 8;
    int FHeight = -11;
};

} // namespace tavru
