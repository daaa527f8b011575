// Falta de memória ao ler figuras, num processo à parte: rodado com `ulimit -v` no build normal e,
// sob o AddressSanitizer (que não começa com `ulimit -v`), com um teto por alocação.
//
// Um documento nomeia N arquivos diferentes (links do mesmo PNG de 5600 x 5600 com paleta de um bit, para
// que a lista das figuras lidas não os junte) até a memória acabar. A leitura tem de parar com o
// erro claro de memória, sem cair, e a lista fica com os objetos lidos antes (nem todos).
//
// Uso: hostis_memoria N MINIMO   (sai com 0 quando o erro veio e a lista tem de MINIMO a N-1 objetos)

#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

int main(int argc, char **argv)
{
    QGuiApplication aplicacao(argc, argv);
    const int n = argc > 1 ? std::atoi(argv[1]) : 60;
    const int minimo = argc > 2 ? std::atoi(argv[2]) : 1;
    QTemporaryDir pasta;
    {
        // De um bit por pixel (4 MB): criar e decodificar cabem no teto por alocação do
        // AddressSanitizer; a forma de 8 bits que a figura guarda (31 MB) não cabe.
        QImage figura(5600, 5600, QImage::Format_Mono);
        figura.setColorTable({qRgb(0, 90, 160), qRgb(240, 240, 240)});
        for (int y = 0; y < figura.height(); ++y)
            std::fill_n(figura.scanLine(y), figura.bytesPerLine(), static_cast<uchar>(y / 100 % 2 ? 0xFF : 0x00));
        if (!figura.save(pasta.filePath(QStringLiteral("base.png")))) {
            std::fprintf(stderr, "não gravou a figura de base\n");
            return 2;
        }
    }
    QByteArray documento = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CAMADA>\n";
    for (int i = 0; i < n; ++i) {
        const QByteArray nome = "f" + QByteArray::number(i) + ".png";
        if (::link(QFile::encodeName(pasta.filePath(QStringLiteral("base.png"))).constData(),
                   QFile::encodeName(pasta.filePath(QString::fromLatin1(nome))).constData()) != 0) {
            std::perror("link");
            return 2;
        }
        documento += "<Imagem Arquivo=\"" + nome + "\" LatMin=\"10°00'00''S\" LongMin=\"050°00'00''W\" "
                     "LatMax=\"00°00'00''N\" LongMax=\"040°00'00''W\"/>\n";
    }
    documento += "</CAMADA>\n";
    const QString caminho = pasta.filePath(QStringLiteral("figuras.xml"));
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::WriteOnly) || arquivo.write(documento) != documento.size())
        return 2;
    arquivo.close();

    tavru::TGISObjetoList lista;
    QString erro;
    try {
        tavru::TTratadorDeArquivosXML(lista).Ler(caminho);
    } catch (const tavru::Exception &e) {
        erro = e.Message();
    }
    std::printf("objetos na lista: %d de %d\nerro: %s\n", lista.Count(), n, qPrintable(erro));
    const bool ok = erro.contains(QStringLiteral("Memória insuficiente para a figura")) && lista.Count() >= minimo
                    && lista.Count() < n;
    return ok ? 0 : 1;
}
