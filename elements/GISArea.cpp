#include <tavru/elements/GISArea.h>

#include <tavru/elements/Deslocamento.h>

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TContextoDeDesenho.h>

#include <QBrush>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace tavru {

namespace {
/// Rascunho de `CobreRetangulo` no contexto do canvas: os pixels da sequência e os mantidos.
struct TPixelsDaCobertura
{
    std::vector<TPoint> Pontos;
    std::vector<TPoint> Mantidos;
};

/// Verdadeiro quando o segmento ab toca o retângulo fechado [l, r] x [t, b]: as caixas se tocam e
/// os quatro cantos não ficam todos do mesmo lado estrito da reta (eixos separadores).
bool SegmentoTocaRetangulo(const TPoint &a, const TPoint &b, std::int64_t l, std::int64_t t, std::int64_t r,
                           std::int64_t d)
{
    if (std::max(a.X, b.X) < l || std::min(a.X, b.X) > r || std::max(a.Y, b.Y) < t || std::min(a.Y, b.Y) > d)
        return false;
    const std::int64_t dx = std::int64_t(b.X) - a.X;
    const std::int64_t dy = std::int64_t(b.Y) - a.Y;
    auto lado = [&](std::int64_t x, std::int64_t y) {
        const std::int64_t v = dx * (y - a.Y) - dy * (x - a.X);
        return (v > 0) - (v < 0);
    };
    const int s1 = lado(l, t), s2 = lado(r, t), s3 = lado(l, d), s4 = lado(r, d);
    return !((s1 > 0 && s2 > 0 && s3 > 0 && s4 > 0) || (s1 < 0 && s2 < 0 && s3 < 0 && s4 < 0));
}

/// O polígono fechado (o último ponto liga ao primeiro, como o QPainter o fecha) tem o retângulo
/// inteiro dentro pela regra par-ímpar: nenhuma aresta toca o retângulo, então a paridade é a
/// mesma em todo ele, e é a de um ponto de meio pixel (que nenhuma aresta de vértices inteiros
/// atravessa na horizontal).
bool PoligonoCobre(const std::vector<TPoint> &p, const TRect &ret)
{
    const std::size_t n = p.size();
    if (n < 3)
        return false;
    constexpr std::int64_t Limite = std::int64_t(1) << 22;
    for (const TPoint &v : p)
        if (std::llabs(v.X) > Limite || std::llabs(v.Y) > Limite)
            return false;
    for (std::size_t i = 0; i < n; ++i)
        if (SegmentoTocaRetangulo(p[i], p[(i + 1) % n], ret.Left, ret.Top, ret.Right, ret.Bottom))
            return false;
    const double px = ret.Left + 0.5;
    const double py = ret.Top + 0.5;
    bool dentro = false;
    for (std::size_t i = 0; i < n; ++i) {
        const TPoint &a = p[i];
        const TPoint &b = p[(i + 1) % n];
        if ((a.Y > py) != (b.Y > py)) {
            const double x = a.X + (py - a.Y) * double(b.X - a.X) / double(b.Y - a.Y);
            if (px < x)
                dentro = !dentro;
        }
    }
    return dentro;
}
} // namespace

const TClasseObjeto TGISArea::Descritor = TClasseObjeto::De<TGISArea>("TGISArea");

bool AtualizarCoresComPincel(const TTabelaDeCores &tabela, std::int32_t indiceCor, TPen &caneta,
                             std::int32_t indicePincel, TBrush &pincel)
{
    const TColor corCaneta = tabela.ObterCor(indiceCor);
    const TColor corPincel = tabela.ObterCor(indicePincel);
    if (caneta.Color == corCaneta && pincel.Color == corPincel)
        return false;
    caneta.Color = corCaneta;
    pincel.Color = corPincel; // o estilo do pincel fica
    return true;
}

TGISArea::TGISArea() = default;

TGISArea::~TGISArea() = default;

void TGISArea::AtribuirCor(TColor cor)
{
    FPincel.Color = cor;
    Mudou();
}

TColor TGISArea::ObterCor() const
{
    return FPincel.Color;
}

void TGISArea::AtualizarCores(const TTabelaDeCores &tabela)
{
    if (AtualizarCoresComPincel(tabela, IndiceCor(), Caneta(), FIndicePincel, FPincel))
        Mudou();
}

bool TGISArea::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const int n = PerguntarNumeroDePontos(QStringLiteral("Área"), QStringLiteral("Entre com o número de Pontos de 3 a 200"), 3);
    if (n == 0)
        return false;
    auto lista = new TGISPosicaoList;
    Pontos().Add(lista);
    lista->Reservar(n + 1);
    const double passo = 2 * 3.14159265358979323846 / n;
    for (int i = 0; i < n; ++i) {
        const TPoint p(Arredondar(std::cos(i * passo) * 20.0 + ponto.X),
                       Arredondar(std::sin(i * passo) * 20.0 + ponto.Y));
        lista->Add(projecao.TelaParaMundo(p));
    }
    lista->Add(lista->First()); // fechada explicitamente
    CalcularLimites();
    return true;
}

void TGISArea::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Assign(FPincel);
        canvas.Pen().Assign(Caneta());
    }
    DesenharSequencias(canvas, projecao, false);
}

bool TGISArea::CobreRetangulo(TCanvas &canvas, const TGISProjecao &projecao, const TRect &retangulo) const
{
    const QBrush pincel = FPincel.ParaQBrush();
    if (pincel.style() != Qt::SolidPattern || !pincel.isOpaque())
        return false;
    // A margem de 2 pixels vale também para a borda suavizada e para o arredondamento da caixa.
    // Pré-teste barato: a caixa da área tem de conter o retângulo.
    const TRect tela = ConcertaRect(retangulo);
    const TRect caixa = ConcertaRect(projecao.MundoParaTelaRet(Area()));
    if (caixa.Left > tela.Left || caixa.Top > tela.Top || caixa.Right < tela.Right || caixa.Bottom < tela.Bottom)
        return false;
    const TRect alvo = Inflar(tela, 2);
    TPixelsDaCobertura &rascunho = canvas.Contexto().Obter<TPixelsDaCobertura>();
    bool cobre = false;
    for (int i = 0; i < Pontos().Count() && !cobre; ++i) {
        if (Pontos().Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, rascunho.Pontos);
        rascunho.Mantidos.clear();
        DesbastarPontos(rascunho.Pontos.data(), static_cast<int>(rascunho.Pontos.size()) - 1, rascunho.Mantidos);
        cobre = PoligonoCobre(rascunho.Mantidos, alvo);
    }
    TContextoDeDesenho::Aliviar(rascunho.Pontos);
    TContextoDeDesenho::Aliviar(rascunho.Mantidos);
    return cobre;
}

bool TGISArea::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    std::vector<TPoint> pontos;
    for (int i = 0; i < Pontos().Count(); ++i) {
        if (Pontos().Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        if (projecao.PertenceAArea(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto))
            return true;
    }
    return false;
}

} // namespace tavru
