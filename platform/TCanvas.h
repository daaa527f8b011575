#pragma once
/// \file
/// O canvas da plataforma sobre um `QPainter` numa imagem.
///
/// Guarda o estado de desenho que o código dos elementos espera: caneta, pincel e fonte
/// correntes, posição da caneta (`MoveTo`/`LineTo`), modo de cópia (inclusive a cópia que inverte
/// o destino, usada pelos elásticos de seleção) e o alinhamento de texto de `TextOut`
/// (esquerda 0, direita 2, centro 6; topo 0, base 8, linha de base 24; um valor horizontal mais
/// um vertical). O código dos elementos desenha por aqui, nunca direto num `QPainter`.
///
/// Cada canvas tem o seu contexto de desenho (`Contexto`), onde o desenho guarda o rascunho que
/// reaproveita; e guarda a medida da fonte corrente, refeita só quando a fonte muda. Um canvas é
/// usado por uma linha de execução de cada vez; canvas diferentes podem desenhar ao mesmo tempo.
///
/// As operações de desenho são virtuais para que testes possam registrar as chamadas.
/// Coordenadas em pixels; retângulos com a aritmética de `TRect` (direita e base exclusivas).
/// O canvas não possui a imagem em que pinta.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TContextoDeDesenho.h>
#include <tavru/platform/TFont.h>
#include <tavru/platform/TPen.h>
#include <tavru/platform/TPoint.h>

#include <QImage>
#include <QSize>
#include <QString>
#include <memory>
#include <thread>
#include <vector>

class QFontMetrics;
class QPainter;

namespace tavru {

/// Modos de cópia de `CopyRect`.
enum TCopyMode : std::uint8_t {
    cmSrcCopy = 0,  ///< copia a origem sobre o destino
    cmDstInvert = 1 ///< inverte os pixels do destino (a origem é ignorada)
};

/// Bits de alinhamento de `TextOut`.
enum : unsigned {
    TA_LEFT = 0,
    TA_TOP = 0,
    TA_RIGHT = 2,
    TA_CENTER = 6,
    TA_BOTTOM = 8,
    TA_BASELINE = 24
};

class TAVRU_PLATAFORMA_EXPORT TCanvas
{
public:
    /// Canvas que pinta em `imagem` (não possuída; pode ser nula: então só mede texto).
    explicit TCanvas(QImage *imagem = nullptr);
    virtual ~TCanvas();
    TCanvas(const TCanvas &) = delete;
    TCanvas &operator=(const TCanvas &) = delete;

    /// Passa a pintar em outra imagem (encerra a pintura na anterior). Use antes de redimensionar
    /// a imagem em que o canvas pinta.
    void AtribuirImagem(QImage *imagem);
    QImage *Imagem() const { return FImagem; }
    /// Extensão: linhas e formas suavizadas (antialiasing). Padrão: desligado, o desenho pixel a
    /// pixel de sempre. Vale a partir do próximo desenho.
    bool Suavizar() const { return FSuavizar; }
    void AtribuirSuavizar(bool ligado);

    TPen &Pen() { return FPen; }
    TBrush &Brush() { return FBrush; }
    TFont &Font() { return FFont; }
    const TPen &Pen() const { return FPen; }
    const TBrush &Brush() const { return FBrush; }
    const TFont &Font() const { return FFont; }

    TPoint PenPos() const { return FPenPos; }
    void SetPenPos(const TPoint &p) { FPenPos = p; }
    TCopyMode CopyMode() const { return FCopyMode; }
    void SetCopyMode(TCopyMode modo) { FCopyMode = modo; }

    /// Alinhamento de `TextOut`; devolve o anterior (como a função da plataforma).
    unsigned SetTextAlign(unsigned bandeiras);
    unsigned TextAlign() const { return FTextAlign; }

