// Alvo de fuzzing: a tabela de símbolos em XML, lida por TTabelaDeSimbolos::AtribuirXML. O que for
// lido tem de se desenhar sem quebrar e, gravado de novo, voltar igual.

#include "AplicacaoFuzz.h"
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
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
    tavru::TTabelaDeSimbolos tabela;
    try {
        tabela.AtribuirXML(QByteArray(reinterpret_cast<const char *>(dados), static_cast<qsizetype>(tamanho)));
    } catch (const tavru::Exception &) {
        return 0;
    }
    QImage imagem(32, 32, QImage::Format_ARGB32_Premultiplied);
    tavru::TCanvas canvas(&imagem);
    for (int i = 0; i < tabela.ObterTotal(); ++i)
        tabela.DesenharRotacionado(i, canvas, tavru::TRect(0, 0, 32, 32), 0.7);
    const QByteArray gravado = tabela.ObterXML();
    tavru::TTabelaDeSimbolos outra;
    outra.AtribuirXML(gravado);
    if (outra.ObterXML() != gravado)
        std::abort();
    return 0;
}
