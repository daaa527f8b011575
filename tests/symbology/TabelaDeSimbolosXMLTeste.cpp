// A forma XML da tabela de símbolos: ida e volta exata de todas as espécies e elementos, o
// arquivo ao lado da figura, e documentos ruins, que deixam a tabela como estava.

#include <tavru/companions/symbology/TSimboloFonte.h>
#include <tavru/companions/symbology/TSimboloGrafico.h>
#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/platform/Exception.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tavru;

namespace {
// Uma tabela com as três espécies e todos os elementos, com valores que se distinguem.
void Preencher(TTabelaDeSimbolos &tabela, const QString &figura)
{
    auto v = std::make_unique<TSimboloVetorial>(QStringLiteral("Farol & <cais>"));
    v->Elementos().Add(new TPonto(TPoint(-7, 2147483647), 0x00123456));
    auto *texto = new TTexto;
    texto->AtribuirPosicao(TPoint(3, -4));
    texto->AtribuirTexto(QStringLiteral("São \"João\""));
    texto->AtribuirAlinhamentoHorizontal(1);
    texto->AtribuirAlinhamentoVertical(0);
    texto->AtribuirGiroAdicional(-32768);
    texto->Fonte().Name = QStringLiteral("DejaVu Serif");
    texto->Fonte().SetHeight(-17);
    texto->Fonte().Color = -1;
    texto->Fonte().Style = Estilo(fsItalic) | Estilo(fsBold);
    texto->Fonte().Escapement = 450;
    texto->Fonte().Charset = 0;
    v->Elementos().Add(texto);
    auto *setor = new TSetor;
    setor->AtribuirCentro(TPoint(10, 20));
    setor->AtribuirRaioExterno(1.0 / 3.0);
    setor->AtribuirRaioInterno(0.1);
    setor->AtribuirAnguloInicial(-2.5e-300);
    setor->AtribuirAnguloFinal(6.283185307179586);
    setor->Caneta().Color = clRed;
    setor->Caneta().Style = psDashDot;
    setor->Caneta().Width = 3;
    setor->Pincel().Color = clBlue;
    setor->Pincel().Style = bsDiagCross;
    v->Elementos().Add(setor);
    auto *elipse = new TElipse;
    elipse->AtribuirRaioExterno(5);
    elipse->AtribuirRaioExternoY(2.75);
    elipse->AtribuirRaioInternoY(1e-9);
    v->Elementos().Add(elipse);
    auto *poligono = new TPoligono;
    poligono->AtribuirPreenchido(true);
    poligono->Pincel().Style = bsClear;
    for (const TPoint &p : {TPoint(0, 0), TPoint(-2147483647 - 1, 5), TPoint(9, -9)})
        poligono->ObterListaPosicao().Add(p);
    v->Elementos().Add(poligono);
    v->Elementos().Add(new TPoligono); // vazio
    tabela.Adicionar(std::move(v));

    auto f = std::make_unique<TSimboloFonte>(QStringLiteral("Âncora"));
    f->AtribuirLetra(QChar(0x2693));
    f->Fonte().Color = clGreen;
    tabela.Adicionar(std::move(f));
    auto g = std::make_unique<TSimboloGrafico>(QStringLiteral("Brasão"));
    try {
        g->LerArquivo(figura);
    } catch (const EInOutError &) {
    }
    tabela.Adicionar(std::move(g));
}
} // namespace

