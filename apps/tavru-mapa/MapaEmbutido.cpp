#include "MapaEmbutido.h"

#include "MapaPlotagem.h"

#include "control/TGis.h"
#include "core/TGISCamadaList.h"
#include "elements/GISArea.h"
#include "elements/GISLinha.h"
#include "elements/GISPonto.h"
#include "elements/GISTexto.h"

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

TGISPosicao EmSegundos(const TGraus &g)
{
    return GISPosicao(static_cast<std::int32_t>(std::lround(g.Lat * 3600.0)),
                      static_cast<std::int32_t>(std::lround(g.Lon * 3600.0)));
}

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
        linha.InserirPonto(0, i++, EmSegundos(g));
    if (fechar)
        linha.InserirPonto(0, i, EmSegundos(*pontos.begin()));
    linha.CalcularLimites();
}

void Nomear(TGISObjeto &objeto, std::initializer_list<std::pair<const char *, const char *>> campos)
{
    for (const auto &campo : campos)
        objeto.Informacoes().AtribuirCampo(QString::fromUtf8(campo.first), QString::fromUtf8(campo.second));
    objeto.AtribuirRotuloVisivel(true);
}

void MontarContinente(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Continente"), gtcPanoDeFundo);
    auto *america = new TGISArea;
    Encher(*america,
           {{12.4, -71.7}, {11.0, -74.2}, {9.0, -77.3},  {7.2, -77.9},  {4.0, -77.3},  {1.4, -78.9},
            {-1.0, -80.6}, {-2.5, -80.0}, {-4.5, -81.3}, {-6.0, -81.1}, {-9.0, -78.8}, {-13.8, -76.3},
            {-16.0, -74.5}, {-18.4, -70.4}, {-23.5, -70.5}, {-30.0, -71.4}, {-37.0, -73.6}, {-41.8, -73.8},
            {-46.0, -75.5}, {-50.5, -75.3}, {-53.0, -74.0}, {-54.9, -67.5}, {-52.3, -68.4}, {-50.0, -68.9},
            {-47.0, -67.5}, {-45.0, -65.5}, {-42.5, -63.7}, {-41.0, -62.3}, {-38.9, -62.2}, {-38.5, -57.5},
            {-36.3, -56.7}, {-34.9, -57.0}, {-34.8, -56.0}, {-34.5, -54.0}, {-33.7, -53.4}, {-32.2, -52.1},
            {-30.2, -50.2}, {-28.3, -48.7}, {-25.3, -48.3}, {-23.6, -45.4}, {-23.0, -43.2}, {-22.0, -41.0},
            {-20.3, -40.3}, {-18.0, -39.6}, {-15.6, -38.9}, {-13.0, -38.5}, {-11.0, -37.1}, {-9.6, -35.7},
            {-7.2, -34.8},  {-5.2, -35.5},  {-4.9, -37.2},  {-3.4, -39.2},  {-2.8, -41.8},  {-2.4, -44.4},
            {-1.0, -46.0},  {-0.5, -48.5},  {-0.1, -50.0},  {1.7, -50.0},   {4.4, -51.6},   {5.8, -54.0},
            {5.9, -57.1},   {6.8, -58.5},   {8.4, -60.0},   {10.0, -61.8},  {10.7, -62.5},  {10.6, -64.3},
            {10.1, -66.0},  {10.6, -68.2},  {11.5, -69.8},  {12.2, -70.2},  {11.5, -71.9}},
           true);
    america->Pincel().Color = RGB(238, 230, 205);
    america->Caneta().Color = RGB(150, 130, 100);
    Nomear(*america, {{"Nome", "América do Sul"}, {"Tipo", "Continente"}});
    america->AtribuirRotuloVisivel(false);
    camada->Objetos().Add(america);
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
    for (int lat = -60; lat <= 20; lat += 10)
        nova({double(lat), -100.0}, {double(lat), -20.0});
    for (int lon = -100; lon <= -20; lon += 10)
        nova({-60.0, double(lon)}, {20.0, double(lon)});
}

