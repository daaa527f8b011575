#include <tavru/core/TGISObservadores.h>

#include <algorithm>

namespace tavru {

void TGISObservadores::Adicionar(IGISObservador *observador)
{
    if (!observador || std::find(FLista.begin(), FLista.end(), observador) != FLista.end())
        return;
    FLista.push_back(observador);
    ++FTotal;
}

void TGISObservadores::Remover(IGISObservador *observador)
{
    const auto it = std::find(FLista.begin(), FLista.end(), observador);
    if (!observador || it == FLista.end())
        return;
    --FTotal;
    if (FAvisando > 0)
        *it = nullptr; // a volta em andamento pula o lugar; compactado no fim dela
    else
        FLista.erase(it);
}

void TGISObservadores::Avisar(const TGISAviso &aviso)
{
    ++FAvisando;
    const std::size_t total = FLista.size();
    for (std::size_t i = 0; i < total; ++i)
        if (IGISObservador *o = FLista[i])
            o->GISMudou(aviso);
    if (--FAvisando == 0)
        FLista.erase(std::remove(FLista.begin(), FLista.end(), nullptr), FLista.end());
}

} // namespace tavru
