// O composto (girar e mover os membros, extensão, configuração padrão que para na primeira
// recusa) e os descritores de classe de todos os elementos.

#include "CanvasGravador.h"

#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/elements/GISElementosMilitares.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISTrajeto.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

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

    c.AtribuirOrientacao(3.14159265358979323846 / 2); // um quarto de volta, anti-horário
    EXPECT_EQ(leste->Posicao(), GISPosicao(1100, 2000)); // foi para o norte...
    EXPECT_EQ(leste->AreaImagem(), GISRet(1000, 1900, 1200, 2100)); // ...pela posição dela
    EXPECT_EQ(norte->Posicao(), GISPosicao(1000, 1950)); // foi para o oeste
    EXPECT_DOUBLE_EQ(norte->Orientacao(), orientacaoNorte);

    c.AtribuirPosicao(GISPosicao(-500, 2500));
    EXPECT_EQ(leste->Posicao(), GISPosicao(-400, 2500));
    EXPECT_EQ(norte->Posicao(), GISPosicao(-500, 2450));
    EXPECT_EQ(c.Area(), Uniao(leste->Area(), norte->Area()));
    EXPECT_EQ(TGISComposto().Area(), GISRet(0, 0, 0, 0));
    TCanvasGravador canvas; // desenha os membros (a imagem sem figura não desenha nada)
    c.Desenhar(canvas, TProjecaoUmPorUm(), false);
    EXPECT_EQ(canvas.Nomes(), QStringList{"Polygon"});
}

TEST(TGISComposto, ConfiguracaoPadraoParaNaPrimeiraRecusa)
{
    TProjecaoUmPorUm projecao;
    TRoteiro roteiro{}; // tudo cancela
    TGISComposto c;
    EXPECT_TRUE(c.ConfiguracaoPadrao(projecao, TPoint(510, 490))); // vazio aceita
    auto *primeiro = new TGISAreaCircular;
    auto *imagem = new TGISImagem; // o diálogo cancelado recusa
    auto *terceiro = new TGISAreaCircular;
    c.Objetos().Add(primeiro);
    c.Objetos().Add(imagem);
    c.Objetos().Add(terceiro);
    EXPECT_FALSE(c.ConfiguracaoPadrao(projecao, TPoint(510, 490)));
    EXPECT_EQ(primeiro->Posicao(), GISPosicao(10, 10));
    EXPECT_EQ(imagem->AreaImagem(), GISRet(-10, -10, 30, 30)); // o quadrado de 40 pixels fica
    EXPECT_EQ(terceiro->RaioMaior(), 0.0); // nunca chamado
}

TEST(Elementos, DescritoresCriamCadaClasseConcreta)
{
    for (const TClasseObjeto *classe :
         {&TGISPonto::Descritor, &TGISTexto::Descritor, &TGISLinha::Descritor, &TGISArea::Descritor,
          &TGISCorredor::Descritor, &TGISAreaCircular::Descritor, &TGISElipse::Descritor, &TGISImagem::Descritor,
          &TGISComposto::Descritor, &TGISTrajeto::Descritor, &TGISMeioAcompanhado::Descritor, &TGISDerrota::Descritor})
        EXPECT_EQ(classe->Criar()->Classe(), *classe) << classe->Nome().toStdString();
    EXPECT_EQ(TGISPonto::Descritor.Nome(), "TGISPonto");
    EXPECT_FALSE(TGISArea::Descritor == TGISLinha::Descritor);
}
