#pragma once
/// \file
/// A derrota: o rumo percorrido por uma unidade, tracejado depois de um ponto escolhido.

#include <tavru/elements/GISLinha.h>
#include <tavru/platform/Exportacao.h>

#include <cstdint>

namespace tavru {

/// Linha de derrota: uma `TGISLinha` cujos segmentos depois do ponto `IndiceTracejado` de cada
/// sequência são desenhados pontilhados.
///
/// Os pontos guardados são projetados como estão, como posições absolutas do mundo: a derrota
/// ignora a sua `Posicao` e a sua `Orientacao` ao desenhar (ao contrário da linha, que os toma
/// como deslocamentos). Mantido de propósito; o resto (pertinência, extensão, configuração
/// padrão) é o da linha.
class TAVRU_GIS_EXPORT TGISDerrota : public TGISLinha
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISDerrota();
    ~TGISDerrota() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// `DesenharDerrota` com os mesmos argumentos.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Com `selecionado` falso, pincel transparente e caneta de `Caneta`. Para cada sequência com
    /// pontos: caneta sólida, a caneta vai ao pixel do ponto guardado 0 e, para cada ponto j desde
    /// o 0, uma linha até o pixel do ponto j; quando j = `IndiceTracejado`, a caneta passa a
    /// pontilhada no resto da sequência. A linha do ponto 0 até ele mesmo (comprimento zero) é
    /// sólida; a sequência seguinte começa sólida de novo. A caneta do canvas fica com o estilo da
    /// última sequência.
    void DesenharDerrota(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado);

    /// Índice do ponto depois do qual a derrota é pontilhada; -1 (o padrão): nunca.
    std::int32_t IndiceTracejado() const { return FIndiceTracejado; }
    void AtribuirIndiceTracejado(std::int32_t indice) { FIndiceTracejado = indice; Mudou(); }

private:
    std::int32_t FIndiceTracejado = -1;
};

} // namespace tavru
