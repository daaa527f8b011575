#include <tavru/elements/GISAreaCircular.h>

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/companions/geodesy/Rumo.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>
#include <tavru/platform/TCanvas.h>

#include <cmath>
#include <vector>

namespace tavru {

namespace {
constexpr double Pi = 3.14159265358979323846;
constexpr double GrausParaRadianos = Pi / 180.0;
constexpr double RadianosParaGraus = 180.0 / Pi;
} // namespace

const TClasseObjeto TGISAreaCircular::Descritor = TClasseObjeto::De<TGISAreaCircular>("TGISAreaCircular");

TGISAreaCircular::TGISAreaCircular()
{
    AtribuirOrientacao(MarinhaToGrau(0.0) * GrausParaRadianos);
}

TGISAreaCircular::~TGISAreaCircular() = default;

void TGISAreaCircular::AtribuirCor(TColor cor)
{
    FPincel.Color = cor;
    Caneta().Color = cor;
    Mudou();
}

TColor TGISAreaCircular::ObterCor() const
{
    return FPincel.Color;
}

void TGISAreaCircular::AtualizarCores(const TTabelaDeCores &tabela)
{
    if (AtualizarCoresComPincel(tabela, IndiceCor(), Caneta(), FIndicePincel, FPincel))
        Mudou();
}

double TGISAreaCircular::Rumo() const
{
    return GrauToMarinha(Orientacao() * RadianosParaGraus);
}

void TGISAreaCircular::ObterPontos(TGISPosicaoList &lista) const
{
    const TGISPosicao centro = Posicao();
    const double rumo = Rumo() * GrausParaRadianos;
    MontarContorno(lista, [&](double a1, double a2, bool externo, TGISPosicao *pontos, int quantidade,
                              bool horario, bool disco) {
        const double soma = disco ? 0.0 : rumo;
        TracaArco(a1 + soma, a2 + soma, centro, externo ? FRaioMaior : FRaioMenor, pontos, quantidade, horario);
    });
}

bool TGISAreaCircular::TChaveContorno::operator==(const TChaveContorno &o) const
{
    if (!(Posicao == o.Posicao))
        return false;
    for (int i = 0; i < 8; ++i)
        if (!(Valores[i] == o.Valores[i]))
            return false;
    return true;
}

TGISAreaCircular::TChaveContorno TGISAreaCircular::ChaveAtual() const
{
    const std::array<double, 2> extras = ParametrosDoContorno();
    return TChaveContorno{Posicao(),
                          {Orientacao(), FRaioMenor, FRaioMaior, FAzimuteInicial, FAzimuteFinal, extras[0], extras[1], 0.0}};
}

const TGISPosicaoList &TGISAreaCircular::Contorno() const
{
    const TChaveContorno chave = ChaveAtual();
    if (!FContornoValido || !(chave == FChaveContorno)) {
        ObterPontos(FContorno);
        FChaveContorno = chave;
        FContornoValido = true;
    }
    return FContorno;
}

void TGISAreaCircular::MontarContorno(TGISPosicaoList &lista, const TTracador &tracar) const
{
    lista.Clear();
    const TGISPosicao centro = Posicao();
    const bool voltaInteira = FAzimuteInicial == FAzimuteFinal;
    // Os quatro arrays A0..A3 ficam seguidos na lista, nesta ordem.
    int n0 = 0, n1 = 0, n2 = 0, n3 = 0;
    if (FRaioMenor <= 0.0) {
        if (voltaInteira)
            n2 = 50;
        else
            n1 = 10, n2 = 30, n3 = 10;
    } else {
        if (voltaInteira)
            n0 = 30, n2 = 20;
        else
            n0 = 18, n1 = 5, n2 = 22, n3 = 5;
    }
    lista.Redimensionar(n0 + n1 + n2 + n3);
    TGISPosicao *a0 = lista.Dados();
    TGISPosicao *a1 = a0 + n0;
    TGISPosicao *a2 = a1 + n1;
    TGISPosicao *a3 = a2 + n2;

    if (FRaioMenor <= 0.0) {
        if (voltaInteira) {
            tracar(0.0, 0.0, true, a2, n2, false, true);
        } else {
            tracar(FAzimuteFinal, FAzimuteInicial, true, a2, n2, false, false);
            TracaLinha(centro, a2[0], a1, n1);
            TracaLinha(a2[n2 - 1], centro, a3, n3);
        }
    } else {
        tracar(FAzimuteInicial, FAzimuteFinal, true, a0, n0, true, false);
        tracar(FAzimuteFinal, FAzimuteInicial, false, a2, n2, false, false);
        if (!voltaInteira) {
            TracaLinha(a0[n0 - 1], a2[0], a1, n1);
            TracaLinha(a2[n2 - 1], a0[0], a3, n3);
        }
    }
}

void TGISAreaCircular::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Assign(FPincel);
        canvas.Pen().Assign(Caneta());
    }
    const TGISPosicaoList &contorno = Contorno();
    if (contorno.IsEmpty())
        return;
    std::vector<TPoint> pontos;
    projecao.MundoParaTelaPontos(contorno, pontos);
    pontos.push_back(pontos.front()); // desenhado fechado de novo
    canvas.Polygon(pontos.data(), static_cast<int>(pontos.size()));
}

bool TGISAreaCircular::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    const TGISPosicaoList &contorno = Contorno();
    if (contorno.IsEmpty())
        return false;
    std::vector<TPoint> pontos;
    projecao.MundoParaTelaPontos(contorno, pontos);
    return projecao.PertenceAArea(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto);
}

TGISRet TGISAreaCircular::Area() const
{
    const TGISPosicaoList &contorno = Contorno();
    if (contorno.IsEmpty())
        return GISRet(0, 0, 0, 0);
    TGISRet r{contorno.First(), contorno.First()};
    for (const TGISPosicao &p : contorno)
        r = Uniao(TGISRet{p, p}, r);
    return r;
}

bool TGISAreaCircular::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    AtribuirPosicao(projecao.TelaParaMundo(ponto));
    FRaioMenor = Distancia(Posicao(), projecao.TelaParaMundo(TPoint(ponto.X + 10, ponto.Y))) / 35.0;
    FRaioMaior = Distancia(Posicao(), projecao.TelaParaMundo(TPoint(ponto.X + 20, ponto.Y))) / 35.0;
    FAzimuteInicial = 0.0;
    FAzimuteFinal = 2.0 * Pi;
    return true;
}

} // namespace tavru
