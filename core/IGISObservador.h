#pragma once
/// \file
/// Quem observa listas de camadas, listas de objetos e objetos do mapa.

#include <cstdint>

namespace tavru {

class TGISCamada;
class TGISObjeto;

/// O que mudou.
enum TGISMudanca : std::uint8_t {
    gmIncluido, ///< o item entrou na lista (`Add`, `Insert`, `Atribuir...`)
    gmExtraido, ///< o item saiu da lista sem ser liberado (`Extract`)
    gmLiberado, ///< o item vai ser liberado: ainda existe durante o aviso, não depois dele
    gmMovido,   ///< o item mudou de lugar na lista (`Move`, `Exchange`)
    gmAlterado, ///< a extensão ou a aparência do objeto mudou pela API dele
    gmLote      ///< muitas mudanças de uma vez (`Ler`, `Clear`, ...): quem observa refaz o que deriva
};

/// Um aviso: o que mudou, em que item (nulo num lote) e quem avisa (a lista ou o objeto, comparado
/// só por identidade).
struct TGISAviso
{
    TGISMudanca Mudanca = gmLote;
    TGISObjeto *Objeto = nullptr; ///< numa lista de objetos e num objeto
    TGISCamada *Camada = nullptr; ///< numa lista de camadas
    const void *Origem = nullptr;
};

/// Observador de uma lista de camadas (`TGISCamadaList`), de uma lista de objetos
/// (`TGISObjetoList`) ou de um objeto (`TGISObjeto`). É chamado na linha de execução que fez a
/// mudança, depois dela (com `gmLiberado`, antes de liberar). Não levanta exceções, e não é
/// possuído por quem avisa: quem observa se retira (`RemoverObservador`) antes de morrer.
class IGISObservador
{
public:
    virtual ~IGISObservador() = default;
    virtual void GISMudou(const TGISAviso &aviso) = 0;
};

} // namespace tavru
