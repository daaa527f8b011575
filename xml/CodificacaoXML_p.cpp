#include <tavru/xml/CodificacaoXML_p.h>

#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/symbology/InformacoesXML.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ConfiguracaoXML.h>

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <pugixml.hpp>
#include <string_view>

namespace tavru::xmlp {

namespace {

// O texto de entrada numa mensagem de erro, cortado (`CitarValor`): a entrada é de fora e pode
// ser enorme.
[[noreturn]] void Falhar(const QString &modelo, const char *texto)
{
    throw EConvertError(modelo.arg(CitarValor(QString::fromUtf8(texto))));
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
        Falhar(QStringLiteral("%1 não é um número inteiro de 32 bits válido"), texto);
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
            Falhar(QStringLiteral("%1 não é uma cor hexadecimal válida"), texto);
        valor = valor * 16 + static_cast<unsigned>(d);
        if (valor > 0xFFFFFFFFULL)
            Falhar(QStringLiteral("%1 não é uma cor hexadecimal de 32 bits"), texto);
    }
    if (p == texto)
        Falhar(QStringLiteral("%1 não é uma cor hexadecimal válida"), texto);
    return static_cast<TColor>(static_cast<std::uint32_t>(valor));
}

TPenStyle LerEstiloCaneta(const char *texto)
{
    return static_cast<TPenStyle>(LerFaixa(texto, psInsideFrame, QStringLiteral("%1 não é um estilo de caneta (0 a 6)")));
}

TBrushStyle LerEstiloPincel(const char *texto)
{
    return static_cast<TBrushStyle>(LerFaixa(texto, bsDiagCross, QStringLiteral("%1 não é um estilo de pincel (0 a 7)")));
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

// Conferência dos bytes de um documento lido.

namespace tavru::xmlp {

namespace {

// Codificações que o leitor confere e converte para UTF-8.
enum class TEntrada { Utf8, Ascii, Latin1, Utf16LE, Utf16BE };

char *NovoBloco(size_t tamanho, const QString &origem)
{
    // O bloco é nosso (o DOM analisa no lugar sem tomar posse), do malloc: assim a conversão de
    // ISO-8859-1 o estica com realloc, sem uma segunda cópia do arquivo.
    void *bloco = std::malloc(std::max<size_t>(tamanho, 1));
    if (!bloco)
        throw EFilerError(QStringLiteral("%1: memória insuficiente para ler o documento.").arg(origem));
    return static_cast<char *>(bloco);
}

[[noreturn]] void ErroNaPosicao(const QString &origem, const char *texto, size_t deslocamento, const QString &problema,
                                size_t descontar)
{
    qsizetype linha = 0, coluna = 0;
    LinhaEColuna(texto, deslocamento, linha, coluna, descontar);
    throw EFilerError(QStringLiteral("%1, linha %2, coluna %3: %4; nada foi lido.")
                          .arg(origem)
                          .arg(linha)
                          .arg(coluna)
                          .arg(problema));
}

QString Hexa(unsigned valor, int digitos)
{
    return QStringLiteral("%1").arg(valor, digitos, 16, QChar(u'0')).toUpper();
}

// A codificação do documento: a marca de ordem de bytes, senão a declaração XML, senão UTF-8.
TEntrada CodificacaoDeEntrada(const unsigned char *p, size_t n, size_t &marca, QString &nome, const QString &origem)
{
    marca = 0;
    if (n >= 3 && p[0] == 0xEF && p[1] == 0xBB && p[2] == 0xBF) {
        marca = 3;
        nome = QStringLiteral("UTF-8");
        return TEntrada::Utf8;
    }
    const bool utf32 = (n >= 4 && p[0] == 0xFF && p[1] == 0xFE && p[2] == 0 && p[3] == 0)
                       || (n >= 4 && p[0] == 0 && p[1] == 0 && p[2] == 0xFE && p[3] == 0xFF);
    if (utf32)
        throw EFilerError(QStringLiteral("%1: documentos em UTF-32 não são suportados (use UTF-8 ou ISO-8859-1); nada "
                                         "foi lido.")
                              .arg(origem));
    if (n >= 2 && ((p[0] == 0xFF && p[1] == 0xFE) || (p[0] == 0xFE && p[1] == 0xFF))) {
        marca = 2;
        nome = QStringLiteral("UTF-16");
        return p[0] == 0xFF ? TEntrada::Utf16LE : TEntrada::Utf16BE;
    }
    nome = QStringLiteral("UTF-8");
    if (n < 5 || std::memcmp(p, "<?xml", 5) != 0)
        return TEntrada::Utf8;
    // A declaração: até "?>", nos primeiros bytes.
    const size_t limite = std::min<size_t>(n, 1024);
    const std::string_view inicio(reinterpret_cast<const char *>(p), limite);
    const size_t fim = inicio.find("?>");
    const std::string_view declaracao = inicio.substr(0, fim);
    const size_t e = declaracao.find("encoding");
    if (e == std::string_view::npos)
        return TEntrada::Utf8;
    size_t i = e + 8;
    while (i < declaracao.size() && EhEspaco(declaracao[i]))
        ++i;
    if (i >= declaracao.size() || declaracao[i] != '=')
        return TEntrada::Utf8; // declaração mal formada: o DOM diz o erro
    ++i;
    while (i < declaracao.size() && EhEspaco(declaracao[i]))
        ++i;
    if (i >= declaracao.size() || (declaracao[i] != '"' && declaracao[i] != '\''))
        return TEntrada::Utf8;
    const size_t aspa = declaracao.find(declaracao[i], i + 1);
    if (aspa == std::string_view::npos)
        return TEntrada::Utf8;
    nome = QString::fromLatin1(declaracao.data() + i + 1, static_cast<qsizetype>(aspa - i - 1));
    const QString n1 = nome.trimmed().toLower();
    if (n1 == u"utf-8" || n1 == u"utf8")
        return TEntrada::Utf8;
    if (n1 == u"iso-8859-1" || n1 == u"iso_8859-1" || n1 == u"latin1" || n1 == u"latin-1")
        return TEntrada::Latin1;
    if (n1 == u"us-ascii" || n1 == u"ascii")
        return TEntrada::Ascii;
    throw EFilerError(QStringLiteral("%1: a codificação %2 declarada no documento não é suportada (use UTF-8 ou "
                                     "ISO-8859-1); nada foi lido.")
                          .arg(origem, CitarValor(nome)));
}

// Um caractere que o XML 1.0 admite.
bool CaractereXml(std::uint32_t c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD)
           || (c >= 0x10000 && c <= 0x10FFFF);
}

// Um caractere UTF-8 de vários bytes em p[0..n), estrito: nem forma longa demais, nem
// substitutos, nem acima de U+10FFFF. Devolve o tamanho, ou 0 quando os bytes não servem (e em
// `ruins` quantos bytes mostrar).
size_t DecodificarUtf8(const unsigned char *p, size_t n, std::uint32_t &codigo, size_t &ruins)
{
    const unsigned char c = p[0];
    size_t tamanho;
    unsigned char menor = 0x80, maior = 0xBF;
    if (c >= 0xC2 && c <= 0xDF) {
        tamanho = 2;
        codigo = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
        tamanho = 3;
        codigo = c & 0x0F;
        if (c == 0xE0)
            menor = 0xA0;
        else if (c == 0xED)
            maior = 0x9F;
    } else if (c >= 0xF0 && c <= 0xF4) {
        tamanho = 4;
        codigo = c & 0x07;
        if (c == 0xF0)
            menor = 0x90;
        else if (c == 0xF4)
            maior = 0x8F;
    } else {
        ruins = 1;
        return 0;
    }
    for (size_t k = 1; k < tamanho; ++k) {
        const unsigned char b = k < n ? p[k] : 0;
        const bool serve = k < n && (k == 1 ? b >= menor && b <= maior : b >= 0x80 && b <= 0xBF);
        if (!serve) {
            ruins = std::min(k + 1, n);
            return 0;
        }
        codigo = (codigo << 6) | (b & 0x3F);
    }
    return tamanho;
}

// Os bytes que vão para a mensagem, em hexadecimal.
QString BytesEmHexa(const unsigned char *p, size_t n)
{
    QStringList partes;
    for (size_t k = 0; k < n; ++k)
        partes << QStringLiteral("0x") + Hexa(p[k], 2);
    return partes.join(QLatin1Char(' '));
}

// Percorre o texto UTF-8 (ou só ASCII) e devolve o deslocamento do primeiro problema, ou `n`.
size_t Varrer(const unsigned char *p, size_t n, bool soAscii, const QString &codificacao, QString &problema)
{
    // Bytes que pedem atenção: os de fora do ASCII, os controles (menos tabulação e fim de
    // linha) e, no texto, '<' e '&'; dentro de um comentário, CDATA ou instrução, '>'.
    static const auto tabela = [](bool texto) {
        std::array<bool, 256> t{};
        for (int c = 0; c < 256; ++c)
            t[static_cast<size_t>(c)] = (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c >= 0x80
                || (texto ? c == '<' || c == '&' : c == '>');
        return t;
    };
    static const std::array<bool, 256> especiaisNoTexto = tabela(true);
    static const std::array<bool, 256> especiaisDentro = tabela(false);
    // Oito bytes de uma vez: verdadeiro se algum pode pedir atenção (um byte alto, um abaixo de
    // 0x20 ou o marcador do estado). Um falso positivo (tabulação, fim de linha) só manda olhar
    // byte a byte.
    constexpr std::uint64_t uns = 0x0101010101010101ULL;
    constexpr std::uint64_t altos = 0x8080808080808080ULL;
    const auto temZero = [](std::uint64_t v) { return (v - uns) & ~v & altos; };
    const auto talvez = [&](std::uint64_t w, bool texto) {
        const std::uint64_t abaixo = (w - uns * 0x20) & ~w & altos;
        const std::uint64_t marcador = texto ? temZero(w ^ (uns * '<')) | temZero(w ^ (uns * '&')) : temZero(w ^ (uns * '>'));
        return ((w & altos) | abaixo | marcador) != 0;
    };
    enum { Texto, Comentario, CData, Instrucao } estado = Texto;
    size_t inicio = 0; // onde começou o comentário, o CDATA ou a instrução
    const auto comeca = [&](size_t i, std::string_view s) {
        return n - i >= s.size() && std::memcmp(p + i, s.data(), s.size()) == 0;
    };
    size_t i = 0;
    while (i < n) {
        const bool texto = estado == Texto;
        const std::array<bool, 256> &especiais = texto ? especiaisNoTexto : especiaisDentro;
        for (;;) {
            std::uint64_t w;
            while (i + 8 <= n && (std::memcpy(&w, p + i, 8), !talvez(w, texto)))
                i += 8;
            const size_t fim = std::min(n, i + 8);
            while (i < fim && !especiais[p[i]])
                ++i;
            if (i < fim || i >= n)
                break;
        }
        if (i >= n)
            break;
        const unsigned char c = p[i];
        if (c < 0x20) {
            if (c != '\t' && c != '\n' && c != '\r') {
                problema = QStringLiteral("o caractere de controle U+%1, que o XML 1.0 proíbe").arg(Hexa(c, 4));
                return i;
            }
            ++i;
            continue;
        }
        if (c >= 0x80) {
            std::uint32_t codigo = 0;
            size_t ruins = 1;
            const size_t tamanho = soAscii ? 0 : DecodificarUtf8(p + i, n - i, codigo, ruins);
            if (tamanho == 0) {
                problema = QStringLiteral("%1 não é %2 válido (a codificação do documento)")
                               .arg(ruins == 1 ? QStringLiteral("o byte ") + BytesEmHexa(p + i, 1)
                                               : QStringLiteral("a sequência ") + BytesEmHexa(p + i, ruins),
                                    codificacao);
                return i;
            }
            if (!CaractereXml(codigo)) {
                problema = QStringLiteral("o caractere U+%1, que o XML 1.0 proíbe").arg(Hexa(codigo, 4));
                return i;
            }
            i += tamanho;
            continue;
        }
        switch (estado) {
        case Texto:
            if (c == '&' && i + 1 < n && p[i + 1] == '#') {
                // Referência numérica: o caractere dela também tem de ser admitido.
                size_t j = i + 2;
                const bool hexa = j < n && p[j] == 'x';
                if (hexa)
                    ++j;
                std::uint32_t valor = 0;
                size_t digitos = 0;
                for (; j < n; ++j, ++digitos) {
                    const unsigned char d = p[j];
                    unsigned v;
                    if (d >= '0' && d <= '9')
                        v = d - '0';
                    else if (hexa && d >= 'a' && d <= 'f')
                        v = d - 'a' + 10;
                    else if (hexa && d >= 'A' && d <= 'F')
                        v = d - 'A' + 10;
                    else
                        break;
                    valor = std::min<std::uint32_t>(valor * (hexa ? 16 : 10) + v, 0x110000);
                }
                if (digitos > 0 && j < n && p[j] == ';' && !CaractereXml(valor)) {
                    const QString referencia = QString::fromLatin1(reinterpret_cast<const char *>(p + i),
                                                                   static_cast<qsizetype>(j + 1 - i));
                    problema = QStringLiteral("a referência %1 é de um caractere que o XML 1.0 proíbe")
                                   .arg(CitarValor(referencia));
                    return i;
                }
                i = j;
                continue;
            }
            if (c == '<') {
                if (i + 1 < n && p[i + 1] != '!' && p[i + 1] != '?') {
                    inicio = ++i; // um elemento: o caso comum
                    continue;
                }
                if (comeca(i, "<!--")) {
                    estado = Comentario;
                    i += 4;
                } else if (comeca(i, "<![CDATA[")) {
                    estado = CData;
                    i += 9;
                } else if (comeca(i, "<?")) {
                    estado = Instrucao;
                    i += 2;
                } else {
                    ++i;
                }
                inicio = i;
                continue;
            }
            break;
        case Comentario:
            if (c == '>' && i >= inicio + 2 && p[i - 1] == '-' && p[i - 2] == '-')
                estado = Texto;
            break;
        case CData:
            if (c == '>' && i >= inicio + 2 && p[i - 1] == ']' && p[i - 2] == ']')
                estado = Texto;
            break;
        case Instrucao:
            if (c == '>' && i >= inicio + 1 && p[i - 1] == '?')
                estado = Texto;
            break;
        }
        ++i;
    }
    return n;
}

} // namespace

TTextoDoDocumento::~TTextoDoDocumento()
{
    if (FBloco)
        std::free(FBloco);
}

char *TTextoDoDocumento::Alocar(size_t tamanho)
{
    char *novo = NovoBloco(tamanho, QStringLiteral("O documento"));
    if (FBloco)
        std::free(FBloco);
    FBloco = novo;
    FInicio = 0;
    FTamanho = tamanho;
    return novo;
}

void ConferirDocumento(TTextoDoDocumento &texto, const QString &origem, size_t descontar)
{
    const auto *p = reinterpret_cast<const unsigned char *>(texto.Dados());
    const size_t n = texto.Tamanho();
    size_t marca = 0;
    QString nome;
    const TEntrada entrada = CodificacaoDeEntrada(p, n, marca, nome, origem);
    const auto trocar = [&](char *novo, size_t tamanho) {
        std::free(texto.FBloco);
        texto.FBloco = novo;
        texto.FInicio = 0;
        texto.FTamanho = tamanho;
    };
    switch (entrada) {
    case TEntrada::Utf8:
    case TEntrada::Ascii:
        texto.FInicio += marca;
        texto.FTamanho -= marca;
        break;
    case TEntrada::Latin1: {
        size_t altos = 0;
        for (size_t i = 0; i < n; ++i)
            altos += p[i] >> 7;
        if (altos == 0)
            break;
        // O bloco cresce no lugar (um bloco grande do malloc cresce sem cópia) e a conversão
        // anda de trás para a frente: cada byte alto vira dois, e os trechos ASCII entre eles
        // andam inteiros.
        const size_t inicio = texto.FInicio;
        void *maior = std::realloc(texto.FBloco, inicio + n + altos);
        if (!maior)
            throw EFilerError(QStringLiteral("%1: memória insuficiente para ler o documento.").arg(origem));
        texto.FBloco = static_cast<char *>(maior);
        auto *q = reinterpret_cast<unsigned char *>(texto.FBloco + inicio);
        size_t de = n;
        size_t para = n + altos;
        while (de < para) {
            size_t j = de;
            std::uint64_t w;
            while (j >= 8 && (std::memcpy(&w, q + j - 8, 8), (w & 0x8080808080808080ULL) == 0))
                j -= 8;
            while (j > 0 && q[j - 1] < 0x80)
                --j;
            para -= de - j;
            std::memmove(q + para, q + j, de - j);
            de = j;
            const unsigned char c = q[--de];
            q[--para] = static_cast<unsigned char>(0x80 | (c & 0x3F));
            q[--para] = static_cast<unsigned char>(0xC0 | (c >> 6));
        }
        texto.FTamanho = n + altos;
        break;
    }
    case TEntrada::Utf16LE:
    case TEntrada::Utf16BE: {
        const bool le = entrada == TEntrada::Utf16LE;
        const size_t unidades = (n - marca) / 2;
        char *novo = NovoBloco(unidades * 3 + 1, origem);
        auto *d = reinterpret_cast<unsigned char *>(novo);
        const auto unidade = [&](size_t k) {
            const unsigned char *u = p + marca + 2 * k;
            return static_cast<std::uint32_t>(le ? u[0] | (u[1] << 8) : (u[0] << 8) | u[1]);
        };
        for (size_t k = 0; k < unidades; ++k) {
            std::uint32_t c = unidade(k);
            if (c >= 0xD800 && c <= 0xDFFF) {
                const bool par = c <= 0xDBFF && k + 1 < unidades && unidade(k + 1) >= 0xDC00 && unidade(k + 1) <= 0xDFFF;
                if (!par) {
                    const size_t feito = static_cast<size_t>(d - reinterpret_cast<unsigned char *>(novo));
                    const QString problema =
                        QStringLiteral("o substituto U+%1 solto não é UTF-16 válido (a codificação do documento)")
                            .arg(Hexa(c, 4));
                    trocar(novo, feito);
                    ErroNaPosicao(origem, texto.Dados(), feito, problema, descontar);
                }
                c = 0x10000 + ((c - 0xD800) << 10) + (unidade(++k) - 0xDC00);
            }
            if (c < 0x80) {
                *d++ = static_cast<unsigned char>(c);
            } else if (c < 0x800) {
                *d++ = static_cast<unsigned char>(0xC0 | (c >> 6));
                *d++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
            } else if (c < 0x10000) {
                *d++ = static_cast<unsigned char>(0xE0 | (c >> 12));
                *d++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
                *d++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
            } else {
                *d++ = static_cast<unsigned char>(0xF0 | (c >> 18));
                *d++ = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
                *d++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
                *d++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
            }
        }
        const size_t feito = static_cast<size_t>(d - reinterpret_cast<unsigned char *>(novo));
        const bool sobra = (n - marca) % 2 != 0;
        trocar(novo, feito);
        if (sobra)
            ErroNaPosicao(origem, texto.Dados(), feito,
                          QStringLiteral("o documento termina no meio de um caractere UTF-16"), descontar);
        break;
    }
    }
    QString problema;
    const size_t onde = Varrer(reinterpret_cast<const unsigned char *>(texto.Dados()), texto.Tamanho(),
                               entrada == TEntrada::Ascii, nome.trimmed().toUpper(), problema);
    if (onde < texto.Tamanho())
        ErroNaPosicao(origem, texto.Dados(), onde, problema, descontar);
}

void LinhaEColuna(const char *texto, size_t deslocamento, qsizetype &linha, qsizetype &coluna, size_t descontar)
{
    if (deslocamento >= descontar) {
        texto += descontar;
        deslocamento -= descontar;
    }
    linha = 1;
    size_t inicioDaLinha = 0;
    for (size_t i = 0; i < deslocamento; ++i) {
        if (texto[i] == '\n' || (texto[i] == '\r' && (i + 1 >= deslocamento || texto[i + 1] != '\n'))) {
            ++linha;
            inicioDaLinha = i + 1;
        }
    }
    coluna = 1;
    for (size_t i = inicioDaLinha; i < deslocamento; ++i)
        coluna += (static_cast<unsigned char>(texto[i]) & 0xC0) != 0x80;
}

} // namespace tavru::xmlp
