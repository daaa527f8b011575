#include <tavru/elements/GISPontosTrajeto.h>

#include <tavru/platform/TStringList.h>

namespace tavru {

void TGISPontosTrajeto::ObterCampos(TStringList &lista) const
{
    for (const TGISPontoTrajeto *ponto : *this) {
        if (!ponto)
            continue;
        const TInformacoes &info = ponto->Informacoes();
        for (int i = 0; i < info.ObterTotal(); ++i) {
            const QString nome = info.ObterNomeCampo(i);
            if (lista.IndexOf(nome) < 0)
                lista.Add(nome);
        }
    }
}

} // namespace tavru
