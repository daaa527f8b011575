// Leitura de elementos: partes e Tipo="Inicio", componentes que faltam, inteiros crus e graus,
// cores nos dois modos, o que o leitor de cada classe deixa de ler, objetos soltos, e números
// inválidos que encerram a leitura com o que já foi lido.

#include "AjustesXML.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>

using namespace tavru;

namespace {

class Leitura : public teste::DocumentoXML
{
protected:
    using VP = std::vector<std::vector<std::pair<int, int>>>;
    /// As partes de uma linha como listas de (latitude, longitude) absolutas.
    static VP Partes(const TGISLinha &linha)
    {
        VP r(static_cast<size_t>(linha.Pontos().Count()));
        for (int p = 0; p < linha.Pontos().Count(); ++p)
            for (int i = 0; i < linha.Pontos()[p]->Count(); ++i)
                r[p].emplace_back(linha.ObterPonto(p, i).Latitude, linha.ObterPonto(p, i).Longitude);
        return r;
    }
    static void Recusa(const char *elemento) // número ou cor que não se lê
    {
        EXPECT_THROW(TTratadorDeArquivosXML::ObterObjeto(QString::fromUtf8(elemento)), EConvertError) << elemento;
    }
};

} // namespace

TEST_F(Leitura, PartesEComponentesQueFaltam)
{
    // Uma parte começa no primeiro filho aceito e em cada Tipo="Inicio" exato; o nome dos filhos
    // não importa; um filho sem Latitude e sem Longitude é pulado; o componente que falta repete o
    // do vértice anterior (zero no primeiro), de uma parte para a outra.
    auto area = Objeto<TGISArea>("<Area><Pontos><Nada Tipo=\"Inicio\"/><Ponto Longitude=\"200\"/>"
                                 "<Vertice Latitude=\"300\"/><Ponto Tipo=\"inicio\" Longitude=\"400\"/>"
                                 "<Ponto Tipo=\"Inicio\" Latitude=\"-5\"/></Pontos></Area>");
    ASSERT_TRUE(area);
    EXPECT_EQ(Partes(*area), (VP{{{0, 200}, {300, 200}, {300, 400}}, {{-5, 400}}}));
    EXPECT_EQ(area->Limites(), GISRet(-5, 200, 300, 400));

    // Um documento sem Tipo é uma parte só; num trajeto, só pontos com os dois componentes entram.
    auto linha = Objeto<TGISLinha>("<Linha><Pontos><Ponto Latitude=\"1\" Longitude=\"2\"/>"
                                   "<Ponto Latitude=\"3\" Longitude=\"4\"/></Pontos></Linha>");
    ASSERT_TRUE(linha);
    EXPECT_EQ(Partes(*linha), (VP{{{1, 2}, {3, 4}}}));
    auto trajeto = Objeto<TGISTrajeto>("<Trajeto><Pontos><Ponto Latitude=\"10\" Longitude=\"20\"/>"
                                       "<Ponto Latitude=\"30\"/></Pontos></Trajeto>");
    ASSERT_TRUE(trajeto);
    EXPECT_EQ(trajeto->Pontos().Count(), 1);
}

TEST_F(Leitura, InteirosCrusTextosEmGrausEObjetoSolto)
{
    EXPECT_EQ(Objeto<TGISPonto>("<Ponto Latitude=\"1000\" Longitude=\"2000\"/>")->Posicao(), GISPosicao(1000, 2000));
    EXPECT_EQ(Objeto<TGISPonto>("<Ponto Latitude=\"23°30'00''S\" Longitude=\"046°15'00''w\"/>")->Posicao(),
              GISPosicao(-84600, -166500));
    // A letra decide: uma longitude com "N" não é grau e não é inteiro.
    for (const char *e : {"<Ponto Latitude=\"12.5\"/>", "<Ponto Longitude=\"10°00'00''N\"/>", "<Ponto Latitude=\"\"/>",
                          "<Ponto Latitude=\"2147483648\"/>", "<Linha><Pontos><Ponto Latitude=\"x\"/></Pontos></Linha>"})
        Recusa(e);
    // Os cantos da imagem são sempre graus: "1000" são 1000 graus.
    auto imagem = Objeto<TGISImagem>("<Imagem Arquivo=\"/nao/ha/figura.png\" LatMin=\"1000\" LongMin=\"000°00'10''W\" "
                                     "CorTransparente=\"00FF00\"/>");
    ASSERT_TRUE(imagem);
    EXPECT_EQ(imagem->AreaImagem(), GISRet(3600000, -10, 1000, 1000));
    EXPECT_TRUE(imagem->NomeArquivoImagem().isEmpty()); // a figura não existe: nada é carregado, sem erro

    try {
        TTratadorDeArquivosXML::ObterObjeto(QString());
        FAIL() << "texto vazio";
    } catch (const EListError &e) {
        EXPECT_EQ(e.Message(), "Índice de lista fora dos limites (0)");
    }
    // Nome desconhecido, em minúsculas, ou texto no lugar do elemento: nenhum objeto.
    for (const char *e : {"<ponto/>", "<Informacoes/>", "texto<Ponto/>"})
        EXPECT_FALSE(TTratadorDeArquivosXML::ObterObjeto(QString::fromUtf8(e))) << e;
    TAG_RAIZ = "Mapa"; // o texto vai dentro de qualquer raiz; só o primeiro elemento conta
    EXPECT_TRUE(Objeto<TGISLinha>("<Linha/><Ponto/>"));
    EXPECT_THROW(TTratadorDeArquivosXML::ObterObjeto("<Texto Texto=\"a\"b\"/>"), EFilerError);
}

