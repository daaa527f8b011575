// A leitura de Shapefiles: os arquivos da Natural Earth, cada tipo de forma (e Z/M), as
// codificações do .dbf, o .prj (UTM sobre SIRGAS 2000 contra o GeographicLib), o evento de
// validação, o .shx que falta e os registros corrompidos.

#include "ShapeFileAjuda.h"

#include "ConversorPrj_p.h"

#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

#include <GeographicLib/TransverseMercator.hpp>

#include <cmath>

using namespace tavru;
using namespace teste;

namespace {

const QString Dados = QStringLiteral(TAVRU_DADOS "/shp/");

// Segundos de arco de graus.
int S(double graus)
{
    return static_cast<int>(std::lround(graus * 3600));
}

} // namespace

TEST_F(ShapeFile, NaturalEarthPeloRegistroComNomesEmUtf8)
{
    TGISObjetoList estados;
    ASSERT_TRUE(estados.Ler(Dados + "br_states.shp", "ShapeFile"));
    ASSERT_EQ(estados.Count(), 27);
    TGISObjeto *rondonia = estados.ObterObjeto("name", QStringLiteral("Rondônia"));
    ASSERT_NE(rondonia, nullptr);
    EXPECT_EQ(rondonia->Informacoes().ObterValor("postal"), "RO") << "valor aparado";
    auto *area = dynamic_cast<TGISAreaComFuros *>(rondonia);
    ASSERT_NE(area, nullptr);
    // Rondônia fica entre 7,9 e 13,7 S e 60 e 66,8 W.
    const TGISRet r = area->Area();
    EXPECT_GT(r.Pos1.Latitude, S(-14.0));
    EXPECT_LT(r.Pos2.Latitude, S(-7.5));
    EXPECT_GT(r.Pos1.Longitude, S(-67.0));
    EXPECT_LT(r.Pos2.Longitude, S(-59.5));
    EXPECT_EQ(estados.NomeArquivo(), Dados + "br_states.shp");

    TGISObjetoList cidades, rios;
    ASSERT_TRUE(cidades.Ler(Dados + "br_cities.shp", "ShapeFile"));
    ASSERT_TRUE(rios.Ler(Dados + "sa_rivers.shp", "ShapeFile"));
    EXPECT_EQ(cidades.Count(), 46);
    EXPECT_NE(dynamic_cast<TGISPonto *>(cidades.Items(0)), nullptr);
    EXPECT_NE(dynamic_cast<TGISLinha *>(rios.Items(0)), nullptr);
    EXPECT_EQ(dynamic_cast<TGISAreaComFuros *>(rios.Items(0)), nullptr);
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("SHP", true), "ShapeFile");
}

