#pragma once
/// \file
/// A lista de posições de um polígono de símbolo.

#include <tavru/platform/TPoint.h>

#include <vector>

namespace tavru {

/// Posições inteiras de um símbolo vetorial (unidades do símbolo, y para baixo), por valor.
class TListaPosicoes
{
public:
    int Add(const TPoint &p)
    {
        FItens.push_back(p);
        return Count() - 1;
    }
    int Count() const { return static_cast<int>(FItens.size()); }
    /// A posição do índice (sem verificação: use de 0 a `Count() - 1`).
    TPoint ObterPosicao(int indice) const { return FItens[static_cast<size_t>(indice)]; }
    void Clear() { FItens.clear(); }
    std::vector<TPoint>::const_iterator begin() const { return FItens.begin(); }
    std::vector<TPoint>::const_iterator end() const { return FItens.end(); }

private:
    std::vector<TPoint> FItens;
};

} // namespace tavru
