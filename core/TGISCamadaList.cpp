#include <tavru/core/TGISCamadaList.h>

namespace tavru {

TGISCamadaList::~TGISCamadaList()
{
    FCalada = true;
    TObjectList<TGISCamada>::Clear();
}

void TGISCamadaList::Clear()
{
    FCalada = true;
    try {
        TObjectList<TGISCamada>::Clear();
    } catch (...) {
        FCalada = false;
        throw;
    }
    FCalada = false;
    FObservadores.Avisar(TGISAviso{gmLote, nullptr, nullptr, this});
}

void TGISCamadaList::Notificar(TGISCamada *camada, TAcaoDeLista acao)
{
    if (FCalada || FObservadores.Vazio())
        return;
    static constexpr TGISMudanca mudancas[] = {gmIncluido, gmExtraido, gmLiberado, gmMovido};
    FObservadores.Avisar(TGISAviso{mudancas[acao], nullptr, camada, this});
}

int TGISCamadaList::Add(TGISCamada *camada)
{
    const int indice = IndexOf(camada);
    return indice >= 0 ? indice : TObjectList<TGISCamada>::Add(camada);
}

int TGISCamadaList::IndexOf(const QString &nome) const
{
    const QString procurado = nome.toLower();
    for (int i = 0; i < Count(); ++i)
        if (const TGISCamada *c = Items(i); c && c->Nome().toLower() == procurado)
            return i;
    return -1;
}

TGISCamada *TGISCamadaList::ObterCamadaPeloObjeto(const TGISObjeto *objeto) const
{
    for (TGISCamada *c : *this)
        if (c && c->ObterIndiceObjeto(objeto) >= 0)
            return c;
    return nullptr;
}

} // namespace tavru
