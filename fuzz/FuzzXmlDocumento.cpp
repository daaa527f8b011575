// Alvo de fuzzing: um documento inteiro lido com o tratador XML (os bytes de fora vão para um
// arquivo temporário, como viriam do disco: a codificação é a que eles declaram), e a lista lida
// gravada de volta em bytes. Erros da casa (exceções) são respostas válidas.

#include "AplicacaoFuzz.h"
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

namespace {
QString ArquivoTemporario()
{
    static QTemporaryDir pasta;
    return pasta.filePath(QStringLiteral("documento.xml"));
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    const QString caminho = ArquivoTemporario();
    {
        QFile arquivo(caminho);
        if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        arquivo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
    }
    tavru::TGISObjetoList lista;
    try {
        tavru::TTratadorDeArquivosXML(lista).Ler(caminho);
    } catch (const tavru::Exception &) {
    }
    try {
        QStringList linhas{tavru::CABECALHO};
        tavru::TTratadorDeArquivosXML::GravarLista(linhas, lista);
        (void)tavru::xmlp::CodificarDocumento(linhas, tavru::CABECALHO);
    } catch (const tavru::Exception &) {
    }
    return 0;
}
