#pragma once
/// \file
/// A interface das ferramentas do controle do mapa.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>
#include <tavru/platform/TShiftState.h>

namespace tavru {

class TGISObjeto;

/// Ferramenta que recebe do `TGis` cada notificação de mouse, de pintura e de seleção.
///
/// O controle não interpreta o mouse: entrega tudo às ferramentas registradas com
/// `TGis::RegistrarMouseEvent`, na ordem de registro, de forma síncrona. A ordem das oito
/// operações é a da tabela virtual, que as ferramentas compiladas contra esta versão seguem (não
/// reordenar); cada uma não faz nada até ser sobrescrita, de modo que uma ferramenta só escreve o
/// que usa. Pontos em pixels do controle (y para baixo).
///
/// Posse: o controle guarda um ponteiro simples, sem posse e sem contagem de referências. Uma
/// ferramenta tira o seu registro antes de ser destruída; se ela for também um `QObject`, o
/// controle a esquece sozinho quando ela é destruída (`QObject::destroyed`).
class TAVRU_GIS_EXPORT IGISMouseEvent
{
public:
    virtual ~IGISMouseEvent();

    /// Um clique (botão esquerdo apertado e solto no controle); `ponto` é a posição do cursor do
    /// sistema convertida para o controle.
    virtual void GISMouseClick(const TPoint &ponto);
    /// Um clique duplo. O controle não define `ponto` (chega como (0, 0)): ignore-o.
    virtual void GISMouseDblClick(const TPoint &ponto);
    virtual void GISMouseMove(const TPoint &ponto);
    virtual void GISMouseUp(const TPoint &ponto, TMouseButton botao, TShiftState shift);
    virtual void GISMouseDown(const TPoint &ponto, TMouseButton botao, TShiftState shift);
    /// O controle acabou de mostrar o seu buffer.
    virtual void GISPaint();
    /// Pediu-se a seleção de `objeto` (nulo: nenhum), aceita ou recusada.
    virtual void GISSelecionou(TGISObjeto *objeto);
    /// O mouse saiu do controle.
    virtual void GisMouseLeave();

protected:
    IGISMouseEvent() = default;
    IGISMouseEvent(const IGISMouseEvent &) = default;
    IGISMouseEvent &operator=(const IGISMouseEvent &) = default;
};

} // namespace tavru
