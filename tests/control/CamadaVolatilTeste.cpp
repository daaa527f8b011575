// Com uma camada volátil, as camadas estáticas abaixo dela vêm de uma imagem guardada: depois de
// cada tipo de mudança, o quadro é o mesmo do desenho inteiro.

#include "AuxiliaresControle.h"

#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

#include <functional>

using namespace tavru;
using namespace tavru::teste;

namespace {

/// Pontos rotulados, uma linha e uma área por camada, cada camada com a sua cor.
void Encher(TGISCamada &camada, int semente, TColor cor)
{
    for (int i = 0; i < 12; ++i) {
        const std::int32_t lat = ((i * 37 + semente * 11) % 40 - 20) * 3600;
        const std::int32_t lon = ((i * 53 + semente * 29) % 60 - 30) * 3600;
        TGISObjeto *objeto;
        if (i % 4 == 3) {
            TGISLinha *linha = i % 8 == 3 ? new TGISLinha : new TGISArea;
            linha->Pontos().Add(new TGISPosicaoList);
            linha->InserirPonto(0, 0, GISPosicao(lat, lon));
            linha->InserirPonto(0, 1, GISPosicao(lat + 30000, lon + 50000));
            linha->InserirPonto(0, 2, GISPosicao(lat - 20000, lon + 60000));
            objeto = linha;
        } else {
            auto *ponto = new TGISPonto;
            ponto->AtribuirForma(gisQuadrado);
            ponto->TamanhoNaTela(TPoint(9 + i, 9 + i));
            ponto->AtribuirPosicao(GISPosicao(lat, lon));
            objeto = ponto;
        }
        objeto->AtribuirCor(cor);
        objeto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("N%1-%2").arg(semente).arg(i));
        objeto->AtribuirRotuloVisivel(i % 2 == 0);
        camada.Objetos().Add(objeto);
    }
}

} // namespace

TEST(CamadaVolatil, OFundoGuardadoDaOsPixelsDoDesenhoInteiroDepoisDeCadaMudanca)
{
    TGis gis;
    gis.resize(320, 220);
    gis.Rotulos().Add(QStringLiteral("Nome"));
    gis.AtribuirRotulosSemSobreposicao(true); // a grade dos rótulos também passa pelo fundo
    TGISCamada &a = NovaCamada(gis, QStringLiteral("a"));
    TGISCamada &b = NovaCamada(gis, QStringLiteral("b"));
    TGISCamada &v = NovaCamada(gis, QStringLiteral("v"));
    TGISCamada &c = NovaCamada(gis, QStringLiteral("c")); // estática acima da volátil
    Encher(a, 1, RGB(200, 30, 30));
    Encher(b, 2, RGB(30, 200, 30));
    Encher(v, 3, RGB(30, 30, 200));
    Encher(c, 4, RGB(200, 200, 30));
    v.AtribuirVolatil(true);
    gis.FitToWindow();

    auto guardado = [&] {
        gis.Desenhar();
        return gis.Buffer().copy();
    };
    auto inteiro = [&] {
        v.AtribuirVolatil(false);
        gis.Desenhar();
        const QImage r = gis.Buffer().copy();
        v.AtribuirVolatil(true);
        return r;
    };
    auto unidade = [&v]() -> TGISObjeto & { return *v.Objetos().Items(0); };
    const std::vector<std::pair<const char *, std::function<void()>>> mudancas = {
        {"nada", [] {}},
        {"unidade movida", [&] { unidade().AtribuirPosicao(GISPosicao(-5000, 12000)); }},
        {"vista", [&] { gis.Visao(GISPosicao(20000, 30000), gis.Projecao()->Zoom() * 2); }},
        {"objeto editado", [&] { a.Objetos().Items(0)->AtribuirPosicao(GISPosicao(21000, 29000)); }},
        {"ordem das camadas", [&] { gis.MoverParaFrente(QStringLiteral("a")); }},
        {"visibilidade", [&] { b.AtribuirVisivel(false); }},
        {"cor da camada", [&] { a.AtribuirCor(RGB(10, 10, 10)); }},
        {"cor do fundo", [&] { gis.AtribuirColor(RGB(240, 240, 200)); }},
        {"rótulos", [&] { gis.Rotulos().Clear(); }},
        {"tamanho", [&] { gis.resize(300, 240); }},
        {"camada volátil abaixo", [&] { v.AtribuirVolatil(false); a.AtribuirVolatil(true); }},
    };
    guardado();
    for (const auto &m : mudancas) {
        m.second();
        const QImage comFundo = guardado();
        EXPECT_TRUE(comFundo == inteiro()) << m.first;
    }

    // O fundo é mesmo reaproveitado: um campo mudado sem aviso (o que a API pede que seja seguido
    // de Mudou) não aparece até o aviso.
    v.AtribuirVolatil(true);
    a.AtribuirVolatil(false);
    auto *ponto = dynamic_cast<TGISPonto *>(a.Objetos().Items(0)); // no centro da vista
    ASSERT_NE(ponto, nullptr);
    const QImage antes = guardado();
    ponto->Fonte().Color = RGB(255, 0, 255);
    EXPECT_TRUE(guardado() == antes);
    EXPECT_FALSE(inteiro() == antes);
    ponto->Mudou();
    EXPECT_TRUE(guardado() == inteiro());
}
