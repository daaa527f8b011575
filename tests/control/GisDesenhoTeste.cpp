// Desenho e seleção do controle: limites de zoom das camadas, controle desabilitado, recorte pela
// tela, rótulos (texto, lugar, ordem, por cima dos objetos da camada), seleção com veto e seta.

#include "AuxiliaresControle.h"

#include <tavru/companions/components/TSeta.h>
#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/components/TVisualizadorInformacoes.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

const TClasseObjeto TObjetoRet::Descritor = TClasseObjeto::De<TObjetoRet>("TObjetoRet");

namespace {

/// Controle 400 x 200 de fundo branco: com zoom 1 cada pixel tem 0,9 grau (3240 segundos de arco)
/// e a posição (0, 0) cai no pixel (200, 100).
class GisDesenho : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 200);
        gis.AtribuirColor(clWhite);
        gis.RegistrarMouseEvent(&ferramenta);
        gis.Rotulos().Add("Nome");
    }
    TObjetoRet *Objeto(TGISCamada &c, const TGISRet &area, const QString &nome, bool rotulo = false)
    {
        return Incluir(c, area, nome, rotulo, &diario);
    }
    QRgb Pixel(int x, int y) const { return gis.Buffer().pixel(x, y) & 0xFFFFFF; }

    TGisContador gis;
    TFerramentaGravadora ferramenta;
    QStringList diario;
};

} // namespace

TEST_F(GisDesenho, LimitesDeZoomInclusivosERecorte)
{
    for (auto [nome, zMin, zMax] : {std::tuple{"abaixo", 1.0 + 1e-9, 10.0}, {"minimo", 1.0, 10.0},
                                    {"maximo", 0.5, 1.0}, {"acima", 0.1, 1.0 - 1e-9}}) {
        TGISCamada &c = NovaCamada(gis, nome);
        c.AtribuirZoomMinimo(zMin);
        c.AtribuirZoomMaximo(zMax);
        Objeto(c, Graus(-9, -9, 9, 9), nome);
    }
    gis.Desenhar();
    EXPECT_EQ(diario, QStringList({"minimo", "maximo"})); // do índice 0 para cima

    TGISCamada &c = NovaCamada(gis, "recorte");
    c.Objetos().Add(nullptr);
    Objeto(c, Graus(-9, 175, 9, 179), "toca a borda"); // x = 394..399
    Objeto(c, Graus(100, 0, 110, 10), "acima da tela");
    Objeto(c, Graus(-9, -200, 9, -190), "à esquerda");
    diario.clear();
    gis.Desenhar();
    EXPECT_EQ(diario, QStringList({"minimo", "maximo", "toca a borda"}));
    c.AtribuirVisivel(false);
    diario.clear();
    gis.Desenhar();
    EXPECT_EQ(diario, QStringList({"minimo", "maximo"}));
}

TEST_F(GisDesenho, FundoBufferEControleDesabilitado)
{
    gis.AtribuirColor(RGB(10, 20, 30));
    Objeto(NovaCamada(gis, "c"), Graus(-9, -9, 9, 9), "q")->FCor = clRed;
    int pinturas = 0;
    bool telaIgualAoBuffer = false;
    gis.OnPaint = [&](QObject *sender) {
        EXPECT_EQ(sender, &gis);
        ++pinturas;
        telaIgualAoBuffer = gis.ImagemTela() == gis.Buffer();
    };
    gis.Desenhar();
    ASSERT_EQ(gis.Buffer().size(), QSize(400, 200));
    EXPECT_EQ(Pixel(5, 5), 0x0A141Eu);
    EXPECT_EQ(Pixel(200, 100), 0xFF0000u);
    EXPECT_EQ(gis.Projecao()->AreaTela(), TRect(0, 0, 400, 200));
    EXPECT_TRUE(telaIgualAoBuffer);
    EXPECT_EQ(ferramenta.Chamadas, QStringList({"paint"}));

    // Desabilitado: nada muda e nada é avisado.
    const QImage antes = gis.Buffer().copy();
    gis.setEnabled(false);
    gis.AtribuirColor(clBlack);
    diario.clear();
    gis.Desenhar();
    EXPECT_TRUE(diario.isEmpty());
    EXPECT_EQ(pinturas, 1);
    EXPECT_EQ(ferramenta.Chamadas.size(), 1);
    EXPECT_EQ(gis.Buffer(), antes);

    // Redimensionar (com o controle à mostra) ajusta a tela da projeção e redesenha.
    gis.setEnabled(true);
    gis.show();
    gis.resize(300, 120);
    EXPECT_EQ(gis.Buffer().size(), QSize(300, 120));
    EXPECT_EQ(gis.Projecao()->AreaTela(), TRect(0, 0, 300, 120));
}

