// Benchmark do documento XML do mapa B1 (10.000 linhas de 100 vértices, 10.000 áreas de 20
// vértices, 100.000 pontos, dentro de -74..-34 de longitude e -34..5 de latitude, semente fixa).
//
// Mede, na mesma execução: a gravação pelo tratador (`Gravar`), a análise do mesmo arquivo pelo
// pugixml sozinho (a referência: o que um leitor por DOM não pode deixar de gastar) e a leitura
// pelo tratador (`Ler`). As duas leituras rodam cada uma num processo filho novo (este executável
// com "--pugixml" ou "--ler"), nas mesmas condições (memória ainda não usada pelo processo), e o
// pico de memória é só o delas: o filho informa o tempo, o RSS antes, o pico (VmHWM, que o exec
// zera; o ru_maxrss herdaria o do pai) e, na leitura, a memória que o mapa lido ocupa (mallinfo2,
// com o DOM já liberado). Cada medida é a melhor de três.
//
// Metas: Ler em no máximo 2,5 × o tempo do pugixml; Gravar a 100 MB/s ou mais; pico de memória
// da leitura até 4,5 × o tamanho do arquivo; o mapa lido ocupando até o tamanho do arquivo.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QString>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <pugixml.hpp>
#include <random>
#include <cstdlib>
#include <cstring>

using namespace tavru;

#include "MedidasDeBench.h"

using namespace tavru::bench;

namespace {

// Um campo em kB de /proc/self/status ("VmRSS", "VmHWM"), em bytes.
double Status(const char *campo)
{
    double kb = 0;
    if (FILE *f = std::fopen("/proc/self/status", "r")) {
        char linha[256];
        const size_t n = std::strlen(campo);
        while (std::fgets(linha, sizeof linha, f))
            if (std::strncmp(linha, campo, n) == 0 && linha[n] == ':')
                kb = std::atof(linha + n + 1);
        std::fclose(f);
    }
    return kb * 1024.0;
}

constexpr std::int32_t LatMin = -34 * 3600, LatMax = 5 * 3600;
constexpr std::int32_t LonMin = -74 * 3600, LonMax = -34 * 3600;

std::int32_t Limitar(std::int64_t v, std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, a, b));
}

void MontarMapaB1(TGISObjetoList &lista)
{
    std::mt19937_64 gerador(0x7A5B1);
    std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax), lon(LonMin, LonMax);
    std::uniform_int_distribution<std::int32_t> passo(-180, 180);
    std::uniform_real_distribution<double> raio(300.0, 1200.0);

    for (int l = 0; l < 10000; ++l) {
        auto *linha = new TGISLinha;
        auto *parte = new TGISPosicaoList;
        parte->Reservar(100);
        TGISPosicao p{lat(gerador), lon(gerador)};
        for (int i = 0; i < 100; ++i) {
            parte->Add(p);
            p.Latitude = Limitar(std::int64_t(p.Latitude) + passo(gerador), LatMin, LatMax);
            p.Longitude = Limitar(std::int64_t(p.Longitude) + passo(gerador), LonMin, LonMax);
        }
        linha->Pontos().Add(parte);
        linha->CalcularLimites();
        lista.Add(linha);
    }
    for (int a = 0; a < 10000; ++a) {
        auto *area = new TGISArea;
        auto *parte = new TGISPosicaoList;
        parte->Reservar(20);
        const TGISPosicao c{lat(gerador), lon(gerador)};
        const double r = raio(gerador);
        for (int i = 0; i < 20; ++i) {
            const double t = 2 * M_PI * i / 20;
            parte->Add(GISPosicao(Limitar(std::llround(c.Latitude + r * std::sin(t)), LatMin, LatMax),
                                  Limitar(std::llround(c.Longitude + r * std::cos(t)), LonMin, LonMax)));
        }
        area->Pontos().Add(parte);
        area->CalcularLimites();
        lista.Add(area);
    }
    for (int i = 0; i < 100000; ++i) {
        auto *ponto = new TGISPonto;
        ponto->AtribuirPosicao(GISPosicao(lat(gerador), lon(gerador)));
        ponto->AtribuirForma(gisCirculo);
        ponto->AtribuirTamanhoMaximo(TPoint{50, 50});
        ponto->AtribuirTamanhoMinimo(TPoint{5, 5});
        ponto->AtribuirTamanhoNoMundo(GISPosicao(100, 100));
        lista.Add(ponto);
    }
    lista.CalcularLimites();
}

constexpr unsigned OpcoesDoDOM = pugi::parse_default | pugi::parse_ws_pcdata_single;

