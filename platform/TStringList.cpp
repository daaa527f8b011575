#include <tavru/platform/TStringList.h>

#include <tavru/platform/TObjectList.h>

namespace tavru {

void TStringList::Verificar(int i) const
{
    if (i < 0 || i >= Count())
        ErroIndiceLista(i);
}

const QString &TStringList::Strings(int i) const
{
    Verificar(i);
    return FItens[static_cast<size_t>(i)].Texto;
}

void TStringList::SetStrings(int i, const QString &s)
{
    Verificar(i);
    FItens[static_cast<size_t>(i)].Texto = s;
}

void *TStringList::Objects(int i) const
{
    Verificar(i);
    return FItens[static_cast<size_t>(i)].Objeto;
}

void TStringList::SetObjects(int i, void *objeto)
{
    Verificar(i);
    FItens[static_cast<size_t>(i)].Objeto = objeto;
}

int TStringList::AddObject(const QString &s, void *objeto)
{
    FItens.push_back({s, objeto});
    return Count() - 1;
}

void TStringList::Insert(int i, const QString &s, void *objeto)
{
    if (i < 0 || i > Count())
        ErroIndiceLista(i);
    FItens.insert(FItens.begin() + i, Item{s, objeto});
}

void TStringList::Delete(int i)
{
    Verificar(i);
    FItens.erase(FItens.begin() + i);
}

int TStringList::IndexOf(const QString &s) const
{
    const Qt::CaseSensitivity cs = CaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (int i = 0; i < Count(); ++i)
        if (FItens[static_cast<size_t>(i)].Texto.compare(s, cs) == 0)
            return i;
    return -1;
}

int TStringList::IndexOfObject(const void *objeto) const
{
    for (int i = 0; i < Count(); ++i)
        if (FItens[static_cast<size_t>(i)].Objeto == objeto)
            return i;
    return -1;
}

void TStringList::Exchange(int i, int j)
{
    Verificar(i);
    Verificar(j);
    std::swap(FItens[static_cast<size_t>(i)], FItens[static_cast<size_t>(j)]);
}

QStringList TStringList::Textos() const
{
    QStringList r;
    r.reserve(Count());
    for (const Item &item : FItens)
        r << item.Texto;
    return r;
}

void TStringList::AtribuirTextos(const QStringList &textos)
{
    FItens.clear();
    for (const QString &t : textos)
        FItens.push_back({t, nullptr});
}

QString TStringList::Text() const
{
    QString r;
    for (const Item &item : FItens)
        r += item.Texto + QStringLiteral("\r\n");
    return r;
}

} // namespace tavru