TEST_F(ShapeFile, CadaTipoDeFormaComZeMLidosEm2D)
{
    // Coordenadas com latitude diferente de longitude, para pegar eixos trocados.
    Criar(Caminho("pz"), SHPT_POINTZ, {{SHPT_POINTZ, {}, {-45.5}, {-12.25}}, {SHPT_NULL, {}, {}, {}}});
    Criar(Caminho("mm"), SHPT_MULTIPOINTM, {{SHPT_MULTIPOINTM, {}, {10, 11, 12}, {-1, -2, -3}}}, {"nome"}, {{"trio"}});
    Criar(Caminho("lz"), SHPT_ARCZ, {{SHPT_ARCZ, {0, 2}, {1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}}});
    Criar(Caminho("a"), SHPT_POLYGON,
          {{SHPT_POLYGON, {0, 5}, {0, 0, 10, 10, 0, 2, 4, 4, 2, 2}, {0, 10, 10, 0, 0, 2, 2, 4, 4, 2}}});

    TGISObjetoList pz, mm, lz, a;
    Ler(pz, Caminho("pz.shp"));
    ASSERT_EQ(pz.Count(), 1) << "a forma nula é pulada";
    EXPECT_EQ(pz.Items(0)->Posicao(), GISPosicao(S(-12.25), S(-45.5)));

    Ler(mm, Caminho("mm.shp"));
    ASSERT_EQ(mm.Count(), 3) << "um ponto por vértice";
    EXPECT_EQ(mm.Items(2)->Posicao(), GISPosicao(S(-3), S(12)));
    EXPECT_EQ(mm.Items(2)->Informacoes().ObterValor("nome"), "trio");

    Ler(lz, Caminho("lz.shp"));
    auto *linha = dynamic_cast<TGISLinha *>(lz.Items(0));
    ASSERT_NE(linha, nullptr);
    ASSERT_EQ(linha->Pontos().Count(), 2);
    EXPECT_EQ(linha->Pontos().Items(0)->Count(), 2);
    EXPECT_EQ(linha->Pontos().Items(1)->Count(), 3);
    EXPECT_EQ(linha->ObterPonto(1, 2), GISPosicao(S(10), S(5)));
    EXPECT_EQ(linha->Informacoes().ObterTotal(), 0) << "sem .dbf, sem informações";

    Ler(a, Caminho("a.shp"));
    auto *area = dynamic_cast<TGISAreaComFuros *>(a.Items(0));
    ASSERT_NE(area, nullptr);
    ASSERT_EQ(area->Pontos().Count(), 2) << "o furo é uma parte";
    EXPECT_EQ(area->Pontos().Items(1)->Count(), 5);
    EXPECT_EQ(a.Limites(), GISRet(0, 0, S(10), S(10)));
}

TEST_F(ShapeFile, CodificacaoPeloCpgPeloByteOuLatin1)
{
    const std::vector<TFormaShp> um{{SHPT_POINT, {}, {1}, {2}}};
    // "Rondônia" com ô em Latin-1/1252 (0xF4) e em CP850 (0x93); 0x80 é o euro só em 1252.
    Criar(Caminho("latin1"), SHPT_POINT, um, {"nome"}, {{"Rond\xF4nia \x80"}}, "LDID/0");
    Criar(Caminho("ansi"), SHPT_POINT, um, {"nome"}, {{"Rond\xF4nia \x80"}}, "LDID/87");
    Criar(Caminho("dos"), SHPT_POINT, um, {"nome"}, {{"Rond\x93nia"}}, "LDID/2");
    Criar(Caminho("cpg"), SHPT_POINT, um, {"nome"}, {{"Rond\xC3\xB4nia"}}, "LDID/2");
    Escrever(Caminho("cpg.cpg"), "UTF-8\n"); // o .cpg vale mais que o byte
    Criar(Caminho("cp850"), SHPT_POINT, um, {"nome"}, {{"Rond\x93nia"}}, "LDID/87");
    Escrever(Caminho("cp850.cpg"), "850");

    const auto nome = [&](const char *base) {
        TGISObjetoList l;
        Ler(l, Caminho(QString::fromLatin1(base) + ".shp"));
        return l.Items(0)->Informacoes().ObterValor("nome");
    };
    EXPECT_EQ(nome("latin1"), QStringLiteral("Rondônia \u0080"));
    EXPECT_EQ(nome("ansi"), QStringLiteral("Rondônia €"));
    EXPECT_EQ(nome("dos"), QStringLiteral("Rondônia"));
    EXPECT_EQ(nome("cpg"), QStringLiteral("Rondônia"));
    EXPECT_EQ(nome("cp850"), QStringLiteral("Rondônia"));
}

