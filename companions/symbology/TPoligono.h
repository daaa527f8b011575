#pragma once
/// \file
/// O polígono de um símbolo vetorial.

#include <tavru/companions/symbology/TElementoGrafico.h>
#include <tavru/companions/symbology/TListaPosicoes.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TPen.h>

namespace tavru {

/// Um polígono do símbolo: preenchido (`Preenchido`, fechado e pintado com `Pincel`) ou uma
/// linha aberta pelas posições; contorno com `Caneta`. Menos de duas posições não desenham nada.
/// Ocupa o retângulo das suas posições; sem posições, nenhum.
class TAVRU_SIMBOLOGIA_EXPORT TPoligono : public TElementoGrafico
{
public:
    TPoligono() = default;

    TListaPosicoes &ObterListaPosicao() { return FPosicoes; }
    const TListaPosicoes &ObterListaPosicao() const { return FPosicoes; }
    TPen &Caneta() { return FCaneta; }
    const TPen &Caneta() const { return FCaneta; }
    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }
    bool Preenchido() const { return FPreenchido; }
    void AtribuirPreenchido(bool p) { FPreenchido = p; }

    bool ObterArea(TRect &area) const override;
    void Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const override;

private:
    TListaPosicoes FPosicoes;
    TPen FCaneta;
    TBrush FPincel;
    bool FPreenchido = false;
};

} // namespace tavru
