// Valores enormes e textos longos: a mensagem de erro cita pouco e diz o comprimento, e o texto do
// mapa é medido quando o texto ou a fonte mudam pela API, não a cada extensão ou desenho.

#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/geodesy/UTM.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <gtest/gtest.h>

#include <QFontMetrics>

#include <functional>

using namespace tavru;

namespace {

QString Erro(const std::function<void()> &f)
{
    try {
        f();
    } catch (const Exception &e) {
        return e.Message();
    }
    return QStringLiteral("sem erro");
}

} // namespace

TEST(MensagensHostis, ValorEnormeViraCitacaoCurtaComOComprimento)
{
    const QString enorme = QStringLiteral("1") + QString(10 * 1024 * 1024 - 1, QLatin1Char('x'));
    const QString atributo = QStringLiteral("<Ponto Latitude=\"%1\"/>").arg(enorme);
    double lat = 0, lon = 0;
    const std::function<void()> conversores[] = {
        [&] { GrauToInt(enorme); },
        [&] { StrToDistancia(enorme); },
        [&] { StrToAngulo(enorme); },
        [&] { ConverteGradeUTM_para_LatLong(enorme, 0, 0, 0, lat, lon); },
        [&] { TTratadorDeArquivosXML::ObterObjeto(atributo); },                            // inteiro
        [&] { TTratadorDeArquivosXML::ObterObjeto(QString(atributo).replace("Latitude", "Cor")); }, // cor
        [&] { TTratadorDeArquivosXML::ObterObjeto(QStringLiteral("<Texto AlinhamentoVertical=\"%1\"/>").arg(enorme)); },
    };
    for (const auto &converter : conversores) {
        const QString erro = Erro(converter);
        EXPECT_LT(erro.size(), 200) << erro.left(300).toStdString();
        EXPECT_TRUE(erro.contains(QStringLiteral("\"1") + QString(56, QLatin1Char('x')) + QStringLiteral("...\"")))
            << erro.left(300).toStdString();
        EXPECT_TRUE(erro.contains(QStringLiteral("(texto de 10485760 caracteres)"))) << erro.toStdString();
    }

    // 60 caracteres vão inteiros; 61 são cortados. Um caractere fora do plano básico no corte não
    // é partido ao meio.
    EXPECT_EQ(CitarValor(QString(60, QLatin1Char('a'))), QLatin1Char('"') + QString(60, QLatin1Char('a')) + QLatin1Char('"'));
    EXPECT_EQ(CitarValor(QString(61, QLatin1Char('a'))),
              QLatin1Char('"') + QString(57, QLatin1Char('a')) + QStringLiteral("...\" (texto de 61 caracteres)"));
    const QString comEmoji = QString(56, QLatin1Char('a')) + QStringLiteral("\U0001F600") + QString(10, QLatin1Char('b'));
    EXPECT_EQ(CitarValor(comEmoji),
              QLatin1Char('"') + QString(56, QLatin1Char('a')) + QStringLiteral("...\" (texto de 68 caracteres)"));
}

TEST(MensagensHostis, TextoMedidoQuandoMudaPelaAPIEGuardado)
{
    const auto largura = [](const TFont &fonte, const QString &texto) {
        return QFontMetrics(fonte.ParaQFont()).horizontalAdvance(texto);
    };
    TGISTexto t;
    t.AtribuirAlinhamentoHorizontal(0);
    t.AtribuirAlinhamentoVertical(0);
    const auto larguraDaArea = [&] { return t.Area().Pos2.Longitude - t.Area().Pos1.Longitude; };
    const QString texto = QStringLiteral("Porto de Santos");
    t.AtribuirTexto(texto);
    const int pequena = largura(t.Fonte(), texto);
    EXPECT_EQ(larguraDaArea(), pequena);

    // A fonte mudada por fora da API não muda a medida até `MedirTexto`.
    t.Fonte().SetSize(40);
    const int grande = largura(t.Fonte(), texto);
    ASSERT_GT(grande, 2 * pequena);
    EXPECT_EQ(larguraDaArea(), pequena);
    QImage imagem(200, 200, QImage::Format_RGB32);
    TCanvas canvas(&imagem);
    TGISProjecaoMercator projecao;
    projecao.DoAtribuirAreaTela(TRect(0, 0, 200, 200));
    projecao.DoAtribuirAreaMundo(GISRet(-500, -500, 500, 500));
    t.Desenhar(canvas, projecao, false); // o desenho não mede
    EXPECT_EQ(larguraDaArea(), pequena);
    t.MedirTexto();
    EXPECT_EQ(larguraDaArea(), grande);

    // Pela API a medida é refeita na hora: fonte, texto e o texto vazio.
    TFont fonte;
    fonte.SetSize(12);
    t.AtribuirFonte(fonte);
    EXPECT_EQ(larguraDaArea(), largura(fonte, texto));
    t.AtribuirTexto(QStringLiteral("Ilha"));
    EXPECT_EQ(larguraDaArea(), largura(fonte, QStringLiteral("Ilha")));
    t.AtribuirTexto(QString());
    EXPECT_EQ(t.Area(), GISRet(0, 0, 0, 0));
}
