#include <tavru/companions/symbology/TTexto.h>

#include "EscritaDeTexto_p.h"

#include <algorithm>
#include <cmath>

namespace tavru {

bool TTexto::ObterArea(TRect &area) const
{
    area = TRect(FPosicao, FPosicao);
    return true;
}

void TTexto::Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const
{
    const double altura = std::min<double>(std::abs(double(FFonte.Height())) * t.Escala(), t.Lado());
    if (FTexto.isEmpty() || !(altura >= 1.0))
        return;
    canvas.Font().Assign(FFonte);
    canvas.Font().SetHeight(-static_cast<int>(std::lround(altura)));
    static constexpr unsigned Horizontal[3] = {TA_LEFT, TA_RIGHT, TA_CENTER};
    const unsigned h = FAlinhamentoHorizontal < 3 ? Horizontal[FAlinhamentoHorizontal] : TA_LEFT;
    const int v = FAlinhamentoVertical == 1 ? int(TA_TOP) : FAlinhamentoVertical == 2 ? -1 : int(TA_BOTTOM);
    const double graus = t.Angulo() * 180.0 / 3.14159265358979323846 + FGiroAdicional;
    EscreverGirado(canvas, t.Aplicar(FPosicao.X, FPosicao.Y), FTexto, h, v, graus);
}

} // namespace tavru