void MontarBrasil(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Países"), gtcInterrogavel);
    auto *brasil = new TGISArea;
    Encher(*brasil,
           {{5.2, -60.7},   {4.0, -59.6},   {2.0, -59.9},   {1.3, -58.4},   {2.0, -56.2},   {2.2, -54.8},
            {2.3, -52.9},   {4.4, -51.6},   {1.7, -50.0},   {-0.1, -50.0},  {-0.5, -48.5},  {-1.0, -46.0},
            {-2.4, -44.4},  {-2.8, -41.8},  {-3.4, -39.2},  {-4.9, -37.2},  {-5.2, -35.5},  {-7.2, -34.8},
            {-9.6, -35.7},  {-11.0, -37.1}, {-13.0, -38.5}, {-15.6, -38.9}, {-18.0, -39.6}, {-20.3, -40.3},
            {-22.0, -41.0}, {-23.0, -43.2}, {-23.6, -45.4}, {-25.3, -48.3}, {-28.3, -48.7}, {-30.2, -50.2},
            {-32.2, -52.1}, {-33.7, -53.4}, {-32.5, -53.7}, {-30.2, -57.6}, {-27.3, -55.7}, {-27.1, -54.0},
            {-25.6, -54.6}, {-24.0, -54.3}, {-22.6, -55.7}, {-22.2, -58.0}, {-19.8, -57.9}, {-17.6, -57.7},
            {-16.3, -58.4}, {-15.5, -60.2}, {-13.5, -61.8}, {-12.5, -64.2}, {-11.0, -65.3}, {-9.8, -66.6},
            {-10.9, -68.8}, {-11.0, -70.5}, {-9.5, -72.3},  {-9.0, -73.2},  {-7.4, -73.9},  {-5.0, -72.9},
            {-4.3, -70.0},  {-2.0, -69.9},  {-1.0, -69.5},  {0.6, -69.2},   {1.1, -69.9},   {2.2, -70.0},
            {1.7, -69.4},   {1.2, -66.9},   {1.9, -65.5},   {4.2, -64.6},   {4.5, -62.9}},
           true);
    brasil->Pincel().Style = bsClear; // a figura de satélite aparece por baixo
    brasil->Caneta().Color = RGB(60, 110, 50);
    brasil->Caneta().Width = 2;
    Nomear(*brasil, {{"Nome", "Brasil"}, {"Capital", "Brasília"}, {"Tipo", "País"}});
    camada->Objetos().Add(brasil);
}

void MontarRios(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Rios"), gtcInterrogavel);
    auto novo = [&](const char *nome, std::initializer_list<TGraus> pontos) {
        auto *rio = new TGISLinha;
        Encher(*rio, pontos, false);
        rio->Caneta().Color = RGB(40, 100, 200);
        rio->Caneta().Width = 2;
        Nomear(*rio, {{"Nome", nome}, {"Tipo", "Rio"}});
        camada->Objetos().Add(rio);
    };
    novo("Rio Amazonas", {{-4.5, -73.5}, {-3.8, -70.0}, {-3.3, -65.0}, {-3.1, -60.0}, {-2.5, -56.0},
                          {-1.9, -54.0}, {-1.0, -51.5}, {-0.1, -50.0}});
    novo("Rio São Francisco", {{-20.3, -46.4}, {-17.3, -44.9}, {-15.0, -44.1}, {-11.5, -43.1}, {-9.4, -40.5},
                               {-10.5, -36.4}});
    novo("Rio Paraná", {{-19.9, -51.0}, {-22.6, -53.1}, {-25.5, -54.6}, {-27.4, -56.0}, {-27.3, -58.6},
                        {-31.7, -60.5}, {-33.8, -59.2}});
}

