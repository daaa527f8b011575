// Os textos que o canvas prepara uma vez por fonte dão os mesmos pixels que o texto medido a cada
// vez (o caminho de um canvas usado fora da linha que o criou), e a caneta volta depois do texto.

#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <gtest/gtest.h>

#include <thread>

using namespace tavru;

namespace {

/// Textos em duas fontes (com e sem negrito), três alinhamentos, fundo pintado e transparente,
/// cores alternadas, repetidos (a segunda vez vem da tabela), com uma linha da caneta entre eles.
void Escrever(TCanvas &canvas)
{
    const QString textos[] = {QStringLiteral("Rio Azul"), QStringLiteral("São Gonçalo 123"), QStringLiteral("Ág")};
    for (int vez = 0; vez < 2; ++vez)
        for (int i = 0; i < 3; ++i) {
            canvas.Font().SetHeight(-(11 + 5 * i));
            canvas.Font().Style = i == 1 ? TFontStyles(1) : TFontStyles(0);
            canvas.Font().Color = i % 2 ? RGB(200, 0, 0) : RGB(0, 0, 160);
            canvas.Brush().Style = i == 2 ? bsClear : bsSolid;
            canvas.Brush().Color = RGB(255, 255, 0);
            canvas.SetTextAlign(i == 0 ? (TA_LEFT | TA_TOP) : i == 1 ? (TA_CENTER | TA_BASELINE) : (TA_RIGHT | TA_BOTTOM));
            canvas.TextOut(150, 30 + 45 * i + 140 * vez, textos[i]);
            canvas.Pen().Color = RGB(0, 128, 0);
            canvas.MoveTo(10, 20 + 45 * i + 140 * vez);
            canvas.LineTo(290, 20 + 45 * i + 140 * vez);
        }
}

} // namespace

TEST(TextosProntos, MesmosPixelsQueOTextoMedidoACadaVezEACanetaVolta)
{
    QImage pronta(300, 300, QImage::Format_ARGB32_Premultiplied);
    pronta.fill(Qt::white);
    QImage medida = pronta;
    {
        TCanvas canvas(&pronta);
        Escrever(canvas);
        EXPECT_EQ(canvas.TextWidth(QStringLiteral("Rio Azul")), canvas.TextWidth(QStringLiteral("Rio Azul")));
    }
    {
        TCanvas canvas(&medida); // criado aqui, usado noutra linha: sem textos prontos
        std::thread([&] {
            Escrever(canvas);
            canvas.AtribuirImagem(nullptr);
        }).join();
    }
    EXPECT_TRUE(pronta == medida);
    // A linha depois do texto tem a cor da caneta, não a do texto.
    EXPECT_EQ(pronta.pixelColor(12, 20 + 45), QColor(0, 128, 0));
    EXPECT_EQ(pronta.pixelColor(12, 20 + 140), QColor(0, 128, 0));
    // O texto saiu (fundo amarelo e tinta nas duas cores).
    int amarelos = 0;
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 300; ++x)
            amarelos += pronta.pixelColor(x, y) == QColor(255, 255, 0);
    EXPECT_GT(amarelos, 200);
}
