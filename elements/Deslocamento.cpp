#include <tavru/elements/Deslocamento.h>

#include <tavru/core/Arredondar.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <cmath>
#include <cstdint>

namespace tavru {

TGISPosicao PosicaoAbsoluta(const TGISPosicao &d, const TGISPosicao &p, double cosO, double senO, bool semGiro)
{
    if (semGiro)
        return GISPosicao(Saturar32(static_cast<long long>(p.Latitude) + d.Latitude),
                          Saturar32(static_cast<long long>(p.Longitude) + d.Longitude));
    const double lat = d.Latitude;
    const double lon = d.Longitude;
    return GISPosicao(Arredondar(p.Latitude + lat * cosO + lon * senO),
                      Arredondar(p.Longitude + lon * cosO - lat * senO));
}

TGISPosicao PosicaoAbsoluta(const TGISPosicao &d, const TGISPosicao &p, double o)
{
    return PosicaoAbsoluta(d, p, std::cos(o), std::sin(o), o == 0.0);
}

TGISPosicao Deslocamento(const TGISPosicao &a, const TGISPosicao &p, double o)
{
    const long long dlat = static_cast<long long>(a.Latitude) - p.Latitude;
    const long long dlon = static_cast<long long>(a.Longitude) - p.Longitude;
    if (o == 0.0)
        return GISPosicao(Saturar32(dlat), Saturar32(dlon));
    const double c = std::cos(o);
    const double s = std::sin(o);
    return GISPosicao(Arredondar(dlat * c - dlon * s), Arredondar(dlon * c + dlat * s));
}

TPoint PontoDaSenoidePadrao(int i, int n, const TPoint &centro)
{
    constexpr double Pi = 3.14159265358979323846;
    const double passo = 2 * Pi / (n / 3.0);
    return TPoint((i - n / 2) * 10 + centro.X, Arredondar(std::sin(i * passo) * 20.0 + centro.Y));
}

int PerguntarNumeroDePontos(const QString &titulo, const QString &pergunta, int minimo)
{
    const QString padrao = QString::number(minimo);
    for (;;) {
        bool ok = false;
        int n = Dialogos().InputBox(titulo, pergunta, padrao).trimmed().toInt(&ok);
        if (!ok)
            n = -1;
        if (n == 0 || (n >= minimo && n <= 200))
            return n;
    }
}

} // namespace tavru
