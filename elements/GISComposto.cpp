#include <tavru/elements/GISComposto.h>

#include <tavru/core/Arredondar.h>

#include <cmath>
#include <cstdint>

namespace tavru {

const TClasseObjeto TGISComposto::Descritor = TClasseObjeto::De<TGISComposto>("TGISComposto");

TGISComposto::TGISComposto()
{
    FObjetos.AtribuirObjetoDono(this); // cada mudança de um membro é uma mudança do composto
}

TGISComposto::~TGISComposto() = default;

void TGISComposto::AtribuirPosicao(const TGISPosicao &p)
{
    const TAlteracao alteracao(*this);
    const std::int64_t dLat = std::int64_t(p.Latitude) - Posicao().Latitude;
    const std::int64_t dLon = std::int64_t(p.Longitude) - Posicao().Longitude;
    for (int i = 0; i < FObjetos.Count(); ++i) {
        TGISObjeto *membro = FObjetos[i];
        const TGISPosicao q = membro->Posicao();
        membro->AtribuirPosicao(GISPosicao(static_cast<std::int32_t>(q.Latitude + dLat),
                                           static_cast<std::int32_t>(q.Longitude + dLon)));
    }
    TGISObjeto::AtribuirPosicao(p);
}

void TGISComposto::AtribuirOrientacao(double orientacao)
{
    const TAlteracao alteracao(*this);
    const double dO = orientacao - Orientacao();
    const TGISPosicao c = Posicao();
    for (int i = 0; i < FObjetos.Count(); ++i) {
        TGISObjeto *membro = FObjetos[i];
        const double dLat = double(membro->Posicao().Latitude) - c.Latitude;
        const double dLon = double(membro->Posicao().Longitude) - c.Longitude;
        const double r = std::sqrt(dLat * dLat + dLon * dLon);
        const double t = std::atan2(dLat, dLon);
        membro->AtribuirPosicao(
            GISPosicao(Arredondar(c.Latitude + r * std::sin(t + dO)), Arredondar(c.Longitude + r * std::cos(t + dO))));
    }
    TGISObjeto::AtribuirOrientacao(orientacao);
}

void TGISComposto::AtribuirCor(TColor cor)
{
    const TAlteracao alteracao(*this);
    FCor = cor;
    Mudou();
    for (int i = 0; i < FObjetos.Count(); ++i)
        FObjetos[i]->AtribuirCor(cor);
}

TColor TGISComposto::ObterCor() const
{
    return FCor;
}

bool TGISComposto::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    for (int i = 0; i < FObjetos.Count(); ++i)
        if (!FObjetos[i]->ConfiguracaoPadrao(projecao, ponto))
            return false;
    return true;
}

void TGISComposto::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    for (int i = 0; i < FObjetos.Count(); ++i)
        FObjetos[i]->Desenhar(canvas, projecao, selecionado);
}

bool TGISComposto::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    for (int i = 0; i < FObjetos.Count(); ++i)
        if (FObjetos[i]->Pertence(projecao, ponto))
            return true;
    return false;
}

TGISRet TGISComposto::Area() const
{
    if (FObjetos.IsEmpty())
        return GISRet(0, 0, 0, 0);
    TGISRet r = FObjetos[0]->Area();
    for (int i = 1; i < FObjetos.Count(); ++i)
        r = Uniao(r, FObjetos[i]->Area());
    return r;
}

} // namespace tavru
