#include <tavru/companions/symbology/TSimboloFonte.h>

#include "EscritaDeTexto_p.h"
#include "EstadoDoCanvas_p.h"

#include <tavru/companions/geodesy/GISPosicao.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tavru {

void TSimboloFonte::DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const
{
    const TRect o = ConcertaRect(r);
    // Em 64 bits: um retângulo de ponta a ponta da faixa de 32 bits não estoura.
    const int lado = static_cast<int>(std::min<std::int64_t>(
        {std::int64_t(o.Right) - o.Left, std::int64_t(o.Bottom) - o.Top, 4096}));
    if (lado <= 0 || FLetra.unicode() == 0)
        return;
    const TEstadoDoCanvas estado(canvas);
    canvas.Font().Assign(FFonte);
    canvas.Font().SetHeight(-lado);
    const double graus = std::isfinite(angulo) ? angulo * 180.0 / 3.14159265358979323846 : 0.0;
    EscreverGirado(canvas, Centro(o), QString(FLetra), TA_CENTER, -1, graus);
}

} // namespace tavru
