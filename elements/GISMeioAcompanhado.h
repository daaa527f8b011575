#pragma once
/// \file
/// O meio acompanhado: uma unidade rastreada, desenhada como ponto com indicador de rumo e placa.

#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exportacao.h>

#include <cstdint>

namespace tavru {

/// Tamanho fixo na tela, em pixels (largura e altura), dado a todo meio acompanhado novo.
/// Inicial: 12. Lido e escrito pelo hospedeiro; só vale para os meios criados depois.
TAVRU_GIS_EXPORT extern std::int32_t TamanhoNaTelaDefault;
/// `TamanhoNoMundo` (segundos de arco) dado a todo meio acompanhado novo. Inicial: (0, 0).
TAVRU_GIS_EXPORT extern TGISPosicao TamanhoNoMundoDefault;

/// Unidade rastreada: um ponto (`TGISPonto`) de tamanho fixo na tela, com uma seta de rumo
/// opcional (`IndicadorRumo` diferente de 0.0) e uma placa vermelha opcional (`PlacaOculta`
/// falso).
///
/// Para um meio acompanhado, a `Orientacao` herdada é um rumo náutico em graus (0 no norte,
/// crescendo no sentido horário), e não os radianos dos outros objetos.
///
/// O construtor segue o do ponto e então põe `PlacaOculta` verdadeiro, `IndicadorRumo` 0.0,
/// `TamanhoNoMundo` = `TamanhoNoMundoDefault` e `TamanhoNaTela` (`TamanhoNaTelaDefault`,
/// `TamanhoNaTelaDefault`), de modo que a unidade tem um tamanho só na tela em todo zoom.
class TAVRU_GIS_EXPORT TGISMeioAcompanhado : public TGISPonto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISMeioAcompanhado();
    ~TGISMeioAcompanhado() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Desenha o ponto (leiaute e figura do ponto, com os mesmos argumentos), depois a seta de
    /// rumo quando `IndicadorRumo` não é 0.0 e a placa quando `PlacaOculta` é falso; as duas
    /// etapas rodam qualquer que seja `selecionado`.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;

    /// A seta de rumo, com C o pixel da posição, R o leiaute do ponto e L o maior lado de R:
    /// a = π/2 - radianos do rumo (ângulo de tela, anti-horário a partir do eixo x); caneta
    /// sólida, largura 1, cor `ObterCor() | 0x4F4F4F` (um tom mais claro da cor da unidade; a
    /// caneta fica assim). h = L div 2 + 3: a haste vai de P1 = (round(C.x + h cos a - 1),
    /// round(C.y - h sen a + 1)) a P2 (o mesmo com a + π), passando pela unidade; k = h div 3: a
    /// ponta liga P1 a Q1 = (round(P1.x + k cos(a + 150°) - 1), round(P1.y - k sen(a + 150°) + 1))
    /// e a Q2 (com a - 150°). Os ajustes de -1/+1 pixel são aplicados em cada etapa como escritos,
    /// e por isso a ponta fica deslocada deles uma vez a mais que a haste: mantido de propósito.
    void DesenharRumo(TCanvas &canvas, const TGISProjecao &projecao);
    /// A placa: guarda a cor e a largura da caneta; caneta vermelha (255), largura 2, sólida;
    /// pincel transparente; o círculo de raio r = L div 2 em torno de C e a barra do ponto no
    /// ângulo 2.3562 ao ponto no ângulo 7π/4, ambos à distância r de C (cada coordenada
    /// arredondada). O primeiro ângulo é o valor de quatro casas 2.3562, não 3π/4, o que inclina a
    /// barra um fio: mantido de propósito. Restaura a cor e a largura da caneta (o estilo fica
    /// sólido; o pincel fica transparente).
    void DesenharPlaca(TCanvas &canvas, const TGISProjecao &projecao);

    /// Falso: a placa vermelha é desenhada. Padrão verdadeiro.
    bool PlacaOculta() const { return FPlacaOculta; }
    void AtribuirPlacaOculta(bool oculta) { FPlacaOculta = oculta; Mudou(); }
    /// Diferente de 0.0 (também negativo): a seta de rumo é desenhada. Padrão 0.0.
    double IndicadorRumo() const { return FIndicadorRumo; }
    void AtribuirIndicadorRumo(double indicador) { FIndicadorRumo = indicador; Mudou(); }

private:
    /// O pixel da posição e o maior lado do leiaute, comuns às duas etapas.
    void Medidas(const TGISProjecao &projecao, TPoint &c, int &l);

    bool FPlacaOculta = true;
    double FIndicadorRumo = 0.0;
};

} // namespace tavru
