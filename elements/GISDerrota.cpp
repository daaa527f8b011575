#include <tavru/elements/GISDerrota.h>

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

namespace tavru {

const TClasseObjeto TGISDerrota::Descritor = TClasseObjeto::De<TGISDerrota>("TGISDerrota");

TGISDerrota::TGISDerrota() = default;

TGISDerrota::~TGISDerrota() = default;

void TGISDerrota::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    DesenharDerrota(canvas, projecao, selecionado);
}

void TGISDerrota::DesenharDerrota(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Style = bsClear;
        canvas.Pen().Assign(Caneta());
    }
    const TGISPosicaoListList &sequencias = Pontos();
    for (int i = 0; i < sequencias.Count(); ++i) {
        const TGISPosicaoList &lista = *sequencias.Items(i);
        if (lista.IsEmpty())
            continue;
        canvas.Pen().Style = psSolid;
        const TPoint inicio = projecao.MundoParaTela(lista[0]);
        canvas.MoveTo(inicio.X, inicio.Y);
        for (int j = 0; j < lista.Count(); ++j) {
            const TPoint p = projecao.MundoParaTela(lista[j]);
            canvas.LineTo(p.X, p.Y);
            if (j == FIndiceTracejado)
                canvas.Pen().Style = psDot;
        }
    }
}

} // namespace tavru