TEST_F(Leitura, CoresNosDoisModos)
{
    auto area = Objeto<TGISArea>("<Area Cor=\"0000FF\" EstiloPreenchimento=\"6\" CorPreenchimento=\"abcdef\"/>");
    ASSERT_TRUE(area);
    EXPECT_EQ(area->Caneta().Color, clRed);
    EXPECT_EQ(area->Pincel().Color, 0xABCDEF);
    EXPECT_EQ(area->Pincel().Style, bsCross);
    // O ponto lê o Cor na cor da fonte (AtribuirCor), não na caneta.
    auto ponto = Objeto<TGISPonto>("<Ponto Cor=\"FF0000\"/>");
    ASSERT_TRUE(ponto);
    EXPECT_EQ(ponto->ObterCor(), clBlue);
    EXPECT_EQ(ponto->Caneta().Color, TPen().Color);
    for (const char *e : {"<Linha Cor=\"#0000FF\"/>", "<Linha Cor=\"1FFFFFFFF\"/>", "<Linha Estilo=\"7\"/>"})
        Recusa(e);

    // No modo da tabela, os códigos de cor; as cores da caneta e do pincel ficam.
    USAR_TABELA_DE_SIMBOLOS = true;
    area = Objeto<TGISArea>("<Area Cor=\"3\" CorPreenchimento=\"7\"/>");
    ASSERT_TRUE(area);
    EXPECT_EQ(area->IndiceCor(), 3);
    EXPECT_EQ(area->IndicePincel(), 7);
    EXPECT_EQ(area->Caneta().Color, TPen().Color);
    EXPECT_EQ(area->Pincel().Color, TBrush().Color);
    Recusa("<Linha Cor=\"0000FF\"/>");
}

TEST_F(Leitura, OQueCadaLeitorDeixaDeLer)
{
    // Ponto: tamanhos de tela voltam a (8, 8)/(2, 2) e só se leem pelos nomes "NaTela"; forma e
    // orientação não são lidas; o tamanho no mundo é inteiro (segundos) ou graus.
    auto ponto = Objeto<TGISPonto>(
        "<Ponto Símbolo=\"3\" Forma=\"2\" TamanhoMaximoX=\"40\" Orientação=\"90°\" TamanhoMaximoNaTelaX=\"30\" "
        "TamanhoMinimoNaTelaY=\"4\" TamanhoNoMundoLatitude=\"10000\" TamanhoNoMundoLongitude=\"0.5\"/>");
    ASSERT_TRUE(ponto);
    EXPECT_EQ(ponto->Simbolo(), 3);
    EXPECT_EQ(ponto->Forma(), gisCruz);
    EXPECT_EQ(ponto->Orientacao(), 0.0);
    EXPECT_EQ(ponto->TamanhoMaximo(), (TPoint{30, 8}));
    EXPECT_EQ(ponto->TamanhoMinimo(), (TPoint{2, 4}));
    EXPECT_EQ(ponto->TamanhoNoMundo(), GISPosicao(10000, 1800));
    EXPECT_EQ(Objeto<TGISPonto>("<Ponto/>")->TamanhoNoMundo(), GISPosicao(1000, 1000));

    // Texto: a posição não é lida.
    auto texto = Objeto<TGISTexto>("<Texto Latitude=\"10\" Longitude=\"20\" Fonte=\"Serif\" AlinhamentoVertical=\"0\" "
                                   "Texto=\"Ilha &amp; Farol\" FonteTamanho=\"14\"/>");
    ASSERT_TRUE(texto);
    EXPECT_EQ(texto->Posicao(), GISPosicao(0, 0));
    EXPECT_EQ(texto->Fonte().Name, "Serif");
    EXPECT_EQ(texto->Fonte().Size(), 14);
    EXPECT_EQ(texto->AlinhamentoVertical(), 0);
    EXPECT_EQ(texto->Texto(), "Ilha & Farol");

    // Corredor: larguras e linha; o preenchimento não é lido.
    auto corredor = Objeto<TGISCorredor>("<Corredor Cor=\"0000FF\" EstiloPreenchimento=\"3\" "
                                         "CorPreenchimento=\"00FF00\" Esq=\"2.5 MN\" Dir=\"1852 m\"/>");
    ASSERT_TRUE(corredor);
    EXPECT_DOUBLE_EQ(corredor->Esq(), 2.5);
    EXPECT_DOUBLE_EQ(corredor->Dir(), 1.0);
    EXPECT_EQ(corredor->Caneta().Color, clRed);
    EXPECT_EQ(corredor->Pincel(), TGISCorredor().Pincel());
}

