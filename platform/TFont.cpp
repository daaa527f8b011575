#include <tavru/platform/TFont.h>

#include <cmath>
#include <cstdlib>

namespace tavru {

void TFont::SetSize(int pontos)
{
    FSize = pontos;
    FHeight = -static_cast<int>(std::lround(pontos * double(PixelsPorPolegada) / 72.0));
}

void TFont::SetHeight(int pixels)
{
    FHeight = pixels;
    FSize = static_cast<int>(std::lround(std::abs(pixels) * 72.0 / PixelsPorPolegada));
    if (pixels > 0)
        FSize = -FSize;
}

QFont TFont::ParaQFont() const
{
    QFont fonte(Name);
    fonte.setPixelSize(std::max(1, std::abs(FHeight)));
    fonte.setBold(Style & Estilo(fsBold));
    fonte.setItalic(Style & Estilo(fsItalic));
    fonte.setUnderline(Style & Estilo(fsUnderline));
    fonte.setStrikeOut(Style & Estilo(fsStrikeOut));
    return fonte;
}

void TFont::AtribuirQFont(const QFont &fonte)
{
    Name = fonte.family();
    SetHeight(-(fonte.pixelSize() > 0 ? fonte.pixelSize()
                                       : static_cast<int>(std::lround(fonte.pointSizeF() * PixelsPorPolegada / 72.0))));
    Style = 0;
    if (fonte.bold()) Style |= Estilo(fsBold);
    if (fonte.italic()) Style |= Estilo(fsItalic);
    if (fonte.underline()) Style |= Estilo(fsUnderline);
    if (fonte.strikeOut()) Style |= Estilo(fsStrikeOut);
}

} // namespace tavru
