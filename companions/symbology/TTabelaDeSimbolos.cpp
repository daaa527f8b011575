#include <tavru/companions/symbology/TTabelaDeSimbolos.h>

#include <tavru/platform/TObjectList.h>

namespace tavru {

TTabelaDeSimbolos::TTabelaDeSimbolos(QObject *parent) : QObject(parent) {}

TTabelaDeSimbolos::~TTabelaDeSimbolos() = default;

ISimbolo *TTabelaDeSimbolos::ObterSimbolo(int indice) const
{
    if (indice < 0 || indice >= ObterTotal())
        return nullptr;
    return FSimbolos[static_cast<size_t>(indice)].get();
}

int TTabelaDeSimbolos::IndiceDoNome(const QString &nome) const
{
    for (int i = 0; i < ObterTotal(); ++i)
        if (FSimbolos[static_cast<size_t>(i)]->Nome() == nome)
            return i;
    return -1;
}

int TTabelaDeSimbolos::Adicionar(std::unique_ptr<ISimbolo> simbolo)
{
    if (!simbolo)
        return -1;
    FSimbolos.push_back(std::move(simbolo));
    return ObterTotal() - 1;
}

void TTabelaDeSimbolos::Remover(int indice)
{
    if (indice < 0 || indice >= ObterTotal())
        ErroIndiceLista(indice);
    FSimbolos.erase(FSimbolos.begin() + indice);
}

bool TTabelaDeSimbolos::DesenharRotacionado(int indice, TCanvas &canvas, const TRect &r, double angulo) const
{
    const ISimbolo *simbolo = ObterSimbolo(indice);
    if (!simbolo)
        return false;
    simbolo->DesenharRotacionado(canvas, r, angulo);
    return true;
}

} // namespace tavru
