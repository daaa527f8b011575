#pragma once
/// \file
/// Uso interno do controle: a grade das caixas dos rótulos já escritos num desenho. Não é
/// instalado.

#include <tavru/platform/TPoint.h>

#include <vector>

namespace tavru {

/// As caixas (pixels) dos rótulos escritos até agora num desenho, numa grade uniforme sobre a
/// tela: cada caixa fica anotada nas células que cobre, e uma caixa nova só é comparada com as
/// das suas células, de modo que escrever n rótulos de tamanho limitado custa O(n). Caixas fora
/// da tela ficam nas células da borda (a grade corta as faixas de células, o que não separa duas
/// caixas que se sobrepõem). Dura um desenho só: é rascunho local de quem desenha.
class TGradeDeRotulos
{
public:
    /// Grade sobre `tela` (em ordem), com no máximo 128 × 128 células de ao menos 48 pixels.
    explicit TGradeDeRotulos(const TRect &tela);

    /// Verdadeiro, e a caixa passa a ocupar a grade, quando ela não se sobrepõe a nenhuma caixa
    /// já ocupada (bordas que só se tocam não contam). Uma caixa vazia nunca se sobrepõe.
    bool Ocupar(const TRect &caixa);

private:
    /// As faixas de colunas e de linhas de células que a caixa cobre, cortadas à grade.
    void Faixa(const TRect &caixa, int &c1, int &c2, int &l1, int &l2) const;

    TRect FTela;
    int FLarguraCelula = 1;
    int FAlturaCelula = 1;
    int FColunas = 1;
    int FLinhas = 1;
    std::vector<TRect> FCaixas;
    std::vector<std::vector<int>> FCelulas; ///< índices de `FCaixas`, por célula (linha a linha)
};

} // namespace tavru
