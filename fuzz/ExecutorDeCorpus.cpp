// Executor de corpus: roda a função de um alvo de fuzzing (LLVMFuzzerTestOneInput) sobre cada
// arquivo das pastas ou arquivos dados, sem o libFuzzer. É a regressão dos alvos no build normal
// (e sob os sanitizers): um arquivo que um dia quebrou o leitor entra no corpus e fica.
//
// Uso: executor PASTA_OU_ARQUIVO...   Sai com 0 quando todos rodaram; imprime quantos.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *dados, std::size_t tamanho);
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::filesystem::path> arquivos;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path p(argv[i]);
        if (std::filesystem::is_directory(p)) {
            for (const auto &e : std::filesystem::directory_iterator(p))
                if (e.is_regular_file())
                    arquivos.push_back(e.path());
        } else {
            arquivos.push_back(p);
        }
    }
    if (arquivos.empty()) {
        std::fprintf(stderr, "nenhum arquivo de corpus\n");
        return 1;
    }
    for (const auto &caminho : arquivos) {
        std::ifstream f(caminho, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    std::printf("%zu arquivos de corpus executados\n", arquivos.size());
    return 0;
}
