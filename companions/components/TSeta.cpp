#include <tavru/companions/components/TSeta.h>

#include <tavru/platform/TCanvas.h>

#include <algorithm>

namespace tavru {

TSeta::TSeta()
{
    FBrush.Color = clRed;
    FBrush.Style = bsSolid;
}

TSeta::~TSeta() = default;

void TSeta::Desenhar(TCanvas &canvas)
{
    // A seta em coordenadas relativas à ponta: cabeça triangular e haste, subindo para a direita.
    const int t = std::max(FTamanho, 4);
    const int cabeca = t / 2;
    const int haste = std::max(t / 6, 1);
    const int x = FPosicao.X;
    const int y = FPosicao.Y;
    const TPoint pontos[] = {
        {x, y},                               // ponta
        {x + cabeca, y},                      // aba de baixo da cabeça
        {x + cabeca - haste, y - haste},      // volta para a haste
        {x + t, y - t + haste},               // cauda, lado de baixo
        {x + t - haste, y - t},               // cauda, lado de cima
        {x + haste, y - cabeca + haste},      // haste, lado de cima
        {x, y - cabeca},                      // aba de cima da cabeça
    };
    const TPen canetaAntes = canvas.Pen();
    const TBrush pincelAntes = canvas.Brush();
    canvas.Pen() = TPen();
    canvas.Brush() = FBrush;
    canvas.Polygon(pontos, static_cast<int>(std::size(pontos)));
    canvas.Pen() = canetaAntes;
    canvas.Brush() = pincelAntes;
}

} // namespace tavru
