// O índice espacial de cada camada só escolhe candidatos: em mapas, vistas e edições sorteados, o
// quadro (pixels, e com eles a ordem de desenho), os rótulos escritos e os objetos atingidos por
// cliques são os mesmos com o índice e andando a lista inteira.

#include "AuxiliaresControle.h"

#include <tavru/core/TGISIndiceEspacial.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TStringList.h>

#include <gtest/gtest.h>


using namespace tavru;
using namespace tavru::teste;

namespace {

/// Um objeto sorteado perto de (lat, lon) (segundos de arco), de cor própria.
TGISObjeto *NovoObjeto(TSorteio &s, int n)
{
    const std::int32_t lat = Entre(s, -20 * 3600, 20 * 3600);
    const std::int32_t lon = Entre(s, -30 * 3600, 30 * 3600);
    TGISObjeto *objeto = nullptr;
    switch (Entre(s, 0, 5)) {
    case 0:
    case 1: {
        auto *ponto = new TGISPonto;
        ponto->AtribuirForma(static_cast<TForma>(Entre(s, 0, 3)));
        // Tamanho fixo ou entre um mínimo e um máximo (que pode ser grande); às vezes um mínimo
        // acima do máximo.
        if (Entre(s, 0, 1) == 0)
            ponto->TamanhoNaTela(TPoint(Entre(s, 3, 30), Entre(s, 3, 30)));
        else {
            ponto->AtribuirTamanhoMinimo(TPoint(Entre(s, 2, 40), Entre(s, 2, 40)));
            ponto->AtribuirTamanhoMaximo(TPoint(Entre(s, 10, 160), Entre(s, 10, 160)));
            ponto->AtribuirTamanhoNoMundo(GISPosicao(Entre(s, 100, 40000), Entre(s, 100, 90000)));
        }
        objeto = ponto;
        break;
    }
    case 2:
    case 3: {
        TGISLinha *linha = Entre(s, 0, 1) ? new TGISLinha : new TGISArea;
        linha->Pontos().Add(new TGISPosicaoList);
        const int passo = Entre(s, 200, 9000);
        for (int k = 0; k < Entre(s, 2, 12); ++k)
            linha->InserirPonto(0, k, GISPosicao(lat + Entre(s, -passo, passo), lon + k * Entre(s, -passo, passo)));
        objeto = linha;
        break;
    }
    case 4: {
        auto *texto = new TGISTexto;
        texto->AtribuirTexto(QStringLiteral("T%1").arg(n));
        objeto = texto;
        break;
    }
    default: {
        // Um composto com um ponto: a área depende do último desenho do ponto.
        auto *composto = new TGISComposto;
        auto *ponto = new TGISPonto;
        ponto->TamanhoNaTela(TPoint(12, 12));
        ponto->AtribuirPosicao(GISPosicao(lat, lon));
        composto->Objetos().Add(ponto);
        auto *linha = new TGISLinha;
        linha->Pontos().Add(new TGISPosicaoList);
        linha->InserirPonto(0, 0, GISPosicao(lat, lon));
        linha->InserirPonto(0, 1, GISPosicao(lat + 3000, lon + 5000));
        composto->Objetos().Add(linha);
        objeto = composto;
    }
    }
    if (!dynamic_cast<TGISLinha *>(objeto) && !dynamic_cast<TGISComposto *>(objeto))
        objeto->AtribuirPosicao(GISPosicao(lat, lon));
    Sortear(s, objeto, n, 3);
    return objeto;
}

/// Uma edição sorteada pela API: mover, trocar de lugar, tirar, incluir ou mudar o tamanho de um
/// ponto.
void Editar(TSorteio &s, TGISCamada &camada, int &n)
{
    TGISObjetoList &objetos = camada.Objetos();
    const int i = Entre(s, 0, objetos.Count() - 1);
    switch (Entre(s, 0, 4)) {
    case 0: {
        TGISObjeto *o = objetos.Items(i);
        const TGISPosicao p = o->Posicao();
        o->AtribuirPosicao(GISPosicao(p.Latitude + Entre(s, -20000, 20000), p.Longitude + Entre(s, -20000, 20000)));
        break;
    }
    case 1: objetos.Exchange(i, Entre(s, 0, objetos.Count() - 1)); break;
    case 2: objetos.Delete(i); break;
    case 3: objetos.Insert(i, NovoObjeto(s, n++)); break;
    default:
        if (auto *ponto = dynamic_cast<TGISPonto *>(objetos.Items(i)))
            ponto->AtribuirTamanhoMaximo(TPoint(Entre(s, 5, 200), Entre(s, 5, 200)));
    }
}

struct TResultado
{
    QImage Quadro;
    QStringList Rotulos;
    std::vector<std::vector<TGISObjeto *>> Atingidos;
};

TResultado Observar(TGis &gis, bool indice)
{
    gis.AtribuirUsarIndice(indice);
    TResultado r;
    gis.Desenhar();
    r.Quadro = gis.Buffer().copy();
    r.Rotulos = RotulosCamadaACamada(gis);
    for (int y = -5; y < gis.height() + 5; y += 9)
        for (int x = -5; x < gis.width() + 5; x += 9) {
            TStringList lista;
            gis.ObterListaDeObjetos(TPoint(x, y), lista);
            std::vector<TGISObjeto *> objetos;
            for (int k = 0; k < lista.Count(); ++k)
                objetos.push_back(lista.Objeto<TGISObjeto>(k));
            r.Atingidos.push_back(std::move(objetos));
        }
    return r;
}

} // namespace

