// O ponto: tamanhos limitados na tela, o cache AreaDesenho, as figuras e o carimbo.

#include "CanvasGravador.h"

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/elements/GISElementos.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {
/// Símbolo que só anota o retângulo e o ângulo com que foi desenhado.
struct TSimboloAnotado : ISimbolo
{
    mutable TRect R;
    mutable double A = 0;
    void DesenharRotacionado(TCanvas &, const TRect &r, double a) const override { R = r, A = a; }
};
} // namespace

TEST(Ponto, TamanhoNaTelaLimitadoEmTodoZoomOuFixoCentrado)
{
    TGISProjecaoMercator projecao; // mundo inteiro em 640 x 480
    TGISPonto ponto, incluido;
    ponto.AtribuirPosicao(GISPosicao(3600, -7200));
    ASSERT_TRUE(incluido.ConfiguracaoPadrao(projecao, TPoint(100, 100)));
    EXPECT_EQ(incluido.Posicao(), projecao.TelaParaMundo(TPoint(100, 100)));
    bool viuLivre = false;
    for (double zoom : {0.1, 1.0, 10.0, 20.0, 100.0, 1000.0, 50000.0}) {
        projecao.AtribuirZoom(zoom);
        const TRect r = ponto.ObterAreaDesenho(projecao);
        EXPECT_TRUE(r.Width() >= 15 && r.Width() <= 150 && r.Height() >= 15 && r.Height() <= 150) << zoom;
        const TRect livre = ConcertaRect(projecao.MundoParaTelaRet(ponto.AreaNoMundo()));
        if (livre.Width() > 15 && livre.Width() < 150) {
            viuLivre = true;
            EXPECT_EQ(r.Width(), livre.Width()) << zoom;
        }
        const TRect i = incluido.ObterAreaDesenho(projecao);
        EXPECT_TRUE(i.Width() >= 5 && i.Width() <= 50 && i.Height() >= 5 && i.Height() <= 50) << zoom;
    }
    EXPECT_TRUE(viuLivre);

    // Tamanho fixo: centrado em todo zoom; tamanhos ímpares põem o pixel a mais à direita e embaixo.
    TProjecaoUmPorUm um;
    ponto.AtribuirPosicao(GISPosicao(123, -77));
    ponto.TamanhoNaTela(TPoint(20, 20));
    for (double zoom : {0.1, 3.0, 50000.0}) {
        um.AtribuirZoom(zoom);
        const TPoint c = um.MundoParaTela(ponto.Posicao());
        EXPECT_EQ(ponto.ObterAreaDesenho(um), TRect(c.X - 10, c.Y - 10, c.X + 10, c.Y + 10)) << zoom;
    }
    um.AtribuirZoom(1.0);
    ponto.TamanhoNaTela(TPoint(7, 9));
    const TPoint c = um.MundoParaTela(ponto.Posicao());
    EXPECT_EQ(ponto.ObterAreaDesenho(um), TRect(c.X - 3, c.Y - 4, c.X + 4, c.Y + 5));
}

TEST(Ponto, AreaAntesEDepoisDoDesenho)
{
    TGISPonto ponto;
    ponto.AtribuirPosicao(GISPosicao(1000, -1000));
    EXPECT_EQ(ponto.Area(), GISRet(-4000, -6000, 6000, 4000));
    ponto.AtribuirTamanhoNoMundo(GISPosicao(7, 101)); // metades truncadas
    EXPECT_EQ(ponto.Area(), GISRet(997, -1050, 1004, -949));
    TGISPonto ponta; // posição crua de um documento, na ponta dos 32 bits: a extensão satura
    ponta.AtribuirPosicao(GISPosicao(INT32_MAX - 10, INT32_MIN + 10));
    ponta.AtribuirTamanhoNoMundo(GISPosicao(100, 100));
    EXPECT_EQ(ponta.Area(), GISRet(INT32_MAX - 60, INT32_MIN, INT32_MAX, INT32_MIN + 60));

    TProjecaoUmPorUm projecao;
    ponto.AtribuirPosicao(GISPosicao(10, 20));
    ponto.AtribuirTamanhoNoMundo(GISPosicao(100, 100));
    ponto.TamanhoNaTela(TPoint(20, 20));
    TCanvas canvas;
    ponto.Desenhar(canvas, projecao, false);
    // Um pixel por segundo: o quadrado de 20 pixels volta ao mundo com 20 de lado.
    EXPECT_EQ(ponto.Area(), GISRet(0, 10, 20, 30));
    projecao.AtribuirZoom(2.0);
    EXPECT_EQ(ponto.Area(), GISRet(0, 10, 20, 30)); // só um novo leiaute muda o cache
    const TRect r = ponto.ObterAreaDesenho(projecao);
    EXPECT_TRUE(ponto.Pertence(projecao, r.TopLeft()) && ponto.Pertence(projecao, r.BottomRight()));
    EXPECT_FALSE(ponto.Pertence(projecao, TPoint(r.Right + 1, r.Top)));
    EXPECT_EQ(ponto.Area(), GISRet(5, 15, 15, 25));
    EXPECT_TRUE(ponto.ObterValido());
    ponto.AtribuirPosicao(GISPosicao(400000, 0));
    EXPECT_FALSE(ponto.ObterValido());
}

