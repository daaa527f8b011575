// A gravação de Shapefiles: ida e volta de cada tipo (vértice por vértice), o sentido dos anéis,
// os atributos, o arquivo de cores, a lista misturada em vários conjuntos e o que não se grava.

#include "ShapeFileAjuda.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>

using namespace tavru;
using namespace teste;

namespace {

template <typename T>
T *Com(T *linha, const std::vector<std::vector<TGISPosicao>> &partes)
{
    for (const auto &parte : partes) {
        auto *lista = new TGISPosicaoList;
        for (const TGISPosicao &p : parte)
            lista->Add(p);
        linha->Pontos().Add(lista);
    }
    linha->CalcularLimites();
    return linha;
}

std::vector<TGISPosicao> Absolutos(const TGISLinha &l, int parte)
{
    std::vector<TGISPosicao> v;
    for (int i = 0; i < l.Pontos().Items(parte)->Count(); ++i)
        v.push_back(l.ObterPonto(parte, i));
    return v;
}

} // namespace

TEST_F(ShapeFile, IdaEVoltaDeCadaTipoVerticePorVertice)
{
    // Anel externo horário, furo anti-horário (o sentido do formato): voltam iguais. Latitudes e
    // longitudes diferentes, negativas e com segundos quebrados.
    const std::vector<TGISPosicao> fora{{-3600, -7200}, {3601, -7200}, {3601, 7199}, {-3600, 7199}, {-3600, -7200}};
    const std::vector<TGISPosicao> furo{{-360, -720}, {-360, 720}, {361, 720}, {361, -720}, {-360, -720}};
    const std::vector<TGISPosicao> ilha{{10, 20}, {10, 50}, {30, 40}}; // anti-horária

    TGISObjetoList areas;
    auto *comFuros = Com(new TGISAreaComFuros, {fora, furo});
    comFuros->Informacoes().AdicionarCampo("Nome", QStringLiteral("Rondônia"));
    areas.Add(comFuros);
    auto *comum = Com(new TGISArea, {fora, ilha}); // a ilha não está fechada nem no sentido
    areas.Add(comum);
    TTratadorDeShapeFile(areas).Gravar(Caminho("areas.shp"));
    EXPECT_EQ(Arquivos(), QStringList({"areas.cor", "areas.cpg", "areas.dbf", "areas.prj", "areas.shp", "areas.shx"}));
    EXPECT_EQ(Bytes(Caminho("areas.cpg")), "UTF-8");

    TGISObjetoList lidas;
    Ler(lidas, Caminho("areas.shp"));
    ASSERT_EQ(lidas.Count(), 2);
    auto *a = dynamic_cast<TGISAreaComFuros *>(lidas.Items(0));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(Absolutos(*a, 0), fora);
    EXPECT_EQ(Absolutos(*a, 1), furo);
    EXPECT_EQ(a->Informacoes().ObterValor("Nome"), QStringLiteral("Rondônia"));
    // A parte de uma área comum é sempre um anel externo: fechada e virada para o sentido horário.
    auto *b = dynamic_cast<TGISLinha *>(lidas.Items(1));
    EXPECT_EQ(Absolutos(*b, 1), (std::vector<TGISPosicao>{{10, 20}, {30, 40}, {10, 50}, {10, 20}}));

    // Pontos e linhas (de duas partes).
    TGISObjetoList outros;
    auto *ponto = new TGISPonto;
    ponto->AtribuirPosicao(GISPosicao(-84600, -169200));
    outros.Add(ponto);
    TTratadorDeShapeFile(outros).Gravar(Caminho("pontos.shp"));
    outros.Clear();
    outros.Add(Com(new TGISLinha, {{{1, 2}, {3, 4}}, {{-5, -6}, {7, -8}, {9, 10}}}));
    TTratadorDeShapeFile(outros).Gravar(Caminho("linhas"));
    TGISObjetoList p, l;
    Ler(p, Caminho("pontos.shp"));
    Ler(l, Caminho("linhas.shp"));
    EXPECT_EQ(p.Items(0)->Posicao(), GISPosicao(-84600, -169200));
    auto *linha = dynamic_cast<TGISLinha *>(l.Items(0));
    ASSERT_NE(linha, nullptr);
    ASSERT_EQ(linha->Pontos().Count(), 2);
    EXPECT_EQ(Absolutos(*linha, 1), (std::vector<TGISPosicao>{{-5, -6}, {7, -8}, {9, 10}}));
}

