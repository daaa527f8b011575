// O desenho pula o que uma área opaca que cobre a tela esconde: os pixels, os rótulos escritos e a
// seleção são os mesmos com e sem esse atalho, em mapas e vistas sorteados (com hachuras, objetos
// escondidos e rótulos) e nos casos em que uma área parece cobrir e não cobre (furo, transparência,
// camada escondida ou fora do zoom, reentrância).

#include "AuxiliaresControle.h"

#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TStringList.h>

#include <QGuiApplication>
#include <QPalette>
#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Um polígono de `n` vértices em volta de (lat, lon), raios em segundos de arco (latitude e
/// longitude com raios diferentes), como sequência nova de `figura`.
template <class T>
T *Anel(T *figura, std::int32_t lat, std::int32_t lon, int raioLat, int raioLon, int n)
{
    auto *lista = new TGISPosicaoList;
    figura->Pontos().Add(lista);
    for (int k = 0; k < n; ++k) {
        const double a = 2 * M_PI * k / n;
        lista->Add(GISPosicao(lat + std::int32_t(raioLat * std::sin(a)), lon + std::int32_t(raioLon * std::cos(a))));
    }
    figura->CalcularLimites();
    return figura;
}

/// Um objeto sorteado perto da origem: áreas grandes (que cobrem a tela nos zooms do teste) e
/// pequenas, de pincel sólido, hachurado ou vazio, áreas com furo, linhas e pontos. Sem compostos:
/// a área de um composto é a do último desenho dos seus pontos, e o recorte e os rótulos dele
/// dependem da ordem dos quadros, com ou sem o atalho.
TGISObjeto *NovoObjeto(TSorteio &s, int n)
{
    const std::int32_t lat = Entre(s, -4 * 3600, 4 * 3600);
    const std::int32_t lon = Entre(s, -6 * 3600, 6 * 3600);
    const int raio = Entre(s, 0, 2) ? Entre(s, 4 * 3600, 12 * 3600) : Entre(s, 300, 3000);
    TGISObjeto *objeto = nullptr;
    const int tipo = Entre(s, 0, 5);
    if (tipo <= 3) {
        TGISArea *area = tipo == 3 ? new TGISAreaComFuros : new TGISArea;
        Anel(area, lat, lon, raio, raio * 3 / 2, Entre(s, 3, 24));
        if (tipo == 3 || Entre(s, 0, 4) == 0) // o furo, ou outra sequência por cima
            Anel(area, lat + 500, lon - 800, raio / 3, raio / 2, 5);
        const int estilo = Entre(s, 0, 9);
        area->Pincel().Style = estilo < 7 ? bsSolid : estilo == 7 ? bsBDiagonal : bsClear;
        objeto = area;
    } else if (tipo == 4) {
        objeto = Anel(new TGISLinha, lat, lon, raio / 4, raio / 3, Entre(s, 2, 8));
    } else {
        auto *ponto = new TGISPonto;
        ponto->TamanhoNaTela(TPoint(Entre(s, 3, 30), Entre(s, 3, 30)));
        ponto->AtribuirPosicao(GISPosicao(lat, lon));
        objeto = ponto;
    }
    Sortear(s, objeto, n, 4);
    objeto->AtribuirVisivel(Entre(s, 0, 15) != 0);
    return objeto;
}

/// O quadro inteiro e os rótulos escritos camada a camada, com ou sem o atalho.
struct TQuadro
{
    QImage Pixels;
    QStringList Rotulos;
};

TQuadro Observar(TGis &gis, bool oclusao)
{
    gis.AtribuirOclusao(oclusao);
    TQuadro q;
    gis.Desenhar();
    q.Pixels = gis.Buffer().copy();
    q.Rotulos = RotulosCamadaACamada(gis);
    return q;
}

/// Há, numa camada que o quadro mostra, uma área que cobre a tela (para o teste não passar à toa).
bool AlgumaCobre(TGis &gis)
{
    QImage imagem(gis.width(), gis.height(), QImage::Format_ARGB32_Premultiplied);
    TCanvas canvas(&imagem);
    const TGISProjecao &projecao = *gis.Projecao();
    for (int c = 0; c < gis.Camadas().Count(); ++c) {
        const TGISCamada &camada = *gis.Camadas().Items(c);
        if (!camada.Visivel() || projecao.Zoom() < camada.ZoomMinimo() || projecao.Zoom() > camada.ZoomMaximo())
            continue;
        for (TGISObjeto *o : camada.Objetos())
            if (typeid(*o) == typeid(TGISArea) && o->Visivel()
                && static_cast<TGISArea *>(o)->CobreRetangulo(canvas, projecao, projecao.AreaTela()))
                return true;
    }
    return false;
}

