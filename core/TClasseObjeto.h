#pragma once
/// \file
/// O descritor de classe dos objetos do mapa (o "construtor virtual" das classes de elementos).

#include "platform/Exportacao.h"

#include <QString>
#include <memory>

namespace tavru {

class TGISObjeto;

/// Descreve uma classe concreta de objeto do mapa: o nome da classe e uma fábrica que cria um
/// objeto novo dela com os padrões do construtor. Registros de classes (a barra de inclusão, o
/// leitor de documentos) guardam, criam e removem classes por ele.
///
/// Há um descritor por classe concreta e a identidade é o endereço: declare na classe
/// `static const TClasseObjeto Classe;`, defina-o na fonte dela com
/// `const TClasseObjeto TGISPonto::Classe = TClasseObjeto::De<TGISPonto>("TGISPonto");`
/// e devolva-o em `TGISObjeto::Classe()`. A construção é constante (sem ordem de inicialização
/// entre fontes). Compare descritores com `==` (endereço), nunca pelo nome.
class TAVRU_GIS_EXPORT TClasseObjeto
{
public:
    using TFabrica = std::unique_ptr<TGISObjeto> (*)();

    constexpr TClasseObjeto(const char *nome, TFabrica fabrica) : FNome(nome), FFabrica(fabrica) {}
    TClasseObjeto(const TClasseObjeto &) = delete;
    TClasseObjeto &operator=(const TClasseObjeto &) = delete;

    /// O descritor da classe `T` (que precisa de um construtor sem argumentos).
    template <typename T>
    static constexpr TClasseObjeto De(const char *nome)
    {
        return TClasseObjeto(nome, &Fabricar<T>);
    }

    /// Nome da classe ("TGISPonto").
    QString Nome() const { return QString::fromLatin1(FNome); }
    /// Um objeto novo da classe; quem chama o possui.
    std::unique_ptr<TGISObjeto> Criar() const { return FFabrica(); }

    friend bool operator==(const TClasseObjeto &a, const TClasseObjeto &b) { return &a == &b; }
    friend bool operator!=(const TClasseObjeto &a, const TClasseObjeto &b) { return &a != &b; }

private:
    template <typename T>
    static std::unique_ptr<TGISObjeto> Fabricar()
    {
        return std::make_unique<T>();
    }

    const char *FNome;
    TFabrica FFabrica;
};

} // namespace tavru
