#pragma once
/// \file
/// A área circular: disco, setor, anel ou setor de anel em torno da posição do objeto.

#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>

#include <array>
#include <cstdint>
#include <functional>

namespace tavru {

/// Figura preenchida em torno da posição, dada por dois raios e dois azimutes:
/// - `RaioMenor` <= 0 e azimutes iguais: disco (contorno de 50 pontos);
/// - `RaioMenor` <= 0 e azimutes diferentes: setor (raio de 10 pontos, arco de 30, raio de 10);
/// - `RaioMenor` > 0 e azimutes iguais: anel (arco externo de 30 pontos, interno de 20);
/// - `RaioMenor` > 0 e azimutes diferentes: setor de anel (18 + 5 + 22 + 5 pontos).
/// As quantidades são fixas, qualquer que seja o tamanho na tela.
///
/// `ObterPontos` gera o contorno a cada chamada. O desenho, o teste de pertinência e a extensão
/// usam uma cópia guardada dele (`Contorno`), refeita só quando muda algum dado que o define
/// (posição, orientação, raios, azimutes e os `ParametrosDoContorno` de uma subclasse): o traçado
/// geodésico custa dezenas de microssegundos e seria refeito várias vezes por pintura. Cada contorno é um anel fechado simples (o anel completo é um
/// "buraco de fechadura": o externo no sentido horário, a ligação, o interno no anti-horário e a
/// mesma ligação de volta), preenchido pela regra par-ímpar, de modo que o furo fica vazio.
///
/// Unidades: raios em milhas náuticas (as de `Distancia` e `TracaArco`); azimutes em radianos,
/// náuticos (0 no norte, crescendo no sentido horário), contados a partir do rumo do objeto. O
/// rumo é a orientação do objeto (radianos, anti-horária, 0 no leste) lida como rumo náutico:
/// `GrauToMarinha` dos graus da orientação. Como `TracaArco` quer radianos e o rumo vem em
/// graus, o rumo é convertido para radianos antes de ser somado aos azimutes: um setor de um
/// objeto com rumo 90° fica girado de 90° no sentido horário. O disco é traçado de 0 a 0, sem o
/// rumo, que não muda a figura.
///
/// O construtor já orienta o objeto para o norte: `AtribuirOrientacao` com os radianos de
/// `MarinhaToGrau(0)` (π/2), o que dá rumo 0.
///
/// Posse: o objeto possui o seu pincel (um valor).
class TAVRU_GIS_EXPORT TGISAreaCircular : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISAreaCircular();
    ~TGISAreaCircular() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// A cor do pincel (o estilo fica) e também a da caneta.
    void AtribuirCor(TColor cor) override;
    /// A cor do pincel.
    TColor ObterCor() const override;
    /// Como a área (`AtualizarCoresComPincel`): a cor da caneta vem da tabela no `IndiceCor` e a do
    /// pincel no `IndicePincel`, cada uma caindo na cor padrão da tabela quando o índice está fora
    /// dela; o estilo do pincel fica.
    void AtualizarCores(const TTabelaDeCores &tabela) override;
    /// Centra no ponto clicado, com `RaioMenor` = distância de 10 pixels / 35.0, `RaioMaior` =
    /// distância de 20 pixels / 35.0 (o divisor é mantido de propósito: a figura nova é pequena),
    /// `AzimuteInicial` 0 e `AzimuteFinal` 2π. Como os azimutes diferem, a figura nova é um setor
    /// de anel de uma volta inteira, com as duas ligações, e não o anel: mantido de propósito. Sem
    /// diálogo; responde verdadeiro.
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Um polígono com o contorno fechado de novo (o primeiro ponto repetido no fim), sem
    /// desbaste. Com `selecionado` falso, o pincel e a caneta vêm do objeto.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Paridade de cruzamentos do ponto de tela com o contorno (sem o ponto repetido).
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// A união dos pontos do contorno, a partir do primeiro; contorno vazio dá (0, 0, 0, 0).
    TGISRet Area() const override;

    /// Esvazia `lista` e a preenche com o contorno (posições absolutas do mundo).
    virtual void ObterPontos(TGISPosicaoList &lista) const;
    /// O contorno de `ObterPontos`, guardado enquanto os dados que o definem não mudam.
    const TGISPosicaoList &Contorno() const;

    // Campos.

    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }
    void AtribuirPincel(const TBrush &pincel) { FPincel.Assign(pincel); Mudou(); }
    /// Raio interno, em milhas náuticas; 0 ou negativo: sem furo.
    double RaioMenor() const { return FRaioMenor; }
    void AtribuirRaioMenor(double raio) { FRaioMenor = raio; Mudou(); }
    /// Raio externo, em milhas náuticas.
    double RaioMaior() const { return FRaioMaior; }
    void AtribuirRaioMaior(double raio) { FRaioMaior = raio; Mudou(); }
    /// Início do setor, radianos náuticos a partir do rumo.
    double AzimuteInicial() const { return FAzimuteInicial; }
    void AtribuirAzimuteInicial(double valor) { FAzimuteInicial = valor; Mudou(); }
    /// Fim do setor; igual ao início: a volta inteira.
    double AzimuteFinal() const { return FAzimuteFinal; }
    void AtribuirAzimuteFinal(double valor) { FAzimuteFinal = valor; Mudou(); }
    /// Índice da cor do pincel na tabela de cores. Padrão 0 (não -1, ao contrário da área).
    std::int32_t IndicePincel() const { return FIndicePincel; }
    void AtribuirIndicePincel(std::int32_t indice) { FIndicePincel = indice; Mudou(); }

    /// O rumo náutico do objeto, em graus: `GrauToMarinha` dos graus da orientação.
    double Rumo() const;

protected:
    /// Traça um arco em `pontos[0 .. quantidade - 1]`: de `angulo1` a `angulo2` (radianos, a
    /// partir do rumo, como os azimutes), no raio externo (`externo`) ou interno, no sentido de
    /// `horario`. `disco` marca o traçado de 0 a 0 do disco/elipse inteiros.
    using TTracador = std::function<void(double angulo1, double angulo2, bool externo, TGISPosicao *pontos,
                                         int quantidade, bool horario, bool disco)>;
    /// Monta o contorno nos quatro casos, com as quantidades fixas, chamando `tracar` para os
    /// arcos e `TracaLinha` para as ligações. O círculo e a elipse só diferem no traçador.
    void MontarContorno(TGISPosicaoList &lista, const TTracador &tracar) const;
    /// Os dados, além dos desta classe, de que o contorno de uma subclasse depende (a elipse: os
    /// segundos semi-eixos). Uma subclasse que traça com outros dados os devolve aqui.
    virtual std::array<double, 2> ParametrosDoContorno() const { return {0.0, 0.0}; }

private:
    /// Os dados com que o contorno guardado foi traçado.
    struct TChaveContorno
    {
        TGISPosicao Posicao;
        double Valores[8];
        bool operator==(const TChaveContorno &o) const;
    };
    TChaveContorno ChaveAtual() const;

    TBrush FPincel;
    double FRaioMenor = 0.0;
    double FRaioMaior = 0.0;
    double FAzimuteInicial = 0.0;
    double FAzimuteFinal = 0.0;
    std::int32_t FIndicePincel = 0;
    mutable TGISPosicaoList FContorno;
    mutable TChaveContorno FChaveContorno{};
    mutable bool FContornoValido = false;
};

} // namespace tavru
