#include <tavru/companions/geodesy/UTM.h>

#include <tavru/platform/Exception.h>

#include <GeographicLib/TransverseMercator.hpp>

#include <cmath>
#include <vector>

namespace tavru {

namespace {

constexpr TElipsoide Elipsoides[TotalElipsoides] = {
    {u"     [ Default ]", 6378137.0, 298.257223563},
    {u" 1 - Airy 1830", 6377563.396, 299.3249646},
    {u" 2 - Airy Modificado", 6377340.189, 299.3249646},
    {u" 3 - Astro Chuá", 6378388.0, 297.0},
    {u" 4 - Australiano 1965", 6378160.0, 298.25},
    {u" 5 - Bessel 1841", 6377397.155, 299.1528128},
    {u" 6 - Bessel 1841 (Namíbia)", 6377483.865, 299.1528128},
    {u" 7 - Clarke 1866", 6378206.4, 294.9786982},
    {u" 8 - Clarke 1880", 6378249.145, 293.465},
    {u" 9 - Everest 1830", 6377276.345, 300.8017},
    {u"10 - Everest 1938", 6377304.063, 300.8017},
    {u"11 - Everest 1956", 6377301.243, 300.8017},
    {u"12 - Everest 1969", 6377295.664, 300.8017},
    {u"13 - Everest (Sabah & Sarawak)", 6377298.556, 300.8017},
    {u"14 - Fischer 1960 (Mercury)", 6378166.0, 298.3},
    {u"15 - Fischer Modificado 1960", 6378155.0, 298.3},
    {u"16 - Fischer 1968", 6378150.0, 298.3},
    {u"17 - GRS 1967", 6378160.0, 298.247167427},
    {u"18 - GRS 1980", 6378137.0, 298.257222101},
    {u"19 - Hayford ( Datum: Córrego Alegre )", 6378388.0, 297.0},
    {u"20 - Helmert 1906", 6378200.0, 298.3},
    {u"21 - Hough", 6378270.0, 297.0},
    {u"22 - International", 6378388.0, 297.0},
    {u"23 - Krassovsky", 6378245.0, 298.3},
    {u"24 - SGS 85", 6378136.0, 298.257},
    {u"25 - South American Datum 1969 (SAD 69)", 6378160.0, 298.25},
    {u"26 - WGS-60", 6378165.0, 298.3},
    {u"27 - WGS-66", 6378145.0, 298.25},
    {u"28 - WGS-72", 6378135.0, 298.26},
    {u"29 - WGS-84", 6378137.0, 298.257223563},
};

constexpr double EscalaUTM = 0.9996;
constexpr double FalsoLeste = 500000.0;
constexpr double FalsoNorteSul = 10000000.0;

/// A projeção de cada elipsoide, montada uma vez (a construção calcula as séries de Krüger).
const GeographicLib::TransverseMercator &Projecao(int indice)
{
    static const std::vector<GeographicLib::TransverseMercator> todas = [] {
        std::vector<GeographicLib::TransverseMercator> v;
        v.reserve(TotalElipsoides);
        for (const TElipsoide &e : Elipsoides)
            v.emplace_back(e.SemiEixoMaior, 1.0 / e.InversoAchatamento, EscalaUTM);
        return v;
    }();
    return todas[static_cast<std::size_t>(indice)];
}

} // namespace

const TElipsoide &ObterElipsoide(int indice)
{
    if (indice < 0 || indice >= TotalElipsoides)
        throw EConvertError(QStringLiteral("Elipsóide de referência inválido (índice %1)").arg(indice));
    return Elipsoides[indice];
}

QStringList NomesElipsoides()
{
    QStringList nomes;
    for (const TElipsoide &e : Elipsoides)
        nomes << QString::fromUtf16(e.Nome);
    return nomes;
}

void ConverteGradeUTM_para_LatLong(int fuso, QChar letra, double leste, double norte, int elipsoide,
                                   double &latitude, double &longitude)
{
    ObterElipsoide(elipsoide); // confere o índice
    if (fuso < 1 || fuso > 60)
        throw EConvertError(QStringLiteral("Fuso UTM inválido: %1 (vai de 1 a 60)").arg(fuso));
    const QChar l = letra.toUpper();
    if (!QStringLiteral("CDEFGHJKLMNPQRSTUVWX").contains(l))
        throw EConvertError(QStringLiteral("Zona UTM inválida: \"%1\" (vai de C a X, sem I e O)").arg(letra));
    if (!std::isfinite(leste) || !std::isfinite(norte))
        throw EConvertError(QStringLiteral("Coordenada UTM inválida"));
    const bool sul = l < u'N';
    const double meridiano = 6.0 * fuso - 183.0;
    Projecao(elipsoide).Reverse(meridiano, leste - FalsoLeste, norte - (sul ? FalsoNorteSul : 0.0), latitude,
                                longitude);
}

void ConverteGradeUTM_para_LatLong(const QString &zona, double leste, double norte, int elipsoide,
                                   double &latitude, double &longitude)
{
    const QString z = zona.trimmed();
    bool ok = false;
    const int fuso = z.isEmpty() ? 0 : z.chopped(1).trimmed().toInt(&ok);
    if (!ok)
        throw EConvertError(QStringLiteral("Zona UTM inválida: %1 (esperado o fuso seguido da letra, como 22K)")
                                .arg(CitarValor(zona)));
    ConverteGradeUTM_para_LatLong(fuso, z.back(), leste, norte, elipsoide, latitude, longitude);
}

} // namespace tavru
