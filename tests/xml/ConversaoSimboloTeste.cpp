// Conversão entre objetos do mapa e símbolos: cada espécie de objeto até o símbolo e de volta
// (posições por (lon, -lat) e a escala do retângulo), a regra da área sem altura, um elemento só
// sem composto, o caso da elipse e a assimetria da limpeza da lista.

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/companions/symbology/TSimboloFonte.h>
#include <tavru/companions/symbology/TSimboloGrafico.h>
#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ConverteGisObjetoISimbolo.h>

#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tavru;

namespace {
constexpr double Pi = 3.14159265358979323846;

template <typename T> const T *Como(const TElementoGrafico *e)
{
    return dynamic_cast<const T *>(e);
}

const TListaElementosGraficos &Elementos(const std::unique_ptr<ISimbolo> &s)
{
    const auto *v = dynamic_cast<const TSimboloVetorial *>(s.get());
    EXPECT_TRUE(v);
    static const TListaElementosGraficos vazia;
    return v ? v->Elementos() : vazia;
}

TGISPosicaoList *Parte(std::initializer_list<TGISPosicao> posicoes)
{
    auto *parte = new TGISPosicaoList;
    for (const TGISPosicao &p : posicoes)
        parte->Add(p);
    return parte;
}
} // namespace

TEST(ConversaoSimbolo, PontosETextosVaoEVoltam)
{
    TGISPonto ponto;
    ponto.AtribuirForma(gisQuadrado);
    ponto.AtribuirCor(0x000000FF);
    ponto.AtribuirPosicao(GISPosicao(3600, -7200));
    const auto simbolo = GisObjetoToSimbolo(ponto);
    ASSERT_EQ(Elementos(simbolo).Count(), 1);
    const auto *p = Como<TPonto>(Elementos(simbolo)[0]);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->Posicao(), TPoint(-7200, -3600));
    EXPECT_EQ(p->Cor(), 0x000000FF);
    // Área de um ponto: as duas razões são as faixas cruas do retângulo; o ponto vai ao centro.
    const auto volta = SimboloToGisObjeto(simbolo.get(), GISRet(-100, 1000, 301, 2001));
    const auto *pv = dynamic_cast<const TGISPonto *>(volta.get());
    ASSERT_TRUE(pv);
    EXPECT_EQ(pv->Posicao(), GISPosicao(100, 1500));
    EXPECT_EQ(pv->Forma(), gisCruz);
    EXPECT_EQ(pv->ObterCor(), 0x000000FF);

    // Forma de símbolo: nenhuma conversão, símbolo vazio, e de volta nada.
    ponto.AtribuirForma(gisSimbolo);
    const auto vazio = GisObjetoToSimbolo(ponto);
    EXPECT_EQ(Elementos(vazio).Count(), 0);
    EXPECT_EQ(SimboloToGisObjeto(vazio.get(), GISRet(0, 0, 10, 10)), nullptr);

    // Fonte: símbolo de fonte; de volta, o ponto fica em (0, 0), sem olhar o retângulo.
    ponto.AtribuirForma(gisFonte);
    ponto.AtribuirLetra(QChar(u'Ç'));
    ponto.Fonte().Name = QStringLiteral("DejaVu Serif");
    const auto fonte = GisObjetoToSimbolo(ponto);
    const auto *sf = dynamic_cast<const TSimboloFonte *>(fonte.get());
    ASSERT_TRUE(sf);
    EXPECT_EQ(sf->Letra(), QChar(u'Ç'));
    EXPECT_EQ(sf->Fonte(), ponto.Fonte());
    const auto pontoDeFonte = SimboloToGisObjeto(fonte.get(), GISRet(500, 500, 900, 900));
    const auto *pf = dynamic_cast<const TGISPonto *>(pontoDeFonte.get());
    ASSERT_TRUE(pf);
    EXPECT_EQ(pf->Forma(), gisFonte);
    EXPECT_EQ(pf->Letra(), QChar(u'Ç'));
    EXPECT_EQ(pf->Fonte(), ponto.Fonte());
    EXPECT_EQ(pf->Posicao(), GISPosicao(0, 0));

    // Texto: o giro passa por 16 bits.
    TGISTexto texto;
    texto.AtribuirTexto(QStringLiteral("Baía"));
    texto.AtribuirPosicao(GISPosicao(-10, 20));
    texto.AtribuirAlinhamentoHorizontal(0);
    texto.AtribuirAlinhamentoVertical(1);
    texto.AtribuirGiroAdicional(40000);
    texto.Fonte().Color = 0x00ABCDEF;
    const auto st = GisObjetoToSimbolo(texto);
    const auto *t = Como<TTexto>(Elementos(st)[0]);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Posicao(), TPoint(20, 10));
    EXPECT_EQ(t->GiroAdicional(), 40000 - 65536);
    const auto tv = SimboloToGisObjeto(st.get(), GISRet(0, 0, 40, 60));
    const auto *tt = dynamic_cast<const TGISTexto *>(tv.get());
    ASSERT_TRUE(tt);
    EXPECT_EQ(tt->Posicao(), GISPosicao(20, 30));
    EXPECT_EQ(tt->Texto(), QStringLiteral("Baía"));
    EXPECT_EQ(tt->AlinhamentoHorizontal(), 0);
    EXPECT_EQ(tt->AlinhamentoVertical(), 1);
    EXPECT_EQ(tt->GiroAdicional(), 40000 - 65536);
    EXPECT_EQ(tt->Fonte().Color, 0x00ABCDEF);
}

