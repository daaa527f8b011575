#include "core/TGISProjecaoMercator.h"

#include "core/ProjecaoLinear_p.h"

#include <typeinfo>

namespace tavru {

TGISProjecaoMercator::TGISProjecaoMercator()
{
    CalcularCoef();
}

void TGISProjecaoMercator::CalcularCoef()
{
    linear::CalcularCoef(AreaTela(), AreaMundo(), Zoom(), FCoeficiente, FCentroTela);
}

void TGISProjecaoMercator::DoAtribuirZoom(double zoom)
{
    TGISProjecao::DoAtribuirZoom(zoom);
    CalcularCoef();
}

void TGISProjecaoMercator::DoAtribuirAreaTela(const TRect &r)
{
    TGISProjecao::DoAtribuirAreaTela(r);
    CalcularCoef();
}

void TGISProjecaoMercator::DoAtribuirAreaMundo(const TGISRet &r)
{
    TGISProjecao::DoAtribuirAreaMundo(r);
    CalcularCoef();
}

std::unique_ptr<TGISProjecao> TGISProjecaoMercator::Criar() const
{
    return std::make_unique<TGISProjecaoMercator>();
}

void TGISProjecaoMercator::Copiar(const TGISProjecao &origem)
{
    TGISProjecao::Copiar(origem);
    CalcularCoef();
}

void TGISProjecaoMercator::FitToRect(const TGISRet &r)
{
    AjustarAoRetangulo(r);
}

TPoint TGISProjecaoMercator::MundoParaTela(const TGISPosicao &p) const
{
    return linear::MundoParaTela(p, {FCoeficiente, FCentroTela, Centro()});
}

TGISPosicao TGISProjecaoMercator::TelaParaMundo(const TPoint &p) const
{
    linear::VerificarCoef(FCoeficiente);
    return linear::TelaParaMundo(p, {FCoeficiente, FCentroTela, Centro()});
}

bool TGISProjecaoMercator::CaminhoRapido() const
{
    return typeid(*this) == typeid(TGISProjecaoMercator);
}

void TGISProjecaoMercator::DoMundoParaTelaPontos(const TGISPosicao *origem, TPoint *destino, int total) const
{
    if (!CaminhoRapido()) {
        TGISProjecao::DoMundoParaTelaPontos(origem, destino, total);
        return;
    }
    const linear::TParametros k{FCoeficiente, FCentroTela, Centro()};
    for (int i = 0; i < total; ++i)
        destino[i] = linear::MundoParaTela(origem[i], k);
}

void TGISProjecaoMercator::DoTelaParaMundoPontos(const TPoint *origem, TGISPosicao *destino, int total) const
{
    if (!CaminhoRapido()) {
        TGISProjecao::DoTelaParaMundoPontos(origem, destino, total);
        return;
    }
    if (total > 0)
        linear::VerificarCoef(FCoeficiente);
    const linear::TParametros k{FCoeficiente, FCentroTela, Centro()};
    for (int i = 0; i < total; ++i)
        destino[i] = linear::TelaParaMundo(origem[i], k);
}

} // namespace tavru
