// As visões sobre o mapa B1 (10.000 linhas de 100 vértices, 10.000 áreas de 20 vértices e 100.000
// pontos entre as longitudes -74 e -34 e as latitudes -34 e 5, semente fixa, a receita de
// tavru-bench-mapa), num mapa de 1280x800 e numa miniatura de 220x180:
//
// - seguir a visão: 100 passos de deslocamento da visão principal (`TGis::Visao`); a cada passo a
//   miniatura pinta (imagem guardada + retângulo). Mede o custo da miniatura por passo e o compara
//   ao redesenho do mapa principal no mesmo passo (a referência), e conta os redesenhos das camadas
//   da miniatura (o esperado é nenhum);
// - listar camadas: o painel de camadas refaz a lista de 1.000 camadas; a referência é encher um
//   QTreeWidget com 1.000 itens de 4 colunas sem nada do mapa.
//
// Uso: tavru-bench-visoes

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/views/TGISConfigurarCamadas.h>
#include <tavru/views/TGISMiniatura.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTreeWidget>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>

using namespace tavru;

namespace {

constexpr std::int32_t LatMin = -34 * 3600, LatMax = 5 * 3600, LonMin = -74 * 3600, LonMax = -34 * 3600;

double Agora()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

void CriarB1(TGis &gis)
{
    std::mt19937 aleatorio(20261121u);
    std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax), lon(LonMin, LonMax), passo(-150, 150);
    auto *linhas = new TGISCamada(QStringLiteral("Linhas"));
    for (int k = 0; k < 10000; ++k) {
        auto *linha = new TGISLinha;
        TGISPosicao p = GISPosicao(lat(aleatorio), lon(aleatorio));
        linha->AtribuirPosicao(p);
        linha->Pontos().Add(new TGISPosicaoList);
        for (int i = 0; i < 100; ++i) {
            linha->InserirPonto(0, i, p);
            p.Latitude = std::clamp(p.Latitude + passo(aleatorio), LatMin, LatMax);
            p.Longitude = std::clamp(p.Longitude + passo(aleatorio), LonMin, LonMax);
        }
        linha->CalcularLimites();
        linhas->Objetos().Add(linha);
    }
    auto *areas = new TGISCamada(QStringLiteral("Areas"));
    std::uniform_real_distribution<double> raio(600.0, 6000.0);
    for (int k = 0; k < 10000; ++k) {
        auto *area = new TGISArea;
        const TGISPosicao c = GISPosicao(std::clamp(lat(aleatorio), LatMin + 6000, LatMax - 6000),
                                         std::clamp(lon(aleatorio), LonMin + 6000, LonMax - 6000));
        area->AtribuirPosicao(c);
        area->Pontos().Add(new TGISPosicaoList);
        const double r = raio(aleatorio);
        for (int i = 0; i < 20; ++i) {
            const double a = 2 * M_PI * i / 20;
            area->InserirPonto(0, i, GISPosicao(c.Latitude + int(r * std::sin(a)), c.Longitude + int(r * std::cos(a))));
        }
        area->CalcularLimites();
        areas->Objetos().Add(area);
    }
    auto *pontos = new TGISCamada(QStringLiteral("Pontos"));
    for (int k = 0; k < 100000; ++k) {
        auto *ponto = new TGISPonto;
        ponto->AtribuirPosicao(GISPosicao(lat(aleatorio), lon(aleatorio)));
        ponto->AtribuirTamanhoMaximo(TPoint(50, 50));
        ponto->AtribuirTamanhoMinimo(TPoint(5, 5));
        ponto->AtribuirTamanhoNoMundo(GISPosicao(100, 100));
        ponto->AtribuirForma(gisCirculo);
        pontos->Objetos().Add(ponto);
    }
    gis.Camadas().Add(linhas);
    gis.Camadas().Add(areas);
    gis.Camadas().Add(pontos);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    {
        TGis gis;
        gis.resize(1280, 800);
        CriarB1(gis);
        gis.FitToWindow();
        TGISMiniatura miniatura;
        miniatura.resize(220, 180);
        miniatura.AtribuirGis(&gis);
        QImage tela(miniatura.size(), QImage::Format_ARGB32_Premultiplied);
        const double t0 = Agora();
        miniatura.render(&tela); // o primeiro desenho das camadas
        const double primeiro = Agora() - t0;
        const std::uint64_t redesenhos = miniatura.Redesenhos();

        const double zoom = gis.Zoom() * 4;
        const TGISPosicao centro = gis.Projecao()->Centro();
        constexpr int Passos = 100;
        double mapa = 0.0, mini = 0.0;
        for (int i = 0; i < Passos; ++i) {
            const double a = Agora();
            gis.Visao(GISPosicao(centro.Latitude, centro.Longitude - 36000 + i * 720), zoom);
            const double b = Agora();
            miniatura.render(&tela);
            const double c = Agora();
            mapa += b - a;
            mini += c - b;
        }
        std::printf("Miniatura seguindo %d passos do mapa B1: %.3f ms por passo; mapa principal %.1f ms por passo"
                    " (razao %.4f); primeiro desenho das camadas %.1f ms; redesenhos das camadas durante os"
                    " passos: %llu\n",
                    Passos, mini / Passos, mapa / Passos, mini / mapa, primeiro,
                    static_cast<unsigned long long>(miniatura.Redesenhos() - redesenhos));
    }

    {
        TGis gis;
        for (int i = 0; i < 1000; ++i) {
            auto *camada = new TGISCamada(QStringLiteral("Camada %1").arg(i));
            gis.Camadas().Add(camada);
        }
        TGISConfigurarCamadas painel;
        painel.resize(300, 600);
        const double a = Agora();
        painel.AtribuirGis(&gis); // lista as 1.000
        const double b = Agora();
        painel.Lista()->clear();
        const double c = Agora();
        painel.Atualizar();
        const double d = Agora();
        QTreeWidget referencia;
        const double e = Agora();
        QList<QTreeWidgetItem *> itens;
        for (int i = 0; i < 1000; ++i) {
            auto *item = new QTreeWidgetItem({QStringLiteral("Camada %1").arg(i), QString(), QStringLiteral("0 – 50000"),
                                              QStringLiteral("0")});
            item->setCheckState(0, Qt::Checked);
            itens << item;
        }
        referencia.addTopLevelItems(itens);
        const double f = Agora();
        std::printf("Painel com 1.000 camadas: %.1f ms ao ligar, %.1f ms ao refazer; QTreeWidget simples %.1f ms"
                    " (razao %.2f)\n",
                    b - a, d - c, f - e, (d - c) / (f - e));
    }
    return 0;
}