TEST(ConversaoSimbolo, LinhasEAreasPelaEscalaDoRetangulo)
{
    // Duas partes: (0,0)-(3600,7200) e (-1800,0). No símbolo: (0,0), (7200,-3600) e (0,1800);
    // área de 7200 de largura por 5400 de altura.
    TGISLinha linha;
    linha.Pontos().Add(Parte({GISPosicao(0, 0), GISPosicao(3600, 7200)}));
    linha.Pontos().Add(Parte({GISPosicao(-1800, 0)}));
    linha.Caneta().Color = 0x00112233;
    linha.Caneta().Style = psDot;
    linha.Caneta().Width = 4;
    linha.CalcularLimites();
    const auto simbolo = GisObjetoToSimbolo(linha);
    ASSERT_EQ(Elementos(simbolo).Count(), 2);
    const auto *p0 = Como<TPoligono>(Elementos(simbolo)[0]);
    ASSERT_TRUE(p0);
    EXPECT_FALSE(p0->Preenchido());
    EXPECT_EQ(p0->Caneta().Color, 0x00112233);
    EXPECT_EQ(p0->Caneta().Style, psDot);
    EXPECT_EQ(p0->ObterListaPosicao().ObterPosicao(1), TPoint(7200, -3600));
    EXPECT_EQ(Elementos(simbolo).ObterArea(), TRect(0, -3600, 7200, 1800));

    // Retângulo com 1800 de latitude e 14400 de longitude: a = 14400/5400 (longitudes contra a
    // altura), b = 1800/7200 (latitudes contra a largura); k = b = 0,25. Centros: C = (900, 7200),
    // c = (3600, -900).
    const auto volta = SimboloToGisObjeto(simbolo.get(), GISRet(0, 0, 1800, 14400));
    const auto *composto = dynamic_cast<const TGISComposto *>(volta.get());
    ASSERT_TRUE(composto);
    ASSERT_EQ(composto->Objetos().Count(), 2);
    const auto *l0 = dynamic_cast<const TGISLinha *>(composto->Objetos()[0]);
    const auto *l1 = dynamic_cast<const TGISLinha *>(composto->Objetos()[1]);
    ASSERT_TRUE(l0 && l1);
    EXPECT_EQ(&l0->Classe(), &TGISLinha::Descritor);
    EXPECT_EQ(l0->ObterPonto(0, 0), GISPosicao(675, 6300));
    EXPECT_EQ(l0->ObterPonto(0, 1), GISPosicao(1575, 8100));
    EXPECT_EQ(l1->ObterPonto(0, 0), GISPosicao(225, 6300));
    EXPECT_EQ(l0->Caneta().Color, 0x00112233);
    EXPECT_EQ(l0->Caneta().Style, psDot);
    EXPECT_EQ(l0->Caneta().Width, 1); // a largura não passa
    EXPECT_EQ(l0->Area(), GISRet(675, 6300, 1575, 8100)); // com extensão

    // Área preenchida: pincel e preenchimento; um elemento só volta sem composto. Corredor:
    // polígono aberto.
    TGISArea area;
    area.Pontos().Add(Parte({GISPosicao(0, 0), GISPosicao(100, 0), GISPosicao(100, 300)}));
    area.Pincel().Color = 0x00445566;
    area.Pincel().Style = bsCross;
    const auto sa = GisObjetoToSimbolo(area);
    const auto *pa = Como<TPoligono>(Elementos(sa)[0]);
    ASSERT_TRUE(pa);
    EXPECT_TRUE(pa->Preenchido());
    EXPECT_EQ(pa->Pincel().Color, 0x00445566);
    const auto av = SimboloToGisObjeto(sa.get(), GISRet(0, 0, 100, 300));
    const auto *aa = dynamic_cast<const TGISArea *>(av.get());
    ASSERT_TRUE(aa);
    EXPECT_EQ(aa->Pincel().Style, bsCross);
    EXPECT_EQ(aa->Pincel().Color, 0x00445566);
    TGISCorredor corredor;
    corredor.Pontos().Add(Parte({GISPosicao(0, 0), GISPosicao(5, 5)}));
    EXPECT_FALSE(Como<TPoligono>(Elementos(GisObjetoToSimbolo(corredor))[0])->Preenchido());

    // Sem partes, composto e trajeto: símbolo vazio, que volta como nada.
    EXPECT_EQ(Elementos(GisObjetoToSimbolo(TGISLinha())).Count(), 0);
    TGISComposto outro;
    outro.Objetos().Add(new TGISPonto);
    EXPECT_EQ(Elementos(GisObjetoToSimbolo(outro)).Count(), 0);
    EXPECT_EQ(Elementos(GisObjetoToSimbolo(TGISTrajeto())).Count(), 0);
}

