// Alvo de fuzzing: o arquivo ".geo" ao lado de uma figura, lido por TGISImagem::LerArquivoGEO (os
// bytes de fora vão para um arquivo temporário, como viriam do disco). O arquivo existe, então a
// leitura lê ou levanta o erro do arquivo de texto, nunca o ignora em silêncio. O que for lido tem
// de ser um retângulo em ordem e, quando os sinais separam os números gravados, voltar igual.

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
    const QString figura = tavru::fuzz::PastaTemporaria() + QStringLiteral("/figura.png");
    {
        QFile arquivo(tavru::TGISImagem::NomeArquivoGEO(figura));
        if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        arquivo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
    }
    tavru::TGISImagem imagem;
    const tavru::TGISRet antes = imagem.Area();
    try {
        if (!imagem.LerArquivoGEO(figura))
            std::abort(); // o ".geo" existe: nem lido, nem erro
    } catch (const tavru::Exception &) {
        if (!(imagem.Area() == antes))
            std::abort(); // um erro não deixa a área pela metade
        return 0;
    }
    const tavru::TGISRet lido = imagem.Area();
    if (lido.Pos1.Latitude > lido.Pos2.Latitude || lido.Pos1.Longitude > lido.Pos2.Longitude)
        std::abort();
    // O gravador junta os números; o leitor só os separa pelos sinais: a ida e volta é exata
    // quando os três últimos são negativos (como no hemisfério sul e a oeste).
    if (lido.Pos1.Longitude >= 0 || lido.Pos2.Latitude >= 0 || lido.Pos2.Longitude >= 0)
        return 0;
    imagem.GravarArquivoGEO(figura);
    tavru::TGISImagem outra;
    if (!outra.LerArquivoGEO(figura) || !(outra.Area() == lido))
        std::abort();
    return 0;
}
