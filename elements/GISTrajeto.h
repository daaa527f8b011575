#pragma once
/// \file
/// A unidade `GISTrajeto`: a trajetória, uma linha única cujos vértices são objetos com
/// informações, trava e rótulo (`TGISPontoTrajeto`, `TGISPontosTrajeto`).

#include <tavru/core/TGISObjeto.h>
#include <tavru/elements/GISPontoTrajeto.h>
#include <tavru/elements/GISPontosTrajeto.h>
#include <tavru/platform/Exportacao.h>

#include <vector>

namespace tavru {

/// Trajetória: uma linha poligonal aberta sobre uma só sequência de vértices (`Pontos`).
///
/// Os vértices guardam deslocamentos a partir de `Posicao`, no referencial sem giro, como os
/// pontos de uma linha: do deslocamento (lat, lon), com a posição P e a orientação o (radianos,
/// anti-horária), o vértice absoluto é (round(P.Lat + r sen(o + t)), round(P.Lon + r cos(o + t))),
/// com r = sqrt(lat² + lon²) e t = atan2(lat, lon); o inverso arredonda r cos(t - o) e
/// r sen(t - o) (ao mais próximo, `Arredondar`).
///
/// Travas: um vértice `Fixo` não muda por `AtribuirGISPosicao`, `AtribuirPonto` nem
/// `AjustarAoRetangulo` (sem aviso); `AjustarCentro` o move junto com os outros, porque só muda o
/// referencial, e mover o objeto inteiro (`AtribuirPosicao`, `AtribuirOrientacao`) o leva junto.
/// O rótulo de um vértice travado aparece pendurado abaixo dele, centrado.
///
/// Posse: a trajetória possui os vértices.
class TAVRU_GIS_EXPORT TGISTrajeto : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISTrajeto();
    ~TGISTrajeto() override;

    /// Guarda a posição (a base), depois `CalcularLimites`.
    void AtribuirPosicao(const TGISPosicao &p) override;
    const TClasseObjeto &Classe() const override { return Descritor; }
    /// A cor da trajetória é a cor de `Caneta`.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// Pergunta o número de pontos por `Dialogos()` ("Linha", "Entre com o número de Pontos de 2 a
    /// 200", padrão "2"; 0 desiste com falso e nada muda; texto que não é número, menos de 2 e mais
    /// de 200 perguntam de novo; cancelar vale o padrão). Com n aceito, esvazia os vértices e
    /// insere, por `InserirPosicao`, a senoide de cerca de três períodos da linha (10 pixels entre
    /// pontos, 20 de altura, centrada no clique); `CalcularLimites`; verdadeiro.
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Com `selecionado` falso, pincel transparente e caneta de `Caneta`. Os vértices são
    /// desenhados como linha aberta por `DesenharOtimizado`; depois, para cada vértice travado com
    /// rótulo, o rótulo é escrito com a fonte do canvas e o canto superior esquerdo em
    /// (x - largura div 2, y) do pixel do vértice (pixels antes do desbaste), com pincel
    /// transparente. O alinhamento de texto do canvas é restaurado no fim.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// `PertenceALinha` da projeção sobre os pixels de todos os vértices; sem vértices, falso.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// `Limites`.
    TGISRet Area() const override;

    /// O vértice do índice (continua da trajetória). Índices errados levantam `EListError`.
    TGISPontoTrajeto *ObterPonto(int indice) const;
    /// A posição absoluta do vértice (segundos de arco).
    TGISPosicao ObterGISPosicao(int indice) const;
    /// Guarda no vértice o deslocamento da posição absoluta `posicao`, a menos que ele esteja
    /// travado: então nada muda, sem aviso. `Limites` não é refeito.
    void AtribuirGISPosicao(int indice, const TGISPosicao &posicao);
    /// Troca o vértice do índice por `ponto` (o antigo é liberado e a trajetória passa a possuir
    /// `ponto`), a menos que o vértice atual esteja travado. Responde se trocou; quando não troca,
    /// `ponto` continua de quem chamou. Um `ponto` nulo não é aceito (a lista nunca tem vértices
    /// nulos).
    bool AtribuirPonto(int indice, TGISPontoTrajeto *ponto);
    /// Cria um vértice, o insere em `indice` (0..total) e o põe em `posicao` por
    /// `AtribuirGISPosicao`.
    void InserirPosicao(int indice, const TGISPosicao &posicao);
    /// Refaz `Limites`: (0, 0, 0, 0) sem vértices; senão a união dos vértices absolutos, a partir
    /// do retângulo degenerado do vértice 0.
    void CalcularLimites();
    /// Enche `pontos` (índices 0 a `ultimo`) com os pixels dos vértices absolutos; `pontos` tem
    /// lugar para `ultimo + 1` pontos e `ultimo` não passa do último vértice.
    void AjustarPontos(const TGISProjecao &projecao, TPoint *pontos, int ultimo) const;
    /// O mesmo para todos os vértices, redimensionando `pontos`.
    void AjustarPontos(const TGISProjecao &projecao, std::vector<TPoint> &pontos) const;
    /// Encaixa os vértices não travados em `retangulo` (segundos de arco), como a linha: escala do
    /// vão de `Limites` ao do retângulo, do centro de um ao outro, sobre os deslocamentos
    /// guardados. Os travados guardam os seus deslocamentos. Nada faz se um lado do retângulo não é
    /// positivo; `Limites` não é refeito (quem chama o faz).
    /// \throws EZeroDivide quando `Limites` tem um vão zero e há vértice a mover.
    void AjustarAoRetangulo(const TGISRet &retangulo);
    /// Põe a posição no centro de `Limites` sem mover os vértices absolutos (com orientação zero),
    /// travados ou não, e refaz `Limites`. Nada faz se `Limites` não tem vãos positivos.
    void AjustarCentro();

    /// Os vértices, em ordem (possuídos). Mudá-los por aqui não avisa: depois, `CalcularLimites`
    /// ou `Mudou()`. As operações do trajeto que mudam vértices ou a posição avisam uma vez cada.
    TGISPontosTrajeto &Pontos() { return FPontos; }
    const TGISPontosTrajeto &Pontos() const { return FPontos; }
    /// Retângulo do mundo em volta dos vértices absolutos, do último `CalcularLimites`.
    TGISRet Limites() const { return FLimites; }

private:
    /// Chama `f(i, posição absoluta do vértice i)` para i de 0 a `ultimo`.
    template <typename F>
    void ParaCadaAbsoluta(int ultimo, F f) const;

    TGISPontosTrajeto FPontos;
    TGISRet FLimites;
};

} // namespace tavru
