// O composto (girar e mover os membros, extensão, configuração padrão que para na primeira
// recusa), os descritores de classe e um quadro com um elemento de cada tipo desta metade dos
// elementos, gravado em /tmp/elementos2.png para ser olhado.

#include "CanvasGravador.h"

#include "elements/GISComposto.h"
#include "elements/GISElementosMilitares.h"
#include "elements/GISElipse.h"
#include "elements/GISImagem.h"
#include "elements/GISTrajeto.h"
#include "platform/TProvedorDeDialogos.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tavru;
using namespace tavru::teste;

namespace {
constexpr double Pi = 3.14159265358979323846;
TGISPosicao Graus(double lat, double lon)
{
    return GISPosicao(std::int32_t(std::lround(lat * 3600)), std::int32_t(std::lround(lon * 3600)));
}
} // namespace

TEST(TGISComposto, GiraOsMembrosEmTornoDaPosicaoEMoveOsPelaDiferenca)
{
    TGISComposto c;
    c.AtribuirPosicao(GISPosicao(1000, 2000));
    auto *leste = new TGISImagem;
    auto *norte = new TGISAreaCircular;
    c.Objetos().Add(leste);
    c.Objetos().Add(norte);
    leste->AtribuirArea(GISRet(900, 2000, 1100, 2200)); // centro 100 a leste
    norte->AtribuirPosicao(GISPosicao(1050, 2000));
    const double orientacaoNorte = norte->Orientacao();

    c.AtribuirOrientacao(Pi / 2); // um quarto de volta, anti-horário
    EXPECT_EQ(leste->Posicao(), GISPosicao(1100, 2000)); // foi para o norte...
    EXPECT_EQ(leste->AreaImagem(), GISRet(1000, 1900, 1200, 2100)); // ...pela posição dela
    EXPECT_EQ(norte->Posicao(), GISPosicao(1000, 1950)); // foi para o oeste
    EXPECT_DOUBLE_EQ(norte->Orientacao(), orientacaoNorte);

    c.AtribuirPosicao(GISPosicao(-500, 2500));
    EXPECT_EQ(leste->Posicao(), GISPosicao(-400, 2500));
    EXPECT_EQ(norte->Posicao(), GISPosicao(-500, 2450));
    EXPECT_EQ(c.Area(), Uniao(leste->Area(), norte->Area()));
    EXPECT_EQ(TGISComposto().Area(), GISRet(0, 0, 0, 0));
}

TEST(TGISComposto, ConfiguracaoPadraoParaNaPrimeiraRecusa)
{
    TGISProjecaoMercator projecao;
    PrepararProjecao(projecao);
    auto anterior = TrocarDialogos(std::make_unique<TDialogosRoteirizados>()); // tudo cancela
    TGISComposto c;
    EXPECT_TRUE(c.ConfiguracaoPadrao(projecao, TPoint(510, 490))); // vazio aceita
    auto *primeiro = new TGISAreaCircular;
    auto *imagem = new TGISImagem; // o diálogo cancelado recusa
    auto *terceiro = new TGISAreaCircular;
    c.Objetos().Add(primeiro);
    c.Objetos().Add(imagem);
    c.Objetos().Add(terceiro);
    EXPECT_FALSE(c.ConfiguracaoPadrao(projecao, TPoint(510, 490)));
    TrocarDialogos(std::move(anterior));
    EXPECT_EQ(primeiro->Posicao(), GISPosicao(10, 10));
    EXPECT_EQ(imagem->AreaImagem(), GISRet(-10, -10, 30, 30)); // o quadrado de 40 pixels fica
    EXPECT_EQ(terceiro->RaioMaior(), 0.0); // nunca chamado
}

TEST(TGISComposto, DescritoresCriamCadaClasseConcreta)
{
    for (const TClasseObjeto *classe : {&TGISAreaCircular::Descritor, &TGISElipse::Descritor, &TGISImagem::Descritor,
                                        &TGISComposto::Descritor, &TGISTrajeto::Descritor,
                                        &TGISMeioAcompanhado::Descritor, &TGISDerrota::Descritor})
        EXPECT_EQ(classe->Criar()->Classe(), *classe) << classe->Nome().toStdString();
}

