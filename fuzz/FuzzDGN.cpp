// Alvo de fuzzing dos desenhos DGN. O primeiro byte escolhe o leitor:
// - par: a entrada de registros de um plug-in (`TTratadorDeArquivosDGN::RetornoDoPlugin`). O resto
//   é uma sequência de registros: tipo (2 bytes) e os bytes do registro; linhas e áreas trazem os
//   vértices logo depois, num vetor do próprio alvo, e o total de vértices dito pelo registro é
//   limitado ao que esse vetor tem (um plug-in de verdade entrega tantos quantos diz). O segundo
//   byte liga a conversão da grade e escolhe o elipsoide, que pode ser inválido. Nenhuma exceção
//   pode escapar da função de retorno, e toda área entra com o anel fechado.
// - ímpar: o ".geo" de uma carta, lido por `TfrmConfigurarDGN::Ler`; o que for lido é gravado e
//   lido de volta e tem de dar os mesmos controles.

#include "AplicacaoFuzz.h"
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/formats/PluginDGN.h>
#include <tavru/formats/TTratadorDeArquivosDGN.h>
#include <tavru/formats/TfrmConfigurarDGN.h>
#include <tavru/platform/Exception.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QRadioButton>
#include <QSpinBox>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

using namespace tavru;

namespace {

void Registros(const std::uint8_t *dados, std::size_t tamanho)
{
    if (tamanho < 1)
        return;
    TGISObjetoList lista;
    TTratadorDeArquivosDGN tratador(lista);
    tratador.AtribuirConverter(dados[0] & 1);
    tratador.AtribuirFator((dados[0] & 2) ? 1000.0 : 1.0);
    tratador.AtribuirElipsoide(static_cast<std::int32_t>(dados[0] >> 2) - 16);
    tratador.AtribuirZona(QStringLiteral("23K"));
    std::size_t i = 1;
    while (i + 2 <= tamanho) {
        std::uint16_t tipo;
        std::memcpy(&tipo, dados + i, 2);
        i += 2;
        // O registro vai para um bloco alinhado do alvo, do tamanho do maior registro.
        alignas(8) unsigned char registro[64] = {};
        const std::size_t bytes = std::min<std::size_t>(48, tamanho - i);
        std::memcpy(registro, dados + i, bytes);
        i += bytes;
        std::vector<TavruPontoDGN> vertices;
        if (tipo == TAVRU_DGN_LINHA || tipo == TAVRU_DGN_AREA) {
            const std::size_t disponiveis = std::min<std::size_t>((tamanho - i) / sizeof(TavruPontoDGN), 4096);
            vertices.resize(disponiveis);
            if (disponiveis > 0)
                std::memcpy(vertices.data(), dados + i, disponiveis * sizeof(TavruPontoDGN));
            i += disponiveis * sizeof(TavruPontoDGN);
            // Total e vértices ficam no começo dos dois registros.
            std::int32_t total;
            std::memcpy(&total, registro, 4);
            total = std::clamp<std::int32_t>(total, -2, static_cast<std::int32_t>(disponiveis));
            std::memcpy(registro, &total, 4);
            const TavruPontoDGN *endereco = vertices.empty() ? nullptr : vertices.data();
            std::memcpy(registro + offsetof(TavruRegistroLinhaDGN, Vertices), &endereco, sizeof endereco);
        } else if (tipo == TAVRU_DGN_IMAGEM) {
            // Sem figura (o leitor de figuras tem o seu alvo), ou uma que não existe.
            static const char inexistente[] = "/nao/existe/figura.png";
            const char *arquivo = (registro[32] & 1) ? inexistente : nullptr;
            std::memcpy(registro + offsetof(TavruRegistroImagemDGN, Arquivo), &arquivo, sizeof arquivo);
        }
        if (TTratadorDeArquivosDGN::RetornoDoPlugin(tipo, registro, &tratador) != 1)
            std::abort();
    }
    for (int k = 0; k < lista.Count(); ++k) {
        if (auto *area = dynamic_cast<TGISArea *>(lista.ObterGISObjeto(k))) {
            const TGISPosicaoList &anel = *area->Pontos().Items(0);
            if (anel.Count() > 0 && !(anel.ObterPosicao(0) == anel.Last()))
                std::abort();
        }
    }
}

void ArquivoGeo(const std::uint8_t *dados, std::size_t tamanho)
{
    const QString carta = tavru::fuzz::PastaTemporaria() + QStringLiteral("/carta.dgn");
    {
        QFile geo(tavru::fuzz::PastaTemporaria() + QStringLiteral("/carta.geo"));
        if (!geo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return;
        geo.write(reinterpret_cast<const char *>(dados), static_cast<qint64>(tamanho));
    }
    TfrmConfigurarDGN lido;
    lido.AtribuirArquivo(carta);
    try {
        if (!lido.Ler())
            std::abort();
    } catch (const Exception &) {
        return;
    }
    lido.Gravar();
    TfrmConfigurarDGN deNovo;
    deNovo.AtribuirArquivo(carta);
    if (!deNovo.Ler() || deNovo.Fuso()->value() != lido.Fuso()->value() ||
        deNovo.Zona()->currentIndex() != lido.Zona()->currentIndex() ||
        deNovo.Elipsoide()->currentIndex() != lido.Elipsoide()->currentIndex() ||
        deNovo.Kilometros()->isChecked() != lido.Kilometros()->isChecked())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication aplicacao(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    if (tamanho < 1)
        return 0;
    if (dados[0] & 1)
        ArquivoGeo(dados + 1, tamanho - 1);
    else
        Registros(dados + 1, tamanho - 1);
    return 0;
}
