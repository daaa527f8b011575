// Imagens: o ".geo" lido (cantos em ordem, espaços; arquivo faltando deixa o padrão, estragado
// é erro) e gravado como sempre foi (números grudados), as figuras lidas e as que não se leem,
// os limites de zoom, o deslocamento com a posição e a pertinência estrita.

#include "CanvasGravador.h"

#include <tavru/elements/GISImagem.h>
#include <tavru/platform/Exception.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace tavru;
using namespace tavru::teste;

namespace {

const TGISRet Padrao = GISRet(-1000, -1000, 1000, 1000);

void Escrever(const QString &nome, const QByteArray &conteudo)
{
    QFile f(nome);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(conteudo);
}

class TCanvasDeFiguras : public TCanvasGravador
{
public:
    int Figuras = 0;
    TRect Ultima;
    void StretchDraw(const TRect &r, const QImage &) override { ++Figuras, Ultima = r; }
};

} // namespace

TEST(TGISImagem, GeoLidoEmOrdemOuIgnoradoEGravadoComOsNumerosGrudados)
{
    QTemporaryDir dir;
    const QString figura = dir.filePath(QStringLiteral("mapa.v1.png"));
    const QString geo = dir.filePath(QStringLiteral("mapa.v1.geo"));
    TGISImagem imagem;
    EXPECT_FALSE(imagem.LerArquivoGEO(figura)); // não existe: fica o padrão
    EXPECT_EQ(imagem.AreaImagem(), Padrao);

    Escrever(geo, "10 20 5 7\n");
    EXPECT_TRUE(imagem.LerArquivoGEO(figura));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(5, 7, 10, 20));
    Escrever(geo, "  -3600\t7200\r\n\r\n 0   -10 resto\n1 2 3 4\n");
    EXPECT_TRUE(imagem.LerArquivoGEO(figura));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(-3600, -10, 0, 7200));

    // O que não são quatro inteiros é erro do arquivo de texto, com o nome dele; a área fica.
    for (const QByteArray &estragado : {QByteArray(), QByteArray("1 2 3"), QByteArray("1,2,3,4"),
                                        QByteArray("1 2 x 4"), QByteArray("1 2 3 4294967296"),
                                        QByteArray("+ 1 2 3 4"), QByteArray("1 2\0 3 4", 8),
                                        QByteArray("1 2.5 3 4"), QByteArray("1 2 3 4.5"), QByteArray("1 2 3 4abc")}) {
        imagem.AtribuirAreaImagem(Padrao);
        Escrever(geo, estragado);
        try {
            imagem.LerArquivoGEO(figura);
            ADD_FAILURE() << estragado.toStdString();
        } catch (const EInOutError &e) {
            EXPECT_TRUE(e.Message().contains(geo)) << e.what();
        }
        EXPECT_EQ(imagem.AreaImagem(), Padrao);
    }
    Escrever(geo, "-2147483648 2147483647 0 0 e o resto\n"); // os extremos dos 32 bits servem
    EXPECT_TRUE(imagem.LerArquivoGEO(figura));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(-2147483648, 0, 0, 2147483647));
    imagem.AtribuirAreaImagem(Padrao);

    // A gravação junta os números sem separador, como sempre foi: só volta se os sinais separam.
    const QString foto = dir.filePath("foto.jpg");
    const auto gravado = [&] {
        QFile f(dir.filePath(QStringLiteral("foto.geo")));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    };
    imagem.GravarArquivoGEO(foto);
    EXPECT_EQ(gravado(), QByteArray("-1000-100010001000\r\n"));
    EXPECT_THROW(imagem.LerArquivoGEO(foto), EInOutError); // não volta: só três números

    imagem.AtribuirAreaImagem(GISRet(-1000, -2000, -500, -100)); // os sinais separam: volta
    imagem.GravarArquivoGEO(foto);
    EXPECT_EQ(gravado(), QByteArray("-1000-2000-500-100\r\n"));
    imagem.AtribuirAreaImagem(Padrao);
    EXPECT_TRUE(imagem.LerArquivoGEO(foto));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(-1000, -2000, -500, -100));

    EXPECT_THROW(imagem.GravarArquivoGEO(dir.filePath(QStringLiteral("nao/ha/foto.jpg"))), EInOutError);
    EXPECT_EQ(TGISImagem::NomeArquivoGEO(QStringLiteral("a/b.c/foto")), QStringLiteral("a/b.c/foto.geo"));
}

