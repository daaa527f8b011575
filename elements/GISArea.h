#pragma once
/// \file
/// A área do mapa: a geometria de uma linha desenhada como polígonos preenchidos.

#include <tavru/elements/GISLinha.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>

#include <cstdint>

namespace tavru {

/// Área do mapa: as sequências de uma `TGISLinha` desenhadas como polígonos fechados e
/// preenchidos com `Pincel`. A extensão e a posição são as da linha.
///
/// Padrões: `IndicePincel` -1 (a cor padrão da tabela), pincel padrão da plataforma.
class TAVRU_GIS_EXPORT TGISArea : public TGISLinha
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISArea();
    /// Libera o pincel e segue com o destrutor da linha.
    ~TGISArea() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// A cor da área é a cor de `Pincel`; o estilo do pincel fica.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// A caneta recebe a cor da tabela em `IndiceCor` e o pincel a de `IndicePincel` (a cor padrão
    /// da tabela fora dela); o estilo do pincel fica.
    void AtualizarCores(const TTabelaDeCores &tabela) override;
    /// Pergunta o número de pontos (de 3 a 200, "Área") e acrescenta um polígono regular de raio
    /// 20 pixels em volta do clique, fechado explicitamente (o primeiro ponto repetido no fim).
    /// 0 desiste (falso).
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Com `selecionado` falso, pincel de `Pincel` e caneta de `Caneta`; cada sequência com pontos
    /// é desenhada fechada por `DesenharOtimizado`.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro na primeira sequência em que `PertenceAArea` da projeção acha o ponto.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Verdadeiro quando o preenchimento que `Desenhar` (não selecionado) faria nesta projeção
    /// certamente pinta, opaco, cada pixel de `retangulo` (pixels de tela): pincel sólido de cor
    /// opaca e uma sequência, desbastada como no desenho, sem aresta a menos de 2 pixels do
    /// retângulo e com ele dentro pela regra par-ímpar do preenchimento. Falso na dúvida (pontos
    /// além de 2^22 pixels, que o rasterizador pode recortar). Usa o contexto do canvas como
    /// rascunho e não desenha. Extensão: o controle pula o que uma área assim esconde.
    bool CobreRetangulo(TCanvas &canvas, const TGISProjecao &projecao, const TRect &retangulo) const;

    /// Índice da cor do preenchimento na tabela de cores; negativo é a cor padrão da tabela.
    std::int32_t IndicePincel() const { return FIndicePincel; }
    void AtribuirIndicePincel(std::int32_t indice) { FIndicePincel = indice; Mudou(); }
    /// Cor e estilo do preenchimento (possuído).
    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }
    void AtribuirPincel(const TBrush &pincel) { FPincel.Assign(pincel); Mudou(); }

private:
    TBrush FPincel;
    std::int32_t FIndicePincel = -1;
};

/// `AtualizarCores` das áreas e dos corredores: a caneta pela cor de `indiceCor`, o pincel pela
/// de `indicePincel` (ambos com a cor padrão da tabela fora dela), o estilo do pincel mantido.
/// Responde se alguma das duas cores mudou (nada é escrito quando já estavam certas).
TAVRU_GIS_EXPORT bool AtualizarCoresComPincel(const TTabelaDeCores &tabela, std::int32_t indiceCor, TPen &caneta,
                                              std::int32_t indicePincel, TBrush &pincel);

} // namespace tavru
