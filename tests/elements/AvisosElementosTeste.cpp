// Avisos dos elementos: um por operação de cima (mesmo quando ela chama outras que avisam),
// mudanças por referência só com Mudou, membro de composto chega à camada, e o que o desenho
// renova (a área de desenho do ponto, cores já certas) não avisa.

#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/TCanvas.h>

#include <gtest/gtest.h>

using namespace tavru;

namespace {

/// Conta os avisos por tipo e guarda o último objeto avisado.
struct TContador : IGISObservador
{
    int Alterados = 0;
    int Outros = 0;
    TGISObjeto *Ultimo = nullptr;
    void GISMudou(const TGISAviso &a) override
    {
        (a.Mudanca == gmAlterado ? Alterados : Outros)++;
        Ultimo = a.Objeto;
    }
    int Tirar()
    {
        const int n = Alterados + Outros;
        Alterados = Outros = 0;
        return n;
    }
};

/// Uma camada com um observador na lista de objetos.
struct Camada : ::testing::Test
{
    TGISCamada camada{QStringLiteral("C")};
    TContador avisos;
    void SetUp() override { camada.Objetos().AdicionarObservador(&avisos); }
    void TearDown() override { camada.Objetos().RemoverObservador(&avisos); }
    template <typename T>
    T *Incluir(T *objeto)
    {
        camada.Objetos().Add(objeto);
        avisos.Tirar();
        return objeto;
    }
};

} // namespace

TEST_F(Camada, LinhaUmAvisoPorOperacaoEReferenciaSoComMudou)
{
    auto *linha = Incluir(new TGISLinha);
    linha->Pontos().Add(new TGISPosicaoList); // por referência: calado
    EXPECT_EQ(avisos.Tirar(), 0);
    linha->InserirPonto(0, 0, GISPosicao(10, 20));
    linha->InserirPonto(0, 1, GISPosicao(30, 40));
    EXPECT_EQ(avisos.Tirar(), 2);
    linha->AtribuirPosicao(GISPosicao(5, 5)); // também recalcula os limites: um aviso só
    EXPECT_EQ(avisos.Alterados, 1);
    EXPECT_EQ(avisos.Ultimo, linha);
    avisos.Tirar();
    linha->AtribuirPonto(0, 1, GISPosicao(50, 60));
    linha->CalcularLimites();
    linha->AjustarCentro(); // muda os pontos e a posição: um aviso
    EXPECT_EQ(avisos.Tirar(), 3);
    linha->Pontos().Items(0)->AtribuirPosicao(0, GISPosicao(1, 1));
    EXPECT_EQ(avisos.Tirar(), 0);
    linha->Mudou();
    EXPECT_EQ(avisos.Tirar(), 1);

    auto *trajeto = Incluir(new TGISTrajeto);
    trajeto->InserirPosicao(0, GISPosicao(1, 2)); // insere e posiciona: um aviso
    EXPECT_EQ(avisos.Tirar(), 1);
    trajeto->AtribuirPosicao(GISPosicao(3, 4));
    EXPECT_EQ(avisos.Tirar(), 1);
}

TEST_F(Camada, SettersDosElementosAvisam)
{
    auto *texto = Incluir(new TGISTexto);
    texto->AtribuirTexto(QStringLiteral("Rio"));
    texto->AtribuirAlinhamentoVertical(1);
    texto->AtribuirFonte(TFont());
    texto->AtribuirCor(clRed);
    EXPECT_EQ(avisos.Tirar(), 4);
    texto->Fonte().Color = clBlue; // por referência
    EXPECT_EQ(avisos.Tirar(), 0);

    auto *circulo = Incluir(new TGISAreaCircular);
    circulo->AtribuirRaioMaior(3.0);
    circulo->AtribuirAzimuteFinal(1.0);
    circulo->AtribuirPincel(TBrush());
    EXPECT_EQ(avisos.Tirar(), 3);

    auto *imagem = Incluir(new TGISImagem);
    imagem->AtribuirArea(GISRet(0, 0, 100, 100)); // área e posição: um aviso
    EXPECT_EQ(avisos.Tirar(), 1);
    imagem->AtribuirPosicao(GISPosicao(10, 10));
    EXPECT_EQ(avisos.Tirar(), 1);
}

TEST_F(Camada, MembroDoCompostoChegaACamadaEOCompostoAvisaUmaVez)
{
    auto *composto = Incluir(new TGISComposto);
    auto *a = new TGISPonto;
    auto *b = new TGISPonto;
    composto->Objetos().Add(a);
    composto->Objetos().Add(b);
    EXPECT_EQ(avisos.Alterados, 2); // cada membro que entra muda o composto
    EXPECT_EQ(a->Lista(), &composto->Objetos());
    avisos.Tirar();

    const std::uint64_t antes = camada.ContadorDeMudancas();
    b->AtribuirForma(gisCirculo);
    EXPECT_EQ(avisos.Alterados, 1);
    EXPECT_EQ(avisos.Ultimo, composto);
    EXPECT_EQ(camada.ContadorDeMudancas(), antes + 1);
    avisos.Tirar();

    composto->AtribuirPosicao(GISPosicao(100, 100)); // move os dois membros: um aviso
    composto->AtribuirOrientacao(1.0);
    composto->AtribuirCor(clBlue);
    EXPECT_EQ(avisos.Alterados, 3);
    avisos.Tirar();
    composto->Objetos().Delete(0);
    EXPECT_EQ(avisos.Alterados, 1);
}

TEST_F(Camada, DesenhoETabelaDeCoresSoAvisamQuandoMudam)
{
    auto *ponto = Incluir(new TGISPonto);
    ponto->AtribuirPosicao(GISPosicao(3600, 3600));
    avisos.Tirar();
    TGISProjecaoMercator projecao;
    QImage imagem(64, 48, QImage::Format_ARGB32_Premultiplied);
    TCanvas canvas(&imagem);
    ponto->Desenhar(canvas, projecao, false); // renova a área de desenho: calado
    ponto->Pertence(projecao, TPoint(1, 1));
    EXPECT_EQ(avisos.Tirar(), 0);

    TTabelaDeCores tabela;
    tabela.Adicionar(clRed);
    tabela.Adicionar(clGreen);
    ponto->AtribuirIndiceCor(1);
    avisos.Tirar();
    ponto->AtualizarCores(tabela);
    EXPECT_EQ(ponto->ObterCor(), clGreen);
    EXPECT_EQ(avisos.Tirar(), 1);
    ponto->AtualizarCores(tabela); // já está certa
    EXPECT_EQ(avisos.Tirar(), 0);

    auto *area = Incluir(new TGISArea);
    area->AtribuirIndiceCor(0);
    area->AtribuirIndicePincel(1);
    area->Pincel().Style = bsCross;
    avisos.Tirar();
    area->AtualizarCores(tabela);
    area->AtualizarCores(tabela);
    EXPECT_EQ(avisos.Tirar(), 1);
    EXPECT_EQ(area->Caneta().Color, clRed);
    EXPECT_EQ(area->Pincel(), (TBrush{clGreen, bsCross}));
}
