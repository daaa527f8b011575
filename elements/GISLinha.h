#pragma once
/// \file
/// A linha do mapa: uma ou mais sequências de pontos guardados em relação à posição e à
/// orientação do objeto.

#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISPosicaoListList.h>
#include <tavru/platform/Exportacao.h>

#include <vector>

namespace tavru {

/// Linha poligonal do mapa feita de uma ou mais sequências (`Pontos`) de pontos.
///
/// Cada ponto guardado é um deslocamento em segundos de arco a partir de `Posicao`, no referencial
/// do objeto sem giro: mover ou girar o objeto (`AtribuirPosicao`, `AtribuirOrientacao`) move ou
/// gira todos os pontos sem reescrevê-los. Do deslocamento (lat, lon), com a posição P e a
/// orientação o (radianos, anti-horária), o ponto absoluto é
/// (round(P.Lat + r sen(o + t)), round(P.Lon + r cos(o + t))), com r = sqrt(lat² + lon²) e
/// t = atan2(lat, lon); o caminho inverso arredonda r cos(t - o) e r sen(t - o). Arredondamento ao
/// mais próximo (`Arredondar`).
///
/// Memória: cada sequência é um vetor contíguo de `TGISPosicao` (8 bytes por ponto). Quem
/// carrega muitos pontos com `InserirPonto` deve reservar a sequência (`TGISPosicaoList::Reservar`)
/// ou chamar `Compactar` no fim, para que a folga do crescimento do vetor não fique.
///
/// `Limites` é o retângulo do mundo em volta dos pontos absolutos, refeito por `CalcularLimites`
/// (que `AtribuirPosicao` chama); `Area` o devolve. Girar o objeto não refaz `Limites`: quem gira
/// chama `CalcularLimites`.
class TAVRU_GIS_EXPORT TGISLinha : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISLinha();
    /// Libera `Pontos` e segue com o destrutor da base.
    ~TGISLinha() override;

    /// Guarda a posição (a base), depois `CalcularLimites`.
    void AtribuirPosicao(const TGISPosicao &p) override;
    const TClasseObjeto &Classe() const override { return Descritor; }
    /// A cor da linha é a cor de `Caneta`.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// Pergunta o número de pontos (de 2 a 200, "Linha") por `Dialogos()` e acrescenta uma senoide
    /// de cerca de três períodos, 10 pixels entre pontos e 20 de altura, centrada no clique. 0
    /// desiste (falso, nada muda); texto que não é número, menos de 2 e mais de 200 perguntam de
    /// novo.
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Com `selecionado` falso, pincel transparente e caneta de `Caneta`; cada sequência com
    /// pontos é desenhada aberta por `DesenharOtimizado`.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro na primeira sequência que `PertenceALinha` da projeção toca (tolerância de tela).
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// `Limites`.
    TGISRet Area() const override;

    /// A posição absoluta do ponto `indice` da sequência `lista`. Índices errados levantam
    /// `EListError`.
    TGISPosicao ObterPonto(int lista, int indice) const;
    /// Guarda no lugar o deslocamento da posição absoluta `posicao`.
    void AtribuirPonto(int lista, int indice, const TGISPosicao &posicao);
    /// Insere um ponto em `indice` (0..total; total acrescenta) e o guarda como `AtribuirPonto`.
    void InserirPonto(int lista, int indice, const TGISPosicao &posicao);
    /// Refaz `Limites`: parte do retângulo degenerado de `ObterPonto(0, 0)` quando a sequência 0
    /// tem pontos, senão de (0, 0, 0, 0), e une o de cada ponto absoluto. Quando a sequência 0
    /// está vazia e outras não, o (0, 0, 0, 0) entra na união: mantido de propósito.
    void CalcularLimites();
    /// Enche `pontos` (índices 0 a `ultimo`) com os pixels dos pontos absolutos da sequência
    /// `lista`. `pontos` tem lugar para `ultimo + 1` pontos; `ultimo` não passa do último ponto.
    void AjustarPontos(const TGISProjecao &projecao, int lista, TPoint *pontos, int ultimo) const;
    /// O mesmo para a sequência inteira, redimensionando `pontos`.
    void AjustarPontos(const TGISProjecao &projecao, int lista, std::vector<TPoint> &pontos) const;
    /// Encaixa os pontos guardados em `retangulo` (segundos de arco): a escala leva o vão de
    /// `Limites` ao do retângulo e o centro de um ao outro. Nada faz se um lado do retângulo não é
    /// positivo. `Limites` não é refeito (quem chama o faz). A conta mistura deslocamentos com o
    /// `Limites` absoluto, que coincidem enquanto posição e orientação são zero: mantido.
    /// \throws EZeroDivide quando `Limites` tem um vão zero (a escala seria zero).
    void AjustarAoRetangulo(const TGISRet &retangulo);
    /// Põe a posição no centro de `Limites` sem mover os pontos absolutos (com orientação zero).
    /// Nada faz se `Limites` não tem vãos positivos nos dois eixos.
    void AjustarCentro();
    /// Ajusta a memória de cada sequência ao número de pontos (tira a folga do vetor).
    void Compactar();

    /// As sequências de deslocamentos (possuídas pela linha). Mudá-las por aqui não avisa: depois,
    /// `CalcularLimites` (que avisa) ou `Mudou()`. `AtribuirPosicao`, `AtribuirCor`,
    /// `AtribuirPonto`, `InserirPonto`, `CalcularLimites`, `AjustarAoRetangulo` e `AjustarCentro`
    /// avisam uma vez cada.
    TGISPosicaoListList &Pontos() { return FPontos; }
    const TGISPosicaoListList &Pontos() const { return FPontos; }
    /// Retângulo do mundo em volta dos pontos absolutos, do último `CalcularLimites`.
    TGISRet Limites() const { return FLimites; }

protected:
    /// Desenha cada sequência com pontos por `DesenharOtimizado` (aberta ou fechada e
    /// preenchida), sem mexer em caneta e pincel.
    void DesenharSequencias(TCanvas &canvas, const TGISProjecao &projecao, bool aberto) const;

private:
    TGISPosicaoListList FPontos;
    TGISRet FLimites;
};

/// Desenha os pontos de tela 0..`ultimo`, pulando cada ponto a menos de 2 pixels (nos dois eixos)
/// do último mantido: como linha aberta quando `aberto`, senão como polígono fechado e preenchido.
/// Uma sequência de um ponto desenha uma figura degenerada de um ponto.
TAVRU_GIS_EXPORT void DesenharOtimizado(TCanvas &canvas, const TPoint *pontos, int ultimo, bool aberto);
/// Acrescenta a `mantidos` os pontos 0..`ultimo` que `DesenharOtimizado` desenharia (o primeiro, e
/// cada um a 2 pixels ou mais, num dos eixos, do último mantido).
TAVRU_GIS_EXPORT void DesbastarPontos(const TPoint *pontos, int ultimo, std::vector<TPoint> &mantidos);

/// Um par de números reais.
struct TLimite
{
    double A = 0.0;
    double B = 0.0;
};

/// O par (a, b).
TAVRU_GIS_EXPORT TLimite Limite(double a, double b);

} // namespace tavru
