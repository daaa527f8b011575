// As docas das visões na janela da demonstração, num X de verdade (Xvfb): a fotografia da tela
// tirada de fora do programa mostra o mapa de situação com o retângulo vermelho da visão e o
// painel de camadas com texto, à direita do mapa.

#include "Processos.h"
#include "Xwd.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

using namespace tavru::teste;

namespace {

struct TDocas
{
    int Vermelhos = 0;   ///< pixels do retângulo da visão
    QRect Retangulo;     ///< onde eles estão
    int Escuros = 0;     ///< pixels de texto (nomes das camadas, entidades)
};

TDocas Examinar(const QImage &imagem, const QRect &regiao)
{
    TDocas d;
    for (int y = regiao.top(); y <= regiao.bottom(); ++y)
        for (int x = regiao.left(); x <= regiao.right(); ++x) {
            const QRgb p = imagem.pixel(x, y);
            if (qRed(p) > 230 && qGreen(p) < 30 && qBlue(p) < 30) {
                ++d.Vermelhos;
                d.Retangulo |= QRect(x, y, 1, 1);
            } else if (qGray(p) < 60) {
                ++d.Escuros;
            }
        }
    return d;
}

TEST(TavruMapa, DocasDeCamadasESituacaoNumXDeVerdade)
{
    TProgramaNaTela t;
    if (const QString motivo = t.Iniciar(QStringLiteral(TAVRU_MAPA), {}); !motivo.isEmpty())
        GTEST_SKIP() << motivo.toStdString();
    const QString &aviso = t.Aviso;
    EXPECT_EQ(aviso, QStringLiteral("Mapa na tela")) << t.Programa.readAllStandardError().toStdString();

    // A janela (1100 x 760) fica no canto; as docas ocupam a faixa da direita.
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const QString foto = pasta.filePath("tela.xwd");
    const QRect faixa(760, 60, 340, 690);
    TDocas d;
    for (int tentativa = 0; tentativa < 20 && aviso == QStringLiteral("Mapa na tela"); ++tentativa) {
        const QImage imagem = FotografarTela(t.Xwd, t.Tela, foto);
        ASSERT_FALSE(imagem.isNull());
        d = Examinar(imagem, faixa);
        if (d.Vermelhos > 40 && d.Escuros > 500)
            break;
        QThread::msleep(250);
    }
    // O retângulo da visão: uma moldura (não um borrão), menor que a faixa das docas.
    EXPECT_GT(d.Vermelhos, 40);
    EXPECT_LT(d.Vermelhos, d.Retangulo.width() * d.Retangulo.height() / 2);
    EXPECT_LT(d.Retangulo.width(), faixa.width());
    EXPECT_GT(d.Retangulo.width(), 10);
    // O painel de camadas e a árvore têm texto.
    EXPECT_GT(d.Escuros, 500);
}

} // namespace