TEST(Ponto, FigurasCanetaEPincel)
{
    TProjecaoUmPorUm projecao;
    TGISPonto ponto; // em (0, 0): pixel (500, 500), retângulo (495, 496)-(506, 504)
    ponto.TamanhoNaTela(TPoint(11, 8));
    ponto.AtribuirCor(0x00123456);
    ponto.Caneta().Width = 2;
    ponto.Caneta().Color = 0x00FF0000;
    TCanvasGravador canvas;
    auto desenhar = [&](TForma forma, bool selecionado = false) {
        canvas.Chamadas.clear();
        canvas.Font().Name = QStringLiteral("do canvas");
        canvas.Pen().Color = 0x00ABCDEF;
        canvas.Brush().Style = bsDiagCross;
        ponto.AtribuirForma(forma);
        ponto.Desenhar(canvas, projecao, selecionado);
        EXPECT_EQ(canvas.Font().Name, QStringLiteral("do canvas")); // a fonte volta
        return canvas.Resumo();
    };
    EXPECT_EQ(desenhar(gisCruz), QStringLiteral("MoveTo 500,496; LineTo 500,504; MoveTo 495,500; LineTo 506,500"));
    const TChamada &c = canvas.Chamadas[1];
    EXPECT_EQ(c.Caneta.Color, clBlack); // a caneta do objeto, preta
    EXPECT_EQ(c.Caneta.Width, 2);
    EXPECT_EQ(c.Pincel, (TBrush{0x00123456, bsSolid}));
    EXPECT_EQ(desenhar(gisCirculo), QStringLiteral("Ellipse 495,496 506,504"));
    EXPECT_EQ(desenhar(gisQuadrado), QStringLiteral("Rectangle 495,496 506,504"));
    EXPECT_EQ(desenhar(gisTriangulo), QStringLiteral("Polygon 500,496 495,504 506,504 500,496"));
    EXPECT_EQ(desenhar(static_cast<TForma>(9)), QString());
    // Letra de código 0: uma cadeia de um caractere, com a altura do retângulo.
    EXPECT_EQ(desenhar(gisFonte), QStringLiteral("TextRect 495,496 506,504 495,496"));
    EXPECT_EQ(canvas.Chamadas[0].Texto, QString(QChar(0)));
    EXPECT_EQ(canvas.Chamadas[0].Fonte.Height(), 8);
    EXPECT_EQ(canvas.Chamadas[0].Caneta.Color, 0x00123456);
    EXPECT_EQ(canvas.Chamadas[0].Pincel.Style, bsClear);
    desenhar(gisCirculo, true); // selecionado: caneta e pincel de quem chama
    EXPECT_EQ(canvas.Chamadas[0].Caneta.Color, 0x00ABCDEF);
    EXPECT_EQ(canvas.Chamadas[0].Pincel.Style, bsDiagCross);
}