void MontarCidades(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Cidades"), gtcInterrogavel);
    struct TCidade
    {
        const char *Nome;
        const char *Campo; // "UF" ou "País"
        const char *Valor;
        TGraus Lugar;
        bool Capital;
    };
    static const TCidade cidades[] = {
        {"Brasília", "UF", "DF", {-15.79, -47.88}, true},
        {"São Paulo", "UF", "SP", {-23.55, -46.63}, false},
        {"Rio de Janeiro", "UF", "RJ", {-22.91, -43.17}, false},
        {"Salvador", "UF", "BA", {-12.97, -38.50}, false},
        {"Fortaleza", "UF", "CE", {-3.72, -38.54}, false},
        {"Recife", "UF", "PE", {-8.05, -34.88}, false},
        {"Belém", "UF", "PA", {-1.46, -48.50}, false},
        {"Manaus", "UF", "AM", {-3.12, -60.02}, false},
        {"Porto Alegre", "UF", "RS", {-30.03, -51.23}, false},
        {"Cuiabá", "UF", "MT", {-15.60, -56.10}, false},
        {"Porto Velho", "UF", "RO", {-8.76, -63.90}, false},
        {"Buenos Aires", "País", "Argentina", {-34.60, -58.38}, true},
        {"Montevidéu", "País", "Uruguai", {-34.90, -56.16}, true},
        {"Assunção", "País", "Paraguai", {-25.26, -57.58}, true},
        {"La Paz", "País", "Bolívia", {-16.50, -68.15}, true},
        {"Lima", "País", "Peru", {-12.05, -77.04}, true},
        {"Bogotá", "País", "Colômbia", {4.71, -74.07}, true},
        {"Caracas", "País", "Venezuela", {10.48, -66.90}, true},
        {"Santiago", "País", "Chile", {-33.45, -70.67}, true},
        {"Quito", "País", "Equador", {-0.18, -78.47}, true},
    };
    for (const TCidade &c : cidades) {
        auto *ponto = new TGISPonto;
        ponto->AtribuirPosicao(EmSegundos(c.Lugar));
        ponto->AtribuirForma(c.Capital ? gisQuadrado : gisCirculo);
        ponto->TamanhoNaTela(c.Capital ? TPoint(9, 9) : TPoint(8, 8));
        ponto->AtribuirCor(c.Capital ? RGB(200, 30, 30) : RGB(240, 140, 20));
        Nomear(*ponto, {{"Nome", c.Nome}, {c.Campo, c.Valor}, {"Tipo", c.Capital ? "Capital" : "Cidade"}});
        camada->Objetos().Add(ponto);
    }
}

void MontarTextos(TGis &gis)
{
    TGISCamada *camada = NovaCamada(gis, QStringLiteral("Textos"), gtcPanoDeFundo);
    auto novo = [&](const QString &texto, TGraus lugar, int pontos, double graus) {
        auto *t = new TGISTexto;
        t->AtribuirTexto(texto);
        t->AtribuirPosicao(EmSegundos(lugar));
        t->AtribuirOrientacao(graus * M_PI / 180.0);
        t->Fonte().SetSize(pontos);
        t->Fonte().Style = Estilo(fsItalic);
        t->AtribuirCor(RGB(30, 70, 140));
        camada->Objetos().Add(t);
    };
    novo(QStringLiteral("OCEANO ATLÂNTICO"), {-25.0, -32.0}, 14, 60.0);
    novo(QStringLiteral("OCEANO PACÍFICO"), {-22.0, -88.0}, 14, 80.0);
    novo(QStringLiteral("Mar do Caribe"), {15.0, -72.0}, 11, 0.0);
    novo(QStringLiteral("América do Sul"), {-43.0, -60.0}, 12, 0.0);
}

} // namespace

void MontarMapaEmbutido(TGis &gis)
{
    gis.AtribuirColor(RGB(170, 205, 235));
    gis.FonteRotulo().SetSize(8);
    gis.FonteRotulo().Style = Estilo(fsBold);
    gis.FonteRotulo().Color = RGB(40, 40, 40);
    MontarContinente(gis);
    MontarSatelite(gis);
    MontarGrade(gis);
    MontarBrasil(gis);
    MontarRios(gis);
    MontarCidades(gis);
    MontarTextos(gis);
    MontarPlotagem(gis);
}

} // namespace tavru