TEST_F(GisDesenho, RotuloCentradoComOTopoNoCentroEPorCimaDosObjetos)
{
    gis.FonteRotulo().Color = clRed;
    gis.FonteRotulo().SetHeight(-14);
    TGISCamada &c = NovaCamada(gis, "c");
    Objeto(c, Graus(-18, -36, 18, 36), "WWWW", true); // pixels 160..240 x 80..120
    Objeto(c, Graus(-27, -54, 27, 54), "cobre")->FCor = clBlue;
    QImage imagem(400, 200, QImage::Format_ARGB32_Premultiplied);
    imagem.fill(Qt::white);
    TCanvasGravador canvas(&imagem);
    gis.Desenhar(); // a projeção ganha a tela do controle
    gis.DesenharCamada(c, canvas, *gis.Projecao());
    const int largura = canvas.TextWidth("WWWW");
    EXPECT_EQ(canvas.Textos, QStringList({QStringLiteral("WWWW@%1,100").arg(200 - largura / 2)}));
    canvas.AtribuirImagem(nullptr);

    // Escrito depois da camada toda, o texto aparece sobre o azul do objeto que cobre o rotulado.
    int vermelhos = 0;
    for (int y = 100; y < 114; ++y)
        for (int x = 200 - largura / 2; x < 200 + largura / 2; ++x)
            vermelhos += qRed(imagem.pixel(x, y)) > 200 && qBlue(imagem.pixel(x, y)) < 80;
    EXPECT_GT(vermelhos, 20);
    EXPECT_EQ(imagem.pixel(200, 95) & 0xFFFFFF, 0x0000FFu);
}

TEST_F(GisDesenho, RotulosNaOrdemDosObjetosEPontoPeloSeuDesenho)
{
    TGISCamada &c = NovaCamada(gis, "c");
    Objeto(c, Graus(100, 0, 101, 1), "fora", true); // recortado
    Objeto(c, Graus(0, 0, 9, 9), "B", true);
    Objeto(c, Graus(0, 0, 9, 9), "sem rótulo");
    Objeto(c, Graus(-9, -9, 0, 0), "", true)->Informacoes().Limpar(); // sem campos
    auto *ponto = new TGISPonto;
    ponto->AtribuirPosicao(GISPosicao(0, 3240 * 20)); // pixel (220, 100)
    ponto->TamanhoNaTela(TPoint(21, 11));
    ponto->Informacoes().AtribuirCampo("Nome", "Porto");
    ponto->AtribuirRotuloVisivel(true);
    c.Objetos().Add(ponto);
    Objeto(c, Graus(-9, -9, 0, 0), "D", true);

    QImage imagem(400, 200, QImage::Format_ARGB32_Premultiplied);
    TCanvasGravador canvas(&imagem);
    gis.Desenhar();
    diario.clear();
    gis.DesenharCamada(c, canvas, *gis.Projecao());
    EXPECT_EQ(diario, QStringList({"B", "sem rótulo", "", "D"}));
    ASSERT_EQ(canvas.Textos.size(), 3);
    EXPECT_TRUE(canvas.Textos[0].startsWith("B@"));
    EXPECT_EQ(ponto->ObterAreaDesenho(*gis.Projecao()), TRect(210, 95, 231, 106));
    EXPECT_EQ(canvas.Textos[1], QStringLiteral("Porto@%1,100").arg(220 - canvas.TextWidth("Porto") / 2));
    EXPECT_TRUE(canvas.Textos[2].startsWith("D@"));
}