TEST_F(ShapeFile, PrjProjetadoContraGeographicLibEGeograficoEmGraus)
{
    // SIRGAS 2000 / UTM 23S (meridiano central -45, GRS 80).
    const QByteArray utm23s =
        "PROJCS[\"SIRGAS_2000_UTM_Zone_23S\",GEOGCS[\"GCS_SIRGAS_2000\",DATUM[\"D_SIRGAS_2000\",SPHEROID[\"GRS_1980\","
        "6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION["
        "\"Transverse_Mercator\"],PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",10000000.0],"
        "PARAMETER[\"Central_Meridian\",-45.0],PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0.0],"
        "UNIT[\"Meter\",1.0]]";
    Escrever(Caminho("utm.prj"), utm23s);
    const GeographicLib::TransverseMercator tm(6378137.0, 1 / 298.257222101, 0.9996);
    double x[] = {500000.0, 333444.55, 712345.67, 180000.0};
    double y[] = {7400000.0, 7654321.0, 9999000.0, 6500000.0};
    double lat[4], lon[4];
    for (int i = 0; i < 4; ++i) {
        tm.Reverse(-45.0, x[i] - 500000.0, y[i] - 10000000.0, lat[i], lon[i]);
        ASSERT_GT(lon[i] - -45.0 + 10, 0);
    }
    shp::TConversorPrj conversor(Caminho("utm.shp"), Caminho("utm.prj"), 0, 0, 1e6, 1e7);
    ASSERT_TRUE(conversor.Projetado());
    ASSERT_TRUE(conversor.Converter(x, y, 4));
    for (int i = 0; i < 4; ++i) {
        // Um centímetro: 1e-2 / 111320 graus de latitude; a longitude pelo cosseno.
        EXPECT_NEAR(y[i], lat[i], 1e-2 / 111320.0) << i;
        EXPECT_NEAR(x[i], lon[i], 1e-2 / (111320.0 * std::cos(lat[i] * M_PI / 180))) << i;
    }

    // Pelo tratador, o mesmo ponto em segundos de arco.
    Criar(Caminho("utm"), SHPT_POINT, {{SHPT_POINT, {}, {333444.55}, {7654321.0}}});
    TGISObjetoList l;
    Ler(l, Caminho("utm.shp"));
    EXPECT_EQ(l.Items(0)->Posicao(), GISPosicao(S(lat[1]), S(lon[1])));

    // Geográfico (SAD69): graus, como estão, mesmo fora do que seria UTM.
    Escrever(Caminho("sad.prj"), "GEOGCS[\"GCS_South_American_1969\",DATUM[\"D_South_American_1969\",SPHEROID["
                                 "\"GRS_1967_Truncated\",6378160.0,298.25]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\","
                                 "0.0174532925199433]]");
    Criar(Caminho("sad"), SHPT_POINT, {{SHPT_POINT, {}, {-50.5}, {-20.0}}});
    TGISObjetoList g;
    Ler(g, Caminho("sad.shp"));
    EXPECT_EQ(g.Items(0)->Posicao(), GISPosicao(S(-20.0), S(-50.5)));

    // Sem .prj: graus dentro de ±180/±90; metros fora, erro que nomeia o arquivo.
    Criar(Caminho("metros"), SHPT_POINT, {{SHPT_POINT, {}, {333444.55}, {7654321.0}}});
    TGISObjetoList m;
    EsperarErro<EFilerError>([&] { Ler(m, Caminho("metros.shp")); }, "metros.shp");
    EXPECT_EQ(m.Count(), 0);
    Escrever(Caminho("ruim.prj"), "isto não é WKT");
    Criar(Caminho("ruim"), SHPT_POINT, {{SHPT_POINT, {}, {1}, {1}}});
    EXPECT_THROW(Ler(m, Caminho("ruim.shp")), EFilerError);
}

