// O formulário com os sete componentes num X de verdade (Xvfb), carregado pelo QUiLoader num
// processo à parte: a fotografia da tela mostra o mapa com a cor de fundo do formulário e os
// botões das barras com os seus bitmaps em cima dele.

#include "../apps/Processos.h"
#include "../apps/Xwd.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

using namespace tavru::teste;

TEST(FormularioNaTela, SeteComponentesPeloQUiLoader)
{
    TProgramaNaTela t;
    if (const QString motivo = t.Iniciar(QStringLiteral(TAVRU_MOSTRAR_FORMULARIO),
                                               {TAVRU_FORMULARIO, TAVRU_PASTA_PLUGIN_DESIGNER, TAVRU_DADOS "/mapa/cidades.xml"}); !motivo.isEmpty())
        GTEST_SKIP() << motivo.toStdString();
    const QString &aviso = t.Aviso;
    EXPECT_EQ(aviso, QStringLiteral("Formulario na tela")) << t.Programa.readAllStandardError().toStdString();

    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    int fundo = 0, coloridosNasBarras = 0, cidades = 0;
    for (int tentativa = 0; tentativa < 20 && aviso == QStringLiteral("Formulario na tela"); ++tentativa) {
        const QImage imagem = FotografarTela(t.Xwd, t.Tela, pasta.filePath("tela.xwd"));
        ASSERT_FALSE(imagem.isNull());
        fundo = coloridosNasBarras = cidades = 0;
        // O formulário tem 900 x 600 no canto; as barras ocupam a faixa de cima, o mapa a
        // esquerda do meio.
        for (int y = 0; y < 600; ++y)
            for (int x = 0; x < 900; ++x) {
                const QRgb p = imagem.pixel(x, y);
                if (p == qRgb(32, 160, 64))
                    ++fundo;
                else if (y < 45 && std::abs(qRed(p) - qGreen(p)) + std::abs(qGreen(p) - qBlue(p)) > 60)
                    ++coloridosNasBarras;
                else if (y >= 45 && x < 600 && qGray(p) < 50)
                    ++cidades;
            }
        if (fundo > 100000 && coloridosNasBarras > 200 && cidades > 500)
            break;
        QThread::msleep(250);
    }
    EXPECT_GT(fundo, 100000) << "a cor de fundo do formulário no mapa";
    EXPECT_GT(coloridosNasBarras, 200) << "os bitmaps dos botões das barras";
    EXPECT_GT(cidades, 500) << "as cidades e os seus rótulos sobre o fundo";
}
