// A árvore de acompanhamento: os nós saem do documento (marcas, atributos, informações); cada
// entidade acha o seu objeto pelo "Identificador", mostra, esconde e ajusta o mapa a ele; um
// objeto liberado deixa o nó cinza; documentos ruins dão erro claro e nenhuma árvore.

#include "control/AuxiliaresControle.h"

#include <tavru/views/GISTreeNodeXMLEntidade.h>

#include <QTest>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

const QByteArray Documento = R"(<?xml version="1.0" encoding="UTF-8"?>
<ACOMPANHAMENTO Nome="Exercício">
  <Entidade Identificador="F-01" Nome="Fragata" Tipo="Navio">
    <Informacoes><Informacao><Rotulo>Missão</Rotulo><Valor>Escolta</Valor></Informacao></Informacoes>
  </Entidade>
  <!-- comentário: fica de fora -->
  <Entidade Identificador="C-02" Nome="Corveta" Tipo="Navio"/>
  <Entidade Identificador="S-09" Nome="Submarino" Tipo="Navio"/>
  <Nota>texto &amp; mais</Nota>
</ACOMPANHAMENTO>)";

class Acompanhamento : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(300, 300);
        TGISCamada &fundo = NovaCamada(gis, "fundo");
        fundo.Objetos().Add(new TObjetoRet(Graus(-40, -80, 10, -20), nullptr, "Continente"));
        TGISCamada &meios = NovaCamada(gis, "meios");
        // Dois objetos com rótulo; o segundo com o identificador da fragata vem depois e não ganha.
        fragata = Objeto(meios, Graus(-9, -35, -8, -34), "Fragata Independência", "F-01");
        corveta = Objeto(meios, Graus(-14, -39, -13, -38), "Corveta Barroso", "C-02");
        Objeto(meios, Graus(-20, -40, -19, -39), "Outra", "F-01");
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        gis.Zerado();
        gis.FitToWindow();
        arvore.AtribuirGis(&gis);
        arvore.resize(300, 300);
    }
    static TObjetoRet *Objeto(TGISCamada &camada, const TGISRet &area, const QString &nome, const QString &id)
    {
        auto *o = new TObjetoRet(area, nullptr, nome);
        o->Informacoes().AtribuirCampo(QStringLiteral("Identificador"), id);
        camada.Objetos().Add(o);
        return o;
    }
    TGISTreeNodeAcompanhamentoXML *Ler()
    {
        auto situacao = TGISTreeNodeAcompanhamentoXML::LerTexto(Documento, &gis);
        TGISTreeNodeAcompanhamentoXML *raiz = situacao.release();
        arvore.addTopLevelItem(raiz);
        return raiz;
    }

    TGis gis;
    TGISArvoreDeAcompanhamento arvore;
    TObjetoRet *fragata = nullptr, *corveta = nullptr;
};

TEST_F(Acompanhamento, NosSaemDoDocumentoEAsEntidadesAchamOsObjetos)
{
    TGISTreeNodeAcompanhamentoXML *raiz = Ler();
    EXPECT_EQ(raiz->text(0), QStringLiteral("ACOMPANHAMENTO: Exercício"));
    ASSERT_EQ(raiz->childCount(), 4); // três entidades e a nota; o comentário não
    const TGisTreeNodeXML *nota = raiz->FilhoPelaMarca("Nota");
    ASSERT_NE(nota, nullptr);
    EXPECT_EQ(nota->Texto(), "texto & mais");
    EXPECT_EQ(nota->text(1), "texto & mais");

    ASSERT_EQ(raiz->Entidades().size(), 3u);
    TGISTreeNodeXMLEntidade *f = raiz->Entidade("F-01");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->Objeto(), fragata); // o primeiro com o identificador
    EXPECT_EQ(f->Estado(), eeMostrada);
    EXPECT_EQ(f->text(0), QStringLiteral("Fragata Independência")); // o rótulo do mapa
    EXPECT_EQ(f->text(1), QStringLiteral("Navio (mostrada)"));
    EXPECT_EQ(f->checkState(0), Qt::Checked);
    // O bloco de informações fica abaixo da entidade.
    TGisTreeNodeXML *info = f->FilhoPelaMarca("Informacoes");
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->Filho(0)->FilhoPelaMarca("Valor")->Texto(), "Escolta");

    TGISTreeNodeXMLEntidade *s = raiz->Entidade("S-09");
    EXPECT_EQ(s->Objeto(), nullptr);
    EXPECT_EQ(s->Estado(), eeAusente);
    EXPECT_EQ(s->text(0), "Submarino");
    EXPECT_EQ(s->text(1), QStringLiteral("Navio (ausente)"));
    EXPECT_FALSE(s->flags() & Qt::ItemIsEnabled);
    EXPECT_EQ(TGISArvoreDeAcompanhamento::EntidadeDoItem(info), nullptr);
    EXPECT_EQ(TGISArvoreDeAcompanhamento::EntidadeDoItem(s), s);
}

