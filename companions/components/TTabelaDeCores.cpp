#include <tavru/companions/components/TTabelaDeCores.h>

#include <tavru/platform/TObjectList.h>

namespace tavru {

TTabelaDeCores::TTabelaDeCores(QObject *parent) : QObject(parent) {}

TColor TTabelaDeCores::ObterCor(int indice) const
{
    if (indice < 0 || indice >= ObterTotal())
        return FCorPadrao;
    return FCores[static_cast<size_t>(indice)];
}

void TTabelaDeCores::AtribuirCor(int indice, TColor cor)
{
    if (indice < 0 || indice >= ObterTotal())
        ErroIndiceLista(indice);
    FCores[static_cast<size_t>(indice)] = cor;
}

int TTabelaDeCores::Adicionar(TColor cor)
{
    FCores.push_back(cor);
    return ObterTotal() - 1;
}

void TTabelaDeCores::Remover(int indice)
{
    if (indice < 0 || indice >= ObterTotal())
        ErroIndiceLista(indice);
    FCores.erase(FCores.begin() + indice);
}

} // namespace tavru