TEST(ConversaoSimbolo, AreaSemAlturaUsaAFaixaCruaDeLongitudes)
{
    TSimboloVetorial s;
    auto *p = new TPoligono;
    p->ObterListaPosicao().Add(TPoint(0, 0));
    p->ObterListaPosicao().Add(TPoint(100, 0));
    s.Elementos().Add(p);
    // a = 3 (faixa crua de longitudes, sem dividir), b = 1000 / 100 = 10: k = 3.
    TGISObjetoList lista;
    SimboloToGisObjetoList(&s, lista, GISRet(0, 0, 1000, 3));
    ASSERT_EQ(lista.Count(), 1);
    const auto *l = dynamic_cast<const TGISLinha *>(lista[0]);
    EXPECT_EQ(l->ObterPonto(0, 0), GISPosicao(500, -149));
    EXPECT_EQ(l->ObterPonto(0, 1), GISPosicao(500, 151));
    // Largura zero: a razão b é a faixa crua de latitudes.
    p->ObterListaPosicao().Clear();
    p->ObterListaPosicao().Add(TPoint(0, 0));
    p->ObterListaPosicao().Add(TPoint(0, 10));
    SimboloToGisObjetoList(&s, lista, GISRet(0, 0, 2, 1000)); // a = 100, b = 2
    EXPECT_EQ(dynamic_cast<const TGISLinha *>(lista[0])->ObterPonto(0, 1), GISPosicao(1 - 10, 500));
}