/// Canvas que conta os polígonos desenhados.
class TCanvasContador : public TCanvas
{
public:
    using TCanvas::TCanvas;
    void Polygon(const TPoint *pontos, int quantidade) override
    {
        ++Poligonos;
        TCanvas::Polygon(pontos, quantidade);
    }
    int Poligonos = 0;
};

/// Algum pixel do quadrado de 20 pixels no centro tem vermelho (a área de baixo aparece, inteira,
/// por um furo ou misturada).
bool VermelhoNoCentro(const QImage &imagem)
{
    const int cx = imagem.width() / 2;
    const int cy = imagem.height() / 2;
    for (int y = cy - 10; y < cy + 10; ++y)
        for (int x = cx - 10; x < cx + 10; ++x)
            if (qRed(imagem.pixel(x, y)) > 100)
                return true;
    return false;
}

} // namespace

TEST(Oclusao, MesmosPixelsERotulosEmMapasEVistasSorteados)
{
    const double zooms[] = {1.0, 3.0, 10.0, 40.0, 400.0};
    int cobertos = 0;
    int quadros = 0;
    for (unsigned semente = 1; semente <= 5; ++semente) {
        TSorteio s(semente);
        TGis gis;
        gis.resize(Entre(s, 150, 330), Entre(s, 100, 240));
        gis.Rotulos().Add(QStringLiteral("Nome"));
        TGISCamada *camadas[3];
        int n = 0;
        for (TGISCamada *&c : camadas) {
            c = &NovaCamada(gis, QStringLiteral("c%1").arg(n));
            for (int i = 0; i < 40; ++i)
                c->Objetos().Add(NovoObjeto(s, n++));
        }
        gis.Visao(GISPosicao(0, 0), 1.0);
        for (int vez = 0; vez < 12; ++vez, ++quadros) {
            gis.Visao(GISPosicao(Entre(s, -3 * 3600, 3 * 3600), Entre(s, -5 * 3600, 5 * 3600)), zooms[Entre(s, 0, 4)]);
            // Opções sorteadas: camada escondida ou fora dos limites do zoom, suavização, densidade,
            // rótulos sem sobreposição, desenho em grupos, um objeto selecionado. Os grupos saem
            // do custo medido no quadro anterior, e os pixels suavizados (bordas e textos)
            // compostos de outra imagem podem diferir de 1 nível: em grupos, sem suavização, sem
            // rótulos e na densidade 1, que dão pixels exatos qualquer que seja a partilha.
            TGISCamada &c = *camadas[Entre(s, 0, 2)];
            c.AtribuirVisivel(Entre(s, 0, 3) != 0);
            c.AtribuirZoomMaximo(Entre(s, 0, 3) ? 50000.0 : gis.Projecao()->Zoom() / 2);
            const bool grupos = Entre(s, 0, 3) == 0;
            gis.AtribuirDesenhoParalelo(grupos);
            gis.AtribuirLinhasDoDesenho(2);
            gis.AtribuirSuavizar(!grupos && Entre(s, 0, 1));
            gis.AtribuirRazaoDePixels(!grupos && Entre(s, 0, 3) == 0 ? 2.0 : 1.0);
            gis.AtribuirRotulosSemSobreposicao(Entre(s, 0, 1));
            gis.Rotulos().Clear();
            if (!grupos)
                gis.Rotulos().Add(QStringLiteral("Nome"));
            TGISCamada &daSelecao = *camadas[Entre(s, 0, 2)];
            gis.SelecionarObjeto(Entre(s, 0, 1) ? daSelecao.Objetos().Items(Entre(s, 0, 39)) : nullptr);

            const TQuadro com = Observar(gis, true);
            const TQuadro sem = Observar(gis, false);
            ASSERT_TRUE(com.Pixels == sem.Pixels) << "semente " << semente << " vez " << vez;
            ASSERT_EQ(com.Rotulos, sem.Rotulos) << "semente " << semente << " vez " << vez;
            cobertos += AlgumaCobre(gis);
        }
    }
    // Boa parte dos quadros tem mesmo uma área que cobre a tela, e nem todos.
    EXPECT_GT(cobertos, quadros / 4);
    EXPECT_LT(cobertos, quadros);
}

