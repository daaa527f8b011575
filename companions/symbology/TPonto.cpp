#include <tavru/companions/symbology/TPonto.h>

#include <tavru/platform/TCanvas.h>

#include <algorithm>

namespace tavru {

bool TPonto::ObterArea(TRect &area) const
{
    area = TRect(FPosicao, FPosicao);
    return true;
}

void TPonto::Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const
{
    const TPoint c = t.Aplicar(FPosicao.X, FPosicao.Y);
    const int braco = std::max(2, t.Lado() / 8);
    canvas.Pen().Color = FCor;
    canvas.Pen().Width = 1;
    canvas.Pen().Style = psSolid;
    // A linha não pinta o último pixel: vai um além do braço.
    canvas.MoveTo(c.X - braco, c.Y);
    canvas.LineTo(c.X + braco + 1, c.Y);
    canvas.MoveTo(c.X, c.Y - braco);
    canvas.LineTo(c.X, c.Y + braco + 1);
}

} // namespace tavru
