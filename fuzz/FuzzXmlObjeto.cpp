// Alvo de fuzzing: um elemento solto lido com ObterObjeto (texto de fora, em UTF-8), e o objeto
// lido gravado de volta em linhas e em bytes. Erros da casa (exceções) são respostas válidas;
// quebras, vazamentos, comportamento indefinido e laços sem fim não são.

#include "AplicacaoFuzz.h"
#include <tavru/platform/Exception.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    const QString texto = QString::fromUtf8(reinterpret_cast<const char *>(dados), static_cast<qsizetype>(tamanho));
    try {
        const std::unique_ptr<tavru::TGISObjeto> objeto = tavru::TTratadorDeArquivosXML::ObterObjeto(texto);
        if (objeto) {
            QStringList linhas{tavru::CABECALHO};
            tavru::TTratadorDeArquivosXML::GravarObjeto(linhas, *objeto);
            (void)tavru::xmlp::CodificarDocumento(linhas, tavru::CABECALHO);
            (void)objeto->Area();
        }
    } catch (const tavru::Exception &) {
    }
    return 0;
}
