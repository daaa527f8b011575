// Alvo de fuzzing: o arquivo de mundo (".pgw") ao lado de uma figura de 3 x 2 pixels, lido por
// TGISImagem::LerArquivoMundo (os bytes de fora vão para um arquivo temporário, como viriam do
// disco). Leitura ou recusa, nunca quebra: o que for lido é um retângulo em ordem; o que for
// recusado deixa a área como estava.

#include "AplicacaoFuzz.h"
#include <tavru/elements/GISImagem.h>

#include <QFile>
#include <QImage>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    QImage figura(3, 2, QImage::Format_RGB32);
    figura.fill(Qt::blue);
    figura.save(tavru::fuzz::PastaTemporaria() + QStringLiteral("/figura.png"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    const QString figura = tavru::fuzz::PastaTemporaria() + QStringLiteral("/figura.png");
    {
        QFile arquivo(tavru::fuzz::PastaTemporaria() + QStringLiteral("/figura.pgw"));
        if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        arquivo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
    }
    tavru::TGISImagem imagem;
    imagem.LerArquivo(figura); // sem ".geo": o arquivo de mundo é lido aqui
    const tavru::TGISRet padrao = tavru::GISRet(-1000, -1000, 1000, 1000);
    const tavru::TGISRet lido = imagem.Area();
    if (!(lido == padrao) && (lido.Pos1.Latitude > lido.Pos2.Latitude || lido.Pos1.Longitude > lido.Pos2.Longitude))
        std::abort();
    imagem.AtribuirAreaImagem(padrao);
    if (!imagem.LerArquivoMundo(figura) && !(imagem.Area() == padrao))
        std::abort(); // recusado pela metade
    return 0;
}
