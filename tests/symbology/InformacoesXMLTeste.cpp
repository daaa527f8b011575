// O bloco de informações em XML: a forma escrita, a leitura de volta pelo DOM (campos repetidos,
// acentos, espaços, entidades), o escape opcional e os blocos que faltam ou vêm incompletos.

#include <tavru/companions/components/TInformacoes.h>
#include <tavru/companions/symbology/InformacoesXML.h>
#include <tavru/companions/symbology/Tagsxml.h>

#include <gtest/gtest.h>
#include <pugixml.hpp>

using namespace tavru;

namespace {

// Lê o bloco de dentro de um elemento <Objeto> montado com o texto dado.
TInformacoes Ler(const QString &bloco, bool limpar = true, const TInformacoes &antes = TInformacoes())
{
    const QByteArray texto = (QStringLiteral("<Objeto>") + bloco + QStringLiteral("</Objeto>")).toUtf8();
    pugi::xml_document documento;
    EXPECT_TRUE(documento.load_buffer(texto.constData(), texto.size(),
                                      pugi::parse_default | pugi::parse_ws_pcdata_single, pugi::encoding_utf8))
        << texto.constData();
    TInformacoes r = antes;
    AtribuirListaXML(documento.document_element(), _INFORMACOES_, _INFORMACAO_, limpar, r, _VALOR_, _ROTULO_);
    return r;
}

QString Escrever(const TInformacoes &informacoes, bool escapar = false)
{
    return ObterXMLStrings(_INFORMACOES_, _INFORMACAO_, _ROTULO_, _VALOR_, informacoes, escapar);
}

} // namespace

TEST(InformacoesXML, FormaEIdaEVolta)
{
    EXPECT_EQ(Escrever(TInformacoes()), QStringLiteral("<Informacoes/>"));
    TInformacoes info;
    info.AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("São Luís"));
    info.AtribuirCampo(QStringLiteral("Vazio"), QString());
    EXPECT_EQ(Escrever(info), QStringLiteral("<Informacoes>\r\n"
                                             "<Informacao><Rotulo>Nome</Rotulo><Valor>São Luís</Valor></Informacao>\r\n"
                                             "<Informacao><Rotulo>Vazio</Rotulo><Valor></Valor></Informacao>\r\n"
                                             "</Informacoes>"));
    info.AdicionarCampo(QStringLiteral("Nome"), QStringLiteral("Velho Chico")); // nome repetido
    info.AtribuirCampo(QStringLiteral("Espaços"), QStringLiteral("   "));
    info.AtribuirCampo(QStringLiteral("Equação"), QStringLiteral(" a=b "));
    EXPECT_EQ(Ler(Escrever(info)), info);

    // Sem escape, os caracteres especiais vão crus; com escape, voltam iguais.
    TInformacoes especiais;
    especiais.AtribuirCampo(QStringLiteral("Nota <1>"), QStringLiteral("\"A\" & 'B' > C"));
    EXPECT_TRUE(Escrever(especiais).contains(QStringLiteral("<Rotulo>Nota <1></Rotulo>")));
    EXPECT_TRUE(Escrever(especiais, true).contains(
        QStringLiteral("<Rotulo>Nota &lt;1&gt;</Rotulo><Valor>&quot;A&quot; &amp; 'B' &gt; C</Valor>")));
    EXPECT_EQ(Ler(Escrever(especiais, true)), especiais);
}

TEST(InformacoesXML, BlocosQueFaltamOuVemIncompletos)
{
    TInformacoes antes;
    antes.AtribuirCampo(QStringLiteral("Antigo"), QStringLiteral("1"));
    // Sem bloco: limpar esvazia, não limpar deixa.
    EXPECT_EQ(Ler(QStringLiteral("<Outro/>"), true, antes).ObterTotal(), 0);
    EXPECT_EQ(Ler(QStringLiteral("<Outro/>"), false, antes), antes);

    // Sem limpar, os campos se somam; o que falta dá texto vazio; outros filhos são ignorados;
    // só o primeiro bloco conta; entidades e CDATA se juntam ao texto.
    const TInformacoes lido = Ler(QStringLiteral("<Informacoes>"
                                                 "<Informacao><Valor>só valor</Valor></Informacao>"
                                                 "<Nota>ignorada</Nota>"
                                                 "<Informacao><Rotulo>E</Rotulo><Valor>a &amp; <![CDATA[<b>]]></Valor>"
                                                 "</Informacao></Informacoes>"
                                                 "<Informacoes><Informacao><Rotulo>X</Rotulo></Informacao></Informacoes>"),
                                  false, antes);
    EXPECT_EQ(lido.Linhas(), QStringList({QStringLiteral("Antigo=1"), QStringLiteral("=só valor"),
                                          QStringLiteral("E=a & <b>")}));
}
