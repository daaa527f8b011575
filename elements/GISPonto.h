#pragma once
/// \file
/// O ponto do mapa: uma figura pequena centrada numa posição do mundo.

#include <tavru/core/TGISObjeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TFont.h>

#include <QChar>
#include <cstdint>

namespace tavru {

/// A figura de um ponto, num byte, na ordem guardada pelos documentos.
enum TForma : std::uint8_t {
    gisCruz = 0,      ///< duas linhas cruzadas no centro
    gisCirculo = 1,   ///< a elipse inscrita no retângulo
    gisQuadrado = 2,  ///< o retângulo
    gisTriangulo = 3, ///< triângulo com a ponta para cima, preenchido
    gisFonte = 4,     ///< um caractere (`Letra`) da fonte do ponto
    gisSimbolo = 5    ///< um símbolo da tabela de símbolos da classe (triângulo quando não há)
};

/// Ponto do mapa desenhado como uma figura pequena (cruz, círculo, quadrado, triângulo, caractere
/// de uma fonte ou símbolo da tabela de símbolos) centrada na sua posição.
///
/// O ponto tem um tamanho no mundo (`TamanhoNoMundo`, segundos de arco: a componente de latitude
/// mede o eixo das latitudes e a de longitude o das longitudes), de modo que cresce e encolhe com
/// o zoom, mas o tamanho na tela fica entre `TamanhoMinimo` e `TamanhoMaximo` (pixels; x é a
/// largura, y a altura). Com mínimo igual ao máximo (`TamanhoNaTela`) o ponto tem tamanho fixo na
/// tela.
///
/// `AreaDesenho` é um cache: zero até o primeiro leiaute, reescrito por todo `ObterAreaDesenho`
/// (cada desenho e cada teste de pertinência), e decide o que `Area` responde dali em diante: o
/// retângulo do mundo que o ponto cobriu na tela no último desenho, e não o tamanho no mundo.
/// Mantido de propósito (o controle do mapa recorta por ele).
///
/// Padrões do construtor: fonte padrão da plataforma, `Letra` código 0, `Simbolo` -1, `gisCruz`,
/// máximo (150, 150), mínimo (15, 15), tamanho no mundo (10000, 10000). `ConfiguracaoPadrao` usa
/// outros (50, 5, 100), de propósito.
///
/// Desenho rápido: as figuras simples (cruz, círculo, quadrado, triângulo e o triângulo no lugar
/// de um símbolo que falta) de até `TamanhoMaximoCarimbo` pixels são desenhadas uma vez numa
/// imagem pequena por combinação de (figura, largura, altura, caneta, pincel) e depois carimbadas
/// com `TCanvas::Draw`. O resultado é o mesmo, pixel a pixel, do desenho direto (sem suavização,
/// os pixels da figura são opacos e os demais transparentes). Só se carimba num canvas da classe
/// `TCanvas` que pinta numa imagem RGB32/ARGB32: um canvas derivado (que registra chamadas, por
/// exemplo) recebe sempre as chamadas de desenho originais. Os carimbos ficam no contexto de
/// desenho do canvas (até 1024; passando disso o cache recomeça), não no processo.
/// `AtribuirUsarCarimbo(false)` desliga o carimbo para a classe toda.
///
/// O desenho e `Pertence` escrevem no objeto a área de desenho (`AreaDesenho`), que é só um
/// registro do último leiaute: não é avisada como mudança.
class TAVRU_GIS_EXPORT TGISPonto : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;
    /// Maior largura ou altura, em pixels, que se carimba; figuras maiores são desenhadas direto.
    static constexpr int TamanhoMaximoCarimbo = 64;

    TGISPonto();
    /// Libera a fonte e segue com o destrutor da base.
    ~TGISPonto() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Verdadeiro quando a posição é uma posição válida do mundo (`Valida`); nada mais conta.
    bool ObterValido() const override;
    /// A cor do ponto é a cor de `Fonte`.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// Posição em `TelaParaMundo(ponto)` (por `AtribuirPosicao`), máximo (50, 50), mínimo (5, 5),
    /// tamanho no mundo (100, 100); nenhum diálogo; responde verdadeiro.
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Desenha a figura em `ObterAreaDesenho(projecao)`. Com `selecionado` falso, a caneta vem de
    /// `Caneta` com a cor preta, o pincel sólido da cor do ponto (e, para fonte e símbolo, a caneta
    /// também na cor do ponto); com verdadeiro, caneta e pincel ficam como quem chama deixou. A
    /// fonte do canvas é restaurada no fim.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro quando o ponto de tela está em `ObterAreaDesenho(projecao)` (`PertenceRect`,
    /// bordas incluídas). Também renova `AreaDesenho`.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// `AreaDesenho` depois do primeiro leiaute; antes dele (cantos iguais), o retângulo do mundo
    /// de tamanho `TamanhoNoMundo` centrado na posição.
    TGISRet Area() const override;

