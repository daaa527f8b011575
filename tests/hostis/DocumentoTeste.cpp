// Documentos com bytes que a codificação declarada não admite ou com caracteres que o XML 1.0
// proíbe: erro com o arquivo, a linha e a coluna, em vez de U+FFFD ou de um valor esvaziado em
// silêncio. E o que é válido continua lido igual.

#include "AuxiliaresHostis.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

const QByteArray Utf8 = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n";

// O documento com um texto cujo valor é `valor`, na linha 3 a partir da coluna 15.
QByteArray ComTexto(const QByteArray &cabecalho, const QByteArray &valor)
{
    return cabecalho + "<CAMADA>\r\n<Texto Texto=\"" + valor + "\"/>\r\n</CAMADA>\r\n";
}

} // namespace

TEST(DocumentoHostil, BytesECaracteresProibidosSaoErroComLinhaEColuna)
{
    QTemporaryDir dir;
    const QString nome = dir.filePath(QStringLiteral("mapa.xml"));
    const struct
    {
        const char *Caso;
        QByteArray Bytes;
        int Linha, Coluna;
    } casos[] = {
        {"byte Latin-1 solto em UTF-8", ComTexto(Utf8, "Jos\xE9 Bonif\xE1"), 3, 18},
        {"a coluna conta caracteres, não bytes", ComTexto(Utf8, "Jos\xC3\xA9 \xC0\xAF"), 3, 20},
        {"substituto em UTF-8", ComTexto(Utf8, "a\xED\xA0\x80"), 3, 16},
        {"acima de U+10FFFF", ComTexto(Utf8, "\xF4\x90\x80\x80"), 3, 15},
        {"sem declaração vale UTF-8", ComTexto("", "ol\xE1"), 2, 17},
        {"cortado no meio de um caractere", Utf8 + "<CAMADA/>\xE2\x82", 2, 10},
        {"byte acima de 127 em US-ASCII", ComTexto("<?xml version=\"1.0\" encoding=\"US-ASCII\"?>\n", "\xC3\xA9"), 3, 15},
        {"&#0; esvaziaria o valor", ComTexto(Utf8, "a&#0;b"), 3, 16},
        {"referência a um controle", ComTexto(Utf8, "&#x1F;"), 3, 15},
        {"referência a U+FFFE", ComTexto(Utf8, "ok&#xFFFE;"), 3, 17},
        {"referência a um substituto", ComTexto(Utf8, "&#55296;"), 3, 15},
        {"referência acima de U+10FFFF", ComTexto(Utf8, "&#x110000;"), 3, 15},
        {"controle cru em ISO-8859-1", ComTexto("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n", "\xE9\x01"), 3, 16},
        {"U+FFFF cru", ComTexto(Utf8, "\xEF\xBF\xBF"), 3, 15},
        {"CR sozinho também termina linha", Utf8 + "<CAMADA>\r<Texto Texto=\"\x02\"/>\r</CAMADA>", 3, 15},
    };
    for (const auto &c : casos) {
        ASSERT_TRUE(Escrever(nome, c.Bytes));
        TGISObjetoList lista;
        try {
            TTratadorDeArquivosXML(lista).Ler(nome);
            ADD_FAILURE() << c.Caso;
        } catch (const EFilerError &e) {
            const QString onde = QStringLiteral("linha %1, coluna %2:").arg(c.Linha).arg(c.Coluna);
            EXPECT_TRUE(e.Message().contains(nome) && e.Message().contains(onde)) << c.Caso << ": " << e.what();
        }
        EXPECT_EQ(lista.Count(), 0) << c.Caso; // nada foi lido
    }

    // Uma codificação que o leitor não confere é recusada pelo nome, não lida como UTF-8.
    ASSERT_TRUE(Escrever(nome, ComTexto("<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n", "\x80")));
    TGISObjetoList lista;
    try {
        TTratadorDeArquivosXML(lista).Ler(nome);
        ADD_FAILURE();
    } catch (const EFilerError &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("\"windows-1252\""))) << e.what();
    }

    // Um objeto solto em texto passa pela mesma conferência.
    try {
        TTratadorDeArquivosXML::ObterObjeto(QStringLiteral("<Texto Texto=\"a&#0;b\"/>"));
        ADD_FAILURE();
    } catch (const EFilerError &e) {
        EXPECT_TRUE(e.Message().startsWith(QStringLiteral("O texto, linha 1, coluna 16:"))) << e.what();
    }
}

TEST(DocumentoHostil, OQueEValidoContinuaLidoIgual)
{
    QTemporaryDir dir;
    const QString nome = dir.filePath(QStringLiteral("mapa.xml"));
    const auto textoLido = [&](const QByteArray &bytes) {
        EXPECT_TRUE(Escrever(nome, bytes));
        TGISObjetoList lista;
        TTratadorDeArquivosXML(lista).Ler(nome);
        EXPECT_EQ(lista.Count(), 1);
        return lista.Count() == 1 ? static_cast<TGISTexto *>(lista.Items(0))->Texto() : QString();
    };
    const QString esperado = QStringLiteral("Açaí \U0001F600\u0080");
    // ISO-8859-1 (o padrão do gravador), UTF-8 com marca de ordem de bytes, referências (também a
    // U+0080, que o XML 1.0 admite), e referências proibidas dentro de comentário, CDATA e
    // instrução de processamento, onde são só texto.
    EXPECT_EQ(textoLido(ComTexto("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n",
                                 "A\xE7" "a\xED &#x1F600;\x80")),
              esperado);
    EXPECT_EQ(textoLido("\xEF\xBB\xBF" + ComTexto(Utf8, esperado.toUtf8())), esperado);
    EXPECT_EQ(textoLido(Utf8 + "<!-- &#0; --><?pi &#1;?><CAMADA><![CDATA[&#0;]]><!---->\r\n<Texto Texto=\"A&#231;a&#xED; "
                               "&#128512;&#x80;\"/></CAMADA>"),
              esperado);
    // UTF-16 com a marca de ordem de bytes, nas duas ordens.
    const QString documento = QString::fromUtf8(ComTexto("", esperado.toUtf8()));
    for (const bool little : {true, false}) {
        QByteArray bytes = little ? QByteArray("\xFF\xFE") : QByteArray("\xFE\xFF");
        for (const QChar c : documento) {
            const char alto = static_cast<char>(c.unicode() >> 8), baixo = static_cast<char>(c.unicode() & 0xFF);
            bytes.append(little ? baixo : alto).append(little ? alto : baixo);
        }
        EXPECT_EQ(textoLido(bytes), esperado) << little;
        bytes.chop(1); // termina no meio de um caractere
        EXPECT_THROW(textoLido(bytes), EFilerError);
        bytes = little ? QByteArray("\xFF\xFE<\0\x00\xD8>\0", 8) : QByteArray("\xFE\xFF\0<\xD8\x00\0>", 8);
        EXPECT_THROW(textoLido(bytes), EFilerError); // um substituto solto
    }
}