TEST(TabelaDeSimbolosXML, IdaEVoltaExataPorArquivo)
{
    QTemporaryDir pasta;
    const QString figura = pasta.filePath(QStringLiteral("brasao.png"));
    QImage(3, 2, QImage::Format_RGB32).save(figura);
    TTabelaDeSimbolos tabela;
    Preencher(tabela, figura);
    const QString arquivo = pasta.filePath(QStringLiteral("simbolos.xml"));
    tabela.Gravar(arquivo);

    TTabelaDeSimbolos lida;
    lida.Adicionar(std::make_unique<TSimboloFonte>()); // trocado pela leitura
    lida.Ler(arquivo);
    ASSERT_EQ(lida.ObterTotal(), 3);
    EXPECT_EQ(lida.ObterXML(), tabela.ObterXML());

    const auto *v = dynamic_cast<const TSimboloVetorial *>(lida.ObterSimbolo(0));
    ASSERT_TRUE(v);
    EXPECT_EQ(v->Nome(), QStringLiteral("Farol & <cais>"));
    ASSERT_EQ(v->Elementos().Count(), 6);
    const auto *ponto = dynamic_cast<const TPonto *>(v->Elementos().ObterElementoGrafico(0));
    ASSERT_TRUE(ponto);
    EXPECT_EQ(ponto->Posicao(), TPoint(-7, 2147483647));
    const auto *texto = dynamic_cast<const TTexto *>(v->Elementos().ObterElementoGrafico(1));
    ASSERT_TRUE(texto);
    EXPECT_EQ(texto->Texto(), QStringLiteral("São \"João\""));
    EXPECT_EQ(texto->GiroAdicional(), -32768);
    EXPECT_EQ(texto->AlinhamentoHorizontal(), 1);
    EXPECT_EQ(texto->AlinhamentoVertical(), 0);
    EXPECT_EQ(texto->Fonte(), dynamic_cast<const TTexto *>(
                                  dynamic_cast<const TSimboloVetorial *>(tabela.ObterSimbolo(0))->Elementos()[1])
                                  ->Fonte());
    const auto *setor = dynamic_cast<const TSetor *>(v->Elementos().ObterElementoGrafico(2));
    ASSERT_TRUE(setor);
    EXPECT_FALSE(dynamic_cast<const TElipse *>(setor));
    EXPECT_EQ(setor->RaioExterno(), 1.0 / 3.0); // exato
    EXPECT_EQ(setor->AnguloInicial(), -2.5e-300);
    EXPECT_EQ(setor->Caneta().Width, 3);
    EXPECT_EQ(setor->Pincel().Style, bsDiagCross);
    const auto *elipse = dynamic_cast<const TElipse *>(v->Elementos().ObterElementoGrafico(3));
    ASSERT_TRUE(elipse);
    EXPECT_EQ(elipse->RaioExternoY(), 2.75);
    EXPECT_EQ(elipse->RaioInternoY(), 1e-9);
    const auto *poligono = dynamic_cast<const TPoligono *>(v->Elementos().ObterElementoGrafico(4));
    ASSERT_TRUE(poligono);
    EXPECT_TRUE(poligono->Preenchido());
    ASSERT_EQ(poligono->ObterListaPosicao().Count(), 3);
    EXPECT_EQ(poligono->ObterListaPosicao().ObterPosicao(1), TPoint(-2147483647 - 1, 5));

    const auto *f = dynamic_cast<const TSimboloFonte *>(lida.ObterSimbolo(1));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->Letra(), QChar(0x2693));
    EXPECT_EQ(f->Fonte().Color, clGreen);
    const auto *g = dynamic_cast<const TSimboloGrafico *>(lida.ObterSimbolo(2));
    ASSERT_TRUE(g);
    EXPECT_EQ(g->Imagem().size(), QSize(3, 2));

    // Uma figura que sumiu não impede a leitura: o símbolo fica com o nome e sem figura. Um nome
    // relativo é procurado na pasta da tabela.
    QFile::remove(figura);
    lida.Ler(arquivo);
    ASSERT_EQ(lida.ObterTotal(), 3);
    EXPECT_TRUE(dynamic_cast<const TSimboloGrafico *>(lida.ObterSimbolo(2))->Imagem().isNull());
    EXPECT_EQ(lida.ObterXML(), tabela.ObterXML());
    QImage(4, 4, QImage::Format_RGB32).save(pasta.filePath(QStringLiteral("relativa.png")));
    lida.AtribuirXML("<TabelaDeSimbolos><SimboloGrafico Arquivo=\"relativa.png\"/></TabelaDeSimbolos>", pasta.path());
    EXPECT_EQ(dynamic_cast<const TSimboloGrafico *>(lida.ObterSimbolo(0))->Imagem().size(), QSize(4, 4));
}

TEST(TabelaDeSimbolosXML, DocumentosRuinsDeixamATabelaComoEstava)
{
    TTabelaDeSimbolos tabela;
    Preencher(tabela, QString());
    const QByteArray antes = tabela.ObterXML();
    const char *ruins[] = {
        "",
        "<TabelaDeSimbolos><SimboloVetorial>",
        "<Simbolos/>",
        "<TabelaDeSimbolos><SimboloVetorial><Ponto X=\"2147483648\"/></SimboloVetorial></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloVetorial><Setor RaioExterno=\"nan\"/></SimboloVetorial></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloVetorial><Setor AnguloFinal=\"1e400\"/></SimboloVetorial></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloVetorial><Poligono Posicoes=\"1,2 3\"/></SimboloVetorial></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloVetorial><Poligono EstiloPincel=\"8\"/></SimboloVetorial></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloFonte Letra=\"65536\"/></TabelaDeSimbolos>",
        "<TabelaDeSimbolos><SimboloVetorial><Texto GiroAdicional=\"32768\"/></SimboloVetorial></TabelaDeSimbolos>",
    };
    for (const char *ruim : ruins) {
        EXPECT_THROW(tabela.AtribuirXML(ruim), Exception) << ruim;
        EXPECT_EQ(tabela.ObterXML(), antes) << ruim;
    }
    try {
        tabela.AtribuirXML("<TabelaDeSimbolos><SimboloVetorial><Poligono EstiloPincel=\"8\"/></SimboloVetorial>"
                           "</TabelaDeSimbolos>");
    } catch (const EConvertError &e) {
        EXPECT_EQ(e.Message(), QStringLiteral("Tabela de símbolos: o atributo EstiloPincel=\"8\" de <Poligono> não é "
                                              "um inteiro de 0 a 7."));
    }
    EXPECT_THROW(tabela.Ler(QStringLiteral("/nao/existe.xml")), EInOutError);

    // O que falta fica no padrão; o desconhecido é ignorado.
    tabela.AtribuirXML("<TabelaDeSimbolos Versao=\"9\"><Outro/><SimboloVetorial><Ponto/><Arco/></SimboloVetorial>"
                       "</TabelaDeSimbolos>");
    ASSERT_EQ(tabela.ObterTotal(), 1);
    const auto *v = dynamic_cast<const TSimboloVetorial *>(tabela.ObterSimbolo(0));
    ASSERT_EQ(v->Elementos().Count(), 1);
    EXPECT_EQ(dynamic_cast<const TPonto *>(v->Elementos()[0])->Cor(), clBlack);
}
