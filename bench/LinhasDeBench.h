#pragma once
// O custo do modelo sozinho nos benchmarks de leitura: as mesmas linhas que um leitor montaria,
// sem ler nada (alocação e preenchimento dos objetos), para separar o custo do leitor do do modelo.

#include "MedidasDeBench.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/elements/GISLinha.h>

#include <QString>

namespace tavru::bench {

/// Segundos para montar `linhas` linhas de `vertices` vértices, com os campos "Nome" e "Tipo".
inline double MontarLinhasSemLeitura(int linhas, int vertices)
{
    const auto inicio = Relogio::now();
    TGISObjetoList lista;
    for (int i = 0; i < linhas; ++i) {
        auto *linha = new TGISLinha;
        auto *parte = new TGISPosicaoList;
        parte->Redimensionar(vertices);
        linha->Pontos().Add(parte);
        linha->CalcularLimites();
        linha->Informacoes().AdicionarCampo(QStringLiteral("Nome"), QStringLiteral("Linha 00001"));
        linha->Informacoes().AdicionarCampo(QStringLiteral("Tipo"), QStringLiteral("rio"));
        lista.Add(linha);
    }
    return Segundos(inicio);
}

} // namespace tavru::bench