TEST(Oclusao, SoPulaOQueUmaAreaOpacaEsconde)
{
    TGis gis;
    gis.resize(200, 120);
    gis.AtribuirColor(clWhite);
    TGISCamada &baixo = NovaCamada(gis, QStringLiteral("baixo"));
    TGISCamada &cima = NovaCamada(gis, QStringLiteral("cima"));
    // Embaixo, uma área vermelha pequena no centro; em cima, a área azul que cobre a tela.
    auto pequena = [] { return Anel(new TGISArea, 0, 0, 400, 600, 8); };
    baixo.Objetos().Add(pequena());
    baixo.Objetos().Items(0)->AtribuirCor(clRed);
    auto *capa = Anel(new TGISArea, 0, 0, 30000, 45000, 16);
    capa->AtribuirCor(clBlue);
    cima.Objetos().Add(capa);
    gis.Visao(GISPosicao(0, 0), 40.0);

    const QRgb azul = qRgb(0, 0, 255);
    auto centro = [&] {
        gis.Desenhar();
        return gis.Buffer().pixel(100, 60);
    };
    auto igualSemAtalho = [&] {
        const bool igual = Observar(gis, true).Pixels == Observar(gis, false).Pixels;
        gis.AtribuirOclusao(true);
        return igual;
    };
    EXPECT_EQ(centro(), azul);
    EXPECT_TRUE(igualSemAtalho());
    {
        // O que fica embaixo na mesma camada também é pulado; o que vem depois, não.
        QImage imagem(200, 120, QImage::Format_ARGB32_Premultiplied);
        TCanvasContador canvas(&imagem);
        cima.Objetos().Insert(0, pequena());
        cima.Objetos().Add(pequena());
        gis.DesenharCamada(cima, canvas, *gis.Projecao());
        EXPECT_EQ(canvas.Poligonos, 2);
        gis.AtribuirOclusao(false);
        canvas.Poligonos = 0;
        gis.DesenharCamada(cima, canvas, *gis.Projecao());
        EXPECT_EQ(canvas.Poligonos, 3);
        gis.AtribuirOclusao(true);
        canvas.AtribuirImagem(nullptr);
        cima.Objetos().Delete(2);
        cima.Objetos().Delete(0);
    }

    // Casos que não cobrem: o vermelho de baixo aparece, e os pixels são os de sem atalho.
    struct TCaso
    {
        const char *Nome;
        std::function<void()> Fazer;
        std::function<void()> Desfazer;
    };
    QPalette paletaOriginal = QGuiApplication::palette();
    TGISAreaComFuros *furada = nullptr;
    const std::vector<TCaso> casos = {
        {"furo no centro",
         [&] {
             furada = Anel(Anel(new TGISAreaComFuros, 0, 0, 30000, 45000, 16), 0, 0, 800, 1200, 8);
             furada->AtribuirCor(clBlue);
             cima.Objetos().Add(furada);
             cima.Objetos().Extract(capa);
         },
         [&] {
             cima.Objetos().Delete(cima.Objetos().IndexOf(furada));
             cima.Objetos().Add(capa);
         }},
        {"cor semitransparente (cor do sistema)",
         [&] {
             QPalette p = paletaOriginal;
             p.setColor(QPalette::Base, QColor(0, 0, 255, 128));
             QGuiApplication::setPalette(p);
             capa->AtribuirCor(clWindow);
         },
         [&] {
             QGuiApplication::setPalette(paletaOriginal);
             capa->AtribuirCor(clBlue);
         }},
        {"camada escondida", [&] { cima.AtribuirVisivel(false); }, [&] { cima.AtribuirVisivel(true); }},
        {"além do zoom da camada", [&] { cima.AtribuirZoomMaximo(20.0); }, [&] { cima.AtribuirZoomMaximo(50000.0); }},
        {"reentrância até o centro",
         [&] {
             // Um C: a caixa contém a tela, o polígono não (a boca passa pelo centro).
             auto *lista = capa->Pontos().Items(0);
             lista->Clear();
             for (const auto &p : {GISPosicao(-30000, -45000), GISPosicao(30000, -45000), GISPosicao(30000, 45000),
                                   GISPosicao(300, 45000), GISPosicao(300, -200), GISPosicao(-300, -200),
                                   GISPosicao(-300, 45000), GISPosicao(-30000, 45000)})
                 lista->Add(p);
             capa->CalcularLimites();
         },
         [&] {
             capa->Pontos().Clear();
             Anel(capa, 0, 0, 30000, 45000, 16);
         }},
    };
    for (const TCaso &caso : casos) {
        caso.Fazer();
        EXPECT_NE(centro(), azul) << caso.Nome;
        EXPECT_TRUE(VermelhoNoCentro(gis.Buffer())) << caso.Nome;
        EXPECT_TRUE(igualSemAtalho()) << caso.Nome;
        caso.Desfazer();
        EXPECT_EQ(centro(), azul) << caso.Nome;
    }
}
