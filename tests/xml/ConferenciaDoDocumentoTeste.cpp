// A conferência dos bytes do documento anda oito bytes de cada vez e converte ISO-8859-1 de trás
// para a frente no próprio bloco: o resultado e os erros não dependem de onde, no bloco de oito,
// cai o byte que importa.

#include <tavru/platform/Exception.h>
#include <tavru/xml/CodificacaoXML_p.h>

#include <gtest/gtest.h>
#include <cstring>

using namespace tavru;
using namespace tavru::xmlp;

namespace {

/// O documento conferido (em UTF-8), ou a mensagem do erro entre colchetes.
QByteArray Conferir(const QByteArray &documento)
{
    TTextoDoDocumento texto;
    std::memcpy(texto.Alocar(std::size_t(documento.size())), documento.constData(), std::size_t(documento.size()));
    try {
        ConferirDocumento(texto, QStringLiteral("O documento"));
    } catch (const EFilerError &e) {
        return "[" + e.Message().toUtf8() + "]";
    }
    return QByteArray(texto.Dados(), qsizetype(texto.Tamanho()));
}

const QByteArray Latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
const QByteArray Utf8 = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

} // namespace

TEST(ConferenciaDoDocumento, Latin1ViraUtf8EmQualquerPosicao)
{
    // Bytes altos no começo e no fim do bloco, seguidos, isolados entre trechos ASCII mais longos
    // e mais curtos que oito bytes, em cada deslocamento.
    for (int desloca = 0; desloca < 9; ++desloca) {
        const QByteArray corpo = QByteArray(desloca, ' ') + "<a n=\"\xC7\xC3\xD5\">" + QByteArray(13, 'x') + "\xB0"
            + "yy\xE9" + QByteArray(desloca, 'z') + "</a>\xFF";
        for (const QByteArray &documento : {Latin1 + corpo, "\xE1" + Latin1.mid(1) + corpo}) {
            SCOPED_TRACE(desloca);
            const QByteArray esperado = QString::fromLatin1(documento).toUtf8();
            if (documento.startsWith('\xE1'))
                EXPECT_TRUE(Conferir(documento).startsWith("[")); // sem a declaração, é UTF-8
            else
                EXPECT_EQ(Conferir(documento), esperado);
        }
    }
    // Só ASCII: nada muda.
    EXPECT_EQ(Conferir(Latin1 + "<a>ok</a>"), Latin1 + "<a>ok</a>");
}

TEST(ConferenciaDoDocumento, ErrosAchadosEmQualquerPosicaoDoBlocoDeOito)
{
    for (int desloca = 0; desloca < 9; ++desloca) {
        SCOPED_TRACE(desloca);
        const QByteArray antes = "<a>" + QByteArray(desloca + 8, 'x');
        const QByteArray coluna = QByteArray::number(Utf8.size() + antes.size() + 1);
        // Um controle proibido, um byte solto em UTF-8, uma referência a um caractere proibido.
        EXPECT_TRUE(Conferir(Utf8 + antes + '\x01' + "</a>").contains("coluna " + coluna + ": o caractere de controle U+0001"));
        EXPECT_TRUE(Conferir(Utf8 + antes + "\xE9</a>").contains("coluna " + coluna + ": a sequência 0xE9 0x3C"));
        EXPECT_TRUE(Conferir(Utf8 + antes + "&#0;</a>").contains("coluna " + coluna));
        // Dentro de um comentário, a referência é texto; depois dele, volta a contar.
        const QByteArray comentario = Utf8 + antes + "<!-- &#0; > -->" + QByteArray(desloca, 'y');
        EXPECT_EQ(Conferir(comentario + "</a>"), comentario + "</a>");
        EXPECT_TRUE(Conferir(comentario + "&#0;</a>").startsWith("["));
        // Tabulação e fins de linha passam.
        EXPECT_EQ(Conferir(Utf8 + antes + "\t\r\n</a>"), Utf8 + antes + "\t\r\n</a>");
    }
}
