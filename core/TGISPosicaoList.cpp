#include <tavru/core/TGISPosicaoList.h>

#include <tavru/platform/TObjectList.h>

#include <algorithm>

namespace tavru {

void TGISPosicaoList::Verificar(int indice) const
{
    if (indice < 0 || indice >= Count())
        ErroIndiceLista(indice);
}

int TGISPosicaoList::Add(const TGISPosicao &p)
{
    FItens.push_back(p);
    return Count() - 1;
}

void TGISPosicaoList::Insert(int indice, const TGISPosicao &p)
{
    if (indice < 0 || indice > Count())
        ErroIndiceLista(indice);
    FItens.insert(FItens.begin() + indice, p);
}

void TGISPosicaoList::AtribuirPosicao(int indice, const TGISPosicao &p)
{
    Verificar(indice);
    FItens[static_cast<size_t>(indice)] = p;
}

TGISPosicao TGISPosicaoList::ObterPosicao(int indice) const
{
    Verificar(indice);
    return FItens[static_cast<size_t>(indice)];
}

int TGISPosicaoList::IndexOf(const TGISPosicao &p) const
{
    const auto it = std::find(FItens.begin(), FItens.end(), p);
    return it == FItens.end() ? -1 : static_cast<int>(it - FItens.begin());
}

int TGISPosicaoList::Remove(const TGISPosicao &p)
{
    const int indice = IndexOf(p);
    Delete(indice);
    return indice;
}

TGISPosicao TGISPosicaoList::Extract(const TGISPosicao &p)
{
    const int indice = IndexOf(p);
    const TGISPosicao copia = ObterPosicao(indice);
    FItens.erase(FItens.begin() + indice);
    return copia;
}

void TGISPosicaoList::Delete(int indice)
{
    Verificar(indice);
    FItens.erase(FItens.begin() + indice);
}

void TGISPosicaoList::Exchange(int i, int j)
{
    Verificar(i);
    Verificar(j);
    std::swap(FItens[static_cast<size_t>(i)], FItens[static_cast<size_t>(j)]);
}

void TGISPosicaoList::Redimensionar(int total)
{
    FItens.resize(static_cast<size_t>(std::max(0, total)));
}

void TGISPosicaoList::Reservar(int total)
{
    FItens.reserve(static_cast<size_t>(std::max(0, total)));
}

} // namespace tavru