TEST_F(GisDesenho, TextoDosRotulosENomesDeCampos)
{
    gis.Rotulos().AtribuirTextos({"Nome", "Tipo", "Ausente"});
    TObjetoRet o;
    o.Informacoes().AtribuirCampo("Tipo", "Rio");
    o.Informacoes().AtribuirCampo("Nome", "  Rio Azul ");
    EXPECT_EQ(gis.ObterRotulo(o), QStringLiteral("Rio Azul, Rio"));
    o.Informacoes().AtribuirCampo("Tipo", "Azul"); // já está em "Rio Azul"
    EXPECT_EQ(gis.ObterRotulo(o), QStringLiteral("Rio Azul"));
    o.Informacoes().AtribuirCampo("Nome", " ");
    EXPECT_EQ(gis.ObterRotulo(o), QStringLiteral("Azul"));

    TGISCamada &a = NovaCamada(gis, "a");
    Objeto(a, {}, "")->Informacoes().AtribuirLinhas({"NOME=x", "tipo=y"});
    Objeto(a, {}, "")->Informacoes().AtribuirLinhas({"nome=z", "Área=w"});
    Objeto(NovaCamada(gis, "b"), {}, "")->Informacoes().AtribuirLinhas({"Codigo=1"});
    NovaCamada(gis, "vazia");
    TStringList nomes;
    nomes.Add("lixo");
    gis.ObterRotulos(nomes);
    EXPECT_EQ(nomes.Textos(), QStringList({"Nome", "Tipo", "Área", "Codigo"}));

    // Atualizar: "Nome" e o primeiro campo do primeiro objeto de cada camada, sem repetir nem tirar.
    gis.Rotulos().AtribuirTextos({"Antigo"});
    gis.AtualizarRotulos();
    gis.AtualizarRotulos();
    EXPECT_EQ(gis.Rotulos().Textos(), QStringList({"Antigo", "Nome", "NOME", "Codigo"}));
    EXPECT_EQ(gis.Desenhos, 2);
}

TEST_F(GisDesenho, SelecaoComVetoSetaEVisualizador)
{
    TGISCamada &c = NovaCamada(gis, "c");
    TObjetoRet *a = Objeto(c, Graus(-9, -9, 9, 9), "A");
    TObjetoRet *b = Objeto(c, Graus(-9, -9, 9, 9), "B");
    a->AtribuirPosicao(GISPosicao(0, 3240 * 50)); // a seta aponta o pixel (250, 100)
    QList<TGISObjeto *> pedidos;
    bool aceitar = true;
    gis.OnMudaObjetoSelecionado = [&](QObject *sender, TGISObjeto *novo, bool &podeMudar) {
        EXPECT_EQ(sender, &gis);
        EXPECT_TRUE(podeMudar);
        pedidos.append(novo);
        podeMudar = aceitar;
    };
    TVisualizadorInformacoes visualizador;
    gis.AtribuirVisualizadorInformacoes(&visualizador);
    gis.Seta().Brush().Color = RGB(0, 200, 0);

    gis.SelecionarObjeto(a);
    EXPECT_EQ(gis.ObjetoSelecionado(), a);
    EXPECT_EQ(diario.mid(diario.size() - 3), QStringList({"A", "B", "sel:A"})); // por cima
    EXPECT_EQ(Pixel(252, 99), 0x00C800u);                                        // a seta, por último
    EXPECT_EQ(visualizador.Informacoes(), QStringList({"Nome=A"}));
    EXPECT_EQ(ferramenta.Selecionados, QList<TGISObjeto *>({a}));
    gis.SelecionarObjeto(a); // o mesmo: nada
    EXPECT_EQ(pedidos.size(), 1);
    EXPECT_EQ(gis.Desenhos, 1);

    // Recusado: continua o antigo, mas redesenha, avisa com o recusado e a seta o segue.
    aceitar = false;
    gis.SelecionarObjeto(b);
    EXPECT_EQ(gis.ObjetoSelecionado(), a);
    EXPECT_EQ(gis.Desenhos, 2);
    EXPECT_EQ(ferramenta.Selecionados.last(), b);
    EXPECT_TRUE(gis.Seta().Mostrar());
    EXPECT_EQ(visualizador.Informacoes(), QStringList({"Nome=A"}));
    gis.SelecionarObjeto(nullptr);
    EXPECT_EQ(gis.ObjetoSelecionado(), a);
    EXPECT_FALSE(gis.Seta().Mostrar());
    EXPECT_NE(Pixel(252, 99), 0x00C800u);

    aceitar = true;
    gis.SelecionarObjeto(nullptr);
    EXPECT_EQ(visualizador.ObterTotal(), 0);
    gis.SelecionarObjeto(nullptr); // nenhum com nenhum: nada
    EXPECT_EQ(pedidos, QList<TGISObjeto *>({a, b, nullptr, nullptr}));

    // Limpar esquece sem perguntar; Zerado atualiza os rótulos e seleciona nenhum.
    gis.SelecionarObjeto(b);
    gis.Limpar();
    EXPECT_EQ(gis.ObjetoSelecionado(), nullptr);
    EXPECT_EQ(gis.Camadas().Count(), 0);
    gis.Zerado();
    EXPECT_EQ(pedidos.size(), 5);
}

