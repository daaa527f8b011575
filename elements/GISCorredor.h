#pragma once
/// \file
/// O corredor do mapa: uma linha desenhada como uma faixa de larguras dadas à esquerda e à direita.

#include <tavru/elements/GISLinha.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>

#include <cstdint>
#include <vector>

namespace tavru {

/// Corredor do mapa: uma linha desenhada como uma faixa preenchida, `Esq` à esquerda e `Dir` à
/// direita do sentido de percurso. As larguras são distâncias do mundo em milhas náuticas (a
/// unidade de `ObterPontoArco`), levadas a pixels no centro da projeção a cada desenho, de modo
/// que a faixa mantém a largura no mundo em todo zoom.
///
/// O corredor não é uma área: o teste de pertinência, a extensão e a configuração padrão são os
/// da linha, de modo que ele é tocado e limitado só pela linha central (um clique na faixa longe
/// da linha não o toca).
///
/// Padrões: `IndicePincel` -1, pincel padrão, `Esq` e `Dir` 10 milhas náuticas.
class TAVRU_GIS_EXPORT TGISCorredor : public TGISLinha
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISCorredor();
    /// Libera o pincel e segue com o destrutor da linha.
    ~TGISCorredor() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// A cor do corredor é a cor de `Pincel`; o estilo do pincel fica.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// Como a área (`AtualizarCoresComPincel`).
    void AtualizarCores(const TTabelaDeCores &tabela) override;
    /// Com `selecionado` falso, pincel de `Pincel` e caneta de `Caneta`. Cada sequência de dois ou
    /// mais pontos vira um contorno (`Contorno`) desenhado como um polígono preenchido por
    /// `DesenharOtimizado`; uma sequência de um ponto não desenha nada.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;

    /// As larguras da faixa em pixels na projeção: a distância na tela, a partir do centro da
    /// projeção, do ponto a `Esq` (ou `Dir`) milhas náuticas ao norte dele.
    void LargurasNaTela(const TGISProjecao &projecao, double &esquerda, double &direita) const;
    /// O contorno da faixa em volta dos pontos de tela 0..`ultimo` (`ultimo` >= 1): o lado
    /// esquerdo de ida com `esquerda` pixels e o lado direito na volta com `direita`. Cabe em
    /// 4 × `ultimo` pontos.
    static void Contorno(const TPoint *pontos, int ultimo, double esquerda, double direita,
                         std::vector<TPoint> &contorno);

    std::int32_t IndicePincel() const { return FIndicePincel; }
    void AtribuirIndicePincel(std::int32_t indice) { FIndicePincel = indice; Mudou(); }
    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }
    void AtribuirPincel(const TBrush &pincel) { FPincel.Assign(pincel); Mudou(); }
    /// Largura à esquerda, em milhas náuticas.
    double Esq() const { return FEsq; }
    void AtribuirEsq(double v) { FEsq = v; Mudou(); }
    /// Largura à direita, em milhas náuticas.
    double Dir() const { return FDir; }
    void AtribuirDir(double v) { FDir = v; Mudou(); }

private:
    TBrush FPincel;
    std::int32_t FIndicePincel = -1;
    double FEsq = 10.0;
    double FDir = 10.0;
};

} // namespace tavru
