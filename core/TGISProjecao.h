#pragma once
/// \file
/// A projeção abstrata entre posições do mundo e pixels da tela, e os testes de pertinência.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

#include <memory>
#include <vector>

namespace tavru {

class TGISPosicaoList;

/// Mapeamento abstrato mundo <-> tela.
///
/// Guarda o retângulo da tela (pixels), o retângulo do mundo mostrado (segundos de arco), o zoom,
/// o centro do mundo e quatro tolerâncias de pertinência; converte retângulos e listas de pontos e
/// faz os testes de pertinência a partir das três operações abstratas que cada projeção concreta
/// dá (`FitToRect`, `MundoParaTela`, `TelaParaMundo`). Uma projeção nunca possui objetos.
///
/// Padrões: tolerâncias 5.0; tela (0, 0, 640, 480); mundo inteiro; zoom 1.0; centro (0, 0).
/// As tolerâncias são comparadas com "estritamente menor": uma distância igual à tolerância não
/// toca.
class TAVRU_GIS_EXPORT TGISProjecao
{
public:
    /// Limites do zoom.
    static constexpr double ZoomMinimo = 0.1;
    static constexpr double ZoomMaximo = 50000.0;

    TGISProjecao() = default;
    virtual ~TGISProjecao();
    TGISProjecao(const TGISProjecao &) = delete;
    TGISProjecao &operator=(const TGISProjecao &) = delete;

    // Operações virtuais. A ordem das declarações é a da tabela virtual, que as projeções de
    // outras bibliotecas seguem: não reordenar.

    /// Guarda o zoom limitado a `ZoomMinimo..ZoomMaximo` (acima do máximo vira o máximo; abaixo do
    /// mínimo, e NaN, vira o mínimo). As projeções concretas recalculam os coeficientes.
    virtual void DoAtribuirZoom(double zoom);
    /// Guarda o retângulo da tela como veio (sem ordenar), em pixels.
    virtual void DoAtribuirAreaTela(const TRect &r);
    /// Guarda o retângulo do mundo como veio (sem ordenar), em segundos de arco.
    virtual void DoAtribuirAreaMundo(const TGISRet &r);
    /// O construtor virtual: uma projeção nova da mesma classe, com os padrões.
    virtual std::unique_ptr<TGISProjecao> Criar() const = 0;
    /// Copia as tolerâncias, a tela, o mundo e o zoom de `origem`. O centro fica como estava, de
    /// propósito.
    virtual void Copiar(const TGISProjecao &origem);
    /// Ajusta o zoom e o centro para mostrar o retângulo do mundo.
    virtual void FitToRect(const TGISRet &r) = 0;
    /// O pixel de uma posição do mundo.
    virtual TPoint MundoParaTela(const TGISPosicao &p) const = 0;
    /// A posição do mundo de um pixel.
    virtual TGISPosicao TelaParaMundo(const TPoint &p) const = 0;
    /// Se o retângulo do mundo pode aparecer na tela; a base responde sempre verdadeiro.
    virtual bool Visivel(const TGISRet &r) const;

    // Campos publicados.

    /// Distância do mundo (segundos de arco) abaixo da qual uma posição toca uma linha.
    double ErroMundoLinha() const { return FErroMundoLinha; }
    void AtribuirErroMundoLinha(double v) { FErroMundoLinha = v; }
    /// Diferença por eixo (segundos de arco) abaixo da qual duas posições são equivalentes.
    double ErroMundoPonto() const { return FErroMundoPonto; }
    void AtribuirErroMundoPonto(double v) { FErroMundoPonto = v; }
    /// Distância em pixels abaixo da qual um ponto toca uma linha da tela.
    double ErroTelaLinha() const { return FErroTelaLinha; }
    void AtribuirErroTelaLinha(double v) { FErroTelaLinha = v; }
    /// Diferença por eixo em pixels abaixo da qual dois pontos da tela são equivalentes.
    double ErroTelaPonto() const { return FErroTelaPonto; }
    void AtribuirErroTelaPonto(double v) { FErroTelaPonto = v; }
    double Zoom() const { return FZoom; }
    /// Atribui o zoom por `DoAtribuirZoom`.
    void AtribuirZoom(double zoom) { DoAtribuirZoom(zoom); }

    TRect AreaTela() const { return FAreaTela; }
    TGISRet AreaMundo() const { return FAreaMundo; }
    /// Centro do mundo mostrado (a posição que cai no centro da tela).
    TGISPosicao Centro() const { return FCentro; }
    void AtribuirCentro(const TGISPosicao &p) { FCentro = p; }

    /// Uma cópia inteira (`Criar`, `Copiar` e o centro), para desenhar em outra linha de execução
    /// enquanto esta projeção segue mudando. Extensão; `Copiar` continua sem o centro.
    std::unique_ptr<TGISProjecao> Duplicar() const;

