// O tratador como o registro o usa: registro na carga, Reconhece, arquivo que falta ou que não é
// XML, raiz aceita sem distinguir maiúsculas, TAG_RAIZ trocado e leitura que acrescenta; o estado
// de cada leitura, e nós de um documento do hospedeiro.

#include "AjustesXML.h"

#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/TDocumentoXML.h>

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <thread>

using namespace tavru;

namespace {
class Tratador : public teste::DocumentoXML
{
protected:
    QString DoisPontos(const QString &raiz = "CAMADA")
    {
        return Documento("<Ponto Latitude=\"100\" Longitude=\"200\"/>\r\n<Ponto Latitude=\"-300\"/>", raiz);
    }
};
} // namespace

TEST_F(Tratador, RegistradoNaCargaEReconheceTudo)
{
    const TClasseTratador *classe = nullptr;
    ASSERT_TRUE(TGISObjetoList::ObterRefClassPeloTipo("XML", classe));
    EXPECT_EQ(classe, &TTratadorDeArquivosXML::Classe);
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("XML", false), "XML");
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro("Arquivos XML (*.xml)|*.xml", true), "XML");
    TGISObjetoList lista;
    const QString caminho = DoisPontos();
    ASSERT_TRUE(lista.Ler(caminho, "XML"));
    EXPECT_EQ(lista.Count(), 2);
    EXPECT_EQ(lista.NomeArquivo(), caminho);

    // Reconhece aceita qualquer fluxo, até fechado, sem ler nada dele.
    QByteArray binario("\x00\x01 nada de XML", 15);
    QBuffer fluxo(&binario);
    ASSERT_TRUE(fluxo.open(QIODevice::ReadOnly));
    EXPECT_TRUE(TTratadorDeArquivosXML(lista).Reconhece(fluxo));
    EXPECT_EQ(fluxo.pos(), 0);
    QBuffer fechado;
    EXPECT_TRUE(TTratadorDeArquivosXML(lista).Reconhece(fechado));
}

TEST_F(Tratador, ArquivoQueNaoExisteOuNaoEXML)
{
    TGISObjetoList lista;
    lista.AtribuirLimites(GISRet(1, 2, 3, 4));
    for (const QString &nome : {Caminho("nenhum.xml"), QString()}) {
        try {
            Ler(lista, nome);
            FAIL() << nome.toStdString();
        } catch (const EFilerError &e) {
            EXPECT_EQ(e.Message(), "O arquivo especificado não existe ou não está disponível!");
        }
    }
    EXPECT_EQ(lista.Limites(), GISRet(1, 2, 3, 4)); // nada mais acontece

    // Arquivos que existem mas não são XML: o erro do leitor, com o nome do arquivo.
    const QString caminho = Caminho("ruim.xml");
    for (const QByteArray &bytes : {QByteArray(), QByteArray("\x89PNG\r\n\x1a\n", 8), QByteArray("<CAMADA><Ponto")}) {
        Escrever(caminho, bytes);
        try {
            Ler(lista, caminho);
            FAIL() << bytes.toStdString();
        } catch (const EFilerError &e) {
            EXPECT_TRUE(e.Message().contains(caminho)) << e.what();
        }
    }
    EXPECT_EQ(lista.Count(), 0);
}

