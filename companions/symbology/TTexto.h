#pragma once
/// \file
/// O texto de um símbolo vetorial.

#include <tavru/companions/symbology/TElementoGrafico.h>
#include <tavru/platform/TFont.h>

#include <QString>
#include <cstdint>

namespace tavru {

/// Um texto do símbolo escrito na sua posição, com a sua fonte (e a cor dela).
///
/// Alinhamentos em relação à posição, como os do texto do mapa: horizontal 0 à esquerda
/// (o texto começa na posição), 1 à direita (termina nela), 2 no centro; vertical 0 com a posição
/// embaixo do texto, 1 em cima, 2 no meio. Outros valores valem 0. `GiroAdicional` (graus
/// inteiros, anti-horário) soma-se ao giro do símbolo.
///
/// O texto não tem tamanho no símbolo: ocupa só a sua posição. A altura da fonte (`Height`, em
/// unidades do símbolo) é multiplicada pela escala do desenho e limitada ao menor lado do
/// retângulo de desenho; abaixo de 1 pixel o texto não é escrito.
class TAVRU_SIMBOLOGIA_EXPORT TTexto : public TElementoGrafico
{
public:
    TTexto() = default;

    TPoint Posicao() const { return FPosicao; }
    void AtribuirPosicao(const TPoint &p) { FPosicao = p; }
    TFont &Fonte() { return FFonte; }
    const TFont &Fonte() const { return FFonte; }
    void AtribuirFonte(const TFont &fonte) { FFonte.Assign(fonte); }
    QString Texto() const { return FTexto; }
    void AtribuirTexto(const QString &texto) { FTexto = texto; }
    std::uint8_t AlinhamentoHorizontal() const { return FAlinhamentoHorizontal; }
    void AtribuirAlinhamentoHorizontal(std::uint8_t a) { FAlinhamentoHorizontal = a; }
    std::uint8_t AlinhamentoVertical() const { return FAlinhamentoVertical; }
    void AtribuirAlinhamentoVertical(std::uint8_t a) { FAlinhamentoVertical = a; }
    /// Graus inteiros somados ao giro do símbolo; 16 bits.
    std::int16_t GiroAdicional() const { return FGiroAdicional; }
    void AtribuirGiroAdicional(std::int16_t graus) { FGiroAdicional = graus; }

    bool ObterArea(TRect &area) const override;
    void Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const override;

private:
    TPoint FPosicao;
    TFont FFonte;
    QString FTexto;
    std::int16_t FGiroAdicional = 0;
    std::uint8_t FAlinhamentoHorizontal = 2;
    std::uint8_t FAlinhamentoVertical = 2;
};

} // namespace tavru
