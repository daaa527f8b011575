#pragma once
/// \file
/// A barra de manipulação: ajustar, mover, ampliar uma área, ampliar e reduzir o mapa.

#include <tavru/companions/components/TCustomBarraDeFerramentas.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/control/IGISMouseEvent.h>
#include <tavru/platform/Exportacao.h>

#include <cstdint>

namespace tavru {

class TGis;
class TLigacaoAoGis;

/// Estados da barra de manipulação.
enum TBarraManipulacaoEstado : std::uint8_t {
    meSemAcao,    ///< nenhuma ferramenta
    mePreZoomRet, ///< ampliação por retângulo armada
    meZoomRet,    ///< retângulo sendo arrastado
    meAmpliar,    ///< ferramenta de ampliar
    meReduzir,    ///< ferramenta de reduzir
    mePreMover,   ///< deslocamento armado
    meMover       ///< deslocando
};

/// Os botões da barra de manipulação, por índice.
enum TGISBotoesDaBarraDeManipulacao : std::uint8_t { btnAjustar, btnMover, btnAmpliarArea, btnAmpliar, btnReduzir };

/// Barra de navegação de um `TGis`, com a sua máquina de estados: ajustar à janela, deslocar
/// arrastando, ampliar o retângulo arrastado e ampliar ou reduzir com cliques.
///
/// É uma ferramenta (`IGISMouseEvent`) registrada no controle que lhe é dado (`AtribuirGis`); o
/// controle não é possuído, e a barra o esquece quando ele é destruído. Os cinco botões estão no
/// grupo 1 (no máximo um abaixado; um segundo clique levanta o abaixado), com as dicas e os
/// bitmaps `BMP_AJUSTARZOOM`, `BMP_MOVER`, `BMP_ZOOMRET`, `BMP_AMPLIAR` e `BMP_REDUZIR` dos recursos
/// do módulo. "Ajustar a Janela" nunca fica abaixado.
///
/// Mouse, resumido (ver cada operação): aperto com o botão do meio, com exatamente {ctrl} e o
/// esquerdo, com exatamente {esquerdo, direito}, ou com o esquerdo em `mePreZoomRet`, arrasta um
/// retângulo, desenhado invertendo os pixels da imagem da tela (o mapa não é redesenhado); soltar
/// amplia o retângulo quando ele passa de 10 pixels nas duas direções. O botão direito, ou o
/// esquerdo em `mePreMover`, desloca o mapa, redesenhando a cada movimento. Os conjuntos de estado
/// se comparam por igualdade. Fora de `meSemAcao`, `mePreZoomRet` e `mePreMover` só o botão
/// direito é atendido (deslocar a partir das ferramentas de zoom, que voltam ao soltar). Em
/// `meAmpliar` e `meReduzir` um clique centra no ponto e multiplica o zoom por 1.2 ou 0.8.
class TAVRU_GIS_EXPORT TGISBarraDeManipulacao : public TCustomBarraDeFerramentas, public IGISMouseEvent
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
public:
    /// Fatores de zoom dos cliques, em precisão estendida (o produto com o zoom é feito nela).
    static constexpr long double FatorAmpliar = 1.2L;
    static constexpr long double FatorReduzir = 0.8L;
    /// Um retângulo arrastado só amplia quando passa disto, em pixels, nas duas direções.
    static constexpr int ArrasteMinimo = 10;
    /// Extensão: fator de zoom de um entalhe da roda (e das teclas + e -). Reduzir divide por ele,
    /// de modo que um entalhe para dentro e um para fora voltam à mesma visão.
    static constexpr double FatorRoda = 1.2;
    /// Extensão: pixels de rolagem fina (trackpad) que valem um entalhe.
    static constexpr int PixelsPorEntalhe = 120;
    /// Extensão: um arrasto com o esquerdo sem ferramenta desloca o mapa quando passa disto, em
    /// pixels (distância euclidiana); um aperto mais curto continua sendo clique.
    static constexpr int ArrasteParaMover = 4;

    explicit TGISBarraDeManipulacao(QWidget *parent = nullptr);
    /// Tira o registro do controle.
    ~TGISBarraDeManipulacao() override;

