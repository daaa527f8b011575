#pragma once
/// \file
/// O ponto de um símbolo vetorial.

#include <tavru/companions/symbology/TElementoGrafico.h>
#include <tavru/platform/TColor.h>

namespace tavru {

/// Um ponto colorido do símbolo, desenhado como uma cruz (a figura em que ele vira no mapa).
///
/// O ponto não tem tamanho no símbolo: ocupa só a sua posição, e a cruz tem braços de um oitavo
/// do menor lado do retângulo de desenho (no mínimo 2 pixels), na cor do ponto, com 1 pixel de
/// largura.
class TAVRU_SIMBOLOGIA_EXPORT TPonto : public TElementoGrafico
{
public:
    explicit TPonto(const TPoint &posicao = TPoint(), TColor cor = clBlack) : FPosicao(posicao), FCor(cor) {}

    TPoint Posicao() const { return FPosicao; }
    void AtribuirPosicao(const TPoint &p) { FPosicao = p; }
    TColor Cor() const { return FCor; }
    void AtribuirCor(TColor cor) { FCor = cor; }

    bool ObterArea(TRect &area) const override;
    void Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const override;

private:
    TPoint FPosicao;
    TColor FCor;
};

} // namespace tavru
