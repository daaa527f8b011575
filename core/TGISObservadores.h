#pragma once
/// \file
/// O conjunto de observadores de uma lista ou de um objeto.

#include <tavru/core/IGISObservador.h>
#include <tavru/platform/Exportacao.h>

#include <vector>

namespace tavru {

/// Observadores (não possuídos), avisados na ordem em que entraram. Um observador pode entrar ou
/// sair durante um aviso: quem sai não é mais chamado, quem entra só ouve os avisos seguintes.
class TAVRU_GIS_EXPORT TGISObservadores
{
public:
    /// Acrescenta (uma vez só; nulo não entra).
    void Adicionar(IGISObservador *observador);
    void Remover(IGISObservador *observador);
    bool Vazio() const { return FTotal == 0; }
    void Avisar(const TGISAviso &aviso);

private:
    std::vector<IGISObservador *> FLista; // nulos são lugares de quem saiu durante um aviso
    int FTotal = 0;
    int FAvisando = 0;
};

} // namespace tavru
