#pragma once
/// \file
/// A barra de escala do mapa, em quilômetros e em milhas náuticas (extensão).

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

namespace tavru {

class TCanvas;
class TGISProjecao;

/// Barra de escala de um mapa: duas réguas no canto de baixo à esquerda, a de cima em
/// quilômetros e a de baixo em milhas náuticas, cada uma com um comprimento redondo (1, 2 ou 5
/// vezes uma potência de 10) que cabe em `LarguraMaxima` pixels.
///
/// Os comprimentos vêm das distâncias geodésicas do WGS-84 (`Distancia`), medidas na própria linha
/// de tela da régua, entre as posições do mundo das duas pontas: numa projeção em que a escala
/// muda com a latitude, a régua vale para a altura em que está desenhada. Nenhum fator fixo de
/// graus para quilômetros entra na conta. (Extensão: o controle a desenha quando
/// `TGis::MostrarEscala` está ligado.)
class TAVRU_GIS_EXPORT TGISBarraDeEscala
{
public:
    /// Largura máxima de uma régua, em pixels.
    static constexpr int LarguraMaxima = 150;
    /// Distância da régua às bordas esquerda e de baixo da tela, em pixels.
    static constexpr int Margem = 12;
    /// Distância vertical entre as duas réguas, em pixels.
    static constexpr int Entrelinha = 22;
    /// Metros num quilômetro e numa milha náutica.
    static constexpr double MetrosPorKm = 1000.0;

    /// Uma régua: a linha de tela `Y` de `X` a `X + Pixels`, que mede `Valor` na unidade dela.
    struct TRegua
    {
        int X = 0;
        int Y = 0;
        int Pixels = 0;  ///< 0: não há régua (a linha cai fora do mundo, ou a tela é pequena demais)
        double Valor = 0.0;
    };

    /// A régua de quilômetros da tela `tela` (pixels) pela projeção.
    static TRegua ReguaKm(const TGISProjecao &projecao, const TRect &tela);
    /// A régua de milhas náuticas.
    static TRegua ReguaMilhas(const TGISProjecao &projecao, const TRect &tela);
    /// Desenha as duas réguas, com fundo branco e os textos ("200 km", "100 MN").
    static void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, const TRect &tela);

private:
    /// A régua na linha `y` com a unidade de `metros` metros.
    static TRegua Regua(const TGISProjecao &projecao, const TRect &tela, int y, double metros);
};

} // namespace tavru