TEST_F(Leitura, TrajetoECompostos)
{
    const QString campo = "<Informacao><Rotulo>%1</Rotulo><Valor>%2</Valor></Informacao>";
    auto trajeto = Objeto<TGISTrajeto>(
        QStringLiteral("<Trajeto><Pontos><Ponto Latitude=\"1\" Longitude=\"1\"><Informacoes>%1%2</Informacoes></Ponto>"
                       "<Ponto Latitude=\"2\" Longitude=\"2\"><Informacoes>%3</Informacoes></Ponto>"
                       "<Ponto Latitude=\"3\" Longitude=\"3\"/></Pontos></Trajeto>")
            .arg(campo.arg("Identificador", "P1"), campo.arg("Objeto Acompanhado", "Fragata"),
                 campo.arg("Identificador", "P2")));
    ASSERT_TRUE(trajeto);
    ASSERT_EQ(trajeto->Pontos().Count(), 3);
    EXPECT_EQ(trajeto->ObterPonto(0)->Rotulo(), "Fragata");
    EXPECT_TRUE(trajeto->ObterPonto(1)->Fixo());
    EXPECT_EQ(trajeto->ObterPonto(1)->Rotulo(), "Ponto Fixo");
    EXPECT_FALSE(trajeto->ObterPonto(2)->Fixo());
    EXPECT_EQ(trajeto->Limites(), GISRet(1, 1, 3, 3));

    auto composto = Objeto<TGISComposto>(
        QStringLiteral("<Composto><Ponto/><Composto><Linha/></Composto><Rio/><Informacoes>%1</Informacoes></Composto>")
            .arg(campo.arg("Nome", "Grupo")));
    ASSERT_TRUE(composto);
    ASSERT_EQ(composto->Objetos().Count(), 2);
    EXPECT_EQ(static_cast<TGISComposto *>(composto->Objetos()[1])->Objetos().Count(), 1);
    EXPECT_EQ(composto->Informacoes().ObterValor("Nome"), "Grupo");
    // Compostos aninhados sem fim não estouram a pilha.
    EXPECT_THROW(TTratadorDeArquivosXML::ObterObjeto(QString("<Composto>").repeated(5000)
                                                     + QString("</Composto>").repeated(5000)),
                 EFilerError);
}

TEST_F(Leitura, NumeroInvalidoEncerraALeituraEGuardaOQueJaFoiLido)
{
    TGISObjetoList lista;
    EXPECT_THROW(Ler(lista, Documento("<Ponto Latitude=\"1\"/>\r\n<Linha/>\r\n<Area Estilo=\"sólido\"/>\r\n"
                                      "<Ponto Latitude=\"4\"/>")),
                 EConvertError);
    ASSERT_EQ(lista.Count(), 2);
    EXPECT_EQ(lista[0]->Posicao(), GISPosicao(1, 0));
    // Um documento mal formado não acrescenta nada.
    EXPECT_THROW(Ler(lista, Documento("<Ponto Latitude=\"1\">")), EFilerError);
    EXPECT_EQ(lista.Count(), 2);
}
