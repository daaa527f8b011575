#include <tavru/companions/geodesy/TextoGeodesico.h>

#include <tavru/platform/Exception.h>

#include <QRegularExpression>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

namespace tavru {

namespace {

constexpr double Pi = 3.14159265358979323846;

// Separadores entre graus, minutos e segundos: espaço, marcas de grau, de minuto e de segundo.
#define TAVRU_SEP u"[\\s°º˚'\"′″´’”:]"
#define TAVRU_NUM u"([0-9]+(?:[.,][0-9]*)?|[.,][0-9]+)"

/// Um número com ponto ou vírgula decimal; o formato já foi conferido pela expressão.
double Numero(QString texto)
{
    return texto.replace(u',', u'.').toDouble();
}

/// Lê graus[, minutos[, segundos]] com letra de hemisfério opcional; devolve segundos de arco.
std::optional<double> LerSegundos(const QString &texto, bool aceitaHemisferio)
{
    static const QRegularExpression forma(QStringLiteral(
        u"^([NSEWLO])?\\s*([+-])?\\s*" TAVRU_NUM u"(?:" TAVRU_SEP u"+" TAVRU_NUM u")?(?:" TAVRU_SEP u"+" TAVRU_NUM
        u")?" TAVRU_SEP u"*([NSEWLO])?$"));
#undef TAVRU_SEP
#undef TAVRU_NUM
    const QRegularExpressionMatch m = forma.match(texto.trimmed().toUpper());
    if (!m.hasMatch())
        return std::nullopt;
    const QString letra = m.captured(1) + m.captured(6);
    const QString sinal = m.captured(2);
    if (letra.size() > 1 || (!letra.isEmpty() && (!aceitaHemisferio || !sinal.isEmpty())))
        return std::nullopt;
    const QString graus = m.captured(3), minutos = m.captured(4), segundos = m.captured(5);
    auto temFracao = [](const QString &s) { return s.contains(u'.') || s.contains(u','); };
    if ((!minutos.isEmpty() && temFracao(graus)) || (!segundos.isEmpty() && temFracao(minutos)))
        return std::nullopt;
    const double g = Numero(graus);
    const double mi = minutos.isEmpty() ? 0.0 : Numero(minutos);
    const double s = segundos.isEmpty() ? 0.0 : Numero(segundos);
    if (mi >= 60.0 || s >= 60.0)
        return std::nullopt;
    const double total = g * 3600.0 + mi * 60.0 + s;
    if (!std::isfinite(total))
        return std::nullopt;
    const bool negativo = sinal == u"-" || letra == u"S" || letra == u"W" || letra == u"O";
    return negativo ? -total : total;
}

/// Número decimal com sinal e expoente opcionais, ponto ou vírgula; o resto do texto vai em `resto`.
std::optional<double> LerDecimal(const QString &texto, QString &resto)
{
    static const QRegularExpression forma(
        QStringLiteral(u"^([+-]?(?:[0-9]+(?:[.,][0-9]*)?|[.,][0-9]+)(?:E[+-]?[0-9]+)?)\\s*(.*)$"));
    const QRegularExpressionMatch m = forma.match(texto.trimmed().toUpper());
    if (!m.hasMatch())
        return std::nullopt;
    const double v = Numero(m.captured(1));
    if (!std::isfinite(v))
        return std::nullopt;
    resto = m.captured(2);
    return v;
}

/// Até seis casas decimais, sem zeros à direita nem "-0".
QString Decimal(double valor)
{
    if (std::isnan(valor))
        return QStringLiteral("nan");
    if (std::isinf(valor))
        return valor > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    QString s = QString::number(valor, 'f', 6);
    while (s.endsWith(u'0'))
        s.chop(1);
    if (s.endsWith(u'.'))
        s.chop(1);
    return s == u"-0" ? QStringLiteral("0") : s;
}

// O texto de fora entra na mensagem cortado (`CitarValor`): um valor enorme não faz uma mensagem
// enorme.
[[noreturn]] void Falhar(const QString &modelo, const QString &texto)
{
    throw EConvertError(modelo.arg(CitarValor(texto)));
}

} // namespace

QString IntToGrau(std::int32_t valor, bool ehLatitude)
{
    const long long modulo = std::llabs(static_cast<long long>(valor));
    const QChar letra = ehLatitude ? (valor < 0 ? u'S' : u'N') : (valor < 0 ? u'W' : u'E');
    return QStringLiteral("%1°%2'%3''%4")
        .arg(modulo / 3600, ehLatitude ? 2 : 3, 10, QChar(u'0'))
        .arg(modulo % 3600 / 60, 2, 10, QChar(u'0'))
        .arg(modulo % 60, 2, 10, QChar(u'0'))
        .arg(letra);
}

std::int32_t GrauToInt(const QString &texto)
{
    const std::optional<double> segundos = LerSegundos(texto, true);
    const double arredondado = segundos ? std::round(*segundos) : 0.0;
    if (!segundos || arredondado < std::numeric_limits<std::int32_t>::min()
        || arredondado > std::numeric_limits<std::int32_t>::max())
        Falhar(QStringLiteral("%1 não é uma coordenada válida (por exemplo: 23°30'00''S ou -23,5)"), texto);
    return static_cast<std::int32_t>(arredondado);
}

QString DistanciaToStr(double valor, bool comUnidade)
{
    return comUnidade ? Decimal(valor) + QStringLiteral(" MN") : Decimal(valor);
}

double StrToDistancia(const QString &texto)
{
    QString unidade;
    const std::optional<double> valor = LerDecimal(texto, unidade);
    if (valor) {
        if (unidade.isEmpty() || unidade == u"MN" || unidade == u"NM")
            return *valor;
        if (unidade == u"KM")
            return *valor * 1000.0 / 1852.0;
        if (unidade == u"M")
            return *valor / 1852.0;
    }
    Falhar(QStringLiteral("%1 não é uma distância válida em milhas náuticas"), texto);
}

QString AnguloToStr(double valor, bool comUnidade)
{
    const QString graus = Decimal(valor * 180.0 / Pi);
    return comUnidade ? graus + QStringLiteral("°") : graus;
}

double StrToAngulo(const QString &texto)
{
    QString limpo = texto.trimmed().toUpper();
    if (limpo.endsWith(u"RAD")) {
        QString resto;
        const std::optional<double> radianos = LerDecimal(limpo.chopped(3), resto);
        if (radianos && resto.isEmpty())
            return *radianos;
    } else {
        for (const char16_t *palavra : {u"GRAUS", u"GRAU"}) {
            if (limpo.endsWith(QStringView(palavra))) {
                limpo.chop(static_cast<int>(QStringView(palavra).size()));
                break;
            }
        }
        if (const std::optional<double> segundos = LerSegundos(limpo, false))
            return *segundos / 3600.0 * Pi / 180.0;
    }
    Falhar(QStringLiteral("%1 não é um ângulo válido"), texto);
}

} // namespace tavru
