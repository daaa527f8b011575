// Alvo de fuzzing: os metarquivos WMF e EMF lidos por TGISImagem::LerArquivo (a conferência da
// estrutura e, depois dela, o libwmf ou o libemf2svg). O primeiro byte escolhe a extensão (par:
// ".wmf", ímpar: ".emf"); o resto vai para o arquivo. Leitura ou erro, nunca quebra; uma figura
// lida tem de 1 a 4096 pixels de lado.

#include "AplicacaoFuzz.h"
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    if (tamanho == 0)
        return 0;
    // Um nome por entrada: a mesma figura lida de novo viria da lista das já lidas.
    static int contador = 0;
    const QString nome = tavru::fuzz::PastaTemporaria() + QStringLiteral("/m%1.%2").arg(++contador).arg(dados[0] % 2 ? "emf" : "wmf");
    {
        QFile arquivo(nome);
        if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        arquivo.write(reinterpret_cast<const char *>(dados + 1), static_cast<qint64>(tamanho - 1));
    }
    try {
        tavru::TGISImagem imagem;
        imagem.LerArquivo(nome);
        const QSize lido = imagem.Imagem().size();
        if (lido.width() < 1 || lido.height() < 1 || lido.width() > 4096 || lido.height() > 4096)
            std::abort();
    } catch (const tavru::Exception &) {
    }
    QFile::remove(nome);
    return 0;
}