    virtual void MoveTo(int x, int y);
    /// Linha da posição da caneta até (x, y), sem pintar o ponto final; move a caneta.
    virtual void LineTo(int x, int y);
    virtual void Polyline(const TPoint *pontos, int quantidade);
    /// Polígono preenchido com o pincel e contornado com a caneta; fecha sozinho.
    virtual void Polygon(const TPoint *pontos, int quantidade);
    /// Vários polígonos como uma figura só (extensão: áreas com furos): `quantidades[i]` pontos
    /// do anel i, em sequência em `pontos`; cada anel fecha sozinho e é contornado com a caneta, e
    /// o pincel preenche pela regra par-ímpar (um ponto dentro de um número par de anéis, como o
    /// de um furo, não é pintado). Anéis de menos de 2 pontos são pulados.
    virtual void PolyPolygon(const TPoint *pontos, const int *quantidades, int aneis);
    /// Elipse inscrita no retângulo (x1, y1)-(x2, y2), direita e base exclusivas; cantos em
    /// qualquer ordem dão a mesma figura.
    virtual void Ellipse(int x1, int y1, int x2, int y2);
    /// Retângulo preenchido e contornado, como `Ellipse`.
    virtual void Rectangle(int x1, int y1, int x2, int y2);
    /// Preenche o retângulo com o pincel, sem contorno.
    virtual void FillRect(const TRect &r);
    /// Escreve o texto no ponto de referência (x, y) com a fonte (e a cor dela), o alinhamento e o
    /// escapamento correntes; o fundo da célula do texto é pintado com a cor do pincel, a menos que
    /// ele seja `bsClear`. Move a caneta para (x + largura do texto, y). Sem escapamento, o texto
    /// é preparado (medido e disposto) uma vez por fonte e guardado no canvas, até
    /// `LimiteDeTextosProntos` textos (cerca de meio kilobyte cada; passando disso, os textos novos
    /// são medidos a cada vez): quem escreve os mesmos rótulos a cada quadro não os mede de novo.
    /// Os textos ficam guardados enquanto o canvas existir (de propósito: são os rótulos do
    /// próximo quadro). Os textos prontos usam as fontes da linha de execução que os preparou (o
    /// Qt as guarda por linha e as libera quando ela termina): só a linha que criou o canvas os
    /// guarda; noutra linha o texto é medido a cada vez, como antes. Um canvas que escreveu texto
    /// é liberado antes de a linha que o criou terminar.
    virtual void TextOut(int x, int y, const QString &texto);
    /// Quantos textos prontos o canvas guarda, somadas as fontes.
    static constexpr int LimiteDeTextosProntos = 1 << 17;
    /// Escreve o texto com o canto superior esquerdo em (x, y), recortado ao retângulo (o
    /// alinhamento de `TextOut` não vale aqui).
    virtual void TextRect(const TRect &r, int x, int y, const QString &texto);
    /// Desenha a imagem esticada no retângulo.
    virtual void StretchDraw(const TRect &r, const QImage &imagem);
    /// Desenha a imagem com o canto superior esquerdo em (x, y), sem escala.
    virtual void Draw(int x, int y, const QImage &imagem);
    /// Copia `origem` (um retângulo de `canvasOrigem`) para `destino` conforme `CopyMode`; com
    /// `cmDstInvert` só inverte os pixels de `destino`.
    virtual void CopyRect(const TRect &destino, TCanvas &canvasOrigem, const TRect &origem);

    /// A largura do texto na fonte corrente, em pixels lógicos. Cada texto é medido uma vez por
    /// fonte e guardado no canvas com o seu desenho pronto (ver `TextOut`).
    int TextWidth(const QString &texto) const;
    int TextHeight(const QString &texto) const;
    QSize TextExtent(const QString &texto) const;

    /// A cor do pixel (x, y) da imagem, ou `clNone` fora dela (para testes e ferramentas).
    TColor Pixel(int x, int y);

    /// O rascunho de desenho deste canvas (possuído por ele).
    TContextoDeDesenho &Contexto() { return FContexto; }

protected:
    /// Aplica caneta, pincel e fonte ao pintor quando mudaram desde a última vez.
    QPainter *Preparar();

private:
    void Encerrar();
    /// `Preparar`, deixando a caneta do pintor como está quando `caneta` é falso (o texto põe a
    /// sua).
    QPainter *Aplicar(bool caneta);
    /// A medida da fonte corrente (refeita quando a fonte mudou desde a última medida).
    const QFontMetrics &Metricas() const;
    struct TTextoPronto;
    struct TTextosProntos;
    /// O texto preparado na fonte corrente (medido e disposto na primeira vez); nulo quando ele
    /// não está guardado e o canvas já guarda `LimiteDeTextosProntos`.
    const TTextoPronto *Pronto(const QString &texto) const;

    QImage *FImagem = nullptr;
    std::unique_ptr<QPainter> FPainter;
    TPen FPen;
    TBrush FBrush;
    TFont FFont;
    TPoint FPenPos;
    TCopyMode FCopyMode = cmSrcCopy;
    unsigned FTextAlign = TA_LEFT | TA_TOP;
    // O que está aplicado ao pintor agora.
    TPen FPenAplicada;
    TBrush FBrushAplicado;
    TFont FFontAplicada;
    bool FAplicado = false;
    bool FSuavizar = false;
    mutable std::unique_ptr<QFontMetrics> FMetricas;
    mutable TFont FFonteMedida;
    mutable std::unique_ptr<TTextosProntos> FProntos;
    /// A linha de execução que criou o canvas: a única que usa os textos prontos.
    std::thread::id FLinhaDona;
    /// O pintor está com a cor do texto como caneta (o próximo `Preparar` devolve a caneta).
    bool FCanetaDoTexto = false;
    TColor FCorDoTexto = clNone;
    TContextoDeDesenho FContexto;
};

} // namespace tavru
