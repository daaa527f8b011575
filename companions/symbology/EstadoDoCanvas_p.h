#pragma once
// Guarda caneta, pincel, fonte e alinhamento de texto de um canvas e os devolve ao sair do escopo.

#include <tavru/platform/TCanvas.h>

namespace tavru {

class TEstadoDoCanvas
{
public:
    explicit TEstadoDoCanvas(TCanvas &canvas)
        : FCanvas(canvas), FCaneta(canvas.Pen()), FPincel(canvas.Brush()), FFonte(canvas.Font()),
          FAlinhamento(canvas.TextAlign())
    {
    }
    ~TEstadoDoCanvas()
    {
        FCanvas.Pen().Assign(FCaneta);
        FCanvas.Brush().Assign(FPincel);
        FCanvas.Font().Assign(FFonte);
        FCanvas.SetTextAlign(FAlinhamento);
    }
    TEstadoDoCanvas(const TEstadoDoCanvas &) = delete;
    TEstadoDoCanvas &operator=(const TEstadoDoCanvas &) = delete;

private:
    TCanvas &FCanvas;
    TPen FCaneta;
    TBrush FPincel;
    TFont FFonte;
    unsigned FAlinhamento;
};

} // namespace tavru
