// Mede MundoParaTelaPontos e TelaParaMundoPontos da projeção Mercator sobre um milhão de posições,
// em nanossegundos por posição, e ao lado uma cópia simples do mesmo vetor (8 bytes por posição)
// como referência. Cada conversão informa também a cópia medida na mesma execução e a razão
// conversão / cópia.

#include <tavru/core/TGISPosicaoList.h>
#include <tavru/core/TGISProjecaoMercator.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <random>
#include <vector>

using namespace tavru;

namespace {

constexpr int Total = 1000000;

const TGISPosicaoList &Posicoes()
{
    static const TGISPosicaoList lista = [] {
        TGISPosicaoList l;
        l.Reservar(Total);
        std::mt19937 gerador(42);
        std::uniform_int_distribution<int> lat(-324000, 324000), lon(-648000, 648000);
        for (int i = 0; i < Total; ++i)
            l.Add(GISPosicao(lat(gerador), lon(gerador)));
        return l;
    }();
    return lista;
}

TGISProjecaoMercator &Projecao()
{
    static TGISProjecaoMercator p;
    static const bool pronta = [] {
        p.DoAtribuirAreaTela(TRect(0, 0, 1920, 1080));
        p.FitToRect(GISRet(-90000, -120000, 60000, 80000));
        return true;
    }();
    (void)pronta;
    return p;
}

// Nanossegundos por posição da cópia simples: o melhor de várias repetições.
double NsCopia()
{
    static const double ns = [] {
        const TGISPosicaoList &lista = Posicoes();
        std::vector<TPoint> destino(Total);
        double melhor = 1e30;
        for (int r = 0; r < 30; ++r) {
            const auto t0 = std::chrono::steady_clock::now();
            std::memcpy(static_cast<void *>(destino.data()), lista.Dados(), sizeof(TPoint) * Total);
            benchmark::ClobberMemory();
            const auto t1 = std::chrono::steady_clock::now();
            melhor = std::min(melhor, std::chrono::duration<double, std::nano>(t1 - t0).count() / Total);
        }
        return melhor;
    }();
    return ns;
}

void Informar(benchmark::State &state, std::chrono::steady_clock::duration decorrido)
{
    const double itens = static_cast<double>(state.iterations()) * Total;
    state.SetItemsProcessed(static_cast<int64_t>(itens));
    const double ns = std::chrono::duration<double, std::nano>(decorrido).count() / itens;
    state.counters["ns_posicao"] = ns;
    state.counters["copia_ns_posicao"] = NsCopia();
    state.counters["razao_copia"] = ns / NsCopia();
}

// Pesa Posições e Projeção fora da medida.
void Preparar()
{
    Posicoes();
    Projecao();
    NsCopia();
}

void BM_Copia(benchmark::State &state)
{
    Preparar();
    const TGISPosicaoList &lista = Posicoes();
    std::vector<TPoint> destino(Total);
    const auto t0 = std::chrono::steady_clock::now();
    for (auto _ : state) {
        std::memcpy(static_cast<void *>(destino.data()), lista.Dados(), sizeof(TPoint) * Total);
        benchmark::ClobberMemory();
    }
    Informar(state, std::chrono::steady_clock::now() - t0);
}

void BM_MundoParaTelaPontos(benchmark::State &state)
{
    Preparar();
    const TGISPosicaoList &lista = Posicoes();
    const TGISProjecao &projecao = Projecao();
    std::vector<TPoint> pontos(Total);
    const auto t0 = std::chrono::steady_clock::now();
    for (auto _ : state) {
        projecao.MundoParaTelaPontos(lista, pontos.data());
        benchmark::ClobberMemory();
    }
    Informar(state, std::chrono::steady_clock::now() - t0);
}

void BM_TelaParaMundoPontos(benchmark::State &state)
{
    Preparar();
    const TGISProjecao &projecao = Projecao();
    std::vector<TPoint> pontos(Total);
    projecao.MundoParaTelaPontos(Posicoes(), pontos.data());
    TGISPosicaoList destino;
    destino.Reservar(Total);
    const auto t0 = std::chrono::steady_clock::now();
    for (auto _ : state) {
        projecao.TelaParaMundoPontos(pontos, destino);
        benchmark::ClobberMemory();
    }
    Informar(state, std::chrono::steady_clock::now() - t0);
}

// A conversão ponto a ponto pela chamada virtual, para mostrar o ganho do laço da lista.
void BM_MundoParaTelaVirtual(benchmark::State &state)
{
    Preparar();
    const TGISPosicaoList &lista = Posicoes();
    const TGISProjecao &projecao = Projecao();
    std::vector<TPoint> pontos(Total);
    const auto t0 = std::chrono::steady_clock::now();
    for (auto _ : state) {
        const TGISPosicao *p = lista.Dados();
        for (int i = 0; i < Total; ++i)
            pontos[static_cast<size_t>(i)] = projecao.MundoParaTela(p[i]);
        benchmark::ClobberMemory();
    }
    Informar(state, std::chrono::steady_clock::now() - t0);
}

} // namespace

BENCHMARK(BM_Copia)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MundoParaTelaPontos)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TelaParaMundoPontos)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MundoParaTelaVirtual)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