    TGis *GIS() const { return FGis; }
    /// Tira o registro do controle anterior, guarda `gis` e se registra nele (se não for nulo).
    /// O mesmo controle de novo não muda nada (a ordem das ferramentas nele fica).
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }

    TBarraManipulacaoEstado Estado() const { return FEstado; }
    /// Guarda o estado (nada acontece se é o atual), refresca a barra e abaixa o botão do estado:
    /// `mePreZoomRet` e `meZoomRet` o 2, `meAmpliar` o 3, `meReduzir` o 4, `mePreMover` e `meMover` o
    /// 1; `meSemAcao` não abaixa nem levanta nenhum.
    void AtribuirEstado(TBarraManipulacaoEstado estado);
    /// O estado a que um arrasto volta quando termina.
    TBarraManipulacaoEstado EstadoAnterior() const { return FEstadoAnterior; }
    /// O ponto do aperto (pixels); no deslocamento, o do último movimento.
    TPoint PontoPressionado() const { return FPontoPressionado; }
    /// O último ponto do retângulo arrastado (pixels).
    TPoint UltimoPonto() const { return FUltimoPonto; }

    void GISMouseClick(const TPoint &ponto) override;
    void GISMouseMove(const TPoint &ponto) override;
    void GISMouseUp(const TPoint &ponto, TMouseButton botao, TShiftState shift) override;
    void GISMouseDown(const TPoint &ponto, TMouseButton botao, TShiftState shift) override;

    // Extensão: navegação que todo usuário de mapa espera.

    /// Se um arrasto com o botão esquerdo em `meSemAcao` desloca o mapa (padrão: desligado). Ligado,
    /// um aperto que se move mais de `ArrasteParaMover` pixels vira deslocamento (`meMover`, que
    /// volta a `meSemAcao` ao soltar) e o soltar não é clique (`TGis::CancelarClique`).
    bool ArrastarParaMover() const { return FArrastarParaMover; }
    void AtribuirArrastarParaMover(bool ligado) { FArrastarParaMover = ligado; }
    /// A roda amplia (girada para longe do usuário) ou reduz em torno do cursor, `FatorRoda` por
    /// entalhe; a rolagem fina de um trackpad (`pixels`) amplia em passos proporcionais, sem
    /// saltos. A posição do mundo sob o cursor fica sob ele. Em qualquer estado.
    bool GISMouseWheel(const TPoint &ponto, const TPoint &angulo, const TPoint &pixels, TShiftState shift) override;
    /// Setas deslocam a visão um décimo da tela para aquele lado; + (ou =) e - ampliam e reduzem
    /// em torno do centro um entalhe; Home ajusta à janela. Outras teclas não são tratadas.
    bool GISKeyDown(int tecla, TShiftState shift) override;
    /// Multiplica o zoom por `fator` (limitado pela projeção) mantendo sob `ponto` (pixels) a
    /// posição do mundo que estava sob ele, e redesenha.
    void ZoomEmTorno(const TPoint &ponto, double fator);
    /// Desloca a visão `dx`, `dy` pixels (x para a direita, y para baixo) e redesenha.
    void Deslocar(int dx, int dy);

protected:
    /// Monta os cinco botões da tabela, todos no grupo 1.
    void CriarComponentes() override;
    /// Com um controle: 0 ajusta à janela, 1 arma o deslocamento, 2 a ampliação por retângulo, 3 a
    /// ampliação e 4 a redução; depois o botão 0 é levantado, e se o botão clicado ficou levantado
    /// o estado volta a `meSemAcao`. Sem controle, nada.
    void DoClicar(int indice) override;
    /// O controle está sendo destruído: esquece-o.
    void Notification();

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    /// Inverte o retângulo do aperto até `ate` na imagem da tela.
    void InverterRetangulo(const TPoint &ate);
    /// Leva o centro de `antes` para `depois` (posições do mundo), sem estourar 32 bits.
    void MoverCentro(const TGISPosicao &depois, const TGISPosicao &antes);

    TGis *FGis = nullptr;
    TBarraManipulacaoEstado FEstado = meSemAcao;
    TBarraManipulacaoEstado FEstadoAnterior = meSemAcao;
    TPoint FPontoPressionado;
    TPoint FUltimoPonto;
    bool FArrastarParaMover = false;
    bool FArrastePendente = false; ///< aperto do esquerdo em `meSemAcao` que ainda pode virar arrasto
};

} // namespace tavru