TEST_F(Acompanhamento, MostrarEsconderEAjustarAgemNoObjetoCerto)
{
    TGISTreeNodeAcompanhamentoXML *raiz = Ler();
    TGISTreeNodeXMLEntidade *f = raiz->Entidade("F-01");
    const TPoint pf = gis.Projecao()->MundoParaTela(GISPosicao(-8 * 3600 - 1800, -34 * 3600 - 1800));
    ASSERT_EQ(gis.ObterObjeto(pf), fragata);

    // A caixa esconde: o objeto fica na camada, mas o clique passa a achar o de baixo.
    f->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(fragata->Visivel());
    EXPECT_TRUE(corveta->Visivel());
    EXPECT_EQ(gis.ObterCamada("meios")->Objetos().Count(), 3);
    EXPECT_EQ(gis.ObterObjeto(pf)->Informacoes().ObterValorCampo(0), "Continente");
    EXPECT_EQ(f->text(1), QStringLiteral("Navio (escondida)"));

    // Mudar o objeto por fora também atualiza o nó.
    fragata->AtribuirVisivel(true);
    EXPECT_EQ(f->checkState(0), Qt::Checked);
    EXPECT_TRUE(f->Esconder());
    EXPECT_EQ(f->checkState(0), Qt::Unchecked);

    // Ajustar (o clique duplo) mostra o objeto e centra o mapa nele, com zoom maior.
    const double zoomAntes = gis.Zoom();
    emit arvore.itemDoubleClicked(raiz->Entidade("C-02"), 0);
    EXPECT_TRUE(corveta->Visivel());
    const TGISPosicao centro = gis.Projecao()->Centro();
    EXPECT_NEAR(centro.Latitude, -13.5 * 3600, 60);
    EXPECT_NEAR(centro.Longitude, -38.5 * 3600, 60);
    EXPECT_GT(gis.Zoom(), zoomAntes * 5);
    EXPECT_FALSE(fragata->Visivel()); // só o objeto ajustado muda

    EXPECT_FALSE(raiz->Entidade("S-09")->Mostrar());
    EXPECT_FALSE(raiz->Entidade("S-09")->Ajustar());
}

TEST_F(Acompanhamento, ObjetoLiberadoDeixaONoCinza)
{
    TGISTreeNodeAcompanhamentoXML *raiz = Ler();
    TGISTreeNodeXMLEntidade *c = raiz->Entidade("C-02");
    gis.ObterCamada("meios")->Objetos().Remove(corveta);
    EXPECT_EQ(c->Objeto(), nullptr);
    EXPECT_EQ(c->Estado(), eeAusente);
    EXPECT_FALSE(c->flags() & Qt::ItemIsEnabled);
    EXPECT_FALSE(c->Esconder());
    // A camada inteira sai: os nós ficam, sem objeto.
    gis.Camadas().Delete(gis.Camadas().IndexOf(QStringLiteral("meios")));
    EXPECT_EQ(raiz->Entidade("F-01")->Estado(), eeAusente);
    // Ligar de novo acha o que houver agora.
    Objeto(*gis.ObterCamada("fundo"), Graus(0, 0, 1, 1), "Nova", "C-02");
    arvore.AtribuirGis(&gis);
    EXPECT_EQ(c->Estado(), eeMostrada);
}

TEST(ArvoreXML, DocumentosRuinsDaoErroClaroENenhumaArvore)
{
    EXPECT_THROW(TGisTreeNodeXML::LerTexto("<a><b></a>"), EConvertError);
    EXPECT_THROW(TGisTreeNodeXML::LerTexto(""), EConvertError);
    EXPECT_THROW(TGISTreeNodeAcompanhamentoXML::LerTexto("<CAMADA/>", nullptr), EConvertError);
    // Fundo demais: um nível além do limite falha; no limite, passa.
    auto aninhado = [](int niveis) {
        return QByteArray("<a>").repeated(niveis) + QByteArray("</a>").repeated(niveis);
    };
    EXPECT_NO_THROW(TGisTreeNodeXML::LerTexto(aninhado(TGisTreeNodeXML::ProfundidadeMaxima)));
    EXPECT_THROW(TGisTreeNodeXML::LerTexto(aninhado(TGisTreeNodeXML::ProfundidadeMaxima + 1)), EConvertError);
    EXPECT_THROW(TGisTreeNodeXML::LerTexto("<r>" + QByteArray("<b/>").repeated(TGisTreeNodeXML::NosMaximos) + "</r>"),
                 EConvertError);
    EXPECT_THROW(TGisTreeNodeXML::LerArquivo(QStringLiteral("/nao/existe.xml")), EInOutError);
    EXPECT_THROW(TGisTreeNodeXML::LerArquivo(QStringLiteral("/tmp")), EInOutError);
    // Latin-1 declarado chega certo.
    auto raiz = TGisTreeNodeXML::LerTexto("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r Nome=\"Gua\xED" "ba\"/>");
    EXPECT_EQ(raiz->Atributo("Nome"), QStringLiteral("Guaíba"));
}

} // namespace
