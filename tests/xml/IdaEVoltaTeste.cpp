// Ida e volta de cada tipo de elemento por um documento: o que sobrevive, e a figura de uma imagem
// e os códigos de cor do modo da tabela.

#include "AjustesXML.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>

#include <QImage>

using namespace tavru;

namespace {

class IdaEVolta : public teste::DocumentoXML
{
protected:
    void Volta(TGISObjetoList &ida, TGISObjetoList &volta)
    {
        Gravar(ida, Caminho("ida.xml"));
        Ler(volta, Caminho("ida.xml"));
        ASSERT_EQ(volta.Count(), ida.Count());
    }
};

template <typename T>
T *Novo(TGISObjetoList &lista)
{
    T *o = new T;
    o->Informacoes().AtribuirCampo("Nome", "São Luís");
    o->Informacoes().AtribuirCampo("Observação", "  com espaços  ");
    lista.Add(o);
    return o;
}

void DuasPartes(TGISLinha &linha)
{
    linha.Pontos().Add(new TGISPosicaoList);
    linha.InserirPonto(0, 0, GISPosicao(-84600, -166500));
    linha.InserirPonto(0, 1, GISPosicao(-84000, -166000));
    linha.Pontos().Add(new TGISPosicaoList);
    linha.InserirPonto(1, 0, GISPosicao(3600, 7200));
    linha.CalcularLimites();
}

} // namespace