TEST(ConversaoSimbolo, AreasCircularesEOCasoDaElipse)
{
    TGISAreaCircular circulo; // orientada ao norte pelo construtor
    circulo.AtribuirPosicao(GISPosicao(36000, -3600));
    circulo.AtribuirAzimuteInicial(0.5);
    circulo.AtribuirAzimuteFinal(1.0);
    circulo.AtribuirRaioMaior(10);
    circulo.AtribuirRaioMenor(4);
    circulo.Caneta().Color = clRed;
    circulo.Caneta().Style = psDash;
    circulo.Pincel().Color = 0x00008000;
    circulo.Pincel().Style = bsCross;
    const auto simbolo = GisObjetoToSimbolo(circulo);
    const auto *setor = Como<TSetor>(Elementos(simbolo)[0]);
    ASSERT_TRUE(setor);
    EXPECT_FALSE(Como<TElipse>(setor));
    // Rumo 0 + 0,5: ângulo matemático 89,5 graus.
    EXPECT_NEAR(setor->AnguloInicial(), 89.5 * Pi / 180, 1e-12);
    EXPECT_NEAR(setor->AnguloFinal(), 89.0 * Pi / 180, 1e-12);
    EXPECT_EQ(setor->RaioExterno(), 10);
    EXPECT_EQ(setor->RaioInterno(), 4);
    EXPECT_EQ(setor->Centro(), TPoint(-3600, -36000));
    EXPECT_EQ(setor->Caneta().Color, clBlack); // a cor da caneta não vai
    EXPECT_EQ(setor->Caneta().Style, psDash);
    EXPECT_EQ(setor->Pincel().Color, 0x00008000);
    EXPECT_EQ(setor->Pincel().Style, bsCross);

    // De volta num retângulo de 1 grau: o raio externo alcança metade da extensão norte-sul.
    const TGISRet r = GISRet(0, 0, 3600, 7200);
    const double metade = Distancia(GISPosicao(0, 3600), GISPosicao(3600, 3600)) / 2;
    const auto volta = SimboloToGisObjeto(simbolo.get(), r);
    const auto *a = dynamic_cast<const TGISAreaCircular *>(volta.get());
    ASSERT_TRUE(a);
    EXPECT_FALSE(dynamic_cast<const TGISElipse *>(a));
    EXPECT_EQ(a->Posicao(), GISPosicao(1800, 3600));
    EXPECT_DOUBLE_EQ(a->RaioMaior(), metade);
    EXPECT_DOUBLE_EQ(a->RaioMenor(), metade * 0.4);
    EXPECT_NEAR(a->AzimuteInicial(), 0.5, 1e-9);
    EXPECT_NEAR(a->AzimuteFinal(), 1.0, 1e-9);
    EXPECT_DOUBLE_EQ(a->Orientacao(), Pi / 2);
    EXPECT_EQ(a->Caneta().Color, clBlack);
    EXPECT_EQ(a->Caneta().Style, psDash);
    EXPECT_EQ(a->Pincel().Style, bsCross);

    // Elipse: o símbolo guarda só os segundos semi-eixos; de volta eles viram os primeiros
    // (escalados) e também os segundos (sem escala).
    TGISElipse elipse;
    elipse.AtribuirRaioMaior(10);
    elipse.AtribuirRaioMenor(4);
    elipse.AtribuirRaioMaiorY(6);
    elipse.AtribuirRaioMenorY(2);
    const auto se = GisObjetoToSimbolo(elipse);
    const auto *te = Como<TElipse>(Elementos(se)[0]);
    ASSERT_TRUE(te);
    EXPECT_EQ(te->RaioExterno(), 6);
    EXPECT_EQ(te->RaioInterno(), 2);
    const auto ev = SimboloToGisObjeto(se.get(), r);
    const auto *e = dynamic_cast<const TGISElipse *>(ev.get());
    ASSERT_TRUE(e);
    EXPECT_DOUBLE_EQ(e->RaioMaior(), metade);
    EXPECT_DOUBLE_EQ(e->RaioMenor(), metade / 3);
    EXPECT_EQ(e->RaioMaiorY(), 6);
    EXPECT_EQ(e->RaioMenorY(), 2);

    // Raio externo zero não vira infinito.
    elipse.AtribuirRaioMaiorY(0);
    EXPECT_THROW(SimboloToGisObjeto(GisObjetoToSimbolo(elipse).get(), r), EZeroDivide);
}

TEST(ConversaoSimbolo, ImagensELimpezaDaLista)
{
    QTemporaryDir pasta;
    const QString arquivo = pasta.filePath(QStringLiteral("figura.png"));
    ASSERT_TRUE(QImage(8, 4, QImage::Format_RGB32).save(arquivo));
    TGISImagem imagem;
    imagem.LerArquivo(arquivo);
    const auto grafico = GisObjetoToSimbolo(imagem);
    const auto *g = dynamic_cast<const TSimboloGrafico *>(grafico.get());
    ASSERT_TRUE(g);
    EXPECT_EQ(g->NomeArquivo(), arquivo);
    EXPECT_EQ(g->Imagem().size(), QSize(8, 4));
    EXPECT_THROW(GisObjetoToSimbolo(TGISImagem()), EInOutError); // sem arquivo

    // A conversão vetorial esvazia a lista, mesmo sem elementos; fonte e figura acrescentam.
    TGISObjetoList lista;
    lista.Add(new TGISPonto);
    SimboloToGisObjetoList(grafico.get(), lista, GISRet(0, 0, 1, 1));
    ASSERT_EQ(lista.Count(), 2);
    EXPECT_EQ(dynamic_cast<const TGISImagem *>(lista[1])->NomeArquivoImagem(), arquivo);
    SimboloToGisObjetoList(std::make_unique<TSimboloFonte>().get(), lista, GISRet(0, 0, 1, 1));
    EXPECT_EQ(lista.Count(), 3);
    SimboloToGisObjetoList(nullptr, lista, GISRet(0, 0, 1, 1));
    EXPECT_EQ(lista.Count(), 3);
    TSimboloVetorial vazio;
    SimboloToGisObjetoList(&vazio, lista, GISRet(0, 0, 1, 1));
    EXPECT_EQ(lista.Count(), 0);
    // Um símbolo vetorial com elementos põe só os seus objetos.
    lista.Add(new TGISPonto);
    vazio.Elementos().Add(new TPonto);
    vazio.Elementos().Add(nullptr);
    vazio.Elementos().Add(new TPonto(TPoint(1, 1)));
    SimboloToGisObjetoList(&vazio, lista, GISRet(0, 0, 10, 10));
    EXPECT_EQ(lista.Count(), 2);
}
