#include <tavru/companions/symbology/TSimboloFonte.h>

#include "EscritaDeTexto_p.h"
#include "EstadoDoCanvas_p.h"

#include <tavru/companions/geodesy/GISPosicao.h>

#include <algorithm>
#include <cmath>

namespace tavru {

void TSimboloFonte::DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const
{
    const TRect o = ConcertaRect(r);
    const int lado = std::min(o.Width(), o.Height());
    if (lado <= 0 || FLetra.unicode() == 0)
        return;
    const TEstadoDoCanvas estado(canvas);
    canvas.Font().Assign(FFonte);
    canvas.Font().SetHeight(-lado);
    const double graus = std::isfinite(angulo) ? angulo * 180.0 / 3.14159265358979323846 : 0.0;
    EscreverGirado(canvas, Centro(o), QString(FLetra), TA_CENTER, -1, graus);
}

} // namespace tavru
