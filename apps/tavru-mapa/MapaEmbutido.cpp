#include "MapaEmbutido.h"

#include "MapaDeExemplo.h"
#include "MapaPlotagem.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISTexto.h>

#include <cmath>
#include <initializer_list>
#include <memory>

namespace tavru {

namespace {

/// Graus decimais (latitude, longitude).
struct TGraus
{
    double Lat;
    double Lon;
};

TGISCamada *NovaCamada(TGis &gis, const QString &nome, TGISTipoCamada tipo)
{
    auto *camada = new TGISCamada(nome);
    camada->AtribuirTipo(tipo);
    gis.Camadas().Add(camada);
    return camada;
}

/// Enche a primeira sequência da linha (ou da área) com os pontos, na ordem.
void Encher(TGISLinha &linha, std::initializer_list<TGraus> pontos, bool fechar)
{
    linha.Pontos().Add(new TGISPosicaoList);
    int i = 0;
    for (const TGraus &g : pontos)
        linha.InserirPonto(0, i++, Graus(g.Lat, g.Lon));
    if (fechar)
        linha.InserirPonto(0, i, Graus(pontos.begin()->Lat, pontos.begin()->Lon));
    linha.CalcularLimites();
}

void MontarGrade(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Grade"), gtcPanoDeFundo);
    const TColor cinza = RGB(120, 140, 160);
    auto nova = [&](TGraus a, TGraus b) {
        auto *linha = new TGISLinha;
        Encher(*linha, {a, b}, false);
        linha->Caneta().Color = cinza;
        linha->Caneta().Style = psDot;
        camada->Objetos().Add(linha);
    };
    // Centrada no continente (de 90° W a 30° W), para que "ajustar à janela" o enquadre.
    for (int lat = -60; lat <= 20; lat += 10)
        nova({double(lat), -90.0}, {double(lat), -30.0});
    for (int lon = -90; lon <= -30; lon += 10)
        nova({-60.0, double(lon)}, {20.0, double(lon)});
}

void MontarTextos(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Textos"), gtcPanoDeFundo);
    auto novo = [&](const QString &texto, TGraus lugar, int pontos, double graus) {
        auto *t = new TGISTexto;
        t->AtribuirTexto(texto);
        t->AtribuirPosicao(Graus(lugar.Lat, lugar.Lon));
        t->AtribuirOrientacao(graus * M_PI / 180.0);
        t->Fonte().SetSize(pontos);
        t->Fonte().Style = Estilo(fsItalic);
        t->MedirTexto();
        t->AtribuirCor(RGB(30, 70, 140));
        camada->Objetos().Add(t);
    };
    novo(QStringLiteral("OCEANO ATLÂNTICO"), {-25.0, -32.0}, 14, 60.0);
    novo(QStringLiteral("OCEANO PACÍFICO"), {-22.0, -88.0}, 14, 80.0);
    novo(QStringLiteral("Mar do Caribe"), {15.0, -72.0}, 11, 0.0);
}

} // namespace

void MontarMapaEmbutido(TGis &gis)
{
    gis.AtribuirColor(RGB(170, 205, 235));
    gis.FonteRotulo().SetSize(8);
    gis.FonteRotulo().Style = Estilo(fsBold);
    gis.FonteRotulo().Color = RGB(40, 40, 40);
    // Rótulos legíveis onde se aglomeram (Nordeste, Rio, São Paulo) e sobre a figura de satélite,
    // e a seta no meio das linhas e áreas lidas do documento (que ficam na posição (0, 0)).
    gis.AtribuirCorDoHalo(clWhite);
    gis.AtribuirRotulosSemSobreposicao(true);
    gis.AtribuirSetaNoCentroDaArea(true);
    CarregarMapaDeExemplo(gis);
    // A figura de satélite fica logo acima dos países, embaixo dos estados (que não têm fundo).
    MontarSatelite(gis);
    gis.Camadas().Move(gis.Camadas().Count() - 1, 1);
    MontarGrade(gis);
    MontarTextos(gis);
    MontarPlotagem(gis);
}

void AjustarVistaInicial(TGis &gis)
{
    TGISProjecao &projecao = *gis.Projecao();
    projecao.DoAtribuirAreaTela(TRect(0, 0, gis.width(), gis.height()));
    projecao.FitToRect(GISRet(-35 * 3600, -75 * 3600, 7 * 3600, -28 * 3600));
    if (TGISCamada *satelite = gis.ObterCamada(QStringLiteral("Satélite")))
        satelite->AtribuirZoomMinimo(projecao.Zoom() * 1.5);
    gis.Desenhar();
}

} // namespace tavru
