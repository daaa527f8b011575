// O mapa inteiro desenhado em grupos de camadas, em várias linhas de execução, dá os pixels do
// desenho numa linha só (o texto suavizado pode diferir em 1 por canal). Roda também sob o
// ThreadSanitizer (./tavru tsan).

#include "AuxiliaresControle.h"

#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Áreas grandes e linhas grossas que se cobrem de uma camada para a outra (a ordem da composição
/// aparece nos pixels), pontos e rótulos. Mais objetos nas camadas de `semente` alta, para que os
/// grupos saiam desiguais.
void Encher(TGISCamada &camada, int semente, TColor cor)
{
    const int total = 20 + 30 * semente;
    for (int i = 0; i < total; ++i) {
        const std::int32_t lat = ((i * 7919 + semente * 104729) % 100 - 50) * 3600;
        const std::int32_t lon = ((i * 6151 + semente * 1299709) % 160 - 80) * 3600;
        TGISObjeto *objeto;
        if (i % 3 == 0) {
            auto *ponto = new TGISPonto;
            ponto->AtribuirForma(static_cast<TForma>(i / 3 % 4));
            ponto->TamanhoNaTela(TPoint(7 + i % 11, 7 + i % 11));
            ponto->AtribuirPosicao(GISPosicao(lat, lon));
            objeto = ponto;
        } else {
            TGISLinha *linha = i % 3 == 1 ? new TGISArea : new TGISLinha;
            linha->Pontos().Add(new TGISPosicaoList);
            for (int k = 0; k < 6; ++k)
                linha->InserirPonto(0, k, GISPosicao(lat + (k % 2 ? 20 : -15) * 3600, lon + k * 5 * 3600));
            objeto = linha;
        }
        objeto->AtribuirCor(cor);
        objeto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("R%1.%2").arg(semente).arg(i));
        objeto->AtribuirRotuloVisivel(i % 2 == 0);
        camada.Objetos().Add(objeto);
    }
}

/// O maior desvio de um canal entre as duas imagens (-1 quando os tamanhos diferem).
int MaiorDiferenca(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return -1;
    int maior = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto *la = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const auto *lb = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x)
            maior = std::max({maior, std::abs(qRed(la[x]) - qRed(lb[x])), std::abs(qGreen(la[x]) - qGreen(lb[x])),
                              std::abs(qBlue(la[x]) - qBlue(lb[x])), std::abs(qAlpha(la[x]) - qAlpha(lb[x]))});
    }
    return maior;
}

struct TMapaDeCamadas
{
    TGis Gis;
    std::vector<TGISCamada *> Camadas;
    TMapaDeCamadas()
    {
        Gis.resize(400, 260);
        Gis.Rotulos().Add(QStringLiteral("Nome"));
        const TColor cores[] = {RGB(200, 30, 30), RGB(30, 160, 30), RGB(30, 30, 200), RGB(200, 200, 30),
                                RGB(120, 0, 120)};
        for (int i = 0; i < 5; ++i) {
            Camadas.push_back(&NovaCamada(Gis, QStringLiteral("c%1").arg(i)));
            Encher(*Camadas.back(), i, cores[i]);
        }
        Gis.FitToWindow();
    }
    QImage Quadro(bool paralelo, int linhas)
    {
        Gis.AtribuirDesenhoParalelo(paralelo);
        Gis.AtribuirLinhasDoDesenho(linhas);
        Gis.Desenhar();
        return Gis.Buffer().copy();
    }
};

} // namespace

TEST(DesenhoParaleloDoMapa, GruposDaoOsPixelsDeUmaLinhaEmCadaModo)
{
    TMapaDeCamadas mapa;
    TGis &gis = mapa.Gis;
    const QImage semRotulos = [&] {
        gis.Rotulos().Clear();
        const QImage r = mapa.Quadro(false, 1);
        gis.Rotulos().Add(QStringLiteral("Nome"));
        return r;
    }();
    const QImage uma = mapa.Quadro(false, 1);
    ASSERT_GT(MaiorDiferenca(uma, semRotulos), 100); // há rótulos no quadro

    // Dois, três e cinco grupos; o segundo quadro de cada reparte pelo custo medido no primeiro.
    for (const int linhas : {2, 3, 5}) {
        for (int vez = 0; vez < 2; ++vez)
            EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, linhas), uma), 1) << linhas << " linhas, vez " << vez;
    }

    // A ordem das camadas decide os pixels: compor na ordem errada seria visto.
    gis.MoverParaFrente(QStringLiteral("c0"));
    const QImage trocada = mapa.Quadro(false, 1);
    EXPECT_GT(MaiorDiferenca(trocada, uma), 100);
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 2), trocada), 1);

    // Com uma camada escondida, fora da faixa de zoom, e com a camada do meio volátil (o fundo
    // guardado também sai dos grupos).
    mapa.Camadas[1]->AtribuirVisivel(false);
    mapa.Camadas[3]->AtribuirZoomMaximo(gis.Projecao()->Zoom() / 2);
    mapa.Camadas[2]->AtribuirVolatil(true);
    const QImage restrita = mapa.Quadro(false, 1);
    for (int vez = 0; vez < 2; ++vez) // a segunda vem do fundo guardado
        EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 3), restrita), 1) << "vez " << vez;
    mapa.Camadas[2]->Objetos().Items(0)->AtribuirPosicao(GISPosicao(3600, 3600));
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 3), mapa.Quadro(false, 1)), 1);

    // Numa tela de alta densidade as imagens dos grupos têm a razão do buffer (uma imagem fora
    // de escala ou de lugar daria diferenças de 255). Os rótulos sobrepostos, com mais pixels
    // meio cobertos, somam o arredondamento de cada mistura.
    gis.AtribuirRazaoDePixels(2.0);
    const QImage densa = mapa.Quadro(false, 1);
    ASSERT_EQ(densa.width(), 800);
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 2), densa), 8);
}

TEST(DesenhoParaleloDoMapa, HaloSuavizadoESemSobreposicao)
{
    TMapaDeCamadas mapa;
    TGis &gis = mapa.Gis;
    gis.AtribuirCorDoHalo(RGB(255, 255, 255));
    // O halo são treze textos suavizados um sobre o outro: o arredondamento de cada mistura
    // pode somar 2 níveis.
    const QImage comHalo = mapa.Quadro(false, 1);
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 4), comHalo), 2);

    // Bordas suavizadas: pixels meio transparentes compostos por cima de outra camada acumulam
    // o arredondamento de cada mistura (poucos níveis por canal), mas nada muda de lugar.
    gis.AtribuirSuavizar(true);
    const QImage suave = mapa.Quadro(false, 1);
    EXPECT_GT(MaiorDiferenca(suave, comHalo), 100);
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 2), suave), 3);
    EXPECT_LE(MaiorDiferenca(mapa.Quadro(true, 4), suave), 3);

    // A grade dos rótulos passa por todas as camadas em ordem: o desenho fica numa linha só e
    // dá exatamente os mesmos pixels.
    gis.AtribuirRotulosSemSobreposicao(true);
    const QImage semSobreposicao = mapa.Quadro(false, 1);
    EXPECT_GT(MaiorDiferenca(semSobreposicao, suave), 100);
    EXPECT_TRUE(mapa.Quadro(true, 3) == semSobreposicao);
}
