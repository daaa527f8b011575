// Telas de alta densidade: o buffer acompanha a razão de pixels, as linhas de um pixel ficam com
// um pixel lógico de largura, e a projeção, as conversões e as consultas não mudam com a razão.
// A suavização é opcional.

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISLinha.h>

#include <QImage>
#include <gtest/gtest.h>

using namespace tavru;

namespace {

constexpr TColor Vermelho = 0x0000FF;

template <typename T>
T *Figura(TGISCamada &camada, std::initializer_list<TGISPosicao> pontos, const QString &nome)
{
    auto *f = new T;
    f->Pontos().Add(new TGISPosicaoList);
    int i = 0;
    for (const TGISPosicao &p : pontos)
        f->InserirPonto(0, i++, p);
    f->CalcularLimites();
    f->Informacoes().AtribuirCampo(QStringLiteral("Nome"), nome);
    camada.Objetos().Add(f);
    return f;
}

// Um mapa de 200 x 100 com um quadro cinza e uma linha vermelha de um pixel no meio, horizontal,
// e uma diagonal vermelha.
class AltaDensidade : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(200, 100);
        gis.AtribuirColor(0xFFFFFF);
        auto *camada = new TGISCamada(QStringLiteral("c"));
        gis.Camadas().Add(camada);
        Figura<TGISArea>(*camada, {GISPosicao(-36000, -72000), GISPosicao(36000, -72000), GISPosicao(36000, 72000),
                                   GISPosicao(-36000, 72000)}, QStringLiteral("quadro"));
        Figura<TGISLinha>(*camada, {GISPosicao(0, -36000), GISPosicao(0, 36000)}, QStringLiteral("meio"))->Caneta().Color = Vermelho;
        Figura<TGISLinha>(*camada, {GISPosicao(-30000, -60000), GISPosicao(30000, -20000)}, QStringLiteral("diagonal"))
            ->Caneta().Color = Vermelho;
        camada->Visibilidade(true, true);
        gis.Zerado();
    }

    // Pixels vermelhos (puros) e pixels de meio-tom (nem branco, nem vermelho, nem o preto do
    // quadro) numa coluna do buffer, em pixels do aparelho.
    int Vermelhos(int x) const
    {
        int n = 0;
        for (int y = 0; y < gis.Buffer().height(); ++y)
            n += gis.Buffer().pixel(x, y) == qRgb(255, 0, 0);
        return n;
    }

    TGis gis;
};

} // namespace

TEST_F(AltaDensidade, BufferDobraELinhaTemUmPixelLogico)
{
    gis.AtribuirRazaoDePixels(1.0);
    gis.FitToWindow();
    EXPECT_EQ(gis.Buffer().size(), QSize(200, 100));
    EXPECT_EQ(Vermelhos(100), 1);
    const TRect telaEm1 = gis.Projecao()->AreaTela();
    const TPoint centroEm1 = gis.Projecao()->MundoParaTela(GISPosicao(0, 0));
    const TPoint cantoEm1 = gis.Projecao()->MundoParaTela(GISPosicao(36000, -72000));

    gis.AtribuirRazaoDePixels(2.0);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer().size(), QSize(400, 200));
    EXPECT_EQ(gis.Buffer().devicePixelRatio(), 2.0);
    EXPECT_EQ(gis.ImagemTela().size(), QSize(400, 200));
    EXPECT_EQ(Vermelhos(200), 2); // a linha de um pixel tem dois pixels do aparelho
    // A projeção e as conversões ficam em pixels lógicos.
    EXPECT_EQ(gis.Projecao()->AreaTela(), telaEm1);
    EXPECT_EQ(gis.Projecao()->MundoParaTela(GISPosicao(0, 0)), centroEm1);
    EXPECT_EQ(gis.Projecao()->MundoParaTela(GISPosicao(36000, -72000)), cantoEm1);

    // Uma razão fracionária arredonda o tamanho do aparelho; 0 volta a seguir a tela (1 aqui).
    gis.AtribuirRazaoDePixels(1.5);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer().size(), QSize(300, 150));
    gis.AtribuirRazaoDePixels(0.0);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer().size(), QSize(200, 100));
    gis.AtribuirRazaoDePixels(-3.0); // inválida: segue a tela
    EXPECT_EQ(gis.RazaoDePixels(), 0.0);
}

TEST_F(AltaDensidade, ConsultasIguaisEmUmEDois)
{
    gis.FitToWindow();
    const TPoint meio = gis.Projecao()->MundoParaTela(GISPosicao(0, 0));
    const TPoint diagonal = gis.Projecao()->MundoParaTela(GISPosicao(0, -40000));
    const TPoint vazio = gis.Projecao()->MundoParaTela(GISPosicao(-20000, 50000));
    QStringList respostas[2];
    for (int r = 0; r < 2; ++r) {
        gis.AtribuirRazaoDePixels(r + 1.0);
        gis.Desenhar();
        for (const TPoint &p : {meio, diagonal, vazio}) {
            const TGISObjeto *o = gis.ObterObjeto(p);
            respostas[r] << (o ? o->Informacoes().ObterValor(QStringLiteral("Nome")) : QStringLiteral("-"));
        }
    }
    EXPECT_EQ(respostas[0], respostas[1]);
    EXPECT_EQ(respostas[0].at(0), QStringLiteral("meio"));
    EXPECT_EQ(respostas[0].at(1), QStringLiteral("diagonal"));
}

TEST_F(AltaDensidade, SuavizarEOpcionalEDesligadoPorPadrao)
{
    // Na diagonal há pixels de meio-tom só com a suavização ligada.
    const auto meiosTons = [this] {
        int n = 0;
        const QImage &b = gis.Buffer();
        for (int y = 0; y < b.height(); ++y)
            for (int x = 0; x < b.width() / 2; ++x) {
                const QRgb c = b.pixel(x, y);
                n += qRed(c) == 255 && qGreen(c) > 0 && qGreen(c) < 255;
            }
        return n;
    };
    EXPECT_FALSE(gis.Suavizar());
    gis.FitToWindow();
    EXPECT_EQ(meiosTons(), 0);
    gis.AtribuirSuavizar(true);
    gis.Desenhar();
    EXPECT_GT(meiosTons(), 0);
    gis.AtribuirSuavizar(false);
    gis.Desenhar();
    EXPECT_EQ(meiosTons(), 0);
}