TEST_F(GisDesenho, SelecaoLiberadaEEsquecidaSemPerguntarExtraidaFica)
{
    TVisualizadorInformacoes visualizador;
    gis.AtribuirVisualizadorInformacoes(&visualizador);
    int pedidos = 0;
    gis.OnMudaObjetoSelecionado = [&](QObject *, TGISObjeto *, bool &) { ++pedidos; };
    TGISCamada &c = NovaCamada(gis, "c");
    // Cada forma de liberar pela lista, pela camada ou pelo controle.
    const std::vector<std::function<void(TGISObjeto *)>> liberar = {
        [&](TGISObjeto *o) { c.Objetos().Remove(o); },
        [&](TGISObjeto *o) { c.Objetos().Delete(c.Objetos().IndexOf(o)); },
        [&](TGISObjeto *) { c.Objetos().Clear(); },
        [&](TGISObjeto *o) { c.Objetos().AtribuirGISObjeto(c.Objetos().IndexOf(o), nullptr); },
        [&](TGISObjeto *) { gis.Camadas().Remove(&c); },
    };
    for (size_t i = 0; i < liberar.size(); ++i) { // a camada `c` só sai na última
        TObjetoRet *a = Objeto(c, Graus(-9, -9, 9, 9), "A");
        gis.SelecionarObjeto(a);
        ASSERT_TRUE(gis.Seta().Mostrar());
        ferramenta.Selecionados.clear();
        const int antes = pedidos;
        const int desenhos = gis.Desenhos;
        liberar[i](a);
        EXPECT_EQ(gis.ObjetoSelecionado(), nullptr) << i;
        EXPECT_FALSE(gis.Seta().Mostrar()) << i;
        EXPECT_EQ(visualizador.ObterTotal(), 0) << i;
        EXPECT_EQ(ferramenta.Selecionados, QList<TGISObjeto *>({nullptr})) << i;
        EXPECT_EQ(pedidos, antes) << i;          // sem perguntar
        EXPECT_EQ(gis.Desenhos, desenhos) << i;  // sem redesenhar...
        diario.clear();
        gis.Desenhar();                          // ...e o próximo desenho não toca o liberado
        EXPECT_FALSE(diario.join(',').contains("sel:")) << i;
    }

    // Extrair (e mover) não muda a seleção; o objeto extraído pode ser liberado depois.
    TGISCamada &d = NovaCamada(gis, "d");
    TObjetoRet *b = Objeto(d, Graus(-9, -9, 9, 9), "B");
    Objeto(d, Graus(-9, -9, 9, 9), "C");
    gis.SelecionarObjeto(b);
    d.Objetos().Exchange(0, 1);
    std::unique_ptr<TGISObjeto> extraido(d.Objetos().Extract(b));
    EXPECT_EQ(gis.ObjetoSelecionado(), b);
    extraido.reset();
    EXPECT_EQ(gis.ObjetoSelecionado(), nullptr);

    // Um objeto que não é do controle e morre depois dele não chama o controle morto.
    TObjetoRet solto;
    {
        TGis outro;
        outro.SelecionarObjeto(&solto);
    }
}

TEST_F(GisDesenho, TabelaDeCoresEComponentesDestruidos)
{
    auto *tabela = new TTabelaDeCores;
    tabela->Adicionar(clRed);
    gis.AtribuirTabelaDeCores(tabela);
    auto *visualizador = new TVisualizadorInformacoes;
    gis.AtribuirVisualizadorInformacoes(visualizador);
    TGISCamada &c = NovaCamada(gis, "c");
    std::vector<TObjetoRet *> objetos;
    for (int indice : {-1, 0, 1}) {
        objetos.push_back(Objeto(c, Graus(-9, -9, 9, 9), "x"));
        objetos.back()->AtribuirIndiceCor(indice);
    }
    gis.Desenhar();
    EXPECT_EQ(objetos[0]->FCor, clNone);
    EXPECT_EQ(objetos[1]->FCor, clRed);
    EXPECT_EQ(objetos[2]->FCor, clNone); // fora da tabela: nem a cor padrão
    delete tabela;
    delete visualizador;
    EXPECT_EQ(gis.TabelaDeCores(), nullptr);
    EXPECT_EQ(gis.VisualizadorInformacoes(), nullptr);
    gis.SelecionarObjeto(objetos[0]);
}
