#pragma once
/// \file
/// A lista de objetos da plataforma, com a semântica de posse em que o projeto se apoia.
///
/// Com `OwnsObjects` ligado (o padrão), a lista possui os itens: `Remove`, `Delete`, `Clear` e
/// a destruição liberam; `Extract` devolve o item sem liberá-lo. `Exchange` e `Move` nunca
/// liberam. Itens podem ser nulos (posições vazias). Índices fora de `0..Count()-1` levantam
/// `EListError` com a mensagem "Índice de lista fora dos limites (<i>)".

#include <tavru/platform/Exception.h>

#include <algorithm>
#include <vector>

namespace tavru {

/// Levanta o erro de índice de lista da plataforma.
[[noreturn]] TAVRU_PLATAFORMA_EXPORT void ErroIndiceLista(int indice);

template <typename T>
class TObjectList
{
public:
    explicit TObjectList(bool possui = true) : FPossui(possui) {}
    virtual ~TObjectList() { Clear(); }
    TObjectList(const TObjectList &) = delete;
    TObjectList &operator=(const TObjectList &) = delete;

    bool OwnsObjects() const { return FPossui; }
    void SetOwnsObjects(bool possui) { FPossui = possui; }

    int Count() const { return static_cast<int>(FItens.size()); }
    bool IsEmpty() const { return FItens.empty(); }

    T *Items(int i) const
    {
        Verificar(i);
        return FItens[static_cast<size_t>(i)];
    }
    T *operator[](int i) const { return Items(i); }
    /// Troca o item em `i`; com posse, o item anterior é liberado (se for outro).
    void SetItems(int i, T *item)
    {
        Verificar(i);
        T *&lugar = FItens[static_cast<size_t>(i)];
        if (FPossui && lugar && lugar != item)
            delete lugar;
        lugar = item;
    }

    int Add(T *item)
    {
        FItens.push_back(item);
        return Count() - 1;
    }
    void Insert(int i, T *item)
    {
        if (i < 0 || i > Count())
            ErroIndiceLista(i);
        FItens.insert(FItens.begin() + i, item);
    }
    int IndexOf(const T *item) const
    {
        const auto it = std::find(FItens.begin(), FItens.end(), item);
        return it == FItens.end() ? -1 : static_cast<int>(it - FItens.begin());
    }
    /// Tira o item da lista e, com posse, o libera. Devolve o índice em que estava, ou -1.
    int Remove(T *item)
    {
        const int i = IndexOf(item);
        if (i >= 0)
            Delete(i);
        return i;
    }
    /// Tira o item da lista sem liberá-lo. Devolve o item, ou nulo se não estava na lista.
    T *Extract(T *item)
    {
        const int i = IndexOf(item);
        if (i < 0)
            return nullptr;
        FItens.erase(FItens.begin() + i);
        return item;
    }
    /// Tira o item do índice e, com posse, o libera.
    void Delete(int i)
    {
        Verificar(i);
        T *item = FItens[static_cast<size_t>(i)];
        FItens.erase(FItens.begin() + i);
        if (FPossui)
            delete item;
    }
    /// Troca dois itens de lugar; nada é liberado.
    void Exchange(int i, int j)
    {
        Verificar(i);
        Verificar(j);
        std::swap(FItens[static_cast<size_t>(i)], FItens[static_cast<size_t>(j)]);
    }
    /// Move o item de `de` para `para`; nada é liberado.
    void Move(int de, int para)
    {
        Verificar(de);
        Verificar(para);
        T *item = FItens[static_cast<size_t>(de)];
        FItens.erase(FItens.begin() + de);
        FItens.insert(FItens.begin() + para, item);
    }
    T *First() const { return Items(0); }
    T *Last() const { return Items(Count() - 1); }
    /// Esvazia a lista, liberando os itens quando a possui (do primeiro ao último).
    virtual void Clear()
    {
        std::vector<T *> itens;
        itens.swap(FItens);
        if (FPossui)
            for (T *item : itens)
                delete item;
    }

    typename std::vector<T *>::const_iterator begin() const { return FItens.begin(); }
    typename std::vector<T *>::const_iterator end() const { return FItens.end(); }

protected:
    void Verificar(int i) const
    {
        if (i < 0 || i >= Count())
            ErroIndiceLista(i);
    }

private:
    std::vector<T *> FItens;
    bool FPossui;
};

} // namespace tavru
