#pragma once
/// \file
/// O símbolo vetorial: uma lista de elementos gráficos em coordenadas próprias.

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/companions/symbology/TElipse.h>
#include <tavru/companions/symbology/TListaElementosGraficos.h>
#include <tavru/companions/symbology/TPoligono.h>
#include <tavru/companions/symbology/TPonto.h>
#include <tavru/companions/symbology/TSetor.h>
#include <tavru/companions/symbology/TTexto.h>

namespace tavru {

/// Símbolo feito de elementos gráficos (`TPonto`, `TTexto`, `TSetor`, `TElipse`, `TPoligono`)
/// em coordenadas inteiras com y para baixo (ver `TTransformacaoSimbolo`).
///
/// Desenho: a área de todos os elementos (`Elementos().ObterArea()`) é ajustada ao retângulo
/// pedido com a mesma escala nos dois eixos, centrada, e girada em torno do centro dele; os
/// elementos são desenhados na ordem da lista, cada um com as suas cores. Um símbolo sem
/// elementos não desenha nada. O estado do canvas (caneta, pincel, fonte, alinhamento de texto) é
/// restaurado no fim.
///
/// Posse: o símbolo possui a lista e a lista os elementos.
class TAVRU_SIMBOLOGIA_EXPORT TSimboloVetorial : public ISimbolo
{
public:
    explicit TSimboloVetorial(const QString &nome = QString()) : ISimbolo(nome) {}

    TListaElementosGraficos &Elementos() { return FElementos; }
    const TListaElementosGraficos &Elementos() const { return FElementos; }

    void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const override;

private:
    TListaElementosGraficos FElementos;
};

} // namespace tavru
