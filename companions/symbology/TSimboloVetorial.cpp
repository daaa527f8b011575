#include <tavru/companions/symbology/TSimboloVetorial.h>

#include "EstadoDoCanvas_p.h"

namespace tavru {

void TSimboloVetorial::DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const
{
    if (FElementos.Count() == 0 || r.Left == r.Right || r.Top == r.Bottom)
        return;
    const TEstadoDoCanvas estado(canvas);
    const TTransformacaoSimbolo t(FElementos.ObterArea(), r, angulo);
    for (int i = 0; i < FElementos.Count(); ++i)
        if (const TElementoGrafico *e = FElementos.Items(i))
            e->Desenhar(canvas, t);
}

} // namespace tavru
