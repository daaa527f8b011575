#include "elements/GISLinha.h"

#include "core/Arredondar.h"
#include "core/TGISProjecao.h"
#include "platform/Exception.h"
#include "platform/TCanvas.h"
#include "platform/TProvedorDeDialogos.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tavru {

const TClasseObjeto TGISLinha::Descritor = TClasseObjeto::De<TGISLinha>("TGISLinha");

namespace {

constexpr double Pi = 3.14159265358979323846;

/// O valor de 64 bits levado à faixa de 32 (posições fora do mundo não estouram).
std::int32_t Limitar32(long long v)
{
    return static_cast<std::int32_t>(std::clamp<long long>(v, INT32_MIN, INT32_MAX));
}

/// Posições absolutas de uma sequência, reaproveitadas entre desenhos (só a linha da interface).
TGISPosicaoList &Rascunho()
{
    static TGISPosicaoList rascunho;
    return rascunho;
}

} // namespace

TGISLinha::TGISLinha() = default;

TGISLinha::~TGISLinha() = default;

TGISPosicao TGISLinha::Absoluto(const TGISPosicao &d, const TGISPosicao &p, double cosO, double senO, bool semGiro)
{
    if (semGiro)
        return GISPosicao(Limitar32(static_cast<long long>(p.Latitude) + d.Latitude),
                          Limitar32(static_cast<long long>(p.Longitude) + d.Longitude));
    // r cos(o + t) e r sen(o + t) com r e t do deslocamento, pela fórmula da soma de ângulos.
    const double lat = d.Latitude;
    const double lon = d.Longitude;
    return GISPosicao(Arredondar(p.Latitude + lat * cosO + lon * senO),
                      Arredondar(p.Longitude + lon * cosO - lat * senO));
}

TGISPosicao TGISLinha::Deslocamento(const TGISPosicao &a) const
{
    const TGISPosicao p = Posicao();
    const long long dlat = static_cast<long long>(a.Latitude) - p.Latitude;
    const long long dlon = static_cast<long long>(a.Longitude) - p.Longitude;
    const double o = Orientacao();
    if (o == 0.0)
        return GISPosicao(Limitar32(dlat), Limitar32(dlon));
    // r cos(t - o) e r sen(t - o).
    const double c = std::cos(o);
    const double s = std::sin(o);
    return GISPosicao(Arredondar(dlat * c - dlon * s), Arredondar(dlon * c + dlat * s));
}

void TGISLinha::AtribuirPosicao(const TGISPosicao &p)
{
    TGISObjeto::AtribuirPosicao(p);
    CalcularLimites();
}

void TGISLinha::AtribuirCor(TColor cor)
{
    Caneta().Color = cor;
}

TColor TGISLinha::ObterCor() const
{
    return Caneta().Color;
}

TGISPosicao TGISLinha::ObterPonto(int lista, int indice) const
{
    const TGISPosicao d = FPontos.Items(lista)->ObterPosicao(indice);
    const double o = Orientacao();
    return Absoluto(d, Posicao(), std::cos(o), std::sin(o), o == 0.0);
}

void TGISLinha::AtribuirPonto(int lista, int indice, const TGISPosicao &posicao)
{
    FPontos.Items(lista)->AtribuirPosicao(indice, Deslocamento(posicao));
}

void TGISLinha::InserirPonto(int lista, int indice, const TGISPosicao &posicao)
{
    FPontos.Items(lista)->Insert(indice, Deslocamento(posicao));
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
            const TGISPosicao a = Absoluto(d, p, c, s, semGiro);
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
}

void TGISLinha::AjustarPontos(const TGISProjecao &projecao, int lista, TPoint *pontos, int ultimo) const
{
    const TGISPosicaoList &origem = *FPontos.Items(lista);
    const int total = std::min(ultimo + 1, origem.Count());
    if (total <= 0)
        return;
    TGISPosicaoList &absolutas = Rascunho();
    absolutas.Redimensionar(total);
    const TGISPosicao p = Posicao();
    const double o = Orientacao();
    const double c = std::cos(o);
    const double s = std::sin(o);
    const bool semGiro = o == 0.0;
    const TGISPosicao *d = origem.Dados();
    TGISPosicao *a = absolutas.Dados();
    for (int i = 0; i < total; ++i)
        a[i] = Absoluto(d[i], p, c, s, semGiro);
    projecao.MundoParaTelaPontos(absolutas, pontos);
}

