#pragma once
/// \file
/// As opções de uma leitura de Shapefile, com o evento de validação `TAoValidar`.

#include <functional>

namespace tavru {

class TGISObjeto;
class TInformacoes;

/// Evento levantado para cada objeto de um registro, antes de ele entrar na lista: `objeto` já
/// tem a geometria, os atributos (nas informações dele) e as cores do ".cor"; `registro` é o
/// número do registro no ".shp" (1 é o primeiro); `atributos` são as informações do objeto (a
/// mesma lista que `objeto.Informacoes()`). Quem recebe pode mudar o objeto (cor, informações,
/// visibilidade...) e recusá-lo pondo `aceitar` em falso: então ele não é acrescentado. Um
/// registro de multiponto dá um objeto por ponto, e o evento vem uma vez por objeto.
///
/// É o modo de filtrar arquivos grandes (por atributo, por área) sem guardar o que não interessa.
/// Uma exceção levantada aqui termina a leitura; os objetos já acrescentados ficam.
using TAoValidar = std::function<void(TGISObjeto &objeto, int registro, const TInformacoes &atributos, bool &aceitar)>;

/// As opções de leitura de `TTratadorDeShapeFile`. O registro de tratadores cria o tratador com as
/// opções padrão (`TGISObjetoList::Ler(nome, "ShapeFile")`); quem quer o evento cria o tratador
/// e lhe dá as opções (`AtribuirOpcoes`). Pensadas para passar, tal como estão, às opções de
/// leitura do registro quando ele as tiver.
struct TOpcoesLeituraShapeFile
{
    /// Chamado para cada objeto antes de entrar na lista; vazio aceita tudo.
    TAoValidar AoValidar;
};

} // namespace tavru
