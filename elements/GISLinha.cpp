#include <tavru/elements/GISLinha.h>

#include <tavru/elements/Deslocamento.h>

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace tavru {

const TClasseObjeto TGISLinha::Descritor = TClasseObjeto::De<TGISLinha>("TGISLinha");

namespace {

/// Os pixels de uma sequência, no contexto do canvas em que ela é desenhada.
struct TPixelsDaSequencia
{
    std::vector<TPoint> Pontos;
};

/// Os pixels que `DesenharOtimizado` mantém, no contexto do canvas.
struct TPixelsMantidos
{
    std::vector<TPoint> Pontos;
};

/// Posições absolutas convertidas por bloco, na pilha: nenhum rascunho fora de quem chama.
constexpr int TamanhoDoBloco = 256;

} // namespace

TGISLinha::TGISLinha() = default;

TGISLinha::~TGISLinha() = default;

void TGISLinha::AtribuirPosicao(const TGISPosicao &p)
{
    const TAlteracao alteracao(*this);
    TGISObjeto::AtribuirPosicao(p);
    CalcularLimites();
}

void TGISLinha::AtribuirCor(TColor cor)
{
    Caneta().Color = cor;
    Mudou();
}

TColor TGISLinha::ObterCor() const
{
    return Caneta().Color;
}

TGISPosicao TGISLinha::ObterPonto(int lista, int indice) const
{
    const TGISPosicao d = FPontos.Items(lista)->ObterPosicao(indice);
    const double o = Orientacao();
    return PosicaoAbsoluta(d, Posicao(), o);
}

void TGISLinha::AtribuirPonto(int lista, int indice, const TGISPosicao &posicao)
{
    FPontos.Items(lista)->AtribuirPosicao(indice, Deslocamento(posicao, Posicao(), Orientacao()));
    Mudou();
}

void TGISLinha::InserirPonto(int lista, int indice, const TGISPosicao &posicao)
{
    FPontos.Items(lista)->Insert(indice, Deslocamento(posicao, Posicao(), Orientacao()));
    Mudou();
}

void TGISLinha::CalcularLimites()
{
    TGISRet inicio = GISRet(0, 0, 0, 0);
    if (FPontos.Count() > 0 && FPontos.Items(0)->Count() > 0) {
        const TGISPosicao p0 = ObterPonto(0, 0);
        inicio = TGISRet{p0, p0};
    }
    // A união sucessiva com o retângulo degenerado de cada ponto é a união do início com a caixa
    // de todos os pontos.
    const TGISPosicao p = Posicao();
    const double o = Orientacao();
    const double c = std::cos(o);
    const double s = std::sin(o);
    const bool semGiro = o == 0.0;
    bool algum = false;
    TGISRet caixa;
    for (int i = 0; i < FPontos.Count(); ++i) {
        for (const TGISPosicao &d : *FPontos.Items(i)) {
            const TGISPosicao a = PosicaoAbsoluta(d, p, c, s, semGiro);
            if (!algum) {
                caixa = TGISRet{a, a};
                algum = true;
                continue;
            }
            caixa.Pos1.Latitude = std::min(caixa.Pos1.Latitude, a.Latitude);
            caixa.Pos1.Longitude = std::min(caixa.Pos1.Longitude, a.Longitude);
            caixa.Pos2.Latitude = std::max(caixa.Pos2.Latitude, a.Latitude);
            caixa.Pos2.Longitude = std::max(caixa.Pos2.Longitude, a.Longitude);
        }
    }
    FLimites = algum ? Uniao(inicio, caixa) : inicio;
    Mudou();
}

void TGISLinha::AjustarPontos(const TGISProjecao &projecao, int lista, TPoint *pontos, int ultimo) const
{
    const TGISPosicaoList &origem = *FPontos.Items(lista);
    const int total = std::min(ultimo + 1, origem.Count());
    if (total <= 0)
        return;
    const TGISPosicao p = Posicao();
    const double o = Orientacao();
    const double c = std::cos(o);
    const double s = std::sin(o);
    const bool semGiro = o == 0.0;
    const TGISPosicao *d = origem.Dados();
    TGISPosicao bloco[TamanhoDoBloco];
    for (int inicio = 0; inicio < total; inicio += TamanhoDoBloco) {
        const int n = std::min(TamanhoDoBloco, total - inicio);
        for (int i = 0; i < n; ++i)
            bloco[i] = PosicaoAbsoluta(d[inicio + i], p, c, s, semGiro);
        projecao.MundoParaTelaPontos(bloco, n, pontos + inicio);
    }
}

void TGISLinha::AjustarPontos(const TGISProjecao &projecao, int lista, std::vector<TPoint> &pontos) const
{
    const int total = FPontos.Items(lista)->Count();
    pontos.resize(static_cast<std::size_t>(total));
    AjustarPontos(projecao, lista, pontos.data(), total - 1);
}

void TGISLinha::DesenharSequencias(TCanvas &canvas, const TGISProjecao &projecao, bool aberto) const
{
    std::vector<TPoint> &pontos = canvas.Contexto().Obter<TPixelsDaSequencia>().Pontos;
    for (int i = 0; i < FPontos.Count(); ++i) {
        if (FPontos.Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        DesenharOtimizado(canvas, pontos.data(), static_cast<int>(pontos.size()) - 1, aberto);
    }
    TContextoDeDesenho::Aliviar(pontos);
}

void TGISLinha::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    if (!selecionado) {
        canvas.Brush().Style = bsClear;
        canvas.Pen().Assign(Caneta());
    }
    DesenharSequencias(canvas, projecao, true);
}

bool TGISLinha::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    std::vector<TPoint> pontos;
    for (int i = 0; i < FPontos.Count(); ++i) {
        if (FPontos.Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        if (projecao.PertenceALinha(pontos.data(), static_cast<int>(pontos.size()) - 1, ponto))
            return true;
    }
    return false;
}

TGISRet TGISLinha::Area() const
{
    return FLimites;
}

bool TGISLinha::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const int n = PerguntarNumeroDePontos(QStringLiteral("Linha"), QStringLiteral("Entre com o número de Pontos de 2 a 200"), 2);
    if (n == 0)
        return false;
    FPontos.Add(new TGISPosicaoList);
    // Os pontos vão para a sequência 0 como vieram (absolutos): posição e orientação ainda são
    // zero num objeto que está sendo incluído.
    TGISPosicaoList &lista = *FPontos.Items(0);
    lista.Reservar(lista.Count() + n);
    for (int i = 0; i < n; ++i)
        lista.Add(projecao.TelaParaMundo(PontoDaSenoidePadrao(i, n, ponto)));
    CalcularLimites();
    return true;
}