TEST(Ponto, SimboloDaTabelaOuTrianguloNoLugar)
{
    TProjecaoUmPorUm projecao;
    TGISPonto ponto;
    ponto.TamanhoNaTela(TPoint(10, 10));
    ponto.AtribuirForma(gisSimbolo);
    ponto.AtribuirOrientacao(0.5);
    auto nomes = [&] {
        TCanvasGravador canvas;
        ponto.Desenhar(canvas, projecao, false);
        return canvas.Nomes().join(' ');
    };
    TTabelaDeSimbolos tabela;
    auto *simbolo = new TSimboloAnotado;
    tabela.Adicionar(std::unique_ptr<ISimbolo>(simbolo));
    EXPECT_EQ(nomes(), "Polygon"); // sem tabela da classe
    TGISObjeto::AtribuirTabelaSimbolos(&tabela);
    EXPECT_EQ(nomes(), "Polygon"); // Simbolo = -1
    ponto.AtribuirSimbolo(1);      // igual ao total
    EXPECT_EQ(nomes(), "Polygon");
    ponto.AtribuirSimbolo(0);
    EXPECT_EQ(nomes(), QString());
    EXPECT_EQ(simbolo->R, TRect(495, 495, 505, 505));
    EXPECT_DOUBLE_EQ(simbolo->A, 0.5);
    // A tabela dada a um canvas vale nele, mesmo nula, no lugar da da classe.
    TCanvasGravador semTabela;
    TGISObjeto::AtribuirTabelaSimbolos(semTabela, nullptr);
    ponto.Desenhar(semTabela, projecao, false);
    EXPECT_EQ(semTabela.Nomes().join(' '), "Polygon");
    TGISObjeto::AtribuirTabelaSimbolos(nullptr);
    TCanvasGravador comTabela;
    TGISObjeto::AtribuirTabelaSimbolos(comTabela, &tabela);
    ponto.Desenhar(comTabela, projecao, false);
    EXPECT_EQ(comTabela.Nomes().join(' '), QString());
}

TEST(Ponto, CarimboDaOMesmoDesenhoQueODireto)
{
    TProjecaoUmPorUm projecao;
    int carimbos = 0; // os do canvas do último quadro
    auto quadro = [&](bool carimbo) {
        TGISPonto::AtribuirUsarCarimbo(carimbo);
        QImage imagem(240, 240, QImage::Format_ARGB32_Premultiplied);
        imagem.fill(Qt::white);
        TCanvas canvas(&imagem);
        TGISPonto ponto;
        ponto.AtribuirCor(0x0000C0FF);
        int k = 0;
        for (TForma forma : {gisCruz, gisCirculo, gisQuadrado, gisTriangulo, gisSimbolo})
            for (int tamanho : {5, 6, 9, 16, 33})
                for (TPenStyle estilo : {psSolid, psDash}) {
                    ponto.AtribuirForma(forma);
                    ponto.TamanhoNaTela(TPoint(tamanho, tamanho + k % 3));
                    ponto.Caneta().Style = estilo;
                    ponto.Caneta().Width = 1 + k % 3;
                    // Espalhados, alguns cortados pela borda da imagem.
                    ponto.AtribuirPosicao(GISPosicao(500 - (k * 37) % 260, (k * 53) % 260 - 510));
                    ponto.Desenhar(canvas, projecao, false);
                    ++k;
                }
        carimbos = TGISPonto::TotalDeCarimbos(canvas);
        canvas.AtribuirImagem(nullptr);
        return imagem;
    };
    const QImage direto = quadro(false);
    const QImage carimbado = quadro(true);
    TGISPonto::AtribuirUsarCarimbo(true);
    EXPECT_GT(carimbos, 20);
    int diferentes = 0;
    for (int y = 0; y < direto.height(); ++y)
        for (int x = 0; x < direto.width(); ++x)
            if (direto.pixel(x, y) != carimbado.pixel(x, y) && ++diferentes < 10)
                ADD_FAILURE() << "pixel (" << x << ", " << y << ")";
    EXPECT_EQ(diferentes, 0);

    // Um canvas derivado recebe as chamadas de verdade, nunca o carimbo.
    QImage imagem(50, 50, QImage::Format_ARGB32_Premultiplied);
    TCanvasGravador gravador(&imagem);
    TGISPonto ponto;
    ponto.AtribuirForma(gisCirculo);
    ponto.Desenhar(gravador, projecao, false);
    EXPECT_EQ(gravador.Nomes(), QStringList{QStringLiteral("Ellipse")});
}
