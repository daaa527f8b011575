#pragma once
/// \file
/// A interface dos símbolos de uma tabela de símbolos.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

#include <QString>

namespace tavru {

class TCanvas;

/// Um símbolo que sabe se desenhar ajustado a um retângulo de tela e girado.
///
/// Há três espécies: `TSimboloVetorial` (elementos gráficos em coordenadas próprias),
/// `TSimboloFonte` (um caractere de uma fonte) e `TSimboloGrafico` (uma figura lida de arquivo).
///
/// Ângulos em radianos, no sentido anti-horário na tela (com o norte para cima), como a
/// orientação dos objetos do mapa: π/2 leva o que aponta para o leste a apontar para o norte.
/// Cada símbolo desenha com as cores que traz (as dos seus elementos, a da fonte, as da figura):
/// a caneta e o pincel com que o canvas chega não contam, e o estado dele (caneta, pincel, fonte,
/// alinhamento de texto) volta como estava.
///
/// O nome é a única coisa que toda espécie guarda igual; ele fica aqui, na interface.
class TAVRU_SIMBOLOGIA_EXPORT ISimbolo
{
public:
    virtual ~ISimbolo();

    /// Nome do símbolo na tabela (pode ser vazio).
    QString Nome() const { return FNome; }
    void AtribuirNome(const QString &nome) { FNome = nome; }

    /// Desenha o símbolo dentro de `r` (pixels; os cantos em qualquer ordem) e girado de
    /// `angulo` radianos em torno do centro de `r`. Um retângulo vazio não desenha nada.
    virtual void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const = 0;
    /// O mesmo sem giro.
    void Desenhar(TCanvas &canvas, const TRect &r) const { DesenharRotacionado(canvas, r, 0.0); }

protected:
    explicit ISimbolo(const QString &nome = QString()) : FNome(nome) {}

private:
    QString FNome;
};

} // namespace tavru