void TGISLinha::AjustarPontos(const TGISProjecao &projecao, int lista, std::vector<TPoint> &pontos) const
{
    const int total = FPontos.Items(lista)->Count();
    pontos.resize(static_cast<std::size_t>(total));
    AjustarPontos(projecao, lista, pontos.data(), total - 1);
}

void TGISLinha::DesenharSequencias(TCanvas &canvas, const TGISProjecao &projecao, bool aberto) const
{
    static std::vector<TPoint> pontos;
    for (int i = 0; i < FPontos.Count(); ++i) {
        if (FPontos.Items(i)->Count() == 0)
            continue;
        AjustarPontos(projecao, i, pontos);
        DesenharOtimizado(canvas, pontos.data(), static_cast<int>(pontos.size()) - 1, aberto);
    }
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

int TGISLinha::PerguntarPontos(const QString &titulo, const QString &pergunta, int minimo)
{
    const QString padrao = QString::number(minimo);
    for (;;) {
        const QString resposta = Dialogos().InputBox(titulo, pergunta, padrao);
        bool ok = false;
        int n = resposta.trimmed().toInt(&ok);
        if (!ok)
            n = -1;
        if (n == 0)
            return 0;
        if (n >= minimo && n <= 200)
            return n;
    }
}

bool TGISLinha::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const int n = PerguntarPontos(QStringLiteral("Linha"), QStringLiteral("Entre com o número de Pontos de 2 a 200"), 2);
    if (n == 0)
        return false;
    FPontos.Add(new TGISPosicaoList);
    // Os pontos vão para a sequência 0 como vieram (absolutos): posição e orientação ainda são
    // zero num objeto que está sendo incluído.
    TGISPosicaoList &lista = *FPontos.Items(0);
    lista.Reservar(lista.Count() + n);
    const double passo = 2 * Pi / (n / 3.0);
    for (int i = 0; i < n; ++i) {
        const TPoint p((i - n / 2) * 10 + ponto.X, Arredondar(std::sin(i * passo) * 20.0 + ponto.Y));
        lista.Add(projecao.TelaParaMundo(p));
    }
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
    for (int i = 0; i < FPontos.Count(); ++i) {
        TGISPosicaoList &lista = *FPontos.Items(i);
        TGISPosicao *p = lista.Dados();
        for (int j = 0; j < lista.Count(); ++j)
            p[j] = GISPosicao(Arredondar((p[j].Latitude - c1.Latitude) / sLat + c2.Latitude),
                              Arredondar((p[j].Longitude - c1.Longitude) / sLon + c2.Longitude));
    }
}

void TGISLinha::AjustarCentro()
{
    if (FLimites.Pos2.Latitude - static_cast<long long>(FLimites.Pos1.Latitude) <= 0
        || FLimites.Pos2.Longitude - static_cast<long long>(FLimites.Pos1.Longitude) <= 0)
        return;
    const TGISPosicao c = Centro(FLimites);
    const TGISPosicao p = Posicao();
    for (int i = 0; i < FPontos.Count(); ++i) {
        TGISPosicaoList &lista = *FPontos.Items(i);
        TGISPosicao *d = lista.Dados();
        for (int j = 0; j < lista.Count(); ++j)
            d[j] = GISPosicao(Limitar32(static_cast<long long>(d[j].Latitude) + p.Latitude - c.Latitude),
                              Limitar32(static_cast<long long>(d[j].Longitude) + p.Longitude - c.Longitude));
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

void DesenharOtimizado(TCanvas &canvas, const TPoint *pontos, int ultimo, bool aberto)
{
    if (ultimo < 0)
        return;
    static std::vector<TPoint> mantidos;
    mantidos.clear();
    mantidos.reserve(static_cast<std::size_t>(ultimo) + 1);
    TPoint anterior = pontos[0];
    mantidos.push_back(anterior);
    for (int i = 1; i <= ultimo; ++i) {
        const TPoint &p = pontos[i];
        if (std::abs(p.X - anterior.X) < 2 && std::abs(p.Y - anterior.Y) < 2)
            continue;
        mantidos.push_back(p);
        anterior = p;
    }
    const int total = static_cast<int>(mantidos.size());
    if (aberto)
        canvas.Polyline(mantidos.data(), total);
    else
        canvas.Polygon(mantidos.data(), total);
}

TLimite Limite(double a, double b)
{
    return TLimite{a, b};
}

} // namespace tavru