    // Conversões.

    /// O centro do retângulo da tela.
    TPoint ObterCentroTela() const;
    /// Os dois cantos convertidos com `MundoParaTela`, sem normalizar.
    TRect MundoParaTelaRet(const TGISRet &r) const;
    /// Os dois cantos convertidos com `TelaParaMundo` e ordenados com `ConcertaRect`.
    TGISRet TelaParaMundoRet(const TRect &r) const;
    /// `pontos[i] = MundoParaTela(lista[i])` para cada posição; `pontos` tem de ter lugar para
    /// `lista.Count()` pontos.
    void MundoParaTelaPontos(const TGISPosicaoList &lista, TPoint *pontos) const;
    /// O mesmo, redimensionando `pontos` para o número de posições.
    void MundoParaTelaPontos(const TGISPosicaoList &lista, std::vector<TPoint> &pontos) const;
    /// O mesmo sobre `total` posições contíguas (extensão: para converter em blocos sem lista).
    void MundoParaTelaPontos(const TGISPosicao *posicoes, int total, TPoint *pontos) const;
    /// Esvazia `lista` e põe nela `TelaParaMundo` de cada ponto, em ordem. Se uma conversão
    /// falhar, a lista fica vazia e o erro segue.
    void TelaParaMundoPontos(const TPoint *pontos, int total, TGISPosicaoList &lista) const;
    void TelaParaMundoPontos(const std::vector<TPoint> &pontos, TGISPosicaoList &lista) const;

    /// Segundos de arco por pixel na horizontal: vão de longitude do mundo / largura da tela.
    /// Uma tela de largura zero levanta `EZeroDivide`.
    double ProporcaoMundoTelaHorizontal() const;
    /// Segundos de arco por pixel na vertical: vão de latitude / altura da tela (`EZeroDivide`
    /// com altura zero).
    double ProporcaoMundoTelaVertical() const;
    /// A menor das duas (a horizontal só quando é estritamente menor).
    double ProporcaoMundoTela() const;

    // Testes de pertinência: forma do mundo (posições, tolerâncias do mundo) e forma da tela
    // (pontos de 0 a `ultimo`, tolerâncias da tela).

    /// Se `p` fica a menos de `ErroMundoLinha` de algum segmento da linha. Menos de dois pontos
    /// nunca tocam.
    bool PertenceALinha(const TGISPosicaoList &lista, const TGISPosicao &p) const;
    bool PertenceALinha(const TPoint *pontos, int ultimo, const TPoint &p) const;
    /// Teste de paridade de cruzamentos contra o segmento de um ponto de referência (o primeiro
    /// canto de `AreaMundo`; na tela, (-10, -10)) até `p`. Um anel aberto é fechado pela aresta
    /// do último ao primeiro ponto; um anel já fechado (último igual ao primeiro) não testa essa
    /// aresta duas vezes.
    bool PertenceAArea(const TGISPosicaoList &lista, const TGISPosicao &p) const;
    bool PertenceAArea(const TPoint *pontos, int ultimo, const TPoint &p) const;
    /// Se as diferenças de latitude e de longitude são ambas menores que `ErroMundoPonto`.
    bool Equivalentes(const TGISPosicao &a, const TGISPosicao &b) const;
    /// Se as diferenças de x e de y são ambas menores que `ErroTelaPonto`.
    bool Equivalentes(const TPoint &a, const TPoint &b) const;

protected:
    /// Laço de `MundoParaTelaPontos`; a base chama `MundoParaTela` para cada posição. Uma
    /// projeção pode trocá-lo por um caminho rápido desde que o resultado seja idêntico.
    virtual void DoMundoParaTelaPontos(const TGISPosicao *origem, TPoint *destino, int total) const;
    /// Laço de `TelaParaMundoPontos`, com a mesma regra.
    virtual void DoTelaParaMundoPontos(const TPoint *origem, TGISPosicao *destino, int total) const;

    /// O ajuste a um retângulo comum às projeções lineares: alarga um ponto ou um retângulo chato
    /// para 60 segundos de arco, mede os cantos na tela com o zoom e o centro atuais, ignora o que
    /// cabe em menos de um pixel nas duas direções, muda o zoom por `DoAtribuirZoom` e centra.
    void AjustarAoRetangulo(const TGISRet &r);

private:
    double FErroMundoLinha = 5.0;
    double FErroMundoPonto = 5.0;
    double FErroTelaLinha = 5.0;
    double FErroTelaPonto = 5.0;
    TRect FAreaTela = TRect(0, 0, 640, 480);
    TGISRet FAreaMundo = MundoInteiro;
    double FZoom = 1.0;
    TGISPosicao FCentro;
};

} // namespace tavru
