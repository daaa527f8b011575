// Figuras repetidas e enormes: a mesma figura lida de novo é uma cópia decodificada só, e uma
// figura acima do limite do processo é recusada antes de decodificar.

#include "AuxiliaresHostis.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <gtest/gtest.h>

#include <QDateTime>
#include <QImage>
#include <QImageReader>

using namespace tavru;
using namespace tavru::teste;

namespace {

// Uma figura com mais de 256 cores (o caminho do corte na mediana), de cor de base `base`.
QImage Gradiente(int largura, int altura, int base)
{
    QImage figura(largura, altura, QImage::Format_RGB32);
    for (int y = 0; y < altura; ++y)
        for (int x = 0; x < largura; ++x)
            figura.setPixel(x, y, qRgb((x * 4 + base) % 256, (y * 5) % 256, (x * y + base) % 256));
    return figura;
}

// Devolve o limite das figuras ao padrão no fim do teste.
struct TLimitePadrao
{
    ~TLimitePadrao() { TGISImagem::AtribuirLimiteDeFigura(qint64(256) * 1024 * 1024); }
};

} // namespace

TEST(FigurasHostis, AMesmaFiguraLidaDeNovoEUmaCopiaSo)
{
    QTemporaryDir dir;
    const QString a = dir.filePath(QStringLiteral("a.png"));
    ASSERT_TRUE(Gradiente(64, 48, 0).save(a));
    ASSERT_TRUE(QFile::copy(a, dir.filePath(QStringLiteral("b.png"))));

    // Um documento que nomeia a mesma figura 20 vezes (e outra, igual, num outro arquivo).
    QByteArray documento = "<CAMADA>";
    for (int i = 0; i < 20; ++i)
        documento += "<Imagem Arquivo=\"a.png\"/>";
    documento += "<Imagem Arquivo=\"b.png\"/></CAMADA>";
    const QString nome = dir.filePath(QStringLiteral("figuras.xml"));
    ASSERT_TRUE(Escrever(nome, documento));
    TGISObjetoList lista;
    TTratadorDeArquivosXML(lista).Ler(nome);
    ASSERT_EQ(lista.Count(), 21);
    const auto figura = [&](int i) { return static_cast<TGISImagem *>(lista.Items(i))->Imagem(); };
    for (int i = 1; i < 20; ++i)
        EXPECT_EQ(figura(i).constBits(), figura(0).constBits()) << i;
    EXPECT_NE(figura(20).constBits(), figura(0).constBits()); // outro arquivo, outra cópia
    EXPECT_EQ(figura(20), figura(0));

    // O arquivo mudou (outro conteúdo, outra hora): a figura é lida de novo, e as já lidas ficam.
    const QImage antes = figura(0);
    ASSERT_TRUE(Gradiente(64, 48, 100).save(a));
    QFile arquivo(a);
    ASSERT_TRUE(arquivo.open(QIODevice::ReadWrite));
    ASSERT_TRUE(arquivo.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    arquivo.close();
    TGISImagem nova;
    nova.LerArquivo(a);
    EXPECT_NE(nova.Imagem().constBits(), antes.constBits());
    EXPECT_NE(nova.Imagem(), antes);
    EXPECT_EQ(figura(0), antes);
}

TEST(FigurasHostis, FiguraAcimaDoLimiteERecusadaAntesDeDecodificar)
{
    TLimitePadrao padrao;
    EXPECT_EQ(TGISImagem::LimiteDeFigura(), qint64(256) * 1024 * 1024);
    QTemporaryDir dir;
    const QString nome = dir.filePath(QStringLiteral("figura.png"));
    ASSERT_TRUE(Gradiente(100, 60, 7).save(nome));

    // No limite exato é lida; um byte abaixo, recusada com o nome, também se já foi lida antes.
    TGISImagem::AtribuirLimiteDeFigura(100 * 60 * 4);
    TGISImagem imagem;
    ASSERT_NO_THROW(imagem.LerArquivo(nome));
    EXPECT_EQ(QImageReader::allocationLimit(), 1); // o limite do Qt acompanha, em MB para cima
    TGISImagem::AtribuirLimiteDeFigura(100 * 60 * 4 - 1);
    for (int vez = 0; vez < 2; ++vez) {
        try {
            TGISImagem outra;
            outra.LerArquivo(nome);
            ADD_FAILURE() << vez;
        } catch (const EInOutError &e) {
            EXPECT_TRUE(e.Message().contains(nome) && e.Message().contains(QStringLiteral("100 x 60"))) << e.what();
        }
        if (vez == 0) // sem ninguém que a use, a figura sai da lista das já lidas
            imagem.AtribuirImagem(QImage());
    }

    // Um PNG pequeno de uma figura enorme (9000 x 9000 de 1 bit: 309 MB em 32 bits) é recusado
    // pelo limite padrão só pelo cabeçalho.
    TGISImagem::AtribuirLimiteDeFigura(qint64(256) * 1024 * 1024);
    EXPECT_EQ(QImageReader::allocationLimit(), 256);
    const QString enorme = dir.filePath(QStringLiteral("enorme.png"));
    {
        QImage mono(9000, 9000, QImage::Format_Mono);
        mono.fill(0);
        ASSERT_TRUE(mono.save(enorme));
    }
    EXPECT_LT(QFileInfo(enorme).size(), 100 * 1024);
    try {
        imagem.LerArquivo(enorme);
        ADD_FAILURE();
    } catch (const EInOutError &e) {
        EXPECT_TRUE(e.Message().contains(QStringLiteral("limite de 256.0 MB"))) << e.what();
    }
    EXPECT_TRUE(imagem.Imagem().isNull()); // a figura anterior fica

    TGISImagem::AtribuirLimiteDeFigura(0); // sem limite: o do Qt também sai
    EXPECT_EQ(QImageReader::allocationLimit(), 0);
}