TEST_F(ShapeFile, ValidacaoRecusaEMudaObjetos)
{
    TGISObjetoList l;
    std::vector<int> registros;
    TOpcoesLeituraShapeFile opcoes;
    opcoes.AoValidar = [&](TGISObjeto &o, int registro, const TInformacoes &atributos, bool &aceitar) {
        registros.push_back(registro);
        if (atributos.ObterValor("postal") == "RO")
            aceitar = false;
        if (atributos.ObterValor("postal") == "AC")
            o.AtribuirCodigo(77);
    };
    Ler(l, Dados + "br_states.shp", opcoes);
    EXPECT_EQ(l.Count(), 26);
    EXPECT_EQ(l.ObterObjeto("postal", "RO"), nullptr);
    ASSERT_NE(l.ObterObjeto("postal", "AC"), nullptr);
    EXPECT_EQ(l.ObterObjeto("postal", "AC")->Codigo(), 77u);
    ASSERT_EQ(registros.size(), 27u);
    EXPECT_EQ(registros.front(), 1) << "registros contados a partir de 1";
    EXPECT_EQ(registros.back(), 27);

    // Uma exceção no evento termina a leitura; o que já entrou fica.
    TGISObjetoList parcial;
    opcoes.AoValidar = [](TGISObjeto &, int registro, const TInformacoes &, bool &) {
        if (registro == 3)
            throw EInvalidOperation("basta");
    };
    EXPECT_THROW(Ler(parcial, Dados + "br_states.shp", opcoes), EInvalidOperation);
    EXPECT_EQ(parcial.Count(), 2);
}

TEST_F(ShapeFile, ShxQueFaltaRefeitoEmMemoriaERegistrosCorrompidosListados)
{
    for (const char *ext : {".shp", ".dbf", ".prj", ".cpg"})
        QFile::copy(Dados + "br_states" + ext, Caminho(QStringLiteral("estados") + ext));
    const QStringList antes = Arquivos();
    TGISObjetoList l;
    Ler(l, Caminho("estados.shp"));
    EXPECT_EQ(l.Count(), 27);
    EXPECT_EQ(Arquivos(), antes) << "nada escrito ao lado";
    Escrever(Caminho("estados.shx"), Bytes(Dados + "br_cities.shx").left(150)); // de outro .shp, cortado
    TGISObjetoList outroShx;
    Ler(outroShx, Caminho("estados.shp"));
    EXPECT_EQ(outroShx.Count(), 27);

    // Três linhas; a do meio com uma parte que começa depois do fim dos vértices.
    Criar(Caminho("tres"), SHPT_ARC,
          {{SHPT_ARC, {0}, {1, 2}, {3, 4}}, {SHPT_ARC, {0}, {5, 6}, {7, 8}}, {SHPT_ARC, {0}, {9, 10}, {11, 12}}}, {"n"},
          {{"um"}, {"dois"}, {"tr\xEAs"}});
    QByteArray shp = Bytes(Caminho("tres.shp"));
    // Registro 2: cabeçalho de 8 bytes, tipo, caixa (32), partes, vértices, início da parte.
    const int registro2 = 100 + (8 + 4 + 32 + 4 + 4 + 4 + 32);
    const int inicioDaParte = registro2 + 8 + 4 + 32 + 4 + 4;
    shp[inicioDaParte] = 9;
    Escrever(Caminho("tres.shp"), shp);
    TGISObjetoList t;
    EsperarErro<EFilerError>([&] { Ler(t, Caminho("tres.shp")); }, "corrompido(s), que não foram lidos: 2.");
    ASSERT_EQ(t.Count(), 2);
    EXPECT_EQ(t.Items(0)->Informacoes().ObterValor("n"), "um");
    EXPECT_EQ(t.Items(1)->Informacoes().ObterValor("n"), QStringLiteral("três")) << "os atributos seguem o registro";

    // Um .shp cortado no meio do último registro, sem .shx: os anteriores entram.
    QFile::remove(Caminho("tres.shx"));
    Escrever(Caminho("tres.shp"), Bytes(Caminho("tres.shp")).left(registro2 + 60));
    TGISObjetoList cortado;
    EXPECT_THROW(Ler(cortado, Caminho("tres.shp")), EFilerError);
    EXPECT_EQ(cortado.Count(), 1);
    EXPECT_FALSE(QFile::exists(Caminho("tres.shx")));

    EXPECT_THROW(Ler(cortado, Caminho("nao_existe.shp")), EFilerError);
    Escrever(Caminho("lixo.shp"), "não é um shapefile");
    EXPECT_THROW(Ler(cortado, Caminho("lixo.shp")), EFilerError);
}
