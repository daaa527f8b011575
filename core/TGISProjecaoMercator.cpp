#include <tavru/core/TGISProjecaoMercator.h>

#include <tavru/core/ProjecaoLinear_p.h>

#include <algorithm>
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

bool TGISProjecaoMercator::Visivel(const TGISRet &r) const
{
    constexpr double Margem = 2.0;
    const TGISPosicao c = Centro();
    const TRect tela = AreaTela();
    const double x1 = (double(r.Pos1.Longitude) - c.Longitude) * FCoeficiente + FCentroTela.X;
    const double x2 = (double(r.Pos2.Longitude) - c.Longitude) * FCoeficiente + FCentroTela.X;
    const double y1 = FCentroTela.Y - (double(r.Pos1.Latitude) - c.Latitude) * FCoeficiente;
    const double y2 = FCentroTela.Y - (double(r.Pos2.Latitude) - c.Latitude) * FCoeficiente;
    const double esquerda = std::min({double(tela.Left), double(tela.Right)}) - Margem;
    const double direita = std::max({double(tela.Left), double(tela.Right)}) + Margem;
    const double topo = std::min({double(tela.Top), double(tela.Bottom)}) - Margem;
    const double base = std::max({double(tela.Top), double(tela.Bottom)}) + Margem;
    return !(std::max(x1, x2) < esquerda || std::min(x1, x2) > direita || std::max(y1, y2) < topo
             || std::min(y1, y2) > base);
}

} // namespace tavru
