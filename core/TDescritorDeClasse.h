#pragma once
/// \file
/// O descritor de uma classe concreta: o "construtor virtual" de uma família de classes.

#include <QString>
#include <memory>

namespace tavru {

/// Descreve uma classe concreta derivada de `TBase`: o nome da classe e uma fábrica que cria um
/// objeto novo dela a partir dos argumentos `TArgs` do construtor. Registros de classes (o de
/// tratadores de arquivo, o leitor de documentos, a barra de inclusão) guardam, criam e removem
/// classes por ele.
///
/// Há um descritor por classe concreta e a identidade é o endereço: declare na classe um membro
/// estático constante (`static const TClasseObjeto Descritor;`) e defina-o na fonte dela com
/// `const TClasseObjeto TGISPonto::Descritor = TClasseObjeto::De<TGISPonto>("TGISPonto");`.
/// A construção é constante, então o descritor já vale quando os registros da carga da biblioteca
/// rodam (sem ordem de inicialização entre fontes). Compare descritores com `==` (endereço),
/// nunca pelo nome.
template <typename TBase, typename... TArgs>
class TDescritorDeClasse
{
public:
    using TFabrica = std::unique_ptr<TBase> (*)(TArgs...);

    constexpr TDescritorDeClasse(const char *nome, TFabrica fabrica) : FNome(nome), FFabrica(fabrica) {}
    TDescritorDeClasse(const TDescritorDeClasse &) = delete;
    TDescritorDeClasse &operator=(const TDescritorDeClasse &) = delete;

    /// O descritor da classe `T`, que tem um construtor `T(TArgs...)`.
    template <typename T>
    static constexpr TDescritorDeClasse De(const char *nome)
    {
        return TDescritorDeClasse(nome, &Fabricar<T>);
    }

    /// Nome da classe ("TGISPonto").
    QString Nome() const { return QString::fromLatin1(FNome); }
    /// Um objeto novo da classe; quem chama o possui.
    std::unique_ptr<TBase> Criar(TArgs... argumentos) const { return FFabrica(argumentos...); }

    friend bool operator==(const TDescritorDeClasse &a, const TDescritorDeClasse &b) { return &a == &b; }
    friend bool operator!=(const TDescritorDeClasse &a, const TDescritorDeClasse &b) { return &a != &b; }

private:
    template <typename T>
    static std::unique_ptr<TBase> Fabricar(TArgs... argumentos)
    {
        return std::make_unique<T>(argumentos...);
    }

    const char *FNome;
    TFabrica FFabrica;
};

} // namespace tavru