// Um quadro para olhar: setor de anel, elipse, a figura com o seu ".geo", um composto, uma
// trajetória com vértice travado e rotulado, meios com seta de rumo e placa, e uma derrota com a
// cauda pontilhada, todos num composto.
TEST(Quadro, UmElementoDeCadaTipoEmPng)
{
    QImage img(900, 700, QImage::Format_ARGB32_Premultiplied);
    img.fill(QColor(230, 240, 250));
    TCanvas canvas(&img);
    TGISProjecaoMercator projecao;
    projecao.DoAtribuirAreaTela(TRect(0, 0, 900, 700));
    const TGISRet vista{Graus(-36, -78), Graus(8, -30)};
    projecao.DoAtribuirAreaMundo(vista);
    projecao.FitToRect(vista);

    TGISComposto mapa;
    auto *imagem = new TGISImagem;
    imagem->LerArquivo(QStringLiteral(TAVRU_DADOS "/raster/bluemarble_brazil.png"));
    auto *setor = new TGISAreaCircular;
    setor->AtribuirPosicao(Graus(-22, -64));
    setor->AtribuirRaioMenor(120);
    setor->AtribuirRaioMaior(330);
    setor->AtribuirAzimuteFinal(Pi / 2);
    setor->AtribuirOrientacao(0); // rumo 90: de norte-leste para leste-sul
    setor->Pincel() = TBrush{clYellow, bsDiagCross};
    setor->Caneta() = TPen{clMaroon, 2, psSolid};
    auto *elipse = new TGISElipse;
    elipse->AtribuirPosicao(Graus(-4, -40));
    elipse->AtribuirRaioMaior(260);
    elipse->AtribuirRaioMaiorY(120);
    elipse->AtribuirRaioMenor(110);
    elipse->AtribuirRaioMenorY(50);
    elipse->AtribuirOrientacao(Pi / 3); // rumo 30
    elipse->Pincel().Color = RGB(255, 128, 0);
    auto *grupo = new TGISComposto;
    grupo->AtribuirPosicao(Graus(-28.5, -48.5));
    for (int i = 0; i < 3; ++i) {
        grupo->Objetos().Add(new TGISAreaCircular);
        grupo->Objetos().Last()->AtribuirPosicao(Graus(-30 + i * 1.5, -50 + i * 1.5));
        static_cast<TGISAreaCircular *>(grupo->Objetos().Last())->AtribuirRaioMaior(40);
    }
    grupo->AtribuirOrientacao(Pi / 2);
    grupo->AtribuirPosicao(Graus(-26.5, -46.5));
    grupo->AtribuirCor(clFuchsia);
    auto *trajeto = new TGISTrajeto;
    const double pts[][2] = {{2, -70}, {-2, -66}, {-5, -60}, {-9, -57}, {-12, -52}, {-16, -48}};
    for (int i = 0; i < 6; ++i)
        trajeto->InserirPosicao(i, Graus(pts[i][0], pts[i][1]));
    trajeto->ObterPonto(3)->AtribuirFixo(true);
    trajeto->ObterPonto(3)->AtribuirRotulo(QStringLiteral("Ponto travado"));
    trajeto->Caneta() = TPen{clBlue, 2, psSolid};
    auto *derrota = new TGISDerrota;
    derrota->Pontos().Add(new TGISPosicaoList);
    for (const auto &p : {Graus(-33, -52), Graus(-30, -46), Graus(-27, -44), Graus(-24, -40), Graus(-20, -37)})
        derrota->Pontos().Items(0)->Add(p);
    derrota->AtribuirIndiceTracejado(2);
    derrota->Caneta().Color = clRed;
    for (TGISObjeto *o : std::initializer_list<TGISObjeto *>{imagem, setor, elipse, grupo, trajeto, derrota})
        mapa.Objetos().Add(o);
    for (int i = 0; i < 3; ++i) {
        auto *meio = new TGISMeioAcompanhado;
        meio->AtribuirPosicao(Graus(-8 - i * 4, -72 + i * 2));
        meio->AtribuirForma(gisCirculo);
        meio->AtribuirCor(i == 2 ? clLime : clAqua);
        meio->AtribuirOrientacao(i * 90.0); // rumos 0, 90 e 180
        meio->AtribuirIndicadorRumo(i < 2 ? 1.0 : 0.0);
        meio->AtribuirPlacaOculta(i != 2);
        mapa.Objetos().Add(meio);
    }

    mapa.Desenhar(canvas, projecao, false);
    ASSERT_TRUE(img.save(QStringLiteral("/tmp/elementos2.png")));
    const TPoint centroSetor = projecao.MundoParaTela(setor->Posicao());
    EXPECT_NE(canvas.Pixel(centroSetor.X, centroSetor.Y), clYellow); // o furo não é pintado
    const TPoint placa = projecao.MundoParaTela(Graus(-16, -68));
    int vermelhos = 0;
    for (int dy = -8; dy <= 8; ++dy)
        for (int dx = -8; dx <= 8; ++dx)
            vermelhos += canvas.Pixel(placa.X + dx, placa.Y + dy) == clRed;
    EXPECT_GT(vermelhos, 20);
}