TEST_F(IdaEVolta, TodosOsTiposDeElemento)
{
    TGISObjetoList ida;
    auto *ponto = Novo<TGISPonto>(ida);
    ponto->AtribuirPosicao(GISPosicao(-84600, -166500));
    ponto->AtribuirSimbolo(4);
    ponto->AtribuirTamanhoNoMundo(GISPosicao(3, 5));
    ponto->Caneta().Color = clRed;
    auto *texto = Novo<TGISTexto>(ida);
    texto->AtribuirPosicao(GISPosicao(100, 200));
    texto->AtribuirTexto("Baía de Todos os Santos");
    texto->AtribuirAlinhamentoHorizontal(0);
    texto->Fonte().SetSize(13);
    auto *linha = Novo<TGISLinha>(ida);
    DuasPartes(*linha);
    linha->Caneta() = TPen{0x102030, 1, psDashDot};
    auto *area = Novo<TGISArea>(ida);
    DuasPartes(*area);
    area->Pincel() = TBrush{0x405060, bsFDiagonal};
    auto *corredor = Novo<TGISCorredor>(ida);
    DuasPartes(*corredor);
    corredor->AtribuirEsq(2.5);
    auto *trajeto = Novo<TGISTrajeto>(ida);
    for (int i = 0; i < 3; ++i)
        trajeto->InserirPosicao(i, GISPosicao(i * 60, -i * 60));
    trajeto->ObterPonto(1)->Informacoes().AtribuirCampo("Identificador", "P2");
    trajeto->CalcularLimites();
    auto *elipse = Novo<TGISElipse>(ida);
    elipse->AtribuirPosicao(GISPosicao(-13800, -139000));
    elipse->AtribuirRaioMaior(8);
    elipse->AtribuirRaioMenorY(1.25);
    elipse->AtribuirAzimuteInicial(M_PI / 3);
    elipse->Pincel().Style = bsDiagCross;
    auto *imagem = Novo<TGISImagem>(ida);
    imagem->AtribuirArea(GISRet(-10, -20, 30, 40));
    imagem->AtribuirCor(clLime);
    auto *composto = Novo<TGISComposto>(ida);
    composto->Objetos().Add(new TGISPonto);
    composto->Objetos().Add(new TGISAreaCircular);

    TGISObjetoList volta;
    Volta(ida, volta);
    for (int i = 0; i < volta.Count() - 1; ++i) // o composto não grava informações
        EXPECT_EQ(volta[i]->Informacoes(), ida[i]->Informacoes()) << i;

    // Cada um volta na sua classe (dynamic_cast de referência: outra classe levanta e falha o teste).
    // O que o leitor deixa de ler (tamanhos de tela do ponto, posição do texto, preenchimento do
    // corredor) está nos testes de leitura; a cor da caneta do ponto volta na cor da fonte.
    const auto &p = dynamic_cast<TGISPonto &>(*volta[0]);
    EXPECT_EQ(p.Posicao(), ponto->Posicao());
    EXPECT_EQ(p.Simbolo(), 4);
    EXPECT_EQ(p.TamanhoNoMundo(), GISPosicao(3, 5));
    EXPECT_EQ(p.ObterCor(), clRed);
    const auto &t = dynamic_cast<TGISTexto &>(*volta[1]);
    EXPECT_EQ(t.Texto(), texto->Texto());
    EXPECT_EQ(t.AlinhamentoHorizontal(), 0);
    EXPECT_EQ(t.Fonte().Size(), 13);
    const auto &l = dynamic_cast<TGISLinha &>(*volta[2]);
    ASSERT_EQ(l.Pontos().Count(), 2);
    EXPECT_EQ(*l.Pontos()[0], *linha->Pontos()[0]);
    EXPECT_EQ(*l.Pontos()[1], *linha->Pontos()[1]);
    EXPECT_EQ(l.Caneta(), linha->Caneta());
    EXPECT_EQ(l.Limites(), linha->Limites());
    EXPECT_EQ(dynamic_cast<TGISArea &>(*volta[3]).Pincel(), area->Pincel());
    const auto &c = dynamic_cast<TGISCorredor &>(*volta[4]);
    EXPECT_DOUBLE_EQ(c.Esq(), 2.5);
    EXPECT_EQ(c.Limites(), corredor->Limites());
    const auto &tr = dynamic_cast<TGISTrajeto &>(*volta[5]);
    ASSERT_EQ(tr.Pontos().Count(), 3);
    EXPECT_EQ(tr.ObterGISPosicao(2), trajeto->ObterGISPosicao(2));
    EXPECT_TRUE(tr.ObterPonto(1)->Fixo());
    EXPECT_EQ(tr.Limites(), trajeto->Limites());
    const auto &e = dynamic_cast<TGISElipse &>(*volta[6]);
    EXPECT_EQ(e.Posicao(), elipse->Posicao());
    EXPECT_NEAR(e.RaioMaior(), 8, 1e-6);
    EXPECT_NEAR(e.RaioMenorY(), 1.25, 1e-6);
    EXPECT_NEAR(e.AzimuteInicial(), M_PI / 3, 1e-6);
    EXPECT_EQ(e.Pincel(), elipse->Pincel());
    const auto &im = dynamic_cast<TGISImagem &>(*volta[7]);
    EXPECT_EQ(im.AreaImagem(), imagem->AreaImagem());
    EXPECT_EQ(im.ObterCor(), clLime);
    const auto &co = dynamic_cast<TGISComposto &>(*volta[8]);
    ASSERT_EQ(co.Objetos().Count(), 2);
    EXPECT_TRUE(dynamic_cast<TGISAreaCircular *>(co.Objetos()[1]));
    EXPECT_TRUE(Valida(volta.Limites()));
}

TEST_F(IdaEVolta, ImagemComArquivoEModoDaTabela)
{
    const QString figura = Caminho("figura.png");
    QImage q(4, 3, QImage::Format_RGB32);
    q.fill(Qt::red);
    ASSERT_TRUE(q.save(figura));
    USAR_TABELA_DE_SIMBOLOS = true;
    TGISObjetoList ida;
    auto *imagem = new TGISImagem;
    imagem->LerArquivo(figura);
    ida.Add(imagem);
    auto *area = new TGISArea;
    area->AtribuirIndiceCor(2);
    area->AtribuirIndicePincel(5);
    ida.Add(area);
    TGISObjetoList volta;
    Volta(ida, volta);
    EXPECT_EQ(static_cast<TGISImagem *>(volta[0])->Imagem().size(), QSize(4, 3));
    // Um nome relativo se acha ao lado do documento, qualquer que seja a pasta de trabalho.
    TGISObjetoList relativa;
    Ler(relativa, Documento("<Imagem Arquivo=\"figura.png\"/>"));
    EXPECT_EQ(static_cast<TGISImagem *>(relativa[0])->Imagem().size(), QSize(4, 3));
    EXPECT_EQ(volta[1]->IndiceCor(), 2);
    EXPECT_EQ(static_cast<TGISArea *>(volta[1])->IndicePincel(), 5);
}
