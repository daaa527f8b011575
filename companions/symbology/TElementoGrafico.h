#pragma once
/// \file
/// O elemento gráfico de um símbolo vetorial e a transformação das coordenadas do símbolo para a
/// tela.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

namespace tavru {

class TCanvas;

/// Leva coordenadas de um símbolo vetorial à tela.
///
/// Coordenadas do símbolo: (x, y) com y crescendo para baixo, numa unidade qualquer (um símbolo
/// feito de um objeto do mapa usa segundos de arco: a posição (lat, lon) vira (lon, -lat)).
///
/// A área do símbolo (`TListaElementosGraficos::ObterArea`, extremos incluídos) é posta dentro de
/// `tela` com a mesma escala nos dois eixos, a maior que cabe, e com o centro da área no centro
/// de `tela`: os pixels usados vão de `Left` a `Right - 1` e de `Top` a `Bottom - 1`. Um eixo
/// sem extensão na área (largura ou altura zero) não limita a escala; uma área de um ponto só
/// tem escala 1 (um pixel por unidade). Depois o desenho gira `angulo` radianos, no sentido
/// anti-horário, em torno do centro de `tela`. Pontos longe demais (escalas enormes) são
/// limitados a ±2^30 pixels, nunca estouram.
class TAVRU_SIMBOLOGIA_EXPORT TTransformacaoSimbolo
{
public:
    /// \param area a área do símbolo, em unidades do símbolo, em ordem (Left <= Right, Top <= Bottom)
    /// \param tela o retângulo de tela, em pixels, cantos em qualquer ordem
    /// \param angulo radianos, anti-horário
    TTransformacaoSimbolo(const TRect &area, const TRect &tela, double angulo);

    /// O pixel do ponto (x, y) do símbolo, arredondado ao mais próximo.
    TPoint Aplicar(double x, double y) const;
    /// Pixels por unidade do símbolo.
    double Escala() const { return FEscala; }
    /// O giro, em radianos, anti-horário.
    double Angulo() const { return FAngulo; }
    /// O menor lado de `tela`, em pixels: a medida das marcas que não têm tamanho no símbolo (os
    /// pontos) e o limite da altura dos textos.
    int Lado() const { return FLado; }

private:
    double FCx = 0, FCy = 0;   // centro da área, em unidades do símbolo
    double FTx = 0, FTy = 0;   // centro da tela, em pixels
    double FEscala = 1;
    double FAngulo = 0, FCos = 1, FSen = 0;
    int FLado = 0;
};

/// Um elemento de um símbolo vetorial: `TPonto`, `TTexto`, `TSetor` (e `TElipse`) ou `TPoligono`.
/// As coordenadas são inteiras, em unidades do símbolo, com y para baixo; cores `0x00BBGGRR`.
class TAVRU_SIMBOLOGIA_EXPORT TElementoGrafico
{
public:
    virtual ~TElementoGrafico();

    /// O retângulo que o elemento ocupa, em unidades do símbolo, extremos incluídos (`Right` e
    /// `Bottom` são a maior coordenada, não uma além dela). Falso quando o elemento não ocupa
    /// lugar nenhum (um polígono sem posições); `area` fica como estava.
    virtual bool ObterArea(TRect &area) const = 0;
    /// Desenha o elemento com as suas cores. Caneta, pincel e fonte do canvas ficam trocados.
    virtual void Desenhar(TCanvas &canvas, const TTransformacaoSimbolo &t) const = 0;

protected:
    TElementoGrafico() = default;
};

} // namespace tavru
