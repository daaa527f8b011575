#pragma once
/// \file
/// O composto: um grupo de objetos do mapa que se comporta como um só.

#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exportacao.h>

namespace tavru {

/// Grupo de objetos do mapa: move, gira, colore, desenha e testa os membros juntos.
///
/// Girar o composto faz os membros orbitarem a posição dele sem mudar a orientação própria de
/// cada um. Ângulos em radianos, anti-horários (do eixo da longitude para o da latitude).
///
/// Posse: o composto possui os membros (`Objetos`, na ordem de desenho); destruí-lo os libera.
class TAVRU_GIS_EXPORT TGISComposto : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISComposto();
    ~TGISComposto() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Desloca cada membro, em ordem e pela operação virtual dele, de `p - Posicao` (cada eixo),
    /// e então guarda a posição do composto.
    void AtribuirPosicao(const TGISPosicao &p) override;
    /// Gira cada membro em torno da posição do composto pela diferença entre `orientacao` e a
    /// orientação atual (radianos; o membro vai para a posição girada, arredondada, pela
    /// `AtribuirPosicao` dele). A orientação dos membros não muda. Então guarda `orientacao`.
    void AtribuirOrientacao(double orientacao) override;
    /// Guarda `Cor` e a dá a cada membro.
    void AtribuirCor(TColor cor) override;
    /// `Cor`, a última dada ao grupo.
    TColor ObterCor() const override;
    /// `ConfiguracaoPadrao` de cada membro, em ordem, parando no primeiro que recusa; responde se
    /// todos os chamados aceitaram (um composto vazio aceita).
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Desenha cada membro, em ordem, com os mesmos argumentos.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro no primeiro membro atingido; falso num composto vazio.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// A união das áreas dos membros, em ordem; vazio dá (0, 0, 0, 0).
    TGISRet Area() const override;

    /// Os membros (possuídos). Cada mudança desta lista, e de um membro pela API dele, avisa o
    /// composto (`Mudou`) e assim a lista e a camada que o possuem; `AtribuirPosicao`,
    /// `AtribuirOrientacao` e `AtribuirCor` do composto avisam uma vez só, por todos os membros.
    TGISObjetoList &Objetos() { return FObjetos; }
    const TGISObjetoList &Objetos() const { return FObjetos; }
    /// A última cor dada ao grupo. Padrão 0 (preto).
    TColor Cor() const { return FCor; }

private:
    TGISObjetoList FObjetos;
    TColor FCor = 0;
};

} // namespace tavru
