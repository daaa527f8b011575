#pragma once
/// \file
/// O rascunho de desenho de um canvas: o que o desenho e os testes de toque reaproveitam de uma
/// chamada para a outra, guardado no canvas e não no processo.

#include <tavru/platform/Exportacao.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace tavru {

/// Guarda um objeto de cada tipo pedido (`Obter<T>()`, criado com o construtor padrão na
/// primeira vez), possuído pelo contexto e liberado com ele. Cada `TCanvas` tem o seu: dois canvas
/// desenhados em duas linhas de execução não dividem nada por aqui. O contexto não tem travas:
/// um canvas só é usado por uma linha de cada vez.
///
/// Limite: quem guarda vetores aqui chama `Aliviar` depois de usá-los, e um objeto enorme não
/// deixa o seu rascunho preso ao canvas (a capacidade acima de `LimiteDeRascunho` elementos é
/// devolvida).
class TAVRU_PLATAFORMA_EXPORT TContextoDeDesenho
{
public:
    /// Elementos que um vetor de rascunho guarda entre usos.
    static constexpr std::size_t LimiteDeRascunho = std::size_t(1) << 16;

    TContextoDeDesenho();
    ~TContextoDeDesenho();
    TContextoDeDesenho(const TContextoDeDesenho &) = delete;
    TContextoDeDesenho &operator=(const TContextoDeDesenho &) = delete;

    /// O objeto do tipo `T` deste contexto (criado na primeira vez).
    template <typename T>
    T &Obter()
    {
        // A chave de cada tipo é tirada uma vez (inicialização de estático local, que o C++
        // protege) e nunca muda depois.
        static const std::size_t chave = NovaChave();
        if (chave >= FItens.size())
            FItens.resize(chave + 1);
        std::unique_ptr<TBase> &item = FItens[chave];
        if (!item)
            item = std::make_unique<TItem<T>>();
        return static_cast<TItem<T> &>(*item).Valor;
    }
    /// Libera todo o rascunho.
    void Limpar() { FItens.clear(); }

    /// Devolve a memória de um vetor de rascunho que passou de `LimiteDeRascunho` elementos.
    template <typename V>
    static void Aliviar(V &vetor)
    {
        if (vetor.capacity() > LimiteDeRascunho)
            V().swap(vetor);
    }

private:
    struct TBase
    {
        virtual ~TBase() = default;
    };
    template <typename T>
    struct TItem : TBase
    {
        T Valor{};
    };
    static std::size_t NovaChave();

    std::vector<std::unique_ptr<TBase>> FItens;
};

} // namespace tavru
