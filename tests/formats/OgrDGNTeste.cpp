// O plug-in do GDAL/OGR nos desenhos de data/dgn: o da grade UTM 23 sul no lugar, o de graus pelo
// plug-in de graus, e o feito com cores, espessuras, estilos, texto e cadeia complexa.

#include "AjustesDGN.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>

#include <map>

using namespace tavru;
using teste::DGN;
using teste::PastaDoPacote;

namespace {

const QString So = TTratadorDeArquivosDGN::MascaraDeBibliotecas().mid(1);

std::map<QString, int> ContarClasses(const TGISObjetoList &lista)
{
    std::map<QString, int> total;
    for (int i = 0; i < lista.Count(); ++i)
        ++total[lista.ObterGISObjeto(i)->Classe().Nome()];
    return total;
}

/// A extensão das linhas e áreas (a dos pontos depende do tamanho deles na tela).
TGISRet ExtensaoDasLinhas(const TGISObjetoList &lista)
{
    TGISRet r = GISRet(INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN);
    for (int i = 0; i < lista.Count(); ++i) {
        if (auto *l = dynamic_cast<const TGISLinha *>(lista.ObterGISObjeto(i))) {
            const TGISRet a = l->Area();
            r = GISRet(std::min(r.Pos1.Latitude, a.Pos1.Latitude), std::min(r.Pos1.Longitude, a.Pos1.Longitude),
                       std::max(r.Pos2.Latitude, a.Pos2.Latitude), std::max(r.Pos2.Longitude, a.Pos2.Longitude));
        }
    }
    return r;
}

int Segundos(double graus)
{
    return Arredondar(graus * 3600.0);
}

} // namespace

TEST_F(DGN, DesenhoDaGradeUTMFicaNoLugar)
{
    ASSERT_TRUE(QFile::copy(TAVRU_DADOS "/dgn/br_utm23s.dgn", Pasta.filePath("br_utm23s.dgn")));
    Arquivo("br_utm23s.geo", "Fuso=23\r\nZona=K\r\nElipsoide=18 - GRS 1980\r\nUnidade=metros\r\n");
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDoPacote("dgn")), 1);
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(Pasta.filePath("br_utm23s.dgn"), "tavru_dgn" + So));
    EXPECT_TRUE(Roteiro->Perguntas.isEmpty());
    // 28 cadeias de linhas, uma cadeia complexa de duas partes e 14 formas.
    EXPECT_EQ(ContarClasses(lista), (std::map<QString, int>{{"TGISLinha", 30}, {"TGISArea", 14}}));

    // O primeiro vértice da primeira forma (357702.5 leste, 9763203.2 norte), e o anel fechado.
    const TGISPosicao primeiro = teste::Utm23Sul(357702.5, 9763203.2);
    const TGISArea *area = nullptr;
    for (int i = 0; i < lista.Count() && !area; ++i)
        area = dynamic_cast<const TGISArea *>(lista.ObterGISObjeto(i));
    ASSERT_NE(area, nullptr);
    const TGISPosicaoList &anel = *area->Pontos().Items(0);
    EXPECT_NEAR(anel.ObterPosicao(0).Latitude, primeiro.Latitude, 1);
    EXPECT_NEAR(anel.ObterPosicao(0).Longitude, primeiro.Longitude, 1);
    EXPECT_EQ(anel.ObterPosicao(0), anel.Last());
    EXPECT_EQ(area->Pincel().Style, bsClear);
    EXPECT_EQ(area->Caneta().Color, 0xFFFFFF);

    // Recortado entre -48 e -42 de longitude; do norte do Maranhão ao Paraná.
    const TGISRet r = ExtensaoDasLinhas(lista);
    EXPECT_GT(r.Pos1.Longitude, Segundos(-48.2));
    EXPECT_LT(r.Pos2.Longitude, Segundos(-41.8));
    EXPECT_GT(r.Pos1.Latitude, Segundos(-25.3));
    EXPECT_LT(r.Pos2.Latitude, Segundos(-1.9));
}

TEST_F(DGN, DesenhoEmGrausPeloPluginDeGraus)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDoPacote("dgn-graus")), 1);
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(TAVRU_DADOS "/dgn/brazil_sample.dgn", "tavru_dgn_graus" + So));
    EXPECT_TRUE(Roteiro->Perguntas.isEmpty());
    // As cadeias complexas e as células achatadas em 306 linhas; os textos das cidades viram
    // pontos na origem do texto.
    EXPECT_EQ(ContarClasses(lista),
              (std::map<QString, int>{{"TGISLinha", 306}, {"TGISArea", 141}, {"TGISPonto", 46}}));
    // A extensão que o ogrinfo dá: (-115.198595, -55.891699) - (-33.117551, 40.404098), sem os
    // pontos.
    const TGISRet r = ExtensaoDasLinhas(lista);
    EXPECT_NEAR(r.Pos1.Longitude, Segundos(-115.198595), 1);
    EXPECT_NEAR(r.Pos1.Latitude, Segundos(-55.891699), 1);
    EXPECT_LE(r.Pos2.Longitude, Segundos(-33.117551) + 1);
    EXPECT_LE(r.Pos2.Latitude, Segundos(40.404098) + 1);
}