// Os filhos: leem o documento e informam numa linha o tempo, o RSS antes, o pico e a memória que
// fica ocupada depois (o mapa lido; zero para o pugixml, cujo documento é liberado).
int LerNoFilho(bool comTratador, const QString &arquivo)
{
    const double heapAntes = HeapEmUso();
    const double rssAntes = Status("VmRSS");
    double tempo = 0;
    double fica = 0;
    if (comTratador) {
        TGISObjetoList lista;
        const auto inicio = Relogio::now();
        TTratadorDeArquivosXML(lista).Ler(arquivo);
        tempo = Segundos(inicio);
        malloc_trim(0);
        fica = HeapEmUso() - heapAntes;
        if (lista.Count() != 120000)
            return 2;
    } else {
        pugi::xml_document documento;
        const auto inicio = Relogio::now();
        if (!documento.load_file(QFile::encodeName(arquivo).constData(), OpcoesDoDOM))
            return 2;
        tempo = Segundos(inicio);
    }
    std::printf("LIDO %.6f %.0f %.0f %.0f\n", tempo, rssAntes, Status("VmHWM"), fica);
    return 0;
}

struct TLeitura
{
    double Tempo = 1e9;
    double Pico = 0; // bytes acima do RSS de antes
    double Fica = 0;
};

// A melhor de três leituras, cada uma num processo novo.
bool Medir(const char *modo, const QString &arquivo, TLeitura &r)
{
    for (int i = 0; i < 3; ++i) {
        QProcess filho;
        filho.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(modo), arquivo});
        if (!filho.waitForFinished(-1) || filho.exitStatus() != QProcess::NormalExit || filho.exitCode() != 0) {
            std::printf("a leitura (%s) falhou: %s\n", modo, filho.readAllStandardError().constData());
            return false;
        }
        double t, antes, pico, fica;
        if (std::sscanf(filho.readAllStandardOutput().constData(), "LIDO %lf %lf %lf %lf", &t, &antes, &pico, &fica) != 4)
            return false;
        if (t < r.Tempo)
            r.Tempo = t;
        r.Pico = std::max(r.Pico, pico - antes);
        r.Fica = fica;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 3 && (QByteArray(argv[1]) == "--ler" || QByteArray(argv[1]) == "--pugixml"))
        return LerNoFilho(QByteArray(argv[1]) == "--ler", QString::fromLocal8Bit(argv[2]));

    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath() + QStringLiteral("/tavru-bench-xml");
    QDir().mkpath(pasta);
    const QString arquivo = pasta + QStringLiteral("/b1.xml");

    std::printf("Mapa B1: 10.000 linhas x 100 vértices, 10.000 áreas x 20 vértices, 100.000 pontos\n");
    double gravar = 1e9;
    {
        TGISObjetoList mapa;
        MontarMapaB1(mapa);
        for (int i = 0; i < 3; ++i) {
            const auto inicio = Relogio::now();
            TTratadorDeArquivosXML(mapa).Gravar(arquivo);
            gravar = std::min(gravar, Segundos(inicio));
        }
    }
    const double tamanho = static_cast<double>(QFileInfo(arquivo).size());
    const double mb = tamanho / 1e6;
    std::printf("Arquivo: %.1f MB (%s)\n", mb, qPrintable(arquivo));

    TLeitura pugixml, ler;
    if (!Medir("--pugixml", arquivo, pugixml) || !Medir("--ler", arquivo, ler))
        return 1;

    std::printf("%-34s %8.3f s %8.1f MB/s\n", "Gravar (tratador XML)", gravar, mb / gravar);
    std::printf("%-34s %8.3f s %8.1f MB/s  pico %4.0f MB\n", "pugixml sozinho (load_file)", pugixml.Tempo,
                mb / pugixml.Tempo, pugixml.Pico / 1e6);
    std::printf("%-34s %8.3f s %8.1f MB/s  pico %4.0f MB\n", "Ler (tratador XML)", ler.Tempo, mb / ler.Tempo,
                ler.Pico / 1e6);
    std::printf("Ler / pugixml: %.2fx (meta: até 2,5x)\n", ler.Tempo / pugixml.Tempo);
    std::printf("Gravar: %.0f MB/s (meta: 100 MB/s ou mais)\n", mb / gravar);
    std::printf("Pico de memória da leitura: %.0f MB = %.2fx o arquivo (meta: até 4,5x)\n", ler.Pico / 1e6,
                ler.Pico / tamanho);
    std::printf("Mapa lido na memória: %.0f MB = %.2fx o arquivo (meta: até 1x)\n", ler.Fica / 1e6,
                ler.Fica / tamanho);
    if (!qEnvironmentVariableIsSet("TAVRU_BENCH_MANTER"))
        QFile::remove(arquivo);
    return 0;
}