    /// Torna o ponto de tamanho fixo na tela: máximo e mínimo passam a `tamanho` (pixels).
    void TamanhoNaTela(const TPoint &tamanho);
    /// Faz o leiaute do ponto na projeção: o retângulo de tela (pixels) em que ele é desenhado,
    /// centrado na posição projetada, com largura e altura limitadas ao mínimo e ao máximo
    /// (metades por divisão inteira truncada: largura 7 dá esquerda = cx - 3, direita = esquerda
    /// + 7). Renova `AreaDesenho` com a imagem desse retângulo no mundo.
    TRect ObterAreaDesenho(const TGISProjecao &projecao);
    /// O mesmo retângulo de tela de `ObterAreaDesenho`, sem renovar `AreaDesenho`: o recorte do
    /// controle do mapa o usa para que um quadro não dependa do desenho anterior.
    TRect RetanguloNaTela(const TGISProjecao &projecao) const;
    /// O retângulo do mundo de tamanho `TamanhoNoMundo` centrado na posição (segundos de arco).
    TGISRet AreaNoMundo() const;

    // Campos.

    /// Fonte de um ponto `gisFonte` (possuída); a sua cor é a cor do ponto. Mudá-la por aqui não
    /// avisa: depois, `Mudou()` (os `Atribuir...` e `TamanhoNaTela` avisam).
    TFont &Fonte() { return FFonte; }
    const TFont &Fonte() const { return FFonte; }
    void AtribuirFonte(const TFont &fonte) { FFonte.Assign(fonte); Mudou(); }
    /// Caractere escrito por um ponto `gisFonte` (código 0 por padrão, escrito como está).
    QChar Letra() const { return FLetra; }
    void AtribuirLetra(QChar letra) { FLetra = letra; Mudou(); }
    /// Índice na tabela de símbolos de um ponto `gisSimbolo`; negativo quando não há.
    std::int32_t Simbolo() const { return FSimbolo; }
    void AtribuirSimbolo(std::int32_t simbolo) { FSimbolo = simbolo; Mudou(); }
    TForma Forma() const { return FForma; }
    void AtribuirForma(TForma forma) { FForma = forma; Mudou(); }
    /// Maior tamanho na tela, em pixels (x largura, y altura).
    TPoint TamanhoMaximo() const { return FTamanhoMaximo; }
    void AtribuirTamanhoMaximo(const TPoint &t) { FTamanhoMaximo = t; Mudou(); }
    /// Menor tamanho na tela, em pixels.
    TPoint TamanhoMinimo() const { return FTamanhoMinimo; }
    void AtribuirTamanhoMinimo(const TPoint &t) { FTamanhoMinimo = t; Mudou(); }
    /// Tamanho no mundo, em segundos de arco (latitude, longitude).
    TGISPosicao TamanhoNoMundo() const { return FTamanhoNoMundo; }
    void AtribuirTamanhoNoMundo(const TGISPosicao &t) { FTamanhoNoMundo = t; Mudou(); }
    /// O retângulo do mundo do último leiaute; (0, 0, 0, 0) até o primeiro.
    TGISRet AreaDesenho() const { return FAreaDesenho; }

    /// Liga ou desliga o carimbo das figuras para todos os pontos (ligado por padrão).
    static void AtribuirUsarCarimbo(bool usar);
    static bool UsarCarimbo();
    /// Esvazia o cache de carimbos do canvas (as imagens das figuras já desenhadas nele; cada
    /// canvas tem o seu, no contexto de desenho).
    static void LimparCarimbos(TCanvas &canvas);
    /// Quantos carimbos o cache do canvas guarda agora.
    static int TotalDeCarimbos(TCanvas &canvas);

protected:
    /// Desenha a figura `Forma` no retângulo `r` com a caneta e o pincel que o canvas já tem
    /// (passo 4 do desenho). Carimba quando pode (ver a classe).
    void DesenharFigura(TCanvas &canvas, const TRect &r);

private:
    TFont FFonte;
    TGISRet FAreaDesenho;
    TGISPosicao FTamanhoNoMundo{10000, 10000};
    TPoint FTamanhoMaximo{150, 150};
    TPoint FTamanhoMinimo{15, 15};
    std::int32_t FSimbolo = -1;
    QChar FLetra{char16_t(0)};
    TForma FForma = gisCruz;
};

} // namespace tavru
