#pragma once
/// \file
/// O setor de um símbolo vetorial: disco, setor, anel ou setor de anel.

#include <tavru/companions/symbology/TElementoGrafico.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TPen.h>

#include <vector>

namespace tavru {

/// Um setor do símbolo em torno de `Centro`, a figura das áreas circulares do mapa.
///
/// Raios em unidades do símbolo (números reais). Ângulos em radianos, matemáticos: 0 no leste,
/// π/2 no norte (para cima), crescendo no sentido anti-horário. O setor vai de `AnguloInicial` a
/// `AnguloFinal` no sentido horário, como o setor da área circular vai do azimute inicial ao
/// final; ângulos iguais dão a volta inteira. Um `RaioInterno` positivo abre um furo (anel);
/// zero ou negativo não.
///
/// Figuras: disco (ângulos iguais, sem furo); setor (do centro ao arco e de volta); anel (o
/// círculo de fora e o de dentro num polígono só, que o preenchimento par-ímpar fura; a ligação
/// entre os dois aparece como um raio); setor de anel. Cada volta inteira tem 72 lados.
///
/// Ocupa no símbolo o retângulo do disco inteiro de `RaioExterno` (mesmo quando é um setor),
/// arredondado para fora.
///
/// Desenho: contorno com `Caneta` e preenchimento com `Pincel`.
class TAVRU_SIMBOLOGIA_EXPORT TSetor : public TElementoGrafico
{
public:
    TSetor() = default;

    TPoint Centro() const { return FCentro; }
    void AtribuirCentro(const TPoint &c) { FCentro = c; }
    double RaioExterno() const { return FRaioExterno; }
    void AtribuirRaioExterno(double r) { FRaioExterno = r; }
    double RaioInterno() const { return FRaioInterno; }
    void AtribuirRaioInterno(double r) { FRaioInterno = r; }
    double AnguloInicial() const { return FAnguloInicial; }
    void AtribuirAnguloInicial(double a) { FAnguloInicial = a; }
    double AnguloFinal() const { return FAnguloFinal; }
    void AtribuirAnguloFinal(double a) { FAnguloFinal = a; }
    /// Cor, estilo e largura (pixels) do contorno.
    TPen &Caneta() { return FCaneta; }
    const TPen &Caneta() const { return FCaneta; }
    /// Cor e estilo do preenchimento.
    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }

    bool ObterArea(TRect &area) const override;
    void Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const override;

protected:
    /// O semi-eixo vertical do círculo de fora (`externo`) ou do de dentro; no setor, o próprio
    /// raio. A elipse o troca.
    virtual double SemiEixoVertical(bool externo) const { return externo ? FRaioExterno : FRaioInterno; }

private:
    TPoint FCentro;
    double FRaioExterno = 0.0;
    double FRaioInterno = 0.0;
    double FAnguloInicial = 0.0;
    double FAnguloFinal = 0.0;
    TPen FCaneta;
    TBrush FPincel;
};

} // namespace tavru