void TGISLinha::AjustarAoRetangulo(const TGISRet &retangulo)
{
    const long long vaoLat = static_cast<long long>(retangulo.Pos2.Latitude) - retangulo.Pos1.Latitude;
    const long long vaoLon = static_cast<long long>(retangulo.Pos2.Longitude) - retangulo.Pos1.Longitude;
    if (vaoLat <= 0 || vaoLon <= 0)
        return;
    const TGISPosicao c1 = Centro(FLimites);
    const TGISPosicao c2 = Centro(retangulo);
    const double sLat = static_cast<double>(static_cast<long long>(FLimites.Pos2.Latitude) - FLimites.Pos1.Latitude)
        / static_cast<double>(vaoLat);
    const double sLon =
        static_cast<double>(static_cast<long long>(FLimites.Pos2.Longitude) - FLimites.Pos1.Longitude)
        / static_cast<double>(vaoLon);
    if (sLat == 0.0 || sLon == 0.0)
        throw EZeroDivide(QStringLiteral("Divisão por zero: os limites da linha têm um vão nulo"));
    Mudou();
    for (int i = 0; i < FPontos.Count(); ++i) {
        TGISPosicaoList &lista = *FPontos.Items(i);
        TGISPosicao *p = lista.Dados();
        for (int j = 0; j < lista.Count(); ++j)
            p[j] = GISPosicao(Arredondar((double(p[j].Latitude) - c1.Latitude) / sLat + c2.Latitude),
                              Arredondar((double(p[j].Longitude) - c1.Longitude) / sLon + c2.Longitude));
    }
}

void TGISLinha::AjustarCentro()
{
    if (FLimites.Pos2.Latitude - static_cast<long long>(FLimites.Pos1.Latitude) <= 0
        || FLimites.Pos2.Longitude - static_cast<long long>(FLimites.Pos1.Longitude) <= 0)
        return;
    const TAlteracao alteracao(*this);
    const TGISPosicao c = Centro(FLimites);
    // Cada deslocamento passa a ser contado do centro: d + (P - C), sem giro.
    const TGISPosicao p = Posicao();
    const TGISPosicao pc = Deslocamento(p, c, 0.0);
    for (int i = 0; i < FPontos.Count(); ++i) {
        TGISPosicaoList &lista = *FPontos.Items(i);
        TGISPosicao *d = lista.Dados();
        for (int j = 0; j < lista.Count(); ++j)
            d[j] = PosicaoAbsoluta(d[j], pc, 1.0, 0.0, true);
    }
    AtribuirPosicao(c);
}

void TGISLinha::Compactar()
{
    for (int i = 0; i < FPontos.Count(); ++i) {
        const TGISPosicaoList &lista = *FPontos.Items(i);
        auto nova = std::make_unique<TGISPosicaoList>();
        nova->Reservar(lista.Count());
        for (const TGISPosicao &p : lista)
            nova->Add(p);
        FPontos.AtribuirGISPosicaoList(i, nova.release());
    }
}

void DesbastarPontos(const TPoint *pontos, int ultimo, std::vector<TPoint> &mantidos)
{
    if (ultimo < 0)
        return;
    TPoint anterior = pontos[0];
    mantidos.push_back(anterior);
    for (int i = 1; i <= ultimo; ++i) {
        const TPoint &p = pontos[i];
        // Em 64 bits: longe da tela, a projeção dá pixels na ponta da faixa de 32.
        if (std::llabs(std::int64_t(p.X) - anterior.X) < 2 && std::llabs(std::int64_t(p.Y) - anterior.Y) < 2)
            continue;
        mantidos.push_back(p);
        anterior = p;
    }
}

void DesenharOtimizado(TCanvas &canvas, const TPoint *pontos, int ultimo, bool aberto)
{
    if (ultimo < 0)
        return;
    std::vector<TPoint> &mantidos = canvas.Contexto().Obter<TPixelsMantidos>().Pontos;
    mantidos.clear();
    mantidos.reserve(static_cast<std::size_t>(ultimo) + 1);
    DesbastarPontos(pontos, ultimo, mantidos);
    const int total = static_cast<int>(mantidos.size());
    if (aberto)
        canvas.Polyline(mantidos.data(), total);
    else
        canvas.Polygon(mantidos.data(), total);
    TContextoDeDesenho::Aliviar(mantidos);
}

TLimite Limite(double a, double b)
{
    return TLimite{a, b};
}

} // namespace tavru
