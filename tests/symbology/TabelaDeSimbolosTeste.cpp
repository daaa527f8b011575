// Tabela de símbolos e símbolo vetorial: desenho ajustado e girado, conferido em pixels.

#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;

namespace {
// Uma barra do centro da caixa até o norte, e um disco vermelho a leste.
std::unique_ptr<TSimboloVetorial> Seta()
{
    auto s = std::make_unique<TSimboloVetorial>(QStringLiteral("Seta"));
    TFiguraVetorial barra;
    barra.Pontos = {QPointF(-0.2, 0), QPointF(0.2, 0), QPointF(0.2, 1), QPointF(-0.2, 1)};
    s->AdicionarFigura(barra);
    TFiguraVetorial disco;
    disco.Tipo = TFiguraVetorial::fvPonto;
    disco.Pontos = {QPointF(0.7, 0)};
    disco.Raio = 0.1;
    disco.Cor = clRed;
    s->AdicionarFigura(disco);
    return s;
}

struct Tela
{
    QImage Imagem{100, 100, QImage::Format_ARGB32_Premultiplied};
    TCanvas Canvas{&Imagem};
    Tela()
    {
        Imagem.fill(Qt::white);
        Canvas.Pen().Color = clBlack;
        Canvas.Brush().Color = clBlack;
    }
};
} // namespace

TEST(TTabelaDeSimbolos, DesenhaSimboloVetorialGiradoOuNada)
{
    TTabelaDeSimbolos tabela;
    EXPECT_EQ(tabela.Adicionar(Seta()), 0);
    EXPECT_EQ(tabela.Adicionar(nullptr), -1);
    EXPECT_EQ(tabela.ObterTotal(), 1);
    EXPECT_EQ(tabela.IndiceDoNome(QStringLiteral("Seta")), 0);
    EXPECT_EQ(tabela.IndiceDoNome(QStringLiteral("seta")), -1);

    // Sem giro, num retângulo mais largo que alto: a caixa é o quadrado central de 100 x 100.
    Tela reto;
    ASSERT_TRUE(tabela.DesenharRotacionado(0, reto.Canvas, TRect(-50, 0, 150, 100), 0.0));
    EXPECT_EQ(reto.Canvas.Pixel(50, 20), clBlack); // barra para o norte
    EXPECT_EQ(reto.Canvas.Pixel(50, 80), clWhite);
    EXPECT_EQ(reto.Canvas.Pixel(85, 50), clRed); // disco a leste
    EXPECT_EQ(reto.Canvas.Pixel(15, 50), clWhite);
    EXPECT_EQ(reto.Canvas.Brush().Color, clBlack); // as cores do canvas voltam

    // Um quarto de volta anti-horário: a barra aponta para o oeste, o disco para o norte.
    Tela girado;
    ASSERT_TRUE(tabela.DesenharRotacionado(0, girado.Canvas, TRect(0, 0, 100, 100), std::acos(0.0)));
    EXPECT_EQ(girado.Canvas.Pixel(20, 50), clBlack);
    EXPECT_EQ(girado.Canvas.Pixel(50, 15), clRed);
    EXPECT_EQ(girado.Canvas.Pixel(80, 50), clWhite);
    EXPECT_EQ(girado.Canvas.Pixel(50, 85), clWhite);

    // Índice fora da tabela: nada é desenhado e a resposta é falsa, para quem chama desenhar outra coisa.
    Tela fora;
    EXPECT_FALSE(tabela.DesenharRotacionado(1, fora.Canvas, TRect(0, 0, 100, 100), 0.0));
    EXPECT_FALSE(tabela.DesenharRotacionado(-1, fora.Canvas, TRect(0, 0, 100, 100), 0.0));
    EXPECT_EQ(fora.Canvas.Pixel(50, 20), clWhite);
    tabela.Remover(0); // libera (AddressSanitizer confere)
    EXPECT_EQ(tabela.ObterSimbolo(0), nullptr);
}
