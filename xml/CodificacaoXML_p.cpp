#include <tavru/xml/CodificacaoXML_p.h>

#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/symbology/InformacoesXML.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ConfiguracaoXML.h>

#include <QRegularExpression>
#include <cstdlib>
#include <limits>

namespace tavru::xmlp {

namespace {

// O texto de entrada numa mensagem de erro, cortado: a entrada é de fora e pode ser enorme.
QString Citar(const char *texto)
{
    QString t = QString::fromUtf8(texto);
    if (t.size() > 60)
        t = t.left(57) + QStringLiteral("...");
    return t;
}

[[noreturn]] void Falhar(const QString &modelo, const char *texto)
{
    throw EConvertError(modelo.arg(Citar(texto)));
}

bool EhEspaco(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool EhDigito(unsigned char c)
{
    return c >= '0' && c <= '9';
}

// Dois dígitos decimais em p[0], p[1].
bool DoisDigitos(const unsigned char *p, int &valor)
{
    if (!EhDigito(p[0]) || !EhDigito(p[1]))
        return false;
    valor = (p[0] - '0') * 10 + (p[1] - '0');
    return true;
}

// A forma que IntToGrau escreve (graus°mm'ss''H, com o "°" em UTF-8), lida sem montar QString.
// Responde falso para qualquer outra forma, e também fora da faixa de 32 bits, para que
// GrauToInt dê o seu próprio erro.
bool LerGrauCanonico(const char *texto, std::int32_t &resultado)
{
    const auto *p = reinterpret_cast<const unsigned char *>(texto);
    long long graus = 0;
    int digitos = 0;
    for (; EhDigito(*p); ++p) {
        if (++digitos > 7)
            return false;
        graus = graus * 10 + (*p - '0');
    }
    int minutos = 0, segundos = 0;
    if (digitos == 0 || p[0] != 0xC2 || p[1] != 0xB0 || !DoisDigitos(p + 2, minutos) || p[4] != '\''
        || !DoisDigitos(p + 5, segundos) || p[7] != '\'' || p[8] != '\'' || p[9] == 0 || p[10] != 0)
        return false;
    if (minutos >= 60 || segundos >= 60)
        return false;
    long long valor = graus * 3600 + minutos * 60 + segundos;
    switch (p[9]) {
    case 'N': case 'n': case 'E': case 'e': break;
    case 'S': case 's': case 'W': case 'w': valor = -valor; break;
    default: return false;
    }
    if (valor < std::numeric_limits<std::int32_t>::min() || valor > std::numeric_limits<std::int32_t>::max())
        return false;
    resultado = static_cast<std::int32_t>(valor);
    return true;
}

bool Contem(const char *texto, char a, char b)
{
    for (const char *p = texto; *p; ++p) {
        const char c = *p;
        if (c == a || c == b || c == a + ('a' - 'A') || c == b + ('a' - 'A'))
            return true;
    }
    return false;
}

std::int32_t LerFaixa(const char *texto, int maximo, const QString &modelo)
{
    const std::int32_t v = LerInteiro(texto);
    if (v < 0 || v > maximo)
        Falhar(modelo, texto);
    return v;
}

// Codificações que o gravador sabe escrever e o leitor sabe ler.
enum class TCodificacao { Latin1, Ascii, Utf8 };

TCodificacao CodificacaoDoCabecalho(const QString &cabecalho, QString &nome)
{
    static const QRegularExpression re(QStringLiteral("encoding\\s*=\\s*([\"'])(.*?)\\1"));
    const QRegularExpressionMatch m = re.match(cabecalho);
    if (!m.hasMatch()) {
        nome = QStringLiteral("UTF-8");
        return TCodificacao::Utf8;
    }
    nome = m.captured(2);
    const QString n = nome.trimmed().toLower();
    if (n == u"iso-8859-1" || n == u"latin1")
        return TCodificacao::Latin1;
    if (n == u"us-ascii" || n == u"ascii")
        return TCodificacao::Ascii;
    if (n == u"utf-8" || n == u"utf8")
        return TCodificacao::Utf8;
    throw EConvertError(QStringLiteral("A codificação \"%1\" declarada no cabeçalho do documento não é suportada "
                                       "(use ISO-8859-1 ou UTF-8); nada foi gravado.")
                            .arg(nome));
}

[[noreturn]] void CaractereInvalido(const QString &linha, qsizetype i, int numeroLinha, const QString &codificacao)
{
    char32_t codigo = linha.at(i).unicode();
    QString caractere = linha.mid(i, 1);
    if (linha.at(i).isHighSurrogate() && i + 1 < linha.size() && linha.at(i + 1).isLowSurrogate()) {
        codigo = QChar::surrogateToUcs4(linha.at(i), linha.at(i + 1));
        caractere = linha.mid(i, 2);
    } else if (linha.at(i).isSurrogate()) {
        caractere = QStringLiteral("?");
    }
    const QString hexa = QStringLiteral("%1").arg(static_cast<uint>(codigo), 4, 16, QChar(u'0')).toUpper();
    throw EConvertError(QStringLiteral("O caractere \"%1\" (U+%2) da linha %3 não pode ser gravado na codificação "
                                       "%4 declarada no cabeçalho do documento; nada foi gravado.")
                            .arg(caractere, hexa, QString::number(numeroLinha), codificacao));
}

// O inteiro decimal de 32 bits do texto, sem levantar: falso quando o texto não é um.
bool TentarInteiro(const char *texto, std::int32_t &resultado)
{
    const char *p = texto;
    while (EhEspaco(*p))
        ++p;
    bool negativo = false;
    if (*p == '+' || *p == '-')
        negativo = *p++ == '-';
    long long valor = 0;
    const char *inicio = p;
    for (; EhDigito(static_cast<unsigned char>(*p)); ++p) {
        valor = valor * 10 + (*p - '0');
        if (valor > 2147483648LL)
            return false;
    }
    if (p == inicio)
        return false;
    while (EhEspaco(*p))
        ++p;
    if (*p)
        return false;
    if (negativo)
        valor = -valor;
    if (valor > std::numeric_limits<std::int32_t>::max())
        return false;
    resultado = static_cast<std::int32_t>(valor);
    return true;
}

} // namespace

std::int32_t LerInteiro(const char *texto)
{
    std::int32_t valor;
    if (!TentarInteiro(texto, valor))
        Falhar(QStringLiteral("\"%1\" não é um número inteiro de 32 bits válido"), texto);
    return valor;
}

std::int32_t LerTamanhoNoMundo(const char *texto)
{
    std::int32_t valor;
    return TentarInteiro(texto, valor) ? valor : LerGrau(texto);
}

TColor LerCorHexadecimal(const char *texto)
{
    unsigned long long valor = 0;
    const char *p = texto;
    for (; *p; ++p) {
        const char c = *p;
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else
            Falhar(QStringLiteral("\"%1\" não é uma cor hexadecimal válida"), texto);
        valor = valor * 16 + static_cast<unsigned>(d);
        if (valor > 0xFFFFFFFFULL)
            Falhar(QStringLiteral("\"%1\" não é uma cor hexadecimal de 32 bits"), texto);
    }
    if (p == texto)
        Falhar(QStringLiteral("\"%1\" não é uma cor hexadecimal válida"), texto);
    return static_cast<TColor>(static_cast<std::uint32_t>(valor));
}

TPenStyle LerEstiloCaneta(const char *texto)
{
    return static_cast<TPenStyle>(LerFaixa(texto, psInsideFrame, QStringLiteral("\"%1\" não é um estilo de caneta (0 a 6)")));
}

TBrushStyle LerEstiloPincel(const char *texto)
{
    return static_cast<TBrushStyle>(LerFaixa(texto, bsDiagCross, QStringLiteral("\"%1\" não é um estilo de pincel (0 a 7)")));
}

std::int32_t LerGrau(const char *texto)
{
    std::int32_t valor;
    if (LerGrauCanonico(texto, valor))
        return valor;
    return GrauToInt(QString::fromUtf8(texto));
}

std::int32_t LerLatitude(const char *texto)
{
    return Contem(texto, 'S', 'N') ? LerGrau(texto) : LerInteiro(texto);
}

std::int32_t LerLongitude(const char *texto)
{
    return Contem(texto, 'E', 'W') ? LerGrau(texto) : LerInteiro(texto);
}

void AcrescentarGrau(QString &destino, std::int32_t valor, bool ehLatitude)
{
    // graus (2 ou 3 dígitos, até 6), "°", mm, "'", ss, "''", letra: no máximo 16 caracteres.
    char16_t buf[20];
    int n = 0;
    const long long modulo = std::llabs(static_cast<long long>(valor));
    long long graus = modulo / 3600;
    const int minutos = static_cast<int>(modulo % 3600 / 60);
    const int segundos = static_cast<int>(modulo % 60);
    char16_t digitos[8];
    int nd = 0;
    do {
        digitos[nd++] = static_cast<char16_t>(u'0' + graus % 10);
        graus /= 10;
    } while (graus > 0);
    for (int largura = ehLatitude ? 2 : 3; nd < largura;)
        digitos[nd++] = u'0';
    while (nd > 0)
        buf[n++] = digitos[--nd];
    buf[n++] = u'\u00B0';
    buf[n++] = static_cast<char16_t>(u'0' + minutos / 10);
    buf[n++] = static_cast<char16_t>(u'0' + minutos % 10);
    buf[n++] = u'\'';
    buf[n++] = static_cast<char16_t>(u'0' + segundos / 10);
    buf[n++] = static_cast<char16_t>(u'0' + segundos % 10);
    buf[n++] = u'\'';
    buf[n++] = u'\'';
    buf[n++] = ehLatitude ? (valor < 0 ? u'S' : u'N') : (valor < 0 ? u'W' : u'E');
    destino.append(reinterpret_cast<const QChar *>(buf), n);
}

QString Grau(std::int32_t valor, bool ehLatitude)
{
    QString s;
    AcrescentarGrau(s, valor, ehLatitude);
    return s;
}

QString CorHexadecimal(TColor cor)
{
    return QStringLiteral("%1").arg(static_cast<std::uint32_t>(cor), 6, 16, QChar(u'0')).toUpper();
}

QString TextoLivre(const QString &texto)
{
    return ESCAPAR_TEXTOS ? EscaparTextoXML(texto) : texto;
}

QByteArray CodificarDocumento(const QStringList &linhas, const QString &cabecalho)
{
    QString nome;
    const TCodificacao codificacao = CodificacaoDoCabecalho(cabecalho, nome);
    qsizetype total = 0;
    for (const QString &l : linhas)
        total += l.size() + 2;

    QByteArray bytes;
    if (codificacao == TCodificacao::Utf8) {
        bytes.reserve(total + total / 8);
        for (int n = 0; n < linhas.size(); ++n) {
            const QString &l = linhas[n];
            for (qsizetype i = 0; i < l.size(); ++i) {
                const QChar c = l.at(i);
                if (c.isHighSurrogate() && i + 1 < l.size() && l.at(i + 1).isLowSurrogate())
                    ++i;
                else if (c.isSurrogate())
                    CaractereInvalido(l, i, n + 1, nome);
            }
            bytes += l.toUtf8();
            bytes += "\r\n";
        }
        return bytes;
    }

    const char16_t limite = codificacao == TCodificacao::Latin1 ? 0xFF : 0x7F;
    bytes.resize(total);
    char *destino = bytes.data();
    for (int n = 0; n < linhas.size(); ++n) {
        const QString &l = linhas[n];
        const char16_t *origem = reinterpret_cast<const char16_t *>(l.constData());
        for (qsizetype i = 0; i < l.size(); ++i) {
            const char16_t c = origem[i];
            if (c > limite)
                CaractereInvalido(l, i, n + 1, nome);
            *destino++ = static_cast<char>(c);
        }
        *destino++ = '\r';
        *destino++ = '\n';
    }
    return bytes;
}

} // namespace tavru::xmlp
