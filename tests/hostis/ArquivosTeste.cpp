// Arquivos que não são arquivos comuns (FIFO, pasta, dispositivo) e gravações que falham de
// verdade: a leitura nunca trava e o erro diz o nome; a gravação diz o motivo do sistema em
// português e não perde o arquivo anterior.

#include "AuxiliaresHostis.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include <functional>
#include <sys/stat.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

// A mensagem do erro da casa que `f` levanta, ou "sem erro".
QString Erro(const std::function<void()> &f)
{
    try {
        f();
    } catch (const Exception &e) {
        return e.Message();
    }
    return QStringLiteral("sem erro");
}

void LerDocumento(TGISObjetoList &lista, const QString &nome)
{
    TTratadorDeArquivosXML(lista).Ler(nome);
}

} // namespace

TEST(ArquivosHostis, SoArquivosComunsSaoLidosEUmFifoNaoTrava)
{
    QTemporaryDir dir;
    const QString figura = dir.filePath(QStringLiteral("mapa.png"));
    QImage branca(8, 6, QImage::Format_RGB32);
    branca.fill(Qt::white);
    ASSERT_TRUE(branca.save(figura));
    const QString geo = dir.filePath(QStringLiteral("mapa.geo"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(geo).constData(), 0600), 0);

    // O ".geo" que é um FIFO: erro com o nome, sem esperar por quem escreva nele.
    TGISImagem imagem;
    const TGISRet antes = imagem.AreaImagem();
    QString erro = Erro([&] { imagem.LerArquivoGEO(figura); });
    EXPECT_TRUE(erro.contains(geo) && erro.contains(QStringLiteral("FIFO"))) << erro.toStdString();
    erro = Erro([&] { imagem.LerArquivo(figura); });
    EXPECT_TRUE(erro.contains(geo)) << erro.toStdString();
    EXPECT_EQ(imagem.Imagem().size(), QSize(8, 6)); // a figura já lida fica, como o erro do ".geo" manda
    EXPECT_EQ(imagem.AreaImagem(), antes);

    // Uma figura, um documento e uma figura dentro de um documento que são FIFO, pasta ou
    // dispositivo: erro com o nome.
    const QString fifo = dir.filePath(QStringLiteral("fifo.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString documentoFifo = dir.filePath(QStringLiteral("fifo.xml"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(documentoFifo).constData(), 0600), 0);
    TGISObjetoList lista;
    for (const QString &nome : {fifo, dir.path(), QStringLiteral("/dev/null")}) {
        erro = Erro([&] { TGISImagem().LerArquivo(nome); });
        EXPECT_TRUE(erro.contains(nome)) << erro.toStdString();
    }
    for (const QString &nome : {documentoFifo, dir.path(), QStringLiteral("/dev/null")}) {
        erro = Erro([&] { LerDocumento(lista, nome); });
        EXPECT_TRUE(erro.contains(nome)) << erro.toStdString();
    }
    EXPECT_EQ(lista.Count(), 0);

    const QString documento = dir.filePath(QStringLiteral("figuras.xml"));
    ASSERT_TRUE(Escrever(documento, "<CAMADA><Texto Texto=\"antes\"/><Imagem Arquivo=\"fifo.png\"/><Texto/></CAMADA>"));
    erro = Erro([&] { LerDocumento(lista, documento); });
    EXPECT_TRUE(erro.contains(fifo)) << erro.toStdString();
    EXPECT_EQ(lista.Count(), 1); // o que foi lido antes fica
}

TEST(ArquivosHostis, GravacaoQueFalhaDizOMotivoEmPortugues)
{
    QTemporaryDir dir;
    TGISObjetoList lista;
    lista.Add(new TGISTexto);
    const auto gravar = [&](const QString &nome) { return Erro([&] { TTratadorDeArquivosXML(lista).Gravar(nome); }); };
    const auto gravarGeo = [&](const QString &nome) { return Erro([&] { TGISImagem().GravarArquivoGEO(nome); }); };

    const QString semPasta = dir.filePath(QStringLiteral("nao/ha/mapa.xml"));
    QString erro = gravar(semPasta);
    EXPECT_TRUE(erro.contains(semPasta) && erro.contains(QStringLiteral("arquivo ou pasta não encontrado")))
        << erro.toStdString();
    erro = gravarGeo(semPasta);
    EXPECT_TRUE(erro.contains(QStringLiteral("arquivo ou pasta não encontrado"))) << erro.toStdString();
    erro = gravar(dir.path());
    EXPECT_TRUE(erro.contains(QStringLiteral("é uma pasta"))) << erro.toStdString();

    // Um link para o documento continua link: a gravação vai para o arquivo apontado.
    const QString alvo = dir.filePath(QStringLiteral("alvo.xml"));
    const QString link = dir.filePath(QStringLiteral("link.xml"));
    ASSERT_TRUE(Escrever(alvo, "velho"));
    ASSERT_TRUE(QFile::link(alvo, link));
    EXPECT_EQ(gravar(link), QStringLiteral("sem erro"));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(Conteudo(alvo).contains("<Texto"));

    if (::geteuid() != 0) { // root passa por cima das permissões
        const QString fechada = dir.filePath(QStringLiteral("fechada"));
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("fechada")));
        ::chmod(QFile::encodeName(fechada).constData(), 0500);
        erro = gravar(fechada + QStringLiteral("/mapa.xml"));
        EXPECT_TRUE(erro.contains(QStringLiteral("permissão negada"))) << erro.toStdString();
        ::chmod(QFile::encodeName(fechada).constData(), 0700);
    }
}

TEST(ArquivosHostis, DiscoCheioESomenteLeituraNaoPerdemOAnterior)
{
    TDiscoPequeno disco;
    if (!disco.Montado())
        GTEST_SKIP() << "montar um tmpfs pede root";
    const QString nome = disco.Caminho(QStringLiteral("mapa.xml"));
    TGISObjetoList lista;
    ASSERT_NO_THROW(TTratadorDeArquivosXML(lista).Gravar(nome));
    const QByteArray anterior = Conteudo(nome);
    ASSERT_FALSE(anterior.isEmpty());

    auto *texto = new TGISTexto;
    texto->AtribuirTexto(QString(200 * 1024, QLatin1Char('x'))); // maior que o disco
    lista.Add(texto);
    QString erro = Erro([&] { TTratadorDeArquivosXML(lista).Gravar(nome); });
    EXPECT_TRUE(erro.contains(nome) && erro.contains(QStringLiteral("sem espaço no disco"))) << erro.toStdString();
    EXPECT_EQ(Conteudo(nome), anterior);
    EXPECT_EQ(QDir(disco.Caminho(QString())).entryList(QDir::Files | QDir::Hidden).size(), 1); // nada sobrou

    // O disco cheio de verdade: até um ".geo" de uma linha falha.
    Escrever(disco.Caminho(QStringLiteral("enchimento")), QByteArray(128 * 1024, 'x'));
    erro = Erro([&] { TGISImagem().GravarArquivoGEO(disco.Caminho(QStringLiteral("foto.png"))); });
    EXPECT_TRUE(erro.contains(QStringLiteral("sem espaço no disco"))) << erro.toStdString();
    QFile::remove(disco.Caminho(QStringLiteral("enchimento")));

    ASSERT_TRUE(disco.SomenteLeitura());
    lista.Clear();
    erro = Erro([&] { TTratadorDeArquivosXML(lista).Gravar(nome); });
    EXPECT_TRUE(erro.contains(QStringLiteral("sistema de arquivos somente leitura"))) << erro.toStdString();
    EXPECT_EQ(Conteudo(nome), anterior);
}
