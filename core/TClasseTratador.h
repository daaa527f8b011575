#pragma once
/// \file
/// O descritor de classe dos tratadores de arquivo (o "construtor virtual" deles).

#include "core/TGISTratadorDeArquivo.h"
#include "platform/Exportacao.h"

#include <QString>
#include <memory>

namespace tavru {

class TGISObjetoList;

/// Descreve uma classe concreta de tratador de arquivo: nome e fábrica, que cria um tratador
/// sobre uma lista de objetos. O registro de tratadores guarda classes por ele.
///
/// Há um descritor por classe concreta e a identidade é o endereço: declare na classe
/// `static const TClasseTratador Classe;` e defina-o na fonte dela com
/// `const TClasseTratador TTratadorX::Classe = TClasseTratador::De<TTratadorX>("TTratadorX");`.
/// A construção é constante, então o descritor já vale quando os registros da carga da biblioteca
/// rodam. Compare descritores com `==` (endereço).
class TAVRU_GIS_EXPORT TClasseTratador
{
public:
    using TFabrica = std::unique_ptr<TGISTratadorDeArquivo> (*)(TGISObjetoList &);

    constexpr TClasseTratador(const char *nome, TFabrica fabrica) : FNome(nome), FFabrica(fabrica) {}
    TClasseTratador(const TClasseTratador &) = delete;
    TClasseTratador &operator=(const TClasseTratador &) = delete;

    /// O descritor da classe `T` (com um construtor `T(TGISObjetoList &)`).
    template <typename T>
    static constexpr TClasseTratador De(const char *nome)
    {
        return TClasseTratador(nome, &Fabricar<T>);
    }

    QString Nome() const { return QString::fromLatin1(FNome); }
    /// Um tratador novo sobre `lista` (que ele não possui); quem chama possui o tratador.
    std::unique_ptr<TGISTratadorDeArquivo> Criar(TGISObjetoList &lista) const { return FFabrica(lista); }

    friend bool operator==(const TClasseTratador &a, const TClasseTratador &b) { return &a == &b; }
    friend bool operator!=(const TClasseTratador &a, const TClasseTratador &b) { return &a != &b; }

private:
    template <typename T>
    static std::unique_ptr<TGISTratadorDeArquivo> Fabricar(TGISObjetoList &lista)
    {
        return std::make_unique<T>(lista);
    }

    const char *FNome;
    TFabrica FFabrica;
};

} // namespace tavru