TEST_F(ShapeFile, ListaMisturadaEmConjuntosEObjetosQueNaoSeGravam)
{
    TGISObjetoList lista;
    lista.Add(new TGISPonto);
    auto *circulo = new TGISAreaCircular;
    circulo->AtribuirPosicao(GISPosicao(-36000, -180000));
    circulo->AtribuirRaioMaior(10);
    lista.Add(circulo);
    auto *elipse = new TGISElipse;
    lista.Add(elipse);
    lista.Add(Com(new TGISCorredor, {{{0, 0}, {100, 100}}}));
    auto *trajeto = new TGISTrajeto;
    trajeto->InserirPosicao(0, GISPosicao(1, 2));
    trajeto->InserirPosicao(1, GISPosicao(3, 4));
    lista.Add(trajeto);

    // Um texto na lista: nada é gravado, e a mensagem diz qual.
    lista.Add(new TGISTexto);
    EsperarErro<EInvalidOperation>([&] { TTratadorDeShapeFile(lista).Gravar(Caminho("mapa.shp")); }, "5 (TGISTexto)");
    EXPECT_TRUE(Arquivos().isEmpty());
    lista.Delete(5);

    TTratadorDeShapeFile(lista).Gravar(Caminho("mapa.shp"));
    EXPECT_FALSE(QFile::exists(Caminho("mapa.shp")));
    TGISObjetoList pontos, linhas, areas;
    Ler(pontos, Caminho("mapa_pontos.shp"));
    Ler(linhas, Caminho("mapa_linhas.shp"));
    Ler(areas, Caminho("mapa_areas.shp"));
    EXPECT_EQ(pontos.Count(), 1);
    ASSERT_EQ(linhas.Count(), 2) << "corredor pela linha do centro e trajeto pelos vértices";
    EXPECT_EQ(Absolutos(*dynamic_cast<TGISLinha *>(linhas.Items(1)), 0),
              (std::vector<TGISPosicao>{{1, 2}, {3, 4}}));
    ASSERT_EQ(areas.Count(), 2);
    auto *contorno = dynamic_cast<TGISLinha *>(areas.Items(0));
    EXPECT_GE(contorno->Pontos().Items(0)->Count(), circulo->Contorno().Count());
    EXPECT_EQ(contorno->Area(), circulo->Area());
}

TEST_F(ShapeFile, CoresIdaEVoltaEPrecedenciaDoArquivo)
{
    TGISObjetoList lista;
    for (int i = 0; i < 3; ++i) {
        auto *a = Com(new TGISArea, {{{0, 0}, {0, 10}, {10, 10}, {0, 0}}});
        a->Caneta().Color = 0x000000FF;
        a->Pincel().Color = i == 1 ? 0x00123456 : 0x00ABCDEF;
        a->Pincel().Style = i == 2 ? bsCross : bsSolid;
        lista.Add(a);
    }
    TTratadorDeShapeFile(lista).Gravar(Caminho("cores.shp"));
    TGISObjetoList lidas;
    Ler(lidas, Caminho("cores.shp"));
    ASSERT_EQ(lidas.Count(), 3);
    for (int i = 0; i < 3; ++i) {
        auto *a = dynamic_cast<TGISArea *>(lidas.Items(i));
        EXPECT_EQ(a->Caneta().Color, 0x000000FF) << i;
        EXPECT_EQ(a->Pincel(), dynamic_cast<TGISArea *>(lista.Items(i))->Pincel()) << i;
    }
    EXPECT_TRUE(Bytes(Caminho("cores.cor")).contains("Caneta=#FF0000")) << "cor como #RRGGBB";

    // À mão: geral, por valor de atributo e por registro (o registro vale mais que o valor).
    Criar(Caminho("mao"), SHPT_POINT, {{SHPT_POINT, {}, {1}, {1}}, {SHPT_POINT, {}, {2}, {2}}, {SHPT_POINT, {}, {3}, {3}}},
          {"uf"}, {{"RO"}, {"AC"}, {"RO"}});
    Escrever(Caminho("mao.cor"), "; comentário\nCaneta=#010203\nPincel=nenhuma\nCampo=uf\nlinha sem sentido\n"
                                 "[Valor RO]\nPincel=#00FF00\n[Registro 3]\nPincel=#0000FF\n");
    TGISObjetoList mao;
    Ler(mao, Caminho("mao.shp"));
    ASSERT_EQ(mao.Count(), 3);
    EXPECT_EQ(mao.Items(0)->Caneta().Color, 0x00030201);
    EXPECT_EQ(mao.Items(0)->ObterCor(), 0x0000FF00);
    EXPECT_EQ(mao.Items(1)->ObterCor(), clNone);
    EXPECT_EQ(mao.Items(2)->ObterCor(), 0x00FF0000);
}
