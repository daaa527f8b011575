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

    // Extensão: a roda do mouse e o teclado, depois das oito operações acima. Também não fazem
    // nada até serem sobrescritas, de modo que uma ferramenta escrita só com as oito compila e
    // funciona sem mudança. O controle entrega os valores do Qt sem interpretá-los.

    /// A roda girou (ou o trackpad rolou) com o cursor em `ponto`. `angulo` é o giro em oitavos de
    /// grau (um entalhe comum: 120; y positivo: girada para longe do usuário); `pixels` é o
    /// deslocamento fino que um trackpad dá, em pixels, ou (0, 0) quando não há. Responde se tratou
    /// o evento; quando nenhuma ferramenta trata, ele segue para o widget pai.
    virtual bool GISMouseWheel(const TPoint &ponto, const TPoint &angulo, const TPoint &pixels, TShiftState shift);
    /// Uma tecla foi apertada com o foco no controle. `tecla` é o código `Qt::Key`; o shift traz só
    /// as teclas modificadoras. Responde se tratou a tecla; quando nenhuma ferramenta trata, ela
    /// segue para o widget pai (atalhos da janela continuam valendo).
    virtual bool GISKeyDown(int tecla, TShiftState shift);

protected:
    IGISMouseEvent() = default;
    IGISMouseEvent(const IGISMouseEvent &) = default;
    IGISMouseEvent &operator=(const IGISMouseEvent &) = default;
};

} // namespace tavru
