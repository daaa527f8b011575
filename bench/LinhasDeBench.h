#pragma once
// O custo do modelo sozinho nos benchmarks de leitura: as mesmas linhas que um leitor montaria,
// sem ler nada (alocação e preenchimento dos objetos), para separar o custo do leitor do do modelo.

#include "MedidasDeBench.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoList.h>
#include <tavru/elements/GISLinha.h>

#include <QString>

#include <cstdint>
#include <random>

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

/// Acrescenta a `lista` `linhas` linhas sorteadas (semente `semente`) de `vertices` vértices cada,
/// passeios de até 5' por passo dentro do Brasil, com os campos "Nome" ("Linha 00000"...) e "Tipo"
/// ("estrada" a cada três, "rio" nas outras): o conjunto que os benchmarks de leitura gravam.
inline void SortearLinhas(TGISObjetoList &lista, int linhas, int vertices, std::uint64_t semente)
{
    std::mt19937_64 gerador(semente);
    std::uniform_int_distribution<std::int32_t> lat(-30 * 3600, 2 * 3600), lon(-70 * 3600, -38 * 3600), passo(-300, 300);
    for (int i = 0; i < linhas; ++i) {
        auto *linha = new TGISLinha;
        auto *parte = new TGISPosicaoList;
        parte->Reservar(vertices);
        TGISPosicao p{lat(gerador), lon(gerador)};
        for (int v = 0; v < vertices; ++v) {
            parte->Add(p);
            p.Latitude += passo(gerador);
            p.Longitude += passo(gerador);
        }
        linha->Pontos().Add(parte);
        linha->CalcularLimites();
        linha->Informacoes().AdicionarCampo(QStringLiteral("Nome"), QStringLiteral("Linha %1").arg(i, 5, 10, QLatin1Char('0')));
        linha->Informacoes().AdicionarCampo(QStringLiteral("Tipo"), i % 3 ? QStringLiteral("rio") : QStringLiteral("estrada"));
        lista.Add(linha);
    }
}

} // namespace tavru::bench
