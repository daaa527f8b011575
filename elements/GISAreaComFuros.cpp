#include <tavru/elements/GISAreaComFuros.h>

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <vector>

namespace tavru {

const TClasseObjeto TGISAreaComFuros::Descritor = TClasseObjeto::De<TGISAreaComFuros>("TGISAreaComFuros");

TGISAreaComFuros::TGISAreaComFuros() = default;

TGISAreaComFuros::~TGISAreaComFuros() = default;

void TGISAreaComFuros::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Assign(Pincel());
        canvas.Pen().Assign(Caneta());
    }
    std::vector<TPoint> tela;
    std::vector<TPoint> mantidos;
    std::vector<int> quantidades;
    for (int i = 0; i < Pontos().Count(); ++i) {
        if (Pontos().Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, tela);
        const std::size_t antes = mantidos.size();
        DesbastarPontos(tela.data(), static_cast<int>(tela.size()) - 1, mantidos);
        quantidades.push_back(static_cast<int>(mantidos.size() - antes));
    }
    if (!quantidades.empty())
        canvas.PolyPolygon(mantidos.data(), quantidades.data(), static_cast<int>(quantidades.size()));
}

bool TGISAreaComFuros::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    std::vector<TPoint> pontos;
    bool dentro = false;
    for (int i = 0; i < Pontos().Count(); ++i) {
        if (Pontos().Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        if (projecao.PertenceAArea(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto))
            dentro = !dentro;
    }
    return dentro;
}

} // namespace tavru
