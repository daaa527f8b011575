// Os símbolos desenhados num retângulo de tela (ajuste, giro, setores, fonte, figura), conferidos
// em pixels decisivos, e a tabela: índices, e a forma XML de ida e volta e com erros.

#include <tavru/companions/symbology/TSimboloFonte.h>
#include <tavru/companions/symbology/TSimboloGrafico.h>
#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;

namespace {
constexpr double Pi = 3.14159265358979323846;
constexpr TColor Verde = 0x0000C000;

struct Tela
{
    QImage Imagem{101, 101, QImage::Format_ARGB32_Premultiplied};
    TCanvas Canvas{&Imagem};
    Tela()
    {
        Imagem.fill(Qt::white);
        Canvas.Pen().Color = 0x00808080;
        Canvas.Brush().Color = 0x00808080;
    }
    TColor operator()(int x, int y) { return Canvas.Pixel(x, y); }
};

TPoligono *Poligono(std::initializer_list<TPoint> pontos, TColor cor, bool preenchido)
{
    auto *p = new TPoligono;
    for (const TPoint &ponto : pontos)
        p->ObterListaPosicao().Add(ponto);
    p->Caneta().Color = cor;
    p->Pincel().Color = cor;
    p->AtribuirPreenchido(preenchido);
    return p;
}

TSetor *Setor(TSetor *s, double externo, double interno, double inicial, double final_)
{
    s->AtribuirRaioExterno(externo);
    s->AtribuirRaioInterno(interno);
    s->AtribuirAnguloInicial(inicial);
    s->AtribuirAnguloFinal(final_);
    s->Caneta().Color = Verde;
    s->Pincel().Color = Verde;
    return s;
}
} // namespace

TEST(SimboloVetorial, AjustaAoRetanguloComAMesmaEscalaEGira)
{
    // Área de 200 x 100 unidades: um quadrado vermelho no quarto de cima à esquerda e uma linha
    // azul na borda de baixo à direita.
    TSimboloVetorial s(QStringLiteral("Placa"));
    s.Elementos().Add(Poligono({{0, 0}, {100, 0}, {100, 50}, {0, 50}}, clRed, true));
    s.Elementos().Add(Poligono({{100, 100}, {200, 100}}, clBlue, false));
    s.Elementos().Add(nullptr); // nulos são pulados
    EXPECT_EQ(s.Elementos().ObterArea(), TRect(0, 0, 200, 100));

    // 200 x 100 num quadrado de 101: a faixa do meio, de y 25 a 75.
    Tela reto;
    s.Desenhar(reto.Canvas, TRect(0, 0, 101, 101));
    EXPECT_EQ(reto(25, 35), clRed);
    EXPECT_EQ(reto(25, 65), clWhite);
    EXPECT_EQ(reto(25, 15), clWhite); // acima da faixa: a escala não é a de cada eixo
    EXPECT_EQ(reto(75, 75), clBlue);
    EXPECT_EQ(reto(75, 70), clWhite);
    EXPECT_EQ(reto.Canvas.Pen().Color, 0x00808080); // o estado do canvas volta

    // Um quarto de volta anti-horário: o que estava em cima à esquerda vai para baixo à esquerda.
    Tela girado;
    s.DesenharRotacionado(girado.Canvas, TRect(101, 101, 0, 0), Pi / 2); // cantos trocados valem
    EXPECT_EQ(girado(35, 75), clRed);
    EXPECT_EQ(girado(35, 25), clWhite);
    EXPECT_EQ(girado(75, 25), clBlue);

    // Sem elementos, ou num retângulo vazio, nada.
    Tela vazio;
    TSimboloVetorial().Desenhar(vazio.Canvas, TRect(0, 0, 101, 101));
    s.Desenhar(vazio.Canvas, TRect(0, 0, 0, 101));
    for (int y = 0; y < 101; y += 5)
        for (int x = 0; x < 101; x += 5)
            ASSERT_EQ(vazio(x, y), clWhite) << x << "," << y;
}