TEST(TGISImagem, FigurasDeExemploComGeoEFigurasQueNaoSeLeem)
{
    for (const char *ext : {"png", "jpg", "gif", "bmp"}) {
        TGISImagem imagem;
        imagem.AtribuirPosicao(GISPosicao(5, 6));
        imagem.LerArquivo(QStringLiteral(TAVRU_DADOS "/raster/bluemarble_brazil.") + QLatin1String(ext));
        EXPECT_EQ(imagem.Imagem().size(), QSize(239, 233)) << ext;
        EXPECT_EQ(imagem.Imagem().format(), QImage::Format_Indexed8);
        EXPECT_EQ(imagem.AreaImagem(), GISRet(-125297, -270211, 22148, -118969)) << ext;
        EXPECT_EQ(imagem.Posicao(), GISPosicao(5, 6)); // a leitura não mexe na posição
    }

    QTemporaryDir dir;
    TGISImagem imagem;
    const QImage antes = imagem.Imagem();
    const QString falta = dir.filePath(QStringLiteral("falta.png"));
    try {
        imagem.LerArquivo(falta);
        ADD_FAILURE();
    } catch (const EInOutError &e) {
        EXPECT_EQ(e.Message(), QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    }
    EXPECT_EQ(imagem.NomeArquivoImagem(), falta);
    const QString lixo = dir.filePath(QStringLiteral("lixo.png"));
    Escrever(lixo, QByteArray("\x89PNG\r\n\x1a\n e nada mais"));
    EXPECT_THROW(imagem.LerArquivo(lixo), EInOutError);
    EXPECT_EQ(imagem.Imagem(), antes);

    // Com poucas cores a paleta é exata; a transparência vira branco.
    QImage poucas(4, 2, QImage::Format_ARGB32);
    poucas.fill(Qt::transparent);
    poucas.setPixel(3, 1, qRgb(200, 100, 0));
    ASSERT_TRUE(poucas.save(dir.filePath(QStringLiteral("poucas.png"))));
    imagem.LerArquivo(dir.filePath(QStringLiteral("poucas.png")));
    EXPECT_EQ(imagem.Imagem().pixel(3, 1), qRgb(200, 100, 0));
    EXPECT_EQ(imagem.ObterCor(), clWhite); // a cor do canto inferior esquerdo
}

TEST(TGISImagem, DesenhaSoDentroDosLimitesDeZoomInclusive)
{
    TProjecaoUmPorUm projecao;
    TGISImagem imagem;
    imagem.AtribuirAreaImagem(GISRet(-100, -200, 100, 200));
    imagem.AtribuirZoomMinimoImagem(2.0);
    imagem.AtribuirZoomMaximoImagem(8.0);
    TCanvasDeFiguras canvas;
    canvas.SetCopyMode(cmDstInvert);
    for (double zoom : {1.999, 8.001}) {
        projecao.AtribuirZoom(zoom);
        imagem.Desenhar(canvas, projecao, false);
    }
    imagem.Desenhar(canvas, projecao, true); // selecionada: nunca
    EXPECT_EQ(canvas.Figuras, 0);
    projecao.AtribuirZoom(8.0);
    imagem.Desenhar(canvas, projecao, false);
    projecao.AtribuirZoom(2.0);
    imagem.Desenhar(canvas, projecao, false);
    EXPECT_EQ(canvas.Figuras, 2);
    EXPECT_EQ(canvas.CopyMode(), cmSrcCopy);
    EXPECT_EQ(canvas.Ultima, TRect(100, 300, 900, 700)); // em ordem
}

TEST(TGISImagem, MoverDeslocaORetanguloEPertinenciaEEstrita)
{
    TGISImagem imagem;
    imagem.AtribuirPosicao(GISPosicao(300, -50));
    EXPECT_EQ(imagem.Area(), GISRet(-700, -1050, 1300, 950));
    imagem.AtribuirArea(GISRet(100, 200, 301, 401)); // a posição vai ao centro, a área fica
    EXPECT_EQ(imagem.Posicao(), GISPosicao(200, 300));
    imagem.AtribuirPosicao(GISPosicao(210, 300));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(110, 200, 311, 401));

    TProjecaoUmPorUm projecao;
    imagem.AtribuirAreaImagem(GISRet(-100, -100, 100, 100)); // em ordem: o norte vai para cima
    EXPECT_FALSE(imagem.Pertence(projecao, TPoint(500, 500)));
    imagem.AtribuirAreaImagem(GISRet(100, -100, -100, 100));
    EXPECT_TRUE(imagem.Pertence(projecao, TPoint(401, 599)));
    EXPECT_FALSE(imagem.Pertence(projecao, TPoint(400, 500))); // a borda não conta
}