TEST(IndiceEspacial, MesmasRespostasQueOPercursoLinearEmMapasVistasEEdicoesSorteados)
{
    const double zooms[] = {1.0, 2.5, 8.0, 40.0, 300.0};
    int filtrados = 0;
    int atingidos = 0;
    for (unsigned semente = 1; semente <= 4; ++semente) {
        TSorteio s(semente);
        TGis gis;
        gis.resize(360, 240);
        gis.Rotulos().Add(QStringLiteral("Nome"));
        TGISCamada &a = NovaCamada(gis, QStringLiteral("a"));
        TGISCamada &b = NovaCamada(gis, QStringLiteral("b"));
        int n = 0;
        for (int i = 0; i < 250; ++i)
            (i % 3 ? a : b).Objetos().Add(NovoObjeto(s, n++));
        for (int vez = 0; vez < 10; ++vez) {
            // Vista sorteada; o zoom muda sem redesenho entre os modos, de propósito: os pontos
            // guardam a área do último desenho, que não pode decidir nada.
            const double zoom = zooms[Entre(s, 0, 4)];
            gis.Visao(GISPosicao(Entre(s, -22 * 3600, 22 * 3600), Entre(s, -32 * 3600, 32 * 3600)), zoom);
            Editar(s, Entre(s, 0, 1) ? a : b, n);
            const TResultado comIndice = Observar(gis, true);
            const TResultado linear = Observar(gis, false);
            ASSERT_TRUE(comIndice.Quadro == linear.Quadro) << "semente " << semente << " vez " << vez;
            ASSERT_EQ(comIndice.Rotulos, linear.Rotulos) << "semente " << semente << " vez " << vez;
            ASSERT_EQ(comIndice.Atingidos, linear.Atingidos) << "semente " << semente << " vez " << vez;
            // E de novo com o índice, agora sobre as áreas de desenho que o percurso linear deixou.
            const TResultado outraVez = Observar(gis, true);
            ASSERT_TRUE(outraVez.Quadro == linear.Quadro);
            ASSERT_EQ(outraVez.Atingidos, linear.Atingidos);
            filtrados += a.Indice().Construido() && a.Indice().Versao() == a.ContadorDeMudancas();
            for (const auto &lista : linear.Atingidos)
                atingidos += !lista.empty();
        }
    }
    // O teste não passa à toa: o índice foi usado e os cliques atingiram objetos.
    EXPECT_GT(filtrados, 20);
    EXPECT_GT(atingidos, 200);
}

TEST(IndiceEspacial, ConsultaEmOrdemDeIndiceComBordasESempre)
{
    TGISIndiceEspacial indice;
    EXPECT_FALSE(indice.Construido());
    // Caixas fora de ordem (canto 1 acima do canto 2) e um objeto que entra sempre.
    indice.Construir({{GISRet(100, 100, 0, 0), 7}, {GISRet(0, 200, 50, 300), 2}, {GISRet(-500, -500, -400, -400), 4}},
                     {5, 1}, 42, 9);
    EXPECT_EQ(indice.Versao(), 42u);
    EXPECT_EQ(indice.FolgaTela(), 9);
    EXPECT_EQ(indice.Total(), 3u);
    EXPECT_EQ(indice.Extensao(), GISRet(-500, -500, 100, 300));
    std::vector<int> saida{99};
    // Toca a borda direita da primeira caixa e a esquerda da segunda (latitude e longitude com
    // escalas diferentes), em ordem crescente, com os de sempre no meio.
    indice.Consultar(GISRet(60, 100, 10, 200), saida);
    EXPECT_EQ(saida, (std::vector<int>{1, 2, 5, 7}));
    indice.Consultar(GISRet(101, 0, 200, 50), saida);
    EXPECT_EQ(saida, (std::vector<int>{1, 5}));
    indice.Consultar(GISRet(-450, -450, -450, -450), saida);
    EXPECT_EQ(saida, (std::vector<int>{1, 4, 5}));
    indice.Limpar();
    EXPECT_FALSE(indice.Construido());
    indice.Consultar(GISRet(-1000, -1000, 1000, 1000), saida);
    EXPECT_TRUE(saida.empty());
}
