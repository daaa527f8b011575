#include <tavru/platform/TCanvas.h>

#include <gtest/gtest.h>

using namespace tavru;

namespace {

QImage Branca(int l = 100, int a = 60)
{
    QImage img(l, a, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::white);
    return img;
}

/// A caixa (esquerda, topo, direita, base) dos pixels não brancos, ou vazia.
QRect Tinta(const QImage &img)
{
    QRect r;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (img.pixel(x, y) != qRgb(255, 255, 255))
                r |= QRect(x, y, 1, 1);
    return r;
}

} // namespace

TEST(Cores, LeiauteBGREFonteEmPontosEPixels)
{
    EXPECT_EQ(ParaQColor(RGB(1, 2, 3)), QColor(1, 2, 3)); // vermelho no byte baixo
    EXPECT_EQ(DeQColor(QColor(0, 0, 255)), clBlue);
    EXPECT_EQ(ParaQColor(clNone).alpha(), 0);
    TFont f;
    f.SetSize(12);
    EXPECT_EQ(f.Height(), -16);
    f.SetHeight(-24);
    EXPECT_EQ(f.Size(), 18);
    f.Style = Estilo(fsBold);
    f.Color = clRed;
    for (const QFont &q : {f.ParaQFont(), QFont(QStringLiteral("DejaVu Serif"), 18, QFont::Bold)}) {
        TFont volta; // o diálogo de fonte devolve tamanhos em pixels ou em pontos
        volta.AtribuirQFont(q);
        EXPECT_EQ(volta.Height(), -24);
        EXPECT_EQ(volta.Style, Estilo(fsBold));
    }
    f.AtribuirQFont(QFont(QStringLiteral("DejaVu Serif")));
    EXPECT_EQ(f.Name, QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(f.Color, clRed) << "a cor não vem da QFont";
    EXPECT_EQ(ParaQtPenStyle(psClear), Qt::NoPen);
    EXPECT_EQ(ParaQtBrushStyle(bsDiagCross), Qt::DiagCrossPattern);
}

TEST(Canvas, RetanguloEElipseExcluemDireitaEBase)
{
    QImage img = Branca();
    {
        TCanvas c(&img);
        c.Pen().Color = clBlack;
        c.Brush().Style = bsClear;
        c.Rectangle(10, 10, 20, 15);
    }
    EXPECT_EQ(Tinta(img), QRect(QPoint(10, 10), QPoint(19, 14)));
    img = Branca();
    {
        TCanvas c(&img);
        c.Brush().Color = clRed;
        c.Ellipse(30, 20, 41, 31);
        EXPECT_EQ(c.Pixel(35, 25), clRed);
    }
    EXPECT_EQ(Tinta(img), QRect(QPoint(30, 20), QPoint(40, 30)));
    img = Branca();
    TCanvas(&img).Ellipse(41, 31, 30, 20);
    EXPECT_EQ(Tinta(img), QRect(QPoint(30, 20), QPoint(40, 30))) << "cantos em qualquer ordem";
}

TEST(Canvas, CanetaPincelEPosicao)
{
    QImage img = Branca();
    TCanvas c(&img);
    c.Pen().Color = clBlue;
    c.MoveTo(0, 5);
    c.LineTo(50, 5);
    EXPECT_EQ(c.PenPos(), TPoint(50, 5));
    EXPECT_EQ(c.Pixel(0, 5), clBlue);
    EXPECT_EQ(c.Pixel(49, 5), clBlue);
    c.Pen().Style = psClear;
    c.Brush().Color = clLime;
    const TPoint tri[] = {{10, 20}, {40, 20}, {25, 50}};
    c.Polygon(tri, 3);
    EXPECT_EQ(c.Pixel(25, 30), clLime);
    c.Brush().Style = bsClear;
    c.Pen().Style = psSolid;
    c.Pen().Color = clRed;
    const TPoint quad[] = {{60, 20}, {90, 20}, {90, 50}, {60, 50}};
    c.Polygon(quad, 4);
    EXPECT_EQ(c.Pixel(75, 35), clWhite) << "pincel transparente não preenche";
    EXPECT_EQ(c.Pixel(60, 35), clRed);
}

TEST(Canvas, InversaoDoDestinoDesfazSeAplicadaDuasVezes)
{
    QImage img = Branca();
    TCanvas c(&img);
    c.Brush().Color = clYellow;
    c.FillRect(TRect(0, 0, 50, 60));
    const TRect banda(20, 10, 70, 40);
    c.SetCopyMode(cmDstInvert);
    c.CopyRect(banda, c, banda);
    EXPECT_EQ(c.Pixel(30, 20), clBlue) << "amarelo invertido é azul";
    EXPECT_EQ(c.Pixel(60, 20), clBlack) << "branco invertido é preto";
    EXPECT_EQ(c.Pixel(70, 20), clWhite) << "a direita do retângulo fica de fora";
    c.CopyRect(banda, c, banda);
    EXPECT_EQ(c.Pixel(30, 20), clYellow);
    EXPECT_EQ(c.Pixel(60, 20), clWhite);
}

TEST(Canvas, AlinhamentoDoTexto)
{
    const QString texto = QStringLiteral("Rio Azul");
    auto caixa = [&](unsigned alinhamento, int escapamento = 0) {
        QImage img = Branca(200, 120);
        TCanvas c(&img);
        c.Font().Color = clBlack;
        c.Font().SetSize(12);
        c.Font().Escapement = escapamento;
        c.Brush().Style = bsClear;
        c.SetTextAlign(alinhamento);
        c.TextOut(100, 60, texto);
        EXPECT_EQ(c.PenPos().X, 100 + c.TextWidth(texto));
        return Tinta(img);
    };
    const QRect esquerda = caixa(TA_LEFT | TA_TOP);
    EXPECT_GE(esquerda.left(), 100);
    EXPECT_GE(esquerda.top(), 60);
    EXPECT_LE(caixa(TA_RIGHT).right(), 100);
    const QRect centro = caixa(TA_CENTER);
    EXPECT_LT(centro.left(), 100);
    EXPECT_GT(centro.right(), 100);
    EXPECT_LE(caixa(TA_BOTTOM).bottom(), 60);
    const QRect base = caixa(TA_BASELINE);
    EXPECT_LT(base.top(), 60);
    EXPECT_LE(base.bottom(), 60 + 5) << "só as descendentes passam da linha de base";
    const QRect girado = caixa(TA_LEFT | TA_TOP, 900);
    EXPECT_GT(girado.height(), girado.width()) << "900 décimos de grau deixam o texto em pé";
    EXPECT_LE(girado.top(), 60);

    QImage img = Branca(200, 120);
    TCanvas c(&img);
    c.Brush().Color = clYellow;
    unsigned anterior = c.SetTextAlign(TA_CENTER | TA_BASELINE);
    EXPECT_EQ(anterior, 0u);
    EXPECT_EQ(c.TextAlign(), 30u);
    c.SetTextAlign(TA_LEFT);
    c.TextOut(10, 10, texto);
    EXPECT_EQ(c.Pixel(11, 11), clYellow) << "pincel sólido pinta o fundo do texto";
}

TEST(Canvas, SemImagemSoMede)
{
    TCanvas c;
    c.LineTo(10, 10);
    EXPECT_EQ(c.PenPos(), TPoint(10, 10));
    EXPECT_GT(c.TextWidth(QStringLiteral("abc")), 0);
    EXPECT_EQ(c.Pixel(0, 0), clNone);
}
