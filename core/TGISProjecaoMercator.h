#pragma once
/// \file
/// A projeção que o controle do mapa usa: linear, uma escala só para os dois eixos.

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exportacao.h>

namespace tavru {

/// Projeção linear (equirretangular) de segundos de arco em pixels, com a mesma escala nos dois
/// eixos e o norte para cima. Apesar do nome, a latitude não é esticada: todo mapa guardado e todo
/// teste de pertinência dependem disso, e assim fica.
///
/// `Coeficiente` (pixels por segundo de arco, zoom incluído) e `CentroTela` são derivados: são
/// recalculados por `CalcularCoef` na construção, em `Copiar` e a cada mudança de zoom, de tela ou
/// de mundo. Arredondamento ao mais próximo, empates para o par (`Arredondar`).
///
/// Caminho rápido: `MundoParaTelaPontos` e `TelaParaMundoPontos` convertem o vetor contíguo num
/// laço sem chamada virtual por ponto, com o mesmo núcleo de conta de `MundoParaTela` e
/// `TelaParaMundo` (os resultados são idênticos por construção). Uma subclasse que troque uma
/// dessas conversões volta sozinha ao laço da base, que chama a conversão virtual.
class TAVRU_GIS_EXPORT TGISProjecaoMercator : public TGISProjecao
{
public:
    TGISProjecaoMercator();

    void DoAtribuirZoom(double zoom) override;
    void DoAtribuirAreaTela(const TRect &r) override;
    void DoAtribuirAreaMundo(const TGISRet &r) override;
    std::unique_ptr<TGISProjecao> Criar() const override;
    void Copiar(const TGISProjecao &origem) override;
    /// Alarga um ponto ou um retângulo chato para 60 segundos de arco, ajusta o zoom (limitado)
    /// para que ele caiba na tela e centra nele. Um retângulo que cabe em menos de um pixel nas
    /// duas direções é ignorado (nem o centro muda).
    void FitToRect(const TGISRet &r) override;
    TPoint MundoParaTela(const TGISPosicao &p) const override;
    /// A inversa linear; com `Coeficiente` zero (tela vazia) levanta `EZeroDivide`.
    TGISPosicao TelaParaMundo(const TPoint &p) const override;
    /// Falso só quando o retângulo, projetado sem arredondar, fica inteiro a mais de 2 pixels
    /// fora de `AreaTela`: um teste barato, sem chamadas virtuais, que quem desenha faz antes do
    /// teste exato (`MundoParaTelaRet` + `Intersecao`). Nunca recusa um retângulo que o teste
    /// exato aceitaria; um retângulo que ele deixa passar ainda vai ao teste exato.
    bool Visivel(const TGISRet &r) const override;

    /// Pixels por segundo de arco, zoom incluído: o menor dos fatores horizontal e vertical
    /// (cada um 1.0 quando o vão do mundo naquele eixo é zero) vezes o zoom.
    double Coeficiente() const { return FCoeficiente; }
    /// Centro da tela, ((Left + Right) div 2, (Top + Bottom) div 2).
    TPoint CentroTela() const { return FCentroTela; }
    /// Recalcula `Coeficiente` e `CentroTela`.
    void CalcularCoef();

protected:
    void DoMundoParaTelaPontos(const TGISPosicao *origem, TPoint *destino, int total) const override;
    void DoTelaParaMundoPontos(const TPoint *origem, TGISPosicao *destino, int total) const override;

private:
    bool CaminhoRapido() const;

    double FCoeficiente = 0.0;
    TPoint FCentroTela;
};

} // namespace tavru
