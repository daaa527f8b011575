#include "MapaPlotagem.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISElementosMilitares.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISTrajeto.h>

#include <cmath>

namespace tavru {

namespace {

constexpr double Pi = 3.14159265358979323846;

void Nomear(TGISObjeto &objeto, const QString &nome, const QString &tipo)
{
    objeto.Informacoes().AtribuirCampo(QStringLiteral("Nome"), nome);
    objeto.Informacoes().AtribuirCampo(QStringLiteral("Tipo"), tipo);
    objeto.AtribuirRotuloVisivel(true);
}

} // namespace

TGISPosicao Graus(double lat, double lon)
{
    return GISPosicao(static_cast<std::int32_t>(std::lround(lat * 3600)),
                      static_cast<std::int32_t>(std::lround(lon * 3600)));
}

void MontarSatelite(TGis &gis)
{
    auto *camada = new TGISCamada(QStringLiteral("Satélite"));
    camada->AtribuirTipo(gtcPanoDeFundo);
    auto *imagem = new TGISImagem;
    imagem->LerArquivo(QStringLiteral(":/raster/bluemarble_brazil.png"));
    camada->Objetos().Add(imagem);
    gis.Camadas().Add(camada);
}

void MontarPlotagem(TGis &gis)
{
    // Junta-se à camada "Plotagem" do mapa de exemplo, se houver.
    TGISCamada *camada = gis.ObterCamada(QStringLiteral("Plotagem"));
    if (!camada) {
        camada = new TGISCamada(QStringLiteral("Plotagem"));
        camada->AtribuirTipo(gtcEditavel);
        gis.Camadas().Add(camada);
    }

    auto *setor = new TGISAreaCircular;
    setor->AtribuirPosicao(Graus(-22, -64));
    setor->AtribuirRaioMenor(120);
    setor->AtribuirRaioMaior(330);
    setor->AtribuirAzimuteFinal(Pi / 2);
    setor->Pincel() = TBrush{clYellow, bsDiagCross};
    setor->Caneta().Color = clMaroon;
    Nomear(*setor, QStringLiteral("Setor Alfa"), QStringLiteral("Setor de coroa"));
    camada->Objetos().Add(setor);

    auto *elipse = new TGISElipse;
    elipse->AtribuirPosicao(Graus(-4, -40));
    elipse->AtribuirRaioMaior(260);
    elipse->AtribuirRaioMaiorY(120);
    elipse->AtribuirRaioMenor(110);
    elipse->AtribuirRaioMenorY(50);
    elipse->AtribuirOrientacao(Pi / 3);
    elipse->Pincel().Color = RGB(255, 128, 0);
    Nomear(*elipse, QStringLiteral("Elipse de busca"), QStringLiteral("Elipse"));
    camada->Objetos().Add(elipse);

    auto *composto = new TGISComposto;
    composto->AtribuirPosicao(Graus(-28.5, -48.5));
    for (int i = 0; i < 3; ++i) {
        auto *disco = new TGISAreaCircular;
        disco->AtribuirPosicao(Graus(-30 + i * 1.5, -50 + i * 1.5));
        disco->AtribuirRaioMaior(40);
        composto->Objetos().Add(disco);
    }
    composto->AtribuirOrientacao(Pi / 2);
    composto->AtribuirCor(clFuchsia);
    Nomear(*composto, QStringLiteral("Grupo Sul"), QStringLiteral("Composto"));
    camada->Objetos().Add(composto);

    auto *trajeto = new TGISTrajeto;
    const double pontos[][2] = {{2, -70}, {-2, -66}, {-5, -60}, {-9, -57}, {-12, -52}, {-16, -48}};
    for (int i = 0; i < 6; ++i)
        trajeto->InserirPosicao(i, Graus(pontos[i][0], pontos[i][1]));
    trajeto->ObterPonto(3)->AtribuirFixo(true);
    trajeto->ObterPonto(3)->AtribuirRotulo(QStringLiteral("Ponto travado"));
    trajeto->CalcularLimites();
    trajeto->Caneta() = TPen{clBlue, 2, psSolid};
    Nomear(*trajeto, QStringLiteral("Trajeto 1"), QStringLiteral("Trajeto"));
    camada->Objetos().Add(trajeto);

    auto *derrota = new TGISDerrota;
    derrota->Pontos().Add(new TGISPosicaoList);
    for (const TGISPosicao &p : {Graus(-33, -52), Graus(-30, -46), Graus(-27, -44), Graus(-24, -40), Graus(-20, -37)})
        derrota->Pontos().Last()->Add(p);
    derrota->CalcularLimites();
    derrota->AtribuirIndiceTracejado(2);
    derrota->Caneta().Color = clRed;
    derrota->Caneta().Width = 2;
    Nomear(*derrota, QStringLiteral("Derrota do Netuno"), QStringLiteral("Derrota"));
    camada->Objetos().Add(derrota);

    const char *nomes[] = {"Netuno", "Tritão", "Alvo 3"};
    for (int i = 0; i < 3; ++i) {
        auto *meio = new TGISMeioAcompanhado;
        meio->AtribuirPosicao(Graus(-8 - i * 4, -72 + i * 2));
        meio->AtribuirForma(gisCirculo);
        meio->AtribuirCor(i == 2 ? clLime : clAqua);
        meio->AtribuirOrientacao(i * 90.0);
        meio->AtribuirIndicadorRumo(i < 2 ? 1.0 : 0.0);
        meio->AtribuirPlacaOculta(i != 2);
        Nomear(*meio, QString::fromUtf8(nomes[i]), QStringLiteral("Meio acompanhado"));
        camada->Objetos().Add(meio);
    }
}

} // namespace tavru