TEST(SimboloVetorial, SetoresAneisElipsesPontosETextos)
{
    const auto desenhar = [](TSetor *setor) {
        auto t = std::make_unique<Tela>();
        TSimboloVetorial s;
        s.Elementos().Add(setor);
        s.Desenhar(t->Canvas, TRect(0, 0, 101, 101));
        return t;
    };
    // Do norte ao leste no sentido horário: o quarto de cima à direita.
    auto quarto = desenhar(Setor(new TSetor, 50, 0, Pi / 2, 0));
    EXPECT_EQ((*quarto)(75, 25), Verde);
    EXPECT_EQ((*quarto)(25, 25), clWhite);
    EXPECT_EQ((*quarto)(75, 75), clWhite);
    EXPECT_EQ((*quarto)(25, 75), clWhite);
    // Ângulos iguais: disco inteiro; com raio interno: anel, com o centro vazio.
    auto disco = desenhar(Setor(new TSetor, 50, 0, 1.0, 1.0));
    EXPECT_EQ((*disco)(25, 75), Verde);
    EXPECT_EQ((*disco)(50, 50), Verde);
    auto anel = desenhar(Setor(new TSetor, 50, 25, 0, 0));
    EXPECT_EQ((*anel)(50, 50), clWhite);
    EXPECT_EQ((*anel)(50, 88), Verde);
    EXPECT_EQ((*anel)(12, 50), Verde);
    // Setor de anel do leste ao norte no sentido horário: três quartos, sem o de cima à direita.
    auto tresQuartos = desenhar(Setor(new TSetor, 50, 25, 0, Pi / 2));
    EXPECT_EQ((*tresQuartos)(50 + 26, 50 - 26), clWhite);
    EXPECT_EQ((*tresQuartos)(50 - 26, 50 + 26), Verde);
    EXPECT_EQ((*tresQuartos)(50, 50), clWhite);

    // Elipse de semi-eixos 50 x 25: achatada. Sem o semi-eixo vertical, círculo.
    auto *e = static_cast<TElipse *>(Setor(new TElipse, 50, 0, 0, 0));
    e->AtribuirRaioExternoY(25);
    auto elipse = desenhar(e);
    EXPECT_EQ((*elipse)(90, 50), Verde);
    EXPECT_EQ((*elipse)(50, 40), Verde);
    EXPECT_EQ((*elipse)(50, 15), clWhite);
    auto circulo = desenhar(Setor(new TElipse, 50, 0, 0, 0));
    EXPECT_EQ((*circulo)(50, 15), Verde);

    // Um ponto só: escala 1, cruz no centro com braços de um oitavo do lado; o texto sem
    // tamanho no símbolo não muda a área.
    TSimboloVetorial marca;
    marca.Elementos().Add(new TPonto(TPoint(7, -3), clRed));
    auto *texto = new TTexto;
    texto->AtribuirPosicao(TPoint(7, -3));
    texto->AtribuirTexto(QStringLiteral("W"));
    texto->Fonte().Color = clBlue;
    texto->Fonte().SetHeight(-30);
    texto->AtribuirAlinhamentoVertical(1); // a posição em cima: o texto desce dela
    marca.Elementos().Add(texto);
    EXPECT_EQ(marca.Elementos().ObterArea(), TRect(7, -3, 7, -3));
    Tela t;
    marca.Desenhar(t.Canvas, TRect(0, 0, 101, 101));
    EXPECT_EQ(t(50 - 12, 50), clRed);
    EXPECT_EQ(t(50, 50 - 12), clRed); // o braço de cima (o texto cobre o de baixo)
    EXPECT_EQ(t(50 - 14, 50), clWhite);
    int azulEmCima = 0, azulEmbaixo = 0;
    for (int y = 0; y < 101; ++y)
        for (int x = 0; x < 101; ++x)
            if (qBlue(t.Imagem.pixel(x, y)) > 200 && qRed(t.Imagem.pixel(x, y)) < 60)
                (y < 50 ? azulEmCima : azulEmbaixo)++;
    EXPECT_EQ(azulEmCima, 0);
    EXPECT_GT(azulEmbaixo, 20);
}

