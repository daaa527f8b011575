// Gravação: a forma exata dos elementos, o documento (cabeçalho, raiz, CR LF, 8 bits), o modo da
// tabela, o escape opcional, acentos e caracteres fora do Latin-1, e a gravação que falha sem
// destruir o documento anterior.

#include "AjustesXML.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISDerrota.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISMeioAcompanhado.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>

#include <csignal>
#include <sys/resource.h>

using namespace tavru;

namespace {
class Gravacao : public teste::DocumentoXML
{
};
const QString Vazio = "<Informacoes/>";
} // namespace

TEST_F(Gravacao, FormaDosElementosEDoDocumento)
{
    TGISObjetoList lista;
    const QString caminho = Caminho("vazio.xml");
    Gravar(lista, caminho);
    EXPECT_EQ(Bytes(caminho), QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<CAMADA>\r\n</CAMADA>\r\n"));

    TGISPonto ponto;
    ponto.AtribuirPosicao(GISPosicao(1000, 2000));
    ponto.Caneta().Color = clRed; // a cor gravada é a da caneta, não a da fonte
    EXPECT_EQ(Linhas(ponto), QStringList({"<Ponto Latitude=\"00°16'40''N\" Longitude=\"000°33'20''E\" Letra=\"\" "
                                          "Símbolo=\"-1\" Forma=\"0\" TamanhoMaximoX=\"150\" TamanhoMaximoY=\"150\" "
                                          "TamanhoMinimoX=\"15\" TamanhoMinimoY=\"15\" TamanhoNoMundoLatitude=\"10000\" "
                                          "TamanhoNoMundoLongitude=\"10000\" Orientação=\"0°\" FonteNome=\"DejaVu "
                                          "Sans\" FonteCharset=\"1\" FonteTamanho=\"8\" Cor=\"0000FF\">",
                                          Vazio, "</Ponto>"}));

    // O texto termina a abertura com um espaço; a orientação soma GrauToMarinha do giro (graus) à
    // orientação (radianos), como sempre foi.
    TGISTexto texto;
    texto.AtribuirPosicao(GISPosicao(-84600, -166500));
    texto.AtribuirTexto("Olá");
    texto.AtribuirGiroAdicional(90);
    EXPECT_EQ(Linhas(texto).first(), "<Texto Latitude=\"23°30'00''S\" Longitude=\"046°15'00''W\" Fonte=\"DejaVu Sans\" "
                                     "Orientação=\"0°\" AlinhamentoVertical=\"2\" AlinhamentoHorizontal=\"2\" "
                                     "Texto=\"Olá\" FonteTamanho=\"8\"> ");

    // Uma derrota é uma linha; cada parte começa com Tipo="Inicio"; partes vazias não aparecem;
    // os pontos gravados são os absolutos.
    TGISDerrota linha;
    linha.Caneta().Style = psDash;
    for (int p = 0; p < 3; ++p)
        linha.Pontos().Add(new TGISPosicaoList);
    linha.InserirPonto(0, 0, GISPosicao(3600, -3600));
    linha.InserirPonto(0, 1, GISPosicao(7200, -7200));
    linha.InserirPonto(2, 0, GISPosicao(0, 0));
    linha.AtribuirPosicao(GISPosicao(60, 0));
    linha.Informacoes().AtribuirCampo("Nome", "Rio");
    EXPECT_EQ(Linhas(linha), QStringList({"<Linha Estilo=\"1\" Cor=\"000000\">", "<Pontos>",
                                          "<Ponto Tipo=\"Inicio\" Latitude=\"01°01'00''N\" Longitude=\"001°00'00''W\"/>",
                                          "<Ponto Latitude=\"02°01'00''N\" Longitude=\"002°00'00''W\"/>",
                                          "<Ponto Tipo=\"Inicio\" Latitude=\"00°01'00''N\" Longitude=\"000°00'00''E\"/>",
                                          "</Pontos>",
                                          "<Informacoes>\r\n<Informacao><Rotulo>Nome</Rotulo><Valor>Rio</Valor>"
                                          "</Informacao>\r\n</Informacoes>",
                                          "</Linha>"}));

    TGISCorredor corredor;
    corredor.AtribuirEsq(2.5);
    EXPECT_EQ(Linhas(corredor).first(), "<Corredor Estilo=\"0\" Cor=\"000000\" EstiloPreenchimento=\"0\" "
                                        "CorPreenchimento=\"FFFFFF\" Esq=\"2.5 MN\" Dir=\"10 MN\">");
    TGISAreaCircular circular;
    circular.AtribuirRaioMaior(10);
    circular.AtribuirAzimuteFinal(M_PI);
    EXPECT_EQ(Linhas(circular).first(),
              "<AreaCircular Latitude=\"00°00'00''N\" Longitude=\"000°00'00''E\" RaioMaior=\"10 MN\" RaioMenor=\"0 MN\" "
              "AzimuteInicial=\"0°\" AzimuteFinal=\"180°\" Estilo=\"0\" Cor=\"000000\" EstiloPreenchimento=\"0\" "
              "CorPreenchimento=\"FFFFFF\">");
    EXPECT_EQ(Linhas(TGISImagem()).first(), "<Imagem Arquivo=\"\" LatMin=\"00°16'40''S\" LongMin=\"000°16'40''W\" "
                                            "LatMax=\"00°16'40''N\" LongMax=\"000°16'40''E\" CorTransparente=\"FFFFFF\">");

    // No trajeto o bloco de informações vem antes dos pontos.
    TGISTrajeto trajeto;
    trajeto.InserirPosicao(0, GISPosicao(1, 2));
    EXPECT_EQ(Linhas(trajeto), QStringList({"<Trajeto Estilo=\"0\" Cor=\"000000\">", Vazio, "<Pontos>",
                                            "<Ponto Latitude=\"00°00'01''N\" Longitude=\"000°00'02''E\">", Vazio,
                                            "</Ponto>", "</Pontos>", "</Trajeto>"}));

    // O composto não tem atributos nem bloco; um meio acompanhado é um ponto.
    TGISComposto composto;
    composto.Objetos().Add(new TGISComposto);
    composto.Objetos().Add(new TGISMeioAcompanhado);
    const QStringList linhas = Linhas(composto);
    EXPECT_EQ(linhas.mid(0, 3), QStringList({"<Composto>", "<Composto>", "</Composto>"}));
    EXPECT_TRUE(linhas[3].startsWith("<Ponto "));
    EXPECT_EQ(linhas.size(), 7);

    // No modo da tabela, os códigos de cor; a cor transparente da imagem é sempre hexadecimal.
    USAR_TABELA_DE_SIMBOLOS = true;
    TGISArea area;
    area.AtribuirIndiceCor(3);
    EXPECT_EQ(Linhas(area).first(), "<Area Estilo=\"0\" Cor=\"3\" EstiloPreenchimento=\"0\" CorPreenchimento=\"-1\">");
    TGISImagem imagem;
    imagem.AtribuirCor(clRed);
    EXPECT_TRUE(Linhas(imagem).first().endsWith(" CorTransparente=\"0000FF\">"));
}

TEST_F(Gravacao, TextosCrusOuEscapadosEAcentos)
{
    TGISObjetoList lista;
    auto *texto = new TGISTexto;
    texto->AtribuirTexto("São \"Luís\" & <Ilha>");
    texto->Informacoes().AtribuirCampo("Região", "x < y & ½");
    lista.Add(texto);
    const QString caminho = Caminho("textos.xml");

    // Sem escape o texto vai como está, e as aspas estragam o documento.
    Gravar(lista, caminho);
    EXPECT_TRUE(Bytes(caminho).contains("Texto=\"S\xE3o \"Lu\xEDs\" & <Ilha>\""));
    TGISObjetoList lida;
    EXPECT_THROW(Ler(lida, caminho), EFilerError);

    // Com escape, entidades, e tudo volta igual (acentos em ISO-8859-1, nada em UTF-8).
    ESCAPAR_TEXTOS = true;
    Gravar(lista, caminho);
    const QByteArray bytes = Bytes(caminho);
    EXPECT_TRUE(bytes.contains("Texto=\"S\xE3o &quot;Lu\xEDs&quot; &amp; &lt;Ilha&gt;\""));
    EXPECT_TRUE(bytes.contains("<Valor>x &lt; y &amp; \xBD</Valor>"));
    EXPECT_TRUE(bytes.contains("Orienta\xE7\xE3o=\""));
    EXPECT_FALSE(bytes.contains("\xC3"));
    Ler(lida, caminho);
    ASSERT_EQ(lida.Count(), 1);
    EXPECT_EQ(static_cast<TGISTexto *>(lida[0])->Texto(), texto->Texto());
    EXPECT_EQ(lida[0]->Informacoes(), texto->Informacoes());

    // Um documento declarado UTF-8 leva o que o Latin-1 não tem.
    CABECALHO = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    texto->AtribuirTexto("5 € — ok");
    Gravar(lista, caminho);
    TGISObjetoList utf8;
    Ler(utf8, caminho);
    EXPECT_EQ(static_cast<TGISTexto *>(utf8[0])->Texto(), "5 € — ok");
}

TEST_F(Gravacao, FalhasNaoDestroemODocumentoAnterior)
{
    TGISObjetoList lista;
    auto *ponto = new TGISPonto;
    lista.Add(ponto);
    const QString caminho = Caminho("mapa.xml");
    Gravar(lista, caminho);
    const QByteArray anterior = Bytes(caminho);

    // Um caractere fora do ISO-8859-1: erro claro antes de escrever qualquer coisa.
    ponto->Informacoes().AtribuirCampo("Preço", "10 €");
    try {
        Gravar(lista, caminho);
        FAIL() << "o euro não cabe em ISO-8859-1";
    } catch (const EConvertError &e) {
        EXPECT_TRUE(e.Message().contains("U+20AC")) << e.what();
    }
    EXPECT_THROW(Gravar(lista, Caminho("novo.xml")), EConvertError);
    EXPECT_EQ(Bytes(caminho), anterior);
    EXPECT_EQ(Arquivos(), QStringList{"mapa.xml"});

    // O disco recusa arquivos de mais de 4 KiB: a gravação falha no meio da escrita (um documento
    // menor que o buffer do arquivo, que escondia a escrita curta).
    ponto->Informacoes().AtribuirCampo("Preço", QString("x").repeated(8000));
    rlimit antes{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
    const auto sinal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limite = antes;
    limite.rlim_cur = 4096;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
    bool falhou = false;
    try {
        Gravar(lista, caminho);
    } catch (const EInOutError &e) {
        falhou = e.Message().contains(caminho);
    }
    setrlimit(RLIMIT_FSIZE, &antes);
    std::signal(SIGXFSZ, sinal);
    EXPECT_TRUE(falhou);
    EXPECT_EQ(Bytes(caminho), anterior);
    EXPECT_EQ(Arquivos(), QStringList{"mapa.xml"}); // a pasta que não existe: nos testes hostis
}
