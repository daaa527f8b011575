#include <tavru/elements/GISCorredor.h>

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>
#include <tavru/platform/TCanvas.h>

#include <cmath>
#include <cstdint>

namespace tavru {

const TClasseObjeto TGISCorredor::Descritor = TClasseObjeto::De<TGISCorredor>("TGISCorredor");

namespace {

/// Um segmento de tela deslocado.
struct TSegmento
{
    TPoint A;
    TPoint B;
};

/// O segmento de `a` a `b` deslocado `w` pixels para a esquerda do sentido de percurso (com o y
/// da tela para baixo).
TSegmento Deslocado(const TPoint &a, const TPoint &b, double w)
{
    const double angulo = std::atan2(static_cast<double>(a.Y) - b.Y, static_cast<double>(a.X) - b.X)
        + 3.14159265358979323846 / 2;
    const std::int64_t dx = Arredondar(std::cos(angulo) * w);
    const std::int64_t dy = Arredondar(std::sin(angulo) * w);
    const auto mover = [&](const TPoint &p) { return TPoint(Saturar32(p.X + dx), Saturar32(p.Y + dy)); };
    return TSegmento{mover(a), mover(b)};
}

/// Um lado do contorno, de `a` a `b` (em qualquer sentido; `a` diferente de `b`).
void Lado(const TPoint *p, int a, int b, double w, std::vector<TPoint> &saida)
{
    const int s = a < b ? 1 : -1;
    auto avancar = [&](int i) {
        i += s;
        while (i != b && p[i] == p[i + s])
            i += s;
        return i;
    };
    int i = a;
    TSegmento anterior = Deslocado(p[i], p[i + s], w);
    saida.push_back(anterior.A);
    i = avancar(i);
    while (i != b) {
        const TSegmento atual = Deslocado(p[i], p[i + s], w);
        TPoint encontro;
        if (PontoIntersecao(anterior.A, anterior.B, atual.A, atual.B, encontro)) {
            saida.push_back(encontro);
        } else {
            saida.push_back(anterior.B);
            saida.push_back(atual.A);
        }
        anterior = atual;
        i = avancar(i);
    }
    saida.push_back(anterior.B);
}

} // namespace

TGISCorredor::TGISCorredor() = default;

TGISCorredor::~TGISCorredor() = default;

void TGISCorredor::AtribuirCor(TColor cor)
{
    FPincel.Color = cor;
    Mudou();
}

TColor TGISCorredor::ObterCor() const
{
    return FPincel.Color;
}

void TGISCorredor::AtualizarCores(const TTabelaDeCores &tabela)
{
    if (AtualizarCoresComPincel(tabela, IndiceCor(), Caneta(), FIndicePincel, FPincel))
        Mudou();
}

void TGISCorredor::LargurasNaTela(const TGISProjecao &projecao, double &esquerda, double &direita) const
{
    const TGISPosicao r = projecao.Centro();
    const TPoint s = projecao.MundoParaTela(r);
    esquerda = Distancia(s, projecao.MundoParaTela(ObterPontoArco(r, FEsq, 0.0)));
    direita = Distancia(s, projecao.MundoParaTela(ObterPontoArco(r, FDir, 0.0)));
}

void TGISCorredor::Contorno(const TPoint *pontos, int ultimo, double esquerda, double direita,
                            std::vector<TPoint> &contorno)
{
    contorno.clear();
    contorno.reserve(4 * static_cast<std::size_t>(ultimo));
    Lado(pontos, 0, ultimo, esquerda, contorno);
    Lado(pontos, ultimo, 0, direita, contorno);
}

void TGISCorredor::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Assign(FPincel);
        canvas.Pen().Assign(Caneta());
    }
    double esquerda = 0.0;
    double direita = 0.0;
    LargurasNaTela(projecao, esquerda, direita);
    std::vector<TPoint> pontos;
    std::vector<TPoint> contorno;
    for (int i = 0; i < Pontos().Count(); ++i) {
        const int total = Pontos().Items(i)->Count();
        if (total < 2)
            continue; // uma sequência de um ponto não desenha nada
        AjustarPontos(projecao, i, pontos);
        Contorno(pontos.data(), total - 1, esquerda, direita, contorno);
        DesenharOtimizado(canvas, contorno.data(), static_cast<int>(contorno.size()) - 1, false);
    }
}

} // namespace tavru
