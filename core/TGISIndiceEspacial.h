#pragma once
/// \file
/// Índice espacial de uma camada: um filtro de candidatos por retângulo do mundo.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavru {

/// Índice espacial (extensão): uma R-tree (a do Boost.Geometry) carregada em bloco com uma caixa
/// por objeto, em segundos de arco, e o índice do objeto na lista da camada.
///
/// É só um filtro: `Consultar` devolve um superconjunto do que a consulta exata aceitaria, em
/// ordem crescente de índice (a ordem da lista, não a da árvore), e quem consulta roda o teste
/// exato de sempre em cada candidato. Objetos cuja extensão não cabe numa caixa fixa (um
/// composto cuja área depende do último desenho dos seus pontos) entram em `sempre` e são
/// devolvidos em toda consulta.
///
/// O índice não observa ninguém: guarda a `Versao` (o contador de mudanças da camada) com que foi
/// construído, e quem o usa o refaz quando o contador andou. Não é seguro para duas linhas de
/// execução ao mesmo tempo; cada camada é desenhada por uma só.
class TAVRU_GIS_EXPORT TGISIndiceEspacial
{
public:
    /// Uma caixa (tomada em ordem: `ConcertaRect` é aplicado) e o índice do objeto na lista.
    struct TEntrada
    {
        TGISRet Caixa;
        int Indice = 0;
    };

    TGISIndiceEspacial();
    ~TGISIndiceEspacial();
    TGISIndiceEspacial(const TGISIndiceEspacial &) = delete;
    TGISIndiceEspacial &operator=(const TGISIndiceEspacial &) = delete;

    /// Refaz o índice inteiro por carga em bloco. `versao` e `folgaTela` ficam guardadas para quem
    /// consulta (a folga é em pixels: quanto a consulta de tela precisa crescer para cobrir o que
    /// as caixas não cobrem, por exemplo o tamanho na tela de um ponto).
    void Construir(const std::vector<TEntrada> &entradas, const std::vector<int> &sempre,
                   std::uint64_t versao, int folgaTela);
    /// Esvazia e marca como não construído.
    void Limpar();

    bool Construido() const { return FConstruido; }
    std::uint64_t Versao() const { return FVersao; }
    int FolgaTela() const { return FFolgaTela; }
    /// Quantas caixas (sem contar `sempre`).
    std::size_t Total() const;
    /// A união das caixas (em ordem); sem caixas, um retângulo vazio em (0, 0).
    TGISRet Extensao() const { return FExtensao; }

    /// Põe em `saida` (esvaziada antes) os índices, crescentes e sem repetição, das caixas que tocam
    /// `r` (tomado em ordem, bordas incluídas) e os de `sempre`.
    void Consultar(const TGISRet &r, std::vector<int> &saida) const;

private:
    struct TArvore;
    std::unique_ptr<TArvore> FArvore;
    std::vector<int> FSempre;
    TGISRet FExtensao{};
    std::uint64_t FVersao = 0;
    int FFolgaTela = 0;
    bool FConstruido = false;
};

} // namespace tavru