TEST_F(DGN, CoresEspessurasEstilosETextosDoDesenhoFeito)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDoPacote("dgn-graus")), 1);
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(TAVRU_DADOS "/dgn/estilos.dgn", "tavru_dgn_graus" + So));
    // Duas linhas, uma forma, um texto e uma linha de 150 vértices que o escritor dividiu numa
    // cadeia complexa de cinco partes.
    ASSERT_EQ(lista.Count(), 9);

    const auto &vermelha = dynamic_cast<const TGISLinha &>(*lista.ObterGISObjeto(0));
    // Índice 3 da tabela (#ff0000), espessura 4 e traço médio.
    EXPECT_EQ(vermelha.Caneta(), (TPen{0x0000FF, 5, psDash}));
    EXPECT_EQ(vermelha.ObterPonto(0, 1), GISPosicao(Segundos(-20.5), Segundos(-44.5)));

    const auto &verde = dynamic_cast<const TGISLinha &>(*lista.ObterGISObjeto(1));
    EXPECT_EQ(verde.Caneta(), (TPen{0x00FF00, 1, psDot}));

    const auto &forma = dynamic_cast<const TGISArea &>(*lista.ObterGISObjeto(2));
    EXPECT_EQ(forma.Caneta().Color, 0x00FFFF); // #ffff00
    EXPECT_EQ(forma.Caneta().Width, 2);
    EXPECT_EQ(forma.Pincel().Style, bsClear);
    EXPECT_EQ(forma.Pontos().Items(0)->Count(), 4);

    const auto &texto = dynamic_cast<const TGISPonto &>(*lista.ObterGISObjeto(3));
    EXPECT_EQ(texto.Posicao(), GISPosicao(Segundos(-19), Segundos(-44)));
    EXPECT_EQ(texto.ObterCor(), 0xFF00FF);

    int vertices = 0;
    for (int i = 4; i < 9; ++i) {
        const auto &parte = dynamic_cast<const TGISLinha &>(*lista.ObterGISObjeto(i));
        EXPECT_EQ(parte.Caneta(), (TPen{0xFF0000, 3, psDashDot})) << i; // índice 1 (#0000ff), traço longo e curto
        vertices += parte.Pontos().Items(0)->Count();
    }
    EXPECT_EQ(vertices, 150 + 4); // as partes repetem o vértice em que se juntam
}

TEST_F(DGN, ArquivoQueNaoEDGN)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDoPacote("dgn")), 1);
    TGISObjetoList lista;
    const QString falso = Arquivo("falso.dgn", QByteArray(2048, 'x'));
    Arquivo("falso.geo", "Fuso=23\r\nZona=K\r\nElipsoide=18 - GRS 1980\r\nUnidade=metros\r\n");
    EXPECT_THROW(lista.Ler(falso, "tavru_dgn" + So), Exception);
    EXPECT_EQ(lista.Count(), 0);
}

TEST_F(DGN, PreenchimentoElipseArcoECelula)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDoPacote("dgn-graus")), 1);
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(TAVRU_DADOS "/dgn/arcos_e_celulas.dgn", "tavru_dgn_graus" + So));
    // A linha da base, a forma preenchida, a elipse, o arco e as duas partes da célula.
    ASSERT_EQ(lista.Count(), 6);

    const auto &preenchida = dynamic_cast<const TGISArea &>(*lista.ObterGISObjeto(1));
    EXPECT_EQ(preenchida.Pincel(), (TBrush{0x00FF00, bsSolid}));
    EXPECT_EQ(preenchida.Caneta().Color, 0x0000FF);
    EXPECT_EQ(preenchida.Caneta().Width, 2);

    // A elipse (semi-eixos 2 e 1 graus em -40, -10) é uma área fechada, sem preenchimento.
    const auto &elipse = dynamic_cast<const TGISArea &>(*lista.ObterGISObjeto(2));
    EXPECT_EQ(elipse.Pincel().Style, bsClear);
    EXPECT_EQ(elipse.Caneta().Color, 0x00FFFF);
    const TGISRet e = elipse.Area();
    EXPECT_NEAR(e.Pos1.Longitude, Segundos(-42), 2);
    EXPECT_NEAR(e.Pos2.Longitude, Segundos(-38), 2);
    EXPECT_NEAR(e.Pos1.Latitude, Segundos(-11), 2);
    EXPECT_NEAR(e.Pos2.Latitude, Segundos(-9), 2);

    // O arco de raio 1,5 em (-40, -20), de 0 a 90 graus: de (-38.5, -20) a (-40, -18.5).
    const auto &arco = dynamic_cast<const TGISLinha &>(*lista.ObterGISObjeto(3));
    EXPECT_EQ(dynamic_cast<const TGISArea *>(&arco), nullptr);
    const TGISPosicaoList &pontos = *arco.Pontos().Items(0);
    EXPECT_GT(pontos.Count(), 10);
    EXPECT_EQ(pontos.ObterPosicao(0), GISPosicao(Segundos(-20), Segundos(-38.5)));
    EXPECT_NEAR(pontos.Last().Latitude, Segundos(-18.5), 1);
    EXPECT_NEAR(pontos.Last().Longitude, Segundos(-40), 1);

    // A célula achatada: a linha e a forma dela, na cor 6 da tabela (#ff7f00).
    EXPECT_EQ(lista.ObterGISObjeto(4)->Classe().Nome(), "TGISLinha");
    EXPECT_EQ(lista.ObterGISObjeto(5)->Classe().Nome(), "TGISArea");
    EXPECT_EQ(lista.ObterGISObjeto(5)->ObterCor(), 0x007FFF);
}
