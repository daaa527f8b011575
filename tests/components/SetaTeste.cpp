// A seta de seleção: ponta no ponto dado, cor do pincel, tamanho, e o canvas devolvido como estava.

#include <tavru/companions/components/TSeta.h>
#include <tavru/platform/TCanvas.h>

#include <gtest/gtest.h>

using namespace tavru;

TEST(TSeta, DesenhaComAPontaNoPontoEDevolveOCanvas)
{
    TSeta seta;
    EXPECT_FALSE(seta.Mostrar());
    seta.Brush().Color = RGB(0, 0, 255);
    seta.AtribuirTamanho(30);
    seta.Mover(TPoint(20, 50));
    QImage imagem(80, 80, QImage::Format_ARGB32_Premultiplied);
    imagem.fill(Qt::white);
    TCanvas canvas(&imagem);
    canvas.Pen().Color = clGreen;
    canvas.Brush().Style = bsCross;
    seta.Desenhar(canvas);
    EXPECT_EQ(canvas.Pen().Color, clGreen);
    EXPECT_EQ(canvas.Brush().Style, bsCross);
    canvas.AtribuirImagem(nullptr);
    auto cor = [&](int x, int y) { return imagem.pixel(x, y) & 0xFFFFFF; };
    EXPECT_EQ(cor(23, 47), 0x0000FFu); // dentro da cabeça, junto da ponta
    EXPECT_EQ(cor(18, 52), 0xFFFFFFu); // abaixo e à esquerda da ponta: nada
    EXPECT_EQ(cor(45, 25), 0x0000FFu); // a haste sobe para a direita, até o tamanho
    EXPECT_EQ(cor(55, 10), 0xFFFFFFu);
}
