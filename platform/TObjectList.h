#pragma once
/// \file
/// A lista de objetos da plataforma: uma lista de ponteiros que pode possuir os itens.
///
/// Com `OwnsObjects` ligado (o padrão), a lista possui os itens: `Remove`, `Delete`, `Clear` e
/// a destruição liberam; `Extract` devolve o item sem liberá-lo. `Exchange` e `Move` nunca
/// liberam. Itens podem ser nulos (posições vazias). Índices fora de `0..Count()-1` levantam
/// `EListError` com a mensagem "Índice de lista fora dos limites (<i>)".
///
/// Cada entrada ou saída de item e cada mudança de ordem passa por `Notificar`, que uma subclasse
/// sobrescreve para manter donos e avisar quem observa. A base não avisa nada, e o destrutor da
/// base não chega à subclasse: uma subclasse que precisa saber da destruição chama `Clear` no
/// próprio destrutor.

#include <tavru/platform/Exception.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tavru {

/// O que aconteceu com um item da lista (ver `TObjectList::Notificar`).
enum TAcaoDeLista : std::uint8_t {
    laIncluido,  ///< entrou na lista (`Add`, `Insert`, `SetItems`)
    laExtraido,  ///< saiu sem ser liberado (`Extract`; e as saídas de uma lista sem posse)
    laLiberando, ///< saiu e vai ser liberado logo depois do aviso (`Remove`, `Delete`, `Clear`, `SetItems`)
    laMovido     ///< mudou de lugar (`Move`; `Exchange` avisa só o primeiro dos dois)
};

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
        T *anterior = FItens[static_cast<size_t>(i)];
        FItens[static_cast<size_t>(i)] = item;
        if (anterior == item)
            return;
        if (anterior)
            Sair(anterior);
        Notificar(item, laIncluido);
    }

    int Add(T *item)
    {
        FItens.push_back(item);
        Notificar(item, laIncluido);
        return Count() - 1;
    }
    void Insert(int i, T *item)
    {
        if (i < 0 || i > Count())
            ErroIndiceLista(i);
        FItens.insert(FItens.begin() + i, item);
        Notificar(item, laIncluido);
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
        Notificar(item, laExtraido);
        return item;
    }
    /// Tira o item do índice e, com posse, o libera.
    void Delete(int i)
    {
        Verificar(i);
        T *item = FItens[static_cast<size_t>(i)];
        FItens.erase(FItens.begin() + i);
        Sair(item);
    }
    /// Troca dois itens de lugar; nada é liberado.
    void Exchange(int i, int j)
    {
        Verificar(i);
        Verificar(j);
        std::swap(FItens[static_cast<size_t>(i)], FItens[static_cast<size_t>(j)]);
        if (i != j)
            Notificar(FItens[static_cast<size_t>(j)], laMovido);
    }
    /// Move o item de `de` para `para`; nada é liberado.
    void Move(int de, int para)
    {
        Verificar(de);
        Verificar(para);
        T *item = FItens[static_cast<size_t>(de)];
        FItens.erase(FItens.begin() + de);
        FItens.insert(FItens.begin() + para, item);
        if (de != para)
            Notificar(item, laMovido);
    }
    T *First() const { return Items(0); }
    T *Last() const { return Items(Count() - 1); }
    /// Esvazia a lista, liberando os itens quando a possui (do primeiro ao último).
    virtual void Clear()
    {
        std::vector<T *> itens;
        itens.swap(FItens);
        for (T *item : itens)
            Sair(item);
    }

    typename std::vector<T *>::const_iterator begin() const { return FItens.begin(); }
    typename std::vector<T *>::const_iterator end() const { return FItens.end(); }

protected:
    /// Chamada depois de cada entrada, saída ou mudança de lugar de um item (que pode ser nulo);
    /// com `laLiberando`, o item ainda existe e é liberado logo depois. A base não faz nada. Quem
    /// sobrescreve não levanta exceções: a lista já mudou quando ela é chamada.
    virtual void Notificar(T *item, TAcaoDeLista acao)
    {
        (void)item;
        (void)acao;
    }

    void Verificar(int i) const
    {
        if (i < 0 || i >= Count())
            ErroIndiceLista(i);
    }

private:
    /// Avisa a saída de um item que já não está na lista e, com posse, o libera.
    void Sair(T *item)
    {
        Notificar(item, FPossui ? laLiberando : laExtraido);
        if (FPossui)
            delete item;
    }

    std::vector<T *> FItens;
    bool FPossui;
};

} // namespace tavru
