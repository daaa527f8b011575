#include <tavru/core/TGISProjecao.h>

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/platform/Exception.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace tavru {

namespace {
// Diferença inteira absoluta sem transbordar, como número de ponto flutuante.
double DiferencaAbsoluta(std::int64_t a, std::int64_t b)
{
    return static_cast<double>(std::llabs(a - b));
}

double Dividir(double a, double b)
{
    if (b == 0.0)
        throw EZeroDivide(QStringLiteral("Divisão por zero: a área da tela não tem largura ou altura"));
    return a / b;
}

// Paridade de cruzamentos de um anel (aberto ou fechado) contra o segmento referencia-p.
template <typename P, typename F>
bool Paridade(int total, F ponto, const P &referencia, const P &p)
{
    bool dentro = false;
    for (int i = 1; i < total; ++i)
        if (Intercepta(ponto(i - 1), ponto(i), referencia, p))
            dentro = !dentro;
    if (total > 0 && ponto(0) != ponto(total - 1) && Intercepta(ponto(total - 1), ponto(0), referencia, p))
        dentro = !dentro;
    return dentro;
}
} // namespace

TGISProjecao::~TGISProjecao() = default;

void TGISProjecao::DoAtribuirZoom(double zoom)
{
    FZoom = zoom;
    if (FZoom > ZoomMaximo)
        FZoom = ZoomMaximo;
    if (!(FZoom >= ZoomMinimo))
        FZoom = ZoomMinimo;
}

void TGISProjecao::DoAtribuirAreaTela(const TRect &r)
{
    FAreaTela = r;
}

void TGISProjecao::DoAtribuirAreaMundo(const TGISRet &r)
{
    FAreaMundo = r;
}

void TGISProjecao::Copiar(const TGISProjecao &origem)
{
    FErroMundoLinha = origem.FErroMundoLinha;
    FErroMundoPonto = origem.FErroMundoPonto;
    FErroTelaLinha = origem.FErroTelaLinha;
    FErroTelaPonto = origem.FErroTelaPonto;
    FAreaTela = origem.FAreaTela;
    FAreaMundo = origem.FAreaMundo;
    FZoom = origem.FZoom;
}

std::unique_ptr<TGISProjecao> TGISProjecao::Duplicar() const
{
    std::unique_ptr<TGISProjecao> copia = Criar();
    copia->Copiar(*this);
    copia->AtribuirCentro(FCentro);
    return copia;
}

bool TGISProjecao::Visivel(const TGISRet &) const
{
    return true;
}

TPoint TGISProjecao::ObterCentroTela() const
{
    return tavru::Centro(FAreaTela);
}

TRect TGISProjecao::MundoParaTelaRet(const TGISRet &r) const
{
    return TRect(MundoParaTela(r.Pos1), MundoParaTela(r.Pos2));
}

TGISRet TGISProjecao::TelaParaMundoRet(const TRect &r) const
{
    return ConcertaRect(TGISRet{TelaParaMundo(r.TopLeft()), TelaParaMundo(r.BottomRight())});
}

void TGISProjecao::MundoParaTelaPontos(const TGISPosicaoList &lista, TPoint *pontos) const
{
    DoMundoParaTelaPontos(lista.Dados(), pontos, lista.Count());
}

void TGISProjecao::MundoParaTelaPontos(const TGISPosicaoList &lista, std::vector<TPoint> &pontos) const
{
    pontos.resize(static_cast<size_t>(lista.Count()));
    DoMundoParaTelaPontos(lista.Dados(), pontos.data(), lista.Count());
}

void TGISProjecao::MundoParaTelaPontos(const TGISPosicao *posicoes, int total, TPoint *pontos) const
{
    DoMundoParaTelaPontos(posicoes, pontos, total);
}

void TGISProjecao::TelaParaMundoPontos(const TPoint *pontos, int total, TGISPosicaoList &lista) const
{
    lista.Clear();
    lista.Redimensionar(total);
    try {
        DoTelaParaMundoPontos(pontos, lista.Dados(), lista.Count());
    } catch (...) {
        lista.Clear();
        throw;
    }
}

void TGISProjecao::TelaParaMundoPontos(const std::vector<TPoint> &pontos, TGISPosicaoList &lista) const
{
    TelaParaMundoPontos(pontos.data(), static_cast<int>(pontos.size()), lista);
}

void TGISProjecao::DoMundoParaTelaPontos(const TGISPosicao *origem, TPoint *destino, int total) const
{
    for (int i = 0; i < total; ++i)
        destino[i] = MundoParaTela(origem[i]);
}

void TGISProjecao::DoTelaParaMundoPontos(const TPoint *origem, TGISPosicao *destino, int total) const
{
    for (int i = 0; i < total; ++i)
        destino[i] = TelaParaMundo(origem[i]);
}

double TGISProjecao::ProporcaoMundoTelaHorizontal() const
{
    return Dividir(static_cast<double>(std::int64_t(FAreaMundo.Pos2.Longitude) - FAreaMundo.Pos1.Longitude),
                   static_cast<double>(std::int64_t(FAreaTela.Right) - FAreaTela.Left));
}

double TGISProjecao::ProporcaoMundoTelaVertical() const
{
    return Dividir(static_cast<double>(std::int64_t(FAreaMundo.Pos2.Latitude) - FAreaMundo.Pos1.Latitude),
                   static_cast<double>(std::int64_t(FAreaTela.Bottom) - FAreaTela.Top));
}

double TGISProjecao::ProporcaoMundoTela() const
{
    const double h = ProporcaoMundoTelaHorizontal();
    const double v = ProporcaoMundoTelaVertical();
    return h < v ? h : v;
}

bool TGISProjecao::PertenceALinha(const TGISPosicaoList &lista, const TGISPosicao &p) const
{
    const TGISPosicao *q = lista.Dados();
    for (int i = 1; i < lista.Count(); ++i)
        if (DistanciaAReta(q[i - 1], q[i], p) < FErroMundoLinha)
            return true;
    return false;
}

bool TGISProjecao::PertenceALinha(const TPoint *pontos, int ultimo, const TPoint &p) const
{
    for (int i = 1; i <= ultimo; ++i)
        if (DistanciaAReta(pontos[i - 1], pontos[i], p) < FErroTelaLinha)
            return true;
    return false;
}

bool TGISProjecao::PertenceAArea(const TGISPosicaoList &lista, const TGISPosicao &p) const
{
    const TGISPosicao *q = lista.Dados();
    return Paridade(lista.Count(), [q](int i) { return q[i]; }, FAreaMundo.Pos1, p);
}

bool TGISProjecao::PertenceAArea(const TPoint *pontos, int ultimo, const TPoint &p) const
{
    return Paridade(ultimo + 1, [pontos](int i) { return pontos[i]; }, TPoint(-10, -10), p);
}

bool TGISProjecao::Equivalentes(const TGISPosicao &a, const TGISPosicao &b) const
{
    return DiferencaAbsoluta(a.Latitude, b.Latitude) < FErroMundoPonto
        && DiferencaAbsoluta(a.Longitude, b.Longitude) < FErroMundoPonto;
}

bool TGISProjecao::Equivalentes(const TPoint &a, const TPoint &b) const
{
    return DiferencaAbsoluta(a.X, b.X) < FErroTelaPonto && DiferencaAbsoluta(a.Y, b.Y) < FErroTelaPonto;
}

void TGISProjecao::AjustarAoRetangulo(const TGISRet &r)
{
    TGISRet w = r;
    if (w.Pos1.Latitude == w.Pos2.Latitude) {
        w.Pos1.Latitude = Saturar32(std::int64_t(w.Pos1.Latitude) - 30);
        w.Pos2.Latitude = Saturar32(std::int64_t(w.Pos2.Latitude) + 30);
    }
    if (w.Pos1.Longitude == w.Pos2.Longitude) {
        w.Pos1.Longitude = Saturar32(std::int64_t(w.Pos1.Longitude) - 30);
        w.Pos2.Longitude = Saturar32(std::int64_t(w.Pos2.Longitude) + 30);
    }
    const TPoint s1 = MundoParaTela(w.Pos1);
    const TPoint s2 = MundoParaTela(w.Pos2);
    const std::int64_t dx = std::llabs(std::int64_t(s2.X) - s1.X);
    const std::int64_t dy = std::llabs(std::int64_t(s2.Y) - s1.Y);
    if (dx < 1 && dy < 1)
        return;
    const double fh = dx > 0 ? static_cast<double>(std::int64_t(FAreaTela.Right) - FAreaTela.Left) / dx : 0.0;
    const double fv = dy > 0 ? static_cast<double>(std::int64_t(FAreaTela.Bottom) - FAreaTela.Top) / dy : 0.0;
    if (fh != 0.0 && fv != 0.0)
        DoAtribuirZoom(FZoom * (fh < fv ? fh : fv));
    else if (dy > 0 && fv != 0.0)
        DoAtribuirZoom(FZoom * fv);
    else if (dx > 0 && fh != 0.0)
        DoAtribuirZoom(FZoom * fh);
    FCentro = tavru::Centro(w);
}

} // namespace tavru
