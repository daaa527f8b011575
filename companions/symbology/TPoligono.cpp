#include <tavru/companions/symbology/TPoligono.h>

#include <tavru/platform/TCanvas.h>

#include <algorithm>
#include <vector>

namespace tavru {

bool TPoligono::ObterArea(TRect &area) const
{
    if (FPosicoes.Count() == 0)
        return false;
    TRect r(FPosicoes.ObterPosicao(0), FPosicoes.ObterPosicao(0));
    for (const TPoint &p : FPosicoes) {
        r.Left = std::min(r.Left, p.X);
        r.Top = std::min(r.Top, p.Y);
        r.Right = std::max(r.Right, p.X);
        r.Bottom = std::max(r.Bottom, p.Y);
    }
    area = r;
    return true;
}

void TPoligono::Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const
{
    std::vector<TPoint> tela;
    tela.reserve(static_cast<size_t>(FPosicoes.Count()));
    for (const TPoint &p : FPosicoes)
        tela.push_back(t.Aplicar(p.X, p.Y));
    canvas.Pen().Assign(FCaneta);
    const int n = static_cast<int>(tela.size());
    if (FPreenchido) {
        canvas.Brush().Assign(FPincel);
        canvas.Polygon(tela.data(), n);
    } else {
        canvas.Polyline(tela.data(), n);
    }
}

} // namespace tavru
