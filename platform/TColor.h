#pragma once
/// \file
/// Cores da plataforma: um inteiro de 32 bits `0x00BBGGRR` (vermelho no byte baixo), como os
/// arquivos e as tabelas de cores guardam. `-1` (`clNone`) quer dizer "sem cor". Valores com o
/// bit alto ligado e byte baixo pequeno são cores do sistema (`clWindow`...), resolvidas pela
/// paleta do Qt. Converta para `QColor` só ao pintar.

#include <tavru/platform/Exportacao.h>

#include <QColor>
#include <cstdint>

namespace tavru {

using TColor = std::int32_t;

constexpr TColor clNone = -1;
constexpr TColor clBlack = 0x000000;
constexpr TColor clMaroon = 0x000080;
constexpr TColor clGreen = 0x008000;
constexpr TColor clOlive = 0x008080;
constexpr TColor clNavy = 0x800000;
constexpr TColor clPurple = 0x800080;
constexpr TColor clTeal = 0x808000;
constexpr TColor clGray = 0x808080;
constexpr TColor clSilver = 0xC0C0C0;
constexpr TColor clRed = 0x0000FF;
constexpr TColor clLime = 0x00FF00;
constexpr TColor clYellow = 0x00FFFF;
constexpr TColor clBlue = 0xFF0000;
constexpr TColor clFuchsia = 0xFF00FF;
constexpr TColor clAqua = 0xFFFF00;
constexpr TColor clWhite = 0xFFFFFF;
/// Cor de fundo de janela do sistema.
constexpr TColor clWindow = static_cast<TColor>(0x80000005u);
/// Cor de texto de janela do sistema.
constexpr TColor clWindowText = static_cast<TColor>(0x80000008u);
/// Cor de face de botão do sistema.
constexpr TColor clBtnFace = static_cast<TColor>(0x8000000Fu);

/// Monta uma cor a partir de vermelho, verde e azul (0..255).
constexpr TColor RGB(int r, int g, int b)
{
    return static_cast<TColor>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}

/// A `QColor` da cor; `clNone` dá uma cor transparente, cores do sistema vêm da paleta.
TAVRU_PLATAFORMA_EXPORT QColor ParaQColor(TColor cor);
/// A cor da plataforma de uma `QColor` (o alfa é descartado).
TAVRU_PLATAFORMA_EXPORT TColor DeQColor(const QColor &cor);

} // namespace tavru
