#pragma once
/// \file
/// Projeção alternativa, mantida para experiências: uma vista do globo.

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exportacao.h>

#include <cstdint>

namespace tavru {

/// Projeção de experiência: `MundoParaTela` mostra a posição numa vista do globo, e
/// `TelaParaMundo` é a inversa linear da projeção Mercator (não a inversa da vista), de modo que
/// ida e volta não devolvem a posição de partida. O resto do sistema não a usa.
///
/// Mantido de propósito, porque é o comportamento conhecido desta projeção:
/// - as diferenças ao centro dão a volta com período 1296001 segundos de arco (uma volta mais um
///   segundo);
/// - uma diferença de latitude além de ±324000 é trazida de volta com um quarto de volta (324000),
///   não meia volta;
/// - x = Round(cos(a)·cos(b)·Coeficiente + CentroTela.X) e
///   y = Round(CentroTela.Y - sen(b)·cos(a)·Coeficiente), com a e b as diferenças de latitude e
///   longitude em graus; uma posição 180° a leste do centro cai no lado oeste da tela.
class TAVRU_GIS_EXPORT TGISProjecaoTeste : public TGISProjecao
{
public:
    TGISProjecaoTeste();

    void DoAtribuirZoom(double zoom) override;
    void DoAtribuirAreaTela(const TRect &r) override;
    void DoAtribuirAreaMundo(const TGISRet &r) override;
    std::unique_ptr<TGISProjecao> Criar() const override;
    void Copiar(const TGISProjecao &origem) override;
    /// Como o da projeção Mercator (mede os cantos com a vista do globo desta projeção).
    void FitToRect(const TGISRet &r) override;
    TPoint MundoParaTela(const TGISPosicao &p) const override;
    /// A inversa linear; com `Coeficiente` zero levanta `EZeroDivide`.
    TGISPosicao TelaParaMundo(const TPoint &p) const override;
    /// Responde verdadeiro, como a base.
    bool Visivel(const TGISRet &r) const override;

    TPoint CentroTela() const { return FCentroTela; }
    double Coeficiente() const { return FCoeficiente; }
    /// Recalcula `Coeficiente` e `CentroTela`, como a projeção Mercator.
    void CalcularCoef();

    /// `v` levado a `lo..hi` com período `hi - lo + 1`.
    static std::int64_t Envolver(std::int64_t v, std::int64_t lo, std::int64_t hi);

private:
    TPoint FCentroTela;
    double FCoeficiente = 0.0;
};

} // namespace tavru
