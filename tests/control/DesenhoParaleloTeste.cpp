// Duas camadas de um mesmo mapa desenhadas ao mesmo tempo em duas linhas de execução, cada uma no
// seu canvas e com a sua cópia da projeção, dão os mesmos pixels que desenhadas numa linha só.
// Roda também sob o ThreadSanitizer (./tavru tsan).

#include "AuxiliaresControle.h"

#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

#include <thread>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Uma camada com pontos de várias figuras, linhas, áreas e textos, rotulados.
void Encher(TGISCamada &camada, int semente)
{
    for (int i = 0; i < 150; ++i) {
        const std::int32_t lat = ((i * 7919 + semente * 104729) % 150 - 75) * 3600;
        const std::int32_t lon = ((i * 6151 + semente * 1299709) % 340 - 170) * 3600;
        TGISObjeto *objeto = nullptr;
        switch (i % 4) {
        case 0: {
            auto *ponto = new TGISPonto;
            ponto->AtribuirForma(static_cast<TForma>(i / 4 % 4));
            ponto->TamanhoNaTela(TPoint(5 + i % 9, 5 + i % 9));
            ponto->AtribuirCor(RGB(i % 255, 40 * semente, 120));
            objeto = ponto;
            break;
        }
        case 1:
        case 2: {
            TGISLinha *linha = i % 4 == 1 ? new TGISLinha : new TGISArea;
            linha->Pontos().Add(new TGISPosicaoList);
            for (int k = 0; k < 40; ++k)
                linha->InserirPonto(0, k, GISPosicao(lat + k * 1800 * ((k % 3) - 1), lon + k * 2000));
            linha->AtribuirCor(RGB(20 * semente, i % 255, 60));
            objeto = linha;
            break;
        }
        default: {
            auto *texto = new TGISTexto;
            texto->AtribuirTexto(QStringLiteral("T%1").arg(i));
            texto->AtribuirOrientacao(i * 0.1);
            objeto = texto;
        }
        }
        if (i % 4 == 0 || i % 4 == 3)
            objeto->AtribuirPosicao(GISPosicao(lat, lon));
        objeto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("O%1-%2").arg(semente).arg(i));
        objeto->AtribuirRotuloVisivel(i % 3 == 0);
        camada.Objetos().Add(objeto);
    }
}

} // namespace

TEST(DesenhoParalelo, DuasCamadasEmDuasLinhasDaoOsPixelsDeUmaLinha)
{
    TGis gis;
    gis.resize(480, 320);
    gis.Rotulos().Add(QStringLiteral("Nome"));
    TGISCamada &a = NovaCamada(gis, QStringLiteral("a"));
    TGISCamada &b = NovaCamada(gis, QStringLiteral("b"));
    Encher(a, 1);
    Encher(b, 2);
    gis.FitToWindow();

    auto desenhar = [&gis](TGISCamada &camada, const TGISProjecao &projecao) {
        QImage imagem(480, 320, QImage::Format_ARGB32_Premultiplied);
        imagem.fill(Qt::white);
        TCanvas canvas(&imagem);
        for (int vez = 0; vez < 3; ++vez) // de novo sobre o rascunho do canvas
            gis.DesenharCamada(camada, canvas, projecao);
        canvas.AtribuirImagem(nullptr);
        return imagem;
    };
    const std::unique_ptr<TGISProjecao> pa = gis.Projecao()->Duplicar();
    const std::unique_ptr<TGISProjecao> pb = gis.Projecao()->Duplicar();
    const QImage umaA = desenhar(a, *pa);
    const QImage umaB = desenhar(b, *pb);

    QImage duasA;
    QImage duasB;
    std::thread linha([&] { duasB = desenhar(b, *pb); });
    duasA = desenhar(a, *pa);
    linha.join();

    EXPECT_TRUE(umaA == duasA);
    EXPECT_TRUE(umaB == duasB);
    EXPECT_FALSE(umaA == umaB); // camadas diferentes: a comparação distingue
    // O que foi desenhado é a camada toda, não um quadro vazio.
    int pintados = 0;
    for (int y = 0; y < umaA.height(); ++y)
        for (int x = 0; x < umaA.width(); ++x)
            pintados += umaA.pixel(x, y) != 0xFFFFFFFFu;
    EXPECT_GT(pintados, 2000);
}

TEST(DesenhoParalelo, DuplicarCopiaOCentroECopiarNao)
{
    TGISProjecaoMercator original;
    original.DoAtribuirAreaTela(TRect(0, 0, 300, 200));
    original.DoAtribuirZoom(4.0);
    original.AtribuirCentro(GISPosicao(-10000, 25000));
    const std::unique_ptr<TGISProjecao> copia = original.Duplicar();
    EXPECT_NE(dynamic_cast<TGISProjecaoMercator *>(copia.get()), nullptr);
    EXPECT_EQ(copia->Centro(), original.Centro());
    const TGISPosicao p = GISPosicao(-3000, 31000);
    EXPECT_EQ(copia->MundoParaTela(p), original.MundoParaTela(p));
    TGISProjecaoMercator outra;
    outra.Copiar(original);
    EXPECT_EQ(outra.Centro(), GISPosicao(0, 0));
}
