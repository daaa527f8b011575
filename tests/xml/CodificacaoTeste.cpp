// Os caminhos rápidos de graus dão o mesmo que a geodésia, e o documento vira bytes pela
// codificação que o cabeçalho declara.

#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/CodificacaoXML_p.h>

#include <gtest/gtest.h>
#include <cstring>
#include <limits>
#include <memory>
#include <random>

using namespace tavru;
using namespace tavru::xmlp;

TEST(CodificacaoXML, GrausRapidosIguaisAosDaGeodesia)
{
    std::vector<std::int32_t> valores = {0, -1, 3599, -3600, 324000, -648000, std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()};
    std::mt19937 gerador(20240611);
    std::uniform_int_distribution<std::int32_t> mundo(-648000, 648000);
    for (int i = 0; i < 5000; ++i)
        valores.push_back(mundo(gerador));
    for (const std::int32_t v : valores)
        for (const bool latitude : {true, false}) {
            ASSERT_EQ(Grau(v, latitude), IntToGrau(v, latitude)) << v;
            ASSERT_EQ(LerGrau(IntToGrau(v, latitude).toUtf8().constData()), v) << v;
        }
    // Outras formas passam por GrauToInt; minutos de 60 e graus fora dos 32 bits são recusados.
    for (const char *t : {"23°30'00''s", "23 30 00 S", "-23.5", "5°00'00''N"})
        EXPECT_EQ(LerGrau(t), GrauToInt(QString::fromUtf8(t))) << t;
    EXPECT_THROW(LerGrau("10°60'00''N"), EConvertError);
    EXPECT_THROW(LerGrau("9999999°00'00''N"), EConvertError);
    // Sem a letra, o texto acaba logo depois das aspas e vai à geodésia sem que o caminho rápido
    // leia além do fim (o ASan veria).
    const QByteArray semLetra("12°34'56''");
    const std::unique_ptr<char[]> justo(new char[semLetra.size() + 1]);
    std::memcpy(justo.get(), semLetra.constData(), static_cast<size_t>(semLetra.size()) + 1);
    EXPECT_EQ(LerGrau(justo.get()), GrauToInt(QString::fromUtf8(semLetra)));
}

TEST(CodificacaoXML, DocumentoNaCodificacaoDoCabecalho)
{
    const QString latin = QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>");
    EXPECT_EQ(CodificarDocumento({latin, QStringLiteral("São 23°")}, latin), latin.toLatin1() + "\r\nS\xE3o 23\xB0\r\n");
    const QString utf8 = QStringLiteral("<?xml version='1.0' encoding='utf-8'?>");
    EXPECT_EQ(CodificarDocumento({QStringLiteral("5 €")}, utf8), QStringLiteral("5 €\r\n").toUtf8());
    // Sem declaração, o XML é UTF-8.
    EXPECT_EQ(CodificarDocumento({QStringLiteral("ã")}, QStringLiteral("<?xml version=\"1.0\"?>")),
              QStringLiteral("ã\r\n").toUtf8());
    try {
        CodificarDocumento({latin, QStringLiteral("ok"), QStringLiteral("preço: 5 €")}, latin);
        FAIL() << "o euro não cabe em ISO-8859-1";
    } catch (const EConvertError &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("\"€\" (U+20AC) da linha 3"))) << e.what();
    }
    EXPECT_THROW(CodificarDocumento({QStringLiteral("a")}, QStringLiteral("<?xml encoding=\"windows-1252\"?>")),
                 EConvertError);
    EXPECT_THROW(CodificarDocumento({QString(QChar(0xD800))}, utf8), EConvertError); // substituto solto
}
