#pragma once
/// \file
/// Símbolo vetorial: polígonos, linhas e pontos desenhados numa caixa unitária própria.

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QPointF>
#include <cstdint>
#include <vector>

namespace tavru {

/// Uma figura de um símbolo vetorial, em coordenadas da caixa unitária do símbolo.
struct TFiguraVetorial
{
    enum TTipo : std::uint8_t {
        fvPoligono = 0, ///< polígono fechado, preenchido com o pincel e contornado com a caneta
        fvLinha = 1,    ///< linha aberta pelos pontos, com a caneta
        fvPonto = 2     ///< um disco de raio `Raio` em cada ponto
    };
    TTipo Tipo = fvPoligono;
    /// Pontos na caixa unitária: x de -1 (oeste) a 1 (leste), y de -1 (sul) a 1 (norte).
    std::vector<QPointF> Pontos;
    /// Raio dos discos de `fvPonto`, na unidade da caixa (no mínimo 1 pixel ao desenhar).
    double Raio = 0.05;
    /// Cor própria da figura (caneta e pincel); `clNone` usa a caneta e o pincel do canvas.
    TColor Cor = clNone;
};

/// Símbolo feito de figuras vetoriais numa caixa unitária centrada na origem (-1..1 nos dois
/// eixos, y para o norte).
///
/// Ao desenhar, a caixa vira o quadrado de lado igual ao menor lado do retângulo pedido, centrado
/// nele; o símbolo gira em torno desse centro, no sentido anti-horário, de `angulo` radianos.
/// O que fica dentro do círculo unitário fica dentro do retângulo em qualquer ângulo; os cantos da
/// caixa podem sair dele quando girados. Os pontos são arredondados ao pixel mais próximo. Figuras
/// sem cor própria usam a caneta e o pincel correntes do canvas; as com cor própria trocam só as
/// cores da caneta e do pincel (os estilos ficam) e devolvem as do canvas depois.
class TAVRU_SIMBOLOGIA_EXPORT TSimboloVetorial : public ISimbolo
{
public:
    explicit TSimboloVetorial(const QString &nome = QString()) : FNome(nome) {}

    QString Nome() const override { return FNome; }
    void AtribuirNome(const QString &nome) { FNome = nome; }

    /// Acrescenta uma figura e devolve o seu índice.
    int AdicionarFigura(const TFiguraVetorial &figura);
    int ObterTotal() const { return static_cast<int>(FFiguras.size()); }
    const std::vector<TFiguraVetorial> &Figuras() const { return FFiguras; }
    void Limpar() { FFiguras.clear(); }

    void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const override;

private:
    QString FNome;
    std::vector<TFiguraVetorial> FFiguras;
};

} // namespace tavru
