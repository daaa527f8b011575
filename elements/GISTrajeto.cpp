#include <tavru/elements/GISTrajeto.h>

#include <tavru/elements/Deslocamento.h>

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <cmath>
#include <memory>

namespace tavru {

const TClasseObjeto TGISTrajeto::Descritor = TClasseObjeto::De<TGISTrajeto>("TGISTrajeto");

TGISTrajeto::TGISTrajeto() = default;

TGISTrajeto::~TGISTrajeto() = default;

void TGISTrajeto::AtribuirPosicao(const TGISPosicao &p)
{
    const TAlteracao alteracao(*this);
    TGISObjeto::AtribuirPosicao(p);
    CalcularLimites();
}

void TGISTrajeto::AtribuirCor(TColor cor)
{
    Caneta().Color = cor;
    Mudou();
}

TColor TGISTrajeto::ObterCor() const
{
    return Caneta().Color;
}

TGISPontoTrajeto *TGISTrajeto::ObterPonto(int indice) const
{
    return FPontos.ObterPonto(indice);
}

TGISPosicao TGISTrajeto::ObterGISPosicao(int indice) const
{
    return PosicaoAbsoluta(FPontos.ObterPonto(indice)->Posicao(), Posicao(), Orientacao());
}

void TGISTrajeto::AtribuirGISPosicao(int indice, const TGISPosicao &posicao)
{
    TGISPontoTrajeto *ponto = FPontos.ObterPonto(indice);
    if (!ponto->Fixo()) {
        ponto->AtribuirPosicao(Deslocamento(posicao, Posicao(), Orientacao()));
        Mudou();
    }
}

bool TGISTrajeto::AtribuirPonto(int indice, TGISPontoTrajeto *ponto)
{
    if (!ponto || FPontos.ObterPonto(indice)->Fixo())
        return false;
    FPontos.AtribuirPonto(indice, ponto);
    Mudou();
    return true;
}

void TGISTrajeto::InserirPosicao(int indice, const TGISPosicao &posicao)
{
    const TAlteracao alteracao(*this);
    auto ponto = std::make_unique<TGISPontoTrajeto>();
    FPontos.Insert(indice, ponto.get());
    ponto.release();
    Mudou();
    AtribuirGISPosicao(indice, posicao);
}

template <typename F>
void TGISTrajeto::ParaCadaAbsoluta(int ultimo, F f) const
{
    // O seno e o cosseno da orientação uma vez só, não um par por vértice.
    const TGISPosicao p = Posicao();
    const double o = Orientacao();
    const double c = std::cos(o);
    const double s = std::sin(o);
    for (int i = 0; i <= ultimo; ++i)
        f(i, PosicaoAbsoluta(FPontos.ObterPonto(i)->Posicao(), p, c, s, o == 0.0));
}

void TGISTrajeto::CalcularLimites()
{
    FLimites = GISRet(0, 0, 0, 0);
    ParaCadaAbsoluta(FPontos.Count() - 1, [this](int i, const TGISPosicao &a) {
        FLimites = i == 0 ? TGISRet{a, a} : Uniao(TGISRet{a, a}, FLimites);
    });
    Mudou();
}

void TGISTrajeto::AjustarPontos(const TGISProjecao &projecao, TPoint *pontos, int ultimo) const
{
    ParaCadaAbsoluta(ultimo, [&](int i, const TGISPosicao &a) { pontos[i] = projecao.MundoParaTela(a); });
}

void TGISTrajeto::AjustarPontos(const TGISProjecao &projecao, std::vector<TPoint> &pontos) const
{
    pontos.resize(static_cast<size_t>(FPontos.Count()));
    AjustarPontos(projecao, pontos.data(), FPontos.Count() - 1);
}

void TGISTrajeto::AjustarAoRetangulo(const TGISRet &retangulo)
{
    const double vaoLat = double(retangulo.Pos2.Latitude) - retangulo.Pos1.Latitude;
    const double vaoLon = double(retangulo.Pos2.Longitude) - retangulo.Pos1.Longitude;
    if (vaoLat <= 0 || vaoLon <= 0)
        return;
    const TGISPosicao c1 = Centro(FLimites);
    const TGISPosicao c2 = Centro(retangulo);
    const double sLat = (double(FLimites.Pos2.Latitude) - FLimites.Pos1.Latitude) / vaoLat;
    const TAlteracao alteracao(*this);
    const double sLon = (double(FLimites.Pos2.Longitude) - FLimites.Pos1.Longitude) / vaoLon;
    Mudou();
    for (TGISPontoTrajeto *ponto : FPontos) {
        if (ponto->Fixo())
            continue;
        if (sLat == 0.0 || sLon == 0.0)
            throw EZeroDivide(QStringLiteral("Divisão por zero: os limites da trajetória têm um vão nulo"));
        const TGISPosicao d = ponto->Posicao();
        ponto->AtribuirPosicao(GISPosicao(Arredondar((d.Latitude - double(c1.Latitude)) / sLat + c2.Latitude),
                                          Arredondar((d.Longitude - double(c1.Longitude)) / sLon + c2.Longitude)));
    }
}

void TGISTrajeto::AjustarCentro()
{
    if (double(FLimites.Pos2.Latitude) - FLimites.Pos1.Latitude <= 0
        || double(FLimites.Pos2.Longitude) - FLimites.Pos1.Longitude <= 0)
        return;
    const TAlteracao alteracao(*this);
    const TGISPosicao c = Centro(FLimites);
    const TGISPosicao p = Posicao();
    Mudou();
    for (TGISPontoTrajeto *ponto : FPontos) {
        const TGISPosicao d = ponto->Posicao();
        ponto->AtribuirPosicao(GISPosicao(Arredondar(double(d.Latitude) + p.Latitude - c.Latitude),
                                          Arredondar(double(d.Longitude) + p.Longitude - c.Longitude)));
    }
    AtribuirPosicao(c);
}

void TGISTrajeto::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Style = bsClear;
        canvas.Pen().Assign(Caneta());
    }
    if (FPontos.IsEmpty())
        return;
    std::vector<TPoint> pontos;
    AjustarPontos(projecao, pontos);
    const int ultimo = static_cast<int>(pontos.size()) - 1;
    DesenharOtimizado(canvas, pontos.data(), ultimo, true);
    const unsigned alinhamento = canvas.SetTextAlign(TA_LEFT | TA_TOP);
    for (int i = 0; i <= ultimo; ++i) {
        const TGISPontoTrajeto *ponto = FPontos.ObterPonto(i);
        if (!ponto->Fixo() || ponto->Rotulo().isEmpty())
            continue;
        canvas.Brush().Style = bsClear;
        const int largura = canvas.TextWidth(ponto->Rotulo());
        canvas.TextOut(pontos[i].X - largura / 2, pontos[i].Y, ponto->Rotulo());
    }
    canvas.SetTextAlign(alinhamento);
}

bool TGISTrajeto::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    if (FPontos.IsEmpty())
        return false;
    std::vector<TPoint> pontos;
    AjustarPontos(projecao, pontos);
    return projecao.PertenceALinha(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto);
}

TGISRet TGISTrajeto::Area() const
{
    return FLimites;
}

bool TGISTrajeto::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const int n = PerguntarNumeroDePontos(QStringLiteral("Linha"), QStringLiteral("Entre com o número de Pontos de 2 a 200"), 2);
    if (n == 0)
        return false;
    FPontos.Clear();
    for (int i = 0; i < n; ++i)
        InserirPosicao(i, projecao.TelaParaMundo(PontoDaSenoidePadrao(i, n, ponto)));
    CalcularLimites();
    return true;
}

} // namespace tavru
