#pragma once
/// \file
/// O símbolo de fonte: um caractere de uma fonte.

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/platform/TFont.h>

#include <QChar>

namespace tavru {

/// Símbolo que é um caractere (`Letra`) escrito com `Fonte` (nome, estilo, cor).
///
/// Desenho: a altura da fonte vira o menor lado do retângulo (pixels, até 4096); o caractere
/// fica centrado nele, girado em torno do centro. A altura guardada na fonte não é usada no
/// desenho. O código 0 (o padrão) não escreve nada.
class TAVRU_SIMBOLOGIA_EXPORT TSimboloFonte : public ISimbolo
{
public:
    explicit TSimboloFonte(const QString &nome = QString()) : ISimbolo(nome) {}

    TFont &Fonte() { return FFonte; }
    const TFont &Fonte() const { return FFonte; }
    void AtribuirFonte(const TFont &fonte) { FFonte.Assign(fonte); }
    QChar Letra() const { return FLetra; }
    void AtribuirLetra(QChar letra) { FLetra = letra; }

    void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const override;

private:
    TFont FFonte;
    QChar FLetra{char16_t(0)};
};

} // namespace tavru
