#include <tavru/companions/geodesy/Distancia.h>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>

#include <cmath>

namespace tavru {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double Volta = 2.0 * Pi;
constexpr double SegundosPorGrau = 3600.0;

const GeographicLib::Geodesic &Wgs84()
{
    return GeographicLib::Geodesic::WGS84();
}

double Graus(std::int32_t segundos)
{
    return segundos / SegundosPorGrau;
}

TGISPosicao DeGraus(double latitude, double longitude)
{
    return GISPosicao(static_cast<std::int32_t>(std::lround(latitude * SegundosPorGrau)),
                      static_cast<std::int32_t>(std::lround(longitude * SegundosPorGrau)));
}

/// Ponto a `distancia` milhas e `azimute` graus; entradas não finitas ficam na origem.
TGISPosicao Direto(const TGISPosicao &origem, double distancia, double azimuteGraus)
{
    if (!std::isfinite(distancia) || !std::isfinite(azimuteGraus))
        return origem;
    double latitude = 0.0;
    double longitude = 0.0;
    Wgs84().Direct(Graus(origem.Latitude), Graus(origem.Longitude), azimuteGraus,
                   distancia * MetrosPorMilhaNautica, latitude, longitude);
    return DeGraus(latitude, longitude);
}

/// O quanto se anda de `angulo1` a `angulo2` no sentido pedido, em (0, 2π]; não finito dá 0.
double Varredura(double angulo1, double angulo2, bool horario)
{
    double v = std::fmod(horario ? angulo2 - angulo1 : angulo1 - angulo2, Volta);
    if (!std::isfinite(v))
        return 0.0;
    if (v < 0.0)
        v += Volta;
    // Ângulos iguais, ou iguais a menos de uma volta e de arredondamento: a volta inteira.
    if (v < 1e-9 || Volta - v < 1e-9)
        v = Volta;
    return v;
}

/// Percorre o arco chamando `ponto(azimute em radianos)` para cada posição do array.
template <typename F>
void Percorrer(double angulo1, double angulo2, TGISPosicao *pontos, int quantidade, bool horario, F ponto)
{
    if (pontos == nullptr || quantidade <= 0)
        return;
    const double varredura = Varredura(angulo1, angulo2, horario);
    const double sinal = horario ? 1.0 : -1.0;
    for (int k = 0; k < quantidade; ++k) {
        const double fracao = quantidade > 1 ? static_cast<double>(k) / (quantidade - 1) : 0.0;
        pontos[k] = ponto(angulo1 + sinal * varredura * fracao);
    }
    if (quantidade > 1 && varredura == Volta)
        pontos[quantidade - 1] = pontos[0];
}

double ParaGraus(double radianos)
{
    return radianos * 180.0 / Pi;
}

} // namespace

double Distancia(const TGISPosicao &a, const TGISPosicao &b)
{
    double metros = 0.0;
    Wgs84().Inverse(Graus(a.Latitude), Graus(a.Longitude), Graus(b.Latitude), Graus(b.Longitude), metros);
    return metros / MetrosPorMilhaNautica;
}

double Distancia(const TPoint &a, const TPoint &b)
{
    return std::hypot(static_cast<double>(b.X) - a.X, static_cast<double>(b.Y) - a.Y);
}

TGISPosicao ObterPontoArco(const TGISPosicao &origem, double distancia, double azimute)
{
    return Direto(origem, distancia, ParaGraus(azimute));
}

void TracaArco(double angulo1, double angulo2, const TGISPosicao &centro, double raio, TGISPosicao *pontos,
               int quantidade, bool horario)
{
    Percorrer(angulo1, angulo2, pontos, quantidade, horario,
              [&](double azimute) { return Direto(centro, raio, ParaGraus(azimute)); });
}

void TracaArco(double angulo1, double angulo2, const TGISPosicao &centro, double raio,
               std::vector<TGISPosicao> &pontos, bool horario)
{
    TracaArco(angulo1, angulo2, centro, raio, pontos.data(), static_cast<int>(pontos.size()), horario);
}

void TracaArcoElipse(double rumo, double angulo1, double angulo2, const TGISPosicao &centro, double semiEixo1,
                     double semiEixo2, TGISPosicao *pontos, int quantidade, bool horario)
{
    const double a = std::fabs(semiEixo1); // través
    const double b = std::fabs(semiEixo2); // ao longo do rumo
    Percorrer(angulo1, angulo2, pontos, quantidade, horario, [&](double t) {
        // Raio polar da elipse (través² / a² + proa² / b² = 1) na direção t a partir do rumo.
        const double denominador = std::hypot(b * std::sin(t), a * std::cos(t));
        const double r = denominador > 0.0 ? a * b / denominador : std::fmax(a, b);
        return Direto(centro, r, rumo + ParaGraus(t));
    });
}

void TracaArcoElipse(double rumo, double angulo1, double angulo2, const TGISPosicao &centro, double semiEixo1,
                     double semiEixo2, std::vector<TGISPosicao> &pontos, bool horario)
{
    TracaArcoElipse(rumo, angulo1, angulo2, centro, semiEixo1, semiEixo2, pontos.data(),
                    static_cast<int>(pontos.size()), horario);
}

void TracaLinha(const TGISPosicao &inicio, const TGISPosicao &fim, TGISPosicao *pontos, int quantidade)
{
    if (pontos == nullptr || quantidade <= 0)
        return;
    const GeographicLib::GeodesicLine linha = Wgs84().InverseLine(
        Graus(inicio.Latitude), Graus(inicio.Longitude), Graus(fim.Latitude), Graus(fim.Longitude));
    const double total = linha.Distance();
    for (int k = 1; k + 1 < quantidade; ++k) {
        double latitude = 0.0;
        double longitude = 0.0;
        linha.Position(total * k / (quantidade - 1), latitude, longitude);
        pontos[k] = DeGraus(latitude, longitude);
    }
    pontos[0] = inicio;
    if (quantidade > 1)
        pontos[quantidade - 1] = fim;
}

void TracaLinha(const TGISPosicao &inicio, const TGISPosicao &fim, std::vector<TGISPosicao> &pontos)
{
    TracaLinha(inicio, fim, pontos.data(), static_cast<int>(pontos.size()));
}

} // namespace tavru