TEST(SimboloFonteEGrafico, DesenhamCentradosNoRetangulo)
{
    TSimboloFonte fonte;
    fonte.Fonte().Color = clBlue;
    Tela nada;
    fonte.Desenhar(nada.Canvas, TRect(0, 0, 101, 101)); // código 0: nada
    fonte.AtribuirLetra(QChar(u'M'));
    Tela t;
    fonte.Desenhar(t.Canvas, TRect(20, 30, 80, 70));
    int dentro = 0, fora = 0, somaX = 0, soma = 0;
    for (int y = 0; y < 101; ++y)
        for (int x = 0; x < 101; ++x) {
            const bool azul = qBlue(t.Imagem.pixel(x, y)) > 200 && qRed(t.Imagem.pixel(x, y)) < 60;
            const bool naoBranco = nada.Imagem.pixel(x, y) != qRgb(255, 255, 255);
            ASSERT_FALSE(naoBranco);
            if (!azul)
                continue;
            (x >= 20 && x < 80 && y >= 28 && y < 72 ? dentro : fora)++;
            somaX += x, ++soma;
        }
    EXPECT_GT(dentro, 50);
    EXPECT_EQ(fora, 0);
    EXPECT_NEAR(double(somaX) / soma, 50, 4); // centrado na horizontal

    // Figura de 2 x 1 (vermelho | azul) num quadrado: a faixa do meio, sem distorcer.
    QTemporaryDir pasta;
    const QString arquivo = pasta.filePath(QStringLiteral("placa.png"));
    QImage figura(2, 1, QImage::Format_RGB32);
    figura.setPixel(0, 0, qRgb(255, 0, 0));
    figura.setPixel(1, 0, qRgb(0, 0, 255));
    ASSERT_TRUE(figura.save(arquivo));
    TSimboloGrafico grafico;
    grafico.LerArquivo(arquivo);
    Tela g;
    grafico.DesenharRotacionado(g.Canvas, TRect(0, 0, 100, 100), 1.0); // não gira
    EXPECT_EQ(g(10, 50), clRed);
    EXPECT_EQ(g(90, 50), clBlue);
    EXPECT_EQ(g(10, 20), clWhite);
    EXPECT_EQ(g(90, 80), clWhite);

    // Arquivo que falta ou não é figura: erro, o nome fica, a figura anterior também.
    try {
        grafico.LerArquivo(pasta.filePath(QStringLiteral("nada.png")));
        FAIL();
    } catch (const EInOutError &e) {
        EXPECT_EQ(e.Message(), QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    }
    QFile lixo(pasta.filePath(QStringLiteral("lixo.png")));
    ASSERT_TRUE(lixo.open(QIODevice::WriteOnly));
    lixo.write("isto nao e figura");
    lixo.close();
    EXPECT_THROW(grafico.LerArquivo(lixo.fileName()), EInOutError);
    EXPECT_EQ(grafico.NomeArquivo(), lixo.fileName());
    EXPECT_EQ(grafico.Imagem().width(), 2);
}

TEST(TTabelaDeSimbolos, IndicesForaDaTabelaNaoDesenham)
{
    TTabelaDeSimbolos tabela;
    EXPECT_EQ(tabela.Adicionar(std::make_unique<TSimboloFonte>(QStringLiteral("Âncora"))), 0);
    EXPECT_EQ(tabela.Adicionar(nullptr), -1);
    EXPECT_EQ(tabela.IndiceDoNome(QStringLiteral("Âncora")), 0);
    EXPECT_EQ(tabela.IndiceDoNome(QStringLiteral("âncora")), -1);
    Tela t;
    EXPECT_TRUE(tabela.DesenharRotacionado(0, t.Canvas, TRect(0, 0, 10, 10), 0));
    EXPECT_FALSE(tabela.DesenharRotacionado(1, t.Canvas, TRect(0, 0, 10, 10), 0));
    EXPECT_FALSE(tabela.DesenharRotacionado(-1, t.Canvas, TRect(0, 0, 10, 10), 0));
    EXPECT_THROW(tabela.Remover(1), EListError);
    tabela.Remover(0);
    EXPECT_EQ(tabela.ObterSimbolo(0), nullptr);
}
