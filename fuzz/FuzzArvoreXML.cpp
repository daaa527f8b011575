// Alvo de fuzzing: a árvore de um documento XML (TGisTreeNodeXML::LerTexto), a base da árvore de
// acompanhamento. Lida ou erro; a árvore lida tem no máximo os nós e a profundidade permitidos.

#include "AplicacaoFuzz.h"
#include <tavru/companions/symbology/TGisTreeNodeXML.h>
#include <tavru/platform/Exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    tavru::fuzz::IniciarAplicacao(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho)
{
    std::unique_ptr<tavru::TGisTreeNodeXML> raiz;
    try {
        raiz = tavru::TGisTreeNodeXML::LerTexto(
            QByteArray(reinterpret_cast<const char *>(dados), static_cast<qsizetype>(tamanho)));
    } catch (const tavru::Exception &) {
        return 0;
    }
    // Conta os nós e a profundidade sem recursão.
    std::vector<std::pair<const QTreeWidgetItem *, int>> pilha{{raiz.get(), 1}};
    int nos = 0;
    while (!pilha.empty()) {
        const auto [item, nivel] = pilha.back();
        pilha.pop_back();
        ++nos;
        if (nivel > tavru::TGisTreeNodeXML::ProfundidadeMaxima || nos > tavru::TGisTreeNodeXML::NosMaximos)
            std::abort();
        for (int i = 0; i < item->childCount(); ++i)
            pilha.push_back({item->child(i), nivel + 1});
    }
    return 0;
}
