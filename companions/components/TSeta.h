#pragma once
/// \file
/// A seta de seleção que o controle do mapa desenha sobre o objeto selecionado.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TPoint.h>

namespace tavru {

class TCanvas;

/// Seta que aponta um ponto da tela: a ponta fica exatamente no ponto dado a `Mover`, e o corpo
/// sobe para a direita, de onde o olho a acha sem que ela cubra o objeto apontado.
///
/// Não é um componente visual: é criada sem dono (o controle do mapa a possui) e só se desenha
/// quando alguém chama `Desenhar` num canvas. `Mostrar` diz se o dono deve desenhá-la; a seta não
/// o consulta sozinha. `Brush().Color` é a cor de preenchimento (o controle usa a mesma cor na
/// caneta do objeto selecionado). `Tamanho` é o comprimento da seta, em pixels, da ponta à cauda
/// em cada eixo.
///
/// Padrões: escondida, pincel vermelho sólido, tamanho 24 pixels, posição (0, 0).
class TAVRU_COMPONENTES_EXPORT TSeta
{
public:
    TSeta();
    virtual ~TSeta();
    TSeta(const TSeta &) = delete;
    TSeta &operator=(const TSeta &) = delete;

    bool Mostrar() const { return FMostrar; }
    void AtribuirMostrar(bool mostrar) { FMostrar = mostrar; }
    TBrush &Brush() { return FBrush; }
    const TBrush &Brush() const { return FBrush; }
    /// Comprimento em pixels (menos de 4 é tomado como 4 ao desenhar).
    int Tamanho() const { return FTamanho; }
    void AtribuirTamanho(int pixels) { FTamanho = pixels; }
    /// O ponto da tela apontado pela ponta.
    TPoint Posicao() const { return FPosicao; }
    /// Leva a ponta para `ponto` (pixels); não desenha.
    void Mover(const TPoint &ponto) { FPosicao = ponto; }

    /// Desenha a seta no canvas: um polígono preenchido com `Brush` e contornado de preto. A caneta
    /// e o pincel do canvas voltam a ser os de antes.
    virtual void Desenhar(TCanvas &canvas);

private:
    bool FMostrar = false;
    TBrush FBrush;
    int FTamanho = 24;
    TPoint FPosicao;
};

} // namespace tavru