TEST_F(Tratador, RaizELeituraQueAcrescenta)
{
    TGISObjetoList lista;
    Ler(lista, DoisPontos("camada"));
    ASSERT_EQ(lista.Count(), 2);
    const TGISRet limites = Uniao(lista[0]->Area(), lista[1]->Area());
    EXPECT_EQ(lista.Limites(), limites);
    Ler(lista, DoisPontos()); // ler de novo dobra a lista
    EXPECT_EQ(lista.Count(), 4);

    // Outra raiz: nada lido, nada levantado, e os limites ainda recalculados.
    lista.AtribuirLimites(GISRet(0, 0, 1, 1));
    Ler(lista, DoisPontos("MAPA"));
    EXPECT_EQ(lista.Count(), 4);
    EXPECT_EQ(lista.Limites(), limites);

    // Com TAG_RAIZ trocado, a raiz gravada é a nova e só ela é aceita.
    TAG_RAIZ = "Mapa";
    const QString caminho = Caminho("mapa.xml");
    Gravar(lista, caminho);
    EXPECT_TRUE(Bytes(caminho).contains("?>\r\n<Mapa>\r\n"));
    EXPECT_TRUE(Bytes(caminho).endsWith("\r\n</Mapa>\r\n"));
    TGISObjetoList lida;
    Ler(lida, caminho);
    EXPECT_EQ(lida.Count(), 4);
    Ler(lida, DoisPontos());
    EXPECT_EQ(lida.Count(), 4);
}

TEST_F(Tratador, EstadoDaLeituraEDeCadaLeituraENoDoHospedeiro)
{
    // Duas pastas, cada uma com o seu documento e a sua figura "f.png" de tamanho diferente; as
    // duas leituras ao mesmo tempo acham cada uma a figura ao lado do próprio documento.
    QString documentos[2];
    for (int i = 0; i < 2; ++i) {
        const QString pasta = Caminho(QStringLiteral("p%1").arg(i));
        ASSERT_TRUE(QDir().mkpath(pasta));
        QImage(10 + i, 10 + i, QImage::Format_RGB32).save(pasta + "/f.png");
        documentos[i] = pasta + "/doc.xml";
        QString corpo;
        for (int k = 0; k < 20; ++k)
            corpo += "<Composto><Imagem Arquivo=\"f.png\" LatMin=\"1\" LongMin=\"1\" LatMax=\"9\" LongMax=\"9\"/></Composto>";
        Escrever(documentos[i], ("<CAMADA>" + corpo + "</CAMADA>").toUtf8());
    }
    TGISObjetoList listas[2];
    std::thread outra([&] { Ler(listas[1], documentos[1]); });
    Ler(listas[0], documentos[0]);
    outra.join();
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(listas[i].Count(), 20);
        for (const TGISObjeto *o : listas[i]) {
            const auto *imagem = dynamic_cast<const TGISImagem *>(static_cast<const TGISComposto *>(o)->Objetos()[0]);
            ASSERT_TRUE(imagem);
            EXPECT_EQ(imagem->Imagem().width(), 10 + i);
        }
    }

    // O hospedeiro entrega nós de um documento seu; sem leitura, o nome relativo vale na pasta de
    // trabalho, e a profundidade de compostos tem o mesmo limite.
    TDocumentoXML documento;
    documento.Carregar("<Mapa><Ponto Latitude=\"10\" Longitude=\"20\"/><Rio/></Mapa>");
    const TNoXML raiz = documento.Raiz();
    EXPECT_EQ(raiz.Nome(), "Mapa");
    EXPECT_EQ(raiz.PrimeiroFilho().Atributo("Longitude"), "20");
    EXPECT_TRUE(raiz.PrimeiroFilho().Proximo().Proximo().Vazio());
    EXPECT_EQ(ObterRefClassObjetoGis(raiz.Filho("Rio")), nullptr);
    TGISObjetoList lista;
    TTratadorDeArquivosXML::AtribuirXMLLista(lista, raiz);
    ASSERT_EQ(lista.Count(), 1);
    EXPECT_EQ(lista[0]->Posicao(), GISPosicao(10, 20));
    documento.Carregar(QString("<Composto>").repeated(5000).toUtf8() + QString("</Composto>").repeated(5000).toUtf8());
    EXPECT_THROW(TTratadorDeArquivosXML::ObterXMLObjeto(documento.Raiz()), EFilerError);
    EXPECT_THROW(documento.Carregar("<Mapa><Ponto></Mapa>"), EFilerError);
    EXPECT_TRUE(documento.Raiz().Vazio());
}
