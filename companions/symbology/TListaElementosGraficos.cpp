#include <tavru/companions/symbology/TListaElementosGraficos.h>

#include <algorithm>

namespace tavru {

TRect TListaElementosGraficos::ObterArea() const
{
    TRect uniao;
    bool algum = false;
    for (int i = 0; i < Count(); ++i) {
        const TElementoGrafico *e = Items(i);
        TRect r;
        if (!e || !e->ObterArea(r))
            continue;
        if (!algum) {
            uniao = r;
            algum = true;
            continue;
        }
        uniao.Left = std::min(uniao.Left, r.Left);
        uniao.Top = std::min(uniao.Top, r.Top);
        uniao.Right = std::max(uniao.Right, r.Right);
        uniao.Bottom = std::max(uniao.Bottom, r.Bottom);
    }
    return uniao;
}

} // namespace tavru
