// O mapa B1: 10.000 linhas de 100 vértices (passeios aleatórios), 10.000 áreas de 20 vértices e
// 100.000 pontos (círculos com o tamanho que ConfiguracaoPadrao dá), todos entre as longitudes
// -74 e -34 e as latitudes -34 e 5, com semente fixa. Desenha o mapa pelos próprios elementos numa
// imagem 1920x1080 ARGB32_Premultiplied, pela projeção Mercator ajustada aos dados, na extensão
// inteira e com zoom de 8x e 64x no centro, pelo desenho de camada do próprio controle do mapa
// (TGis::DesenharCamada: recorte, desenho e rótulos). Na mesma execução desenha as mesmas coordenadas direto com QPainter (projetadas
// antes, sem objetos) como o limite prático. Imprime milissegundos por quadro, a razão, e a
// memória do mapa (mallinfo2).
//
// Com o índice espacial de cada camada (o padrão do controle) e sem ele (percurso linear), o
// quadro e a consulta de um clique (ObterListaDeObjetos) são medidos nos dois modos, com o custo
// de construir o índice (tempo e memória). Em cada vista conta as áreas que cobrem a tela inteira
// e mede o quadro também sem pular o que elas escondem (AtribuirOclusao(false)), e o mesmo com
// zoom de 64x em 100 centros sorteados, contra o desenho direto de cada um. Com --escala N o mapa tem N vezes mais objetos e só a
// consulta de cliques e o índice são medidos.
//
// Uso: tavru-bench-mapa [--passo N] [--escala N] [quadro.png [quadro-direto.png]]
//   --passo: maior passo por eixo do passeio das linhas, em segundos de arco (padrão 150);
//   os PNG recebem o quadro pelos elementos (os zooms em NOME-8x.png e NOME-64x.png) e o da
//   extensão inteira pelo desenho direto.

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISIndiceEspacial.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TStringList.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <malloc.h>
#include <random>
#include <vector>

using namespace tavru;

namespace {

constexpr int Largura = 1920;
constexpr int Altura = 1080;
// Multiplicados por --escala (o mapa de um milhão de objetos é o B1 com escala 8).
int TotalLinhas = 10000;
constexpr int VerticesLinha = 100;
int TotalAreas = 10000;
constexpr int VerticesArea = 20;
int TotalPontos = 100000;
constexpr int Repeticoes = 7;

constexpr std::int32_t LatMin = -34 * 3600;
constexpr std::int32_t LatMax = 5 * 3600;
constexpr std::int32_t LonMin = -74 * 3600;
constexpr std::int32_t LonMax = -34 * 3600;

const TColor CorLinha = 0x00A05000;  // azul escuro
const TColor CorArea = 0x0080D080;   // verde claro
const TColor CorPonto = 0x000000E0;  // vermelho

/// Maior passo do passeio aleatório das linhas, em segundos de arco por eixo.
int GPasso = 150;

std::size_t MemoriaEmUso()
{
    return mallinfo2().uordblks;
}

double Agora()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

struct TMapa
{
    TGISCamada CamadaLinhas{QStringLiteral("Linhas")};
    TGISCamada CamadaAreas{QStringLiteral("Areas")};
    TGISCamada CamadaPontos{QStringLiteral("Pontos")};
    TGISObjetoList &Linhas = CamadaLinhas.Objetos();
    TGISObjetoList &Areas = CamadaAreas.Objetos();
    TGISObjetoList &Pontos = CamadaPontos.Objetos();
};

std::int32_t Limitar(std::int32_t v, std::int32_t a, std::int32_t b)
{
    return std::max(a, std::min(b, v));
}

void CriarLinhas(TGISObjetoList &lista, std::mt19937 &aleatorio)
{
    std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax);
    std::uniform_int_distribution<std::int32_t> lon(LonMin, LonMax);
    std::uniform_int_distribution<std::int32_t> passo(-GPasso, GPasso);
    for (int k = 0; k < TotalLinhas; ++k) {
        auto linha = new TGISLinha;
        TGISPosicao p = GISPosicao(lat(aleatorio), lon(aleatorio));
        linha->AtribuirPosicao(p);
        linha->AtribuirCor(CorLinha);
        auto run = new TGISPosicaoList;
        run->Reservar(VerticesLinha); // como um leitor que sabe o número de vértices
        linha->Pontos().Add(run);
        for (int i = 0; i < VerticesLinha; ++i) {
            linha->InserirPonto(0, i, p);
            p.Latitude = Limitar(p.Latitude + passo(aleatorio), LatMin, LatMax);
            p.Longitude = Limitar(p.Longitude + passo(aleatorio), LonMin, LonMax);
        }
        linha->CalcularLimites();
        lista.Add(linha);
    }
}

void CriarAreas(TGISObjetoList &lista, std::mt19937 &aleatorio)
{
    std::uniform_int_distribution<std::int32_t> lat(LatMin + 6000, LatMax - 6000);
    std::uniform_int_distribution<std::int32_t> lon(LonMin + 6000, LonMax - 6000);
    std::uniform_real_distribution<double> raio(600.0, 6000.0);
    std::uniform_real_distribution<double> variacao(0.6, 1.0);
    for (int k = 0; k < TotalAreas; ++k) {
        auto area = new TGISArea;
        const TGISPosicao c = GISPosicao(lat(aleatorio), lon(aleatorio));
        area->AtribuirPosicao(c);
        area->AtribuirCor(CorArea);
        auto run = new TGISPosicaoList;
        run->Reservar(VerticesArea);
        area->Pontos().Add(run);
        const double r = raio(aleatorio);
        for (int i = 0; i < VerticesArea; ++i) {
            const double a = 2 * M_PI * i / VerticesArea;
            const double ri = r * variacao(aleatorio);
            area->InserirPonto(0, i,
                               GISPosicao(c.Latitude + static_cast<int>(ri * std::sin(a)),
                                          c.Longitude + static_cast<int>(ri * std::cos(a))));
        }
        area->CalcularLimites();
        lista.Add(area);
    }
}

void CriarPontos(TGISObjetoList &lista, std::mt19937 &aleatorio)
{
    std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax);
    std::uniform_int_distribution<std::int32_t> lon(LonMin, LonMax);
    for (int k = 0; k < TotalPontos; ++k) {
        auto ponto = new TGISPonto;
        ponto->AtribuirPosicao(GISPosicao(lat(aleatorio), lon(aleatorio)));
        // Os tamanhos de ConfiguracaoPadrao.
        ponto->AtribuirTamanhoMaximo(TPoint(50, 50));
        ponto->AtribuirTamanhoMinimo(TPoint(5, 5));
        ponto->AtribuirTamanhoNoMundo(GISPosicao(100, 100));
        ponto->AtribuirForma(gisCirculo);
        ponto->AtribuirCor(CorPonto);
        lista.Add(ponto);
    }
}

/// Um quadro pelos elementos, desenhado camada a camada pelo controle do mapa.
double GParcial[3][3];

void DesenharPelosElementos(TGis &gis, TMapa &mapa, QImage &imagem, TGISProjecao &projecao)
{
    imagem.fill(Qt::white);
    TCanvas canvas(&imagem);
    int indice = 0;
    for (TGISCamada *camada : {&mapa.CamadaAreas, &mapa.CamadaLinhas, &mapa.CamadaPontos}) {
        const double inicio = Agora();
        gis.DesenharCamada(*camada, canvas, projecao);
        GParcial[0][indice++] += Agora() - inicio;
    }
}

/// Só o percurso do recorte (sem desenhar): quantos objetos passam.
int Recortar(TMapa &mapa, const TGISProjecao &projecao)
{
    const TRect tela = projecao.AreaTela();
    int passam = 0;
    for (TGISObjetoList *lista : {&mapa.Areas, &mapa.Linhas, &mapa.Pontos})
        for (int i = 0; i < lista->Count(); ++i) {
            TGISObjeto *o = lista->Items(i);
            const TGISRet area = o->Area();
            passam += projecao.Visivel(area) && Intersecao(projecao.MundoParaTelaRet(area), tela);
        }
    return passam;
}

/// Quantas áreas na tela cobrem a tela inteira, e a posição (entre as áreas na tela, contando de
/// 1) da última delas, onde o desenho com oclusão começa.
struct TCobertura
{
    int NaTela = 0;
    int Cobrem = 0;
    int PosicaoDaUltima = 0;
};

TCobertura ContarCoberturas(TMapa &mapa, QImage &imagem, const TGISProjecao &projecao)
{
    TCanvas canvas(&imagem);
    const TRect tela = projecao.AreaTela();
    TCobertura c;
    for (int i = 0; i < mapa.Areas.Count(); ++i) {
        auto *area = static_cast<TGISArea *>(mapa.Areas.Items(i));
        const TGISRet caixa = area->Area();
        if (!projecao.Visivel(caixa) || !Intersecao(projecao.MundoParaTelaRet(caixa), tela))
            continue;
        ++c.NaTela;
        if (area->CobreRetangulo(canvas, projecao, tela)) {
            ++c.Cobrem;
            c.PosicaoDaUltima = c.NaTela;
        }
    }
    return c;
}

/// As mesmas coordenadas já projetadas, para o desenho direto.
struct TDireto
{
    std::vector<TPoint> Vertices;      // linhas e depois áreas, seguidos
    std::vector<QRect> Caixas;         // caixa de tela de cada linha e área
    std::vector<QRect> Circulos;       // retângulo de cada ponto (também o seu recorte)
};

TDireto Projetar(const TMapa &mapa, const TGISProjecao &projecao)
{
    TDireto d;
    auto caixa = [](const TPoint *p, int n) {
        int l = p[0].X, r = p[0].X, t = p[0].Y, b = p[0].Y;
        for (int i = 1; i < n; ++i) {
            l = std::min(l, p[i].X), r = std::max(r, p[i].X);
            t = std::min(t, p[i].Y), b = std::max(b, p[i].Y);
        }
        return QRect(QPoint(l, t), QPoint(r, b));
    };
    for (const TGISObjetoList *lista : {&mapa.Linhas, &mapa.Areas}) {
        for (int i = 0; i < lista->Count(); ++i) {
            auto linha = static_cast<TGISLinha *>(lista->Items(i));
            std::vector<TPoint> pts;
            linha->AjustarPontos(projecao, 0, pts);
            d.Caixas.push_back(caixa(pts.data(), static_cast<int>(pts.size())));
            d.Vertices.insert(d.Vertices.end(), pts.begin(), pts.end());
        }
    }
    for (int i = 0; i < mapa.Pontos.Count(); ++i) {
        // O mesmo retângulo que o elemento calcula (5x5 na extensão inteira), como o canvas o
        // passa ao QPainter.
        auto ponto = static_cast<TGISPonto *>(mapa.Pontos.Items(i));
        const TRect r = ponto->ObterAreaDesenho(projecao);
        d.Circulos.push_back(QRect(r.Left, r.Top, r.Right - r.Left - 1, r.Bottom - r.Top - 1));
    }
    return d;
}

/// Um quadro direto com QPainter (mesmas canetas e pincéis, recorte pela caixa já projetada).
void DesenharDireto(const TDireto &d, QImage &imagem)
{
    imagem.fill(Qt::white);
    QPainter p(&imagem);
    p.setRenderHint(QPainter::Antialiasing, false);
    const QRect tela(0, 0, Largura + 1, Altura + 1);
    double inicio = Agora();
    TPen caneta;
    caneta.Color = CorLinha;
    p.setPen(caneta.ParaQPen());
    p.setBrush(Qt::NoBrush);
    const QPoint *v = reinterpret_cast<const QPoint *>(d.Vertices.data());
    for (int i = 0; i < TotalLinhas; ++i)
        if (d.Caixas[i].intersects(tela) || d.Caixas[i].width() <= 1)
            p.drawPolyline(v + i * VerticesLinha, VerticesLinha);
    GParcial[1][1] += Agora() - inicio;
    inicio = Agora();
    v += TotalLinhas * VerticesLinha;
    p.setPen(TPen().ParaQPen());
    TBrush pincel;
    pincel.Color = CorArea;
    p.setBrush(pincel.ParaQBrush());
    for (int i = 0; i < TotalAreas; ++i)
        if (d.Caixas[TotalLinhas + i].intersects(tela) || d.Caixas[TotalLinhas + i].width() <= 1)
            p.drawPolygon(v + i * VerticesArea, VerticesArea);
    GParcial[1][0] += Agora() - inicio;
    inicio = Agora();
    pincel.Color = CorPonto;
    p.setBrush(pincel.ParaQBrush());
    for (const QRect &r : d.Circulos)
        if (r.intersects(tela))
            p.drawEllipse(r);
    p.end();
    GParcial[1][2] += Agora() - inicio;
}

/// Milissegundos do quadro mais rápido de `Repeticoes` (depois de um quadro de aquecimento): a
/// máquina é compartilhada, e o mínimo é o que menos sofre com a carga dos outros. As parciais por
/// camada são as médias.
template <typename F>
double Medir(int linha, F &&quadro)
{
    quadro();
    for (double &v : GParcial[linha])
        v = 0;
    double melhor = 1e300;
    for (int i = 0; i < Repeticoes; ++i) {
        const double inicio = Agora();
        quadro();
        melhor = std::min(melhor, Agora() - inicio);
    }
    return melhor;
}

/// Constrói um índice com as mesmas caixas que o controle usa (a área de cada objeto; a do mundo
/// de cada ponto) e mede tempo e memória.
void MedirIndice(TMapa &mapa)
{
    double ms = 0;
    std::size_t bytes = 0;
    std::size_t total = 0;
    std::vector<std::unique_ptr<TGISIndiceEspacial>> indices;
    for (TGISObjetoList *lista : {&mapa.Areas, &mapa.Linhas, &mapa.Pontos}) {
        const std::size_t antes = MemoriaEmUso();
        const double inicio = Agora();
        std::vector<TGISIndiceEspacial::TEntrada> entradas;
        entradas.reserve(std::size_t(lista->Count()));
        for (int i = 0; i < lista->Count(); ++i) {
            TGISObjeto *o = lista->Items(i);
            auto *ponto = dynamic_cast<TGISPonto *>(o);
            entradas.push_back({ponto ? ponto->AreaNoMundo() : o->Area(), i});
        }
        indices.push_back(std::make_unique<TGISIndiceEspacial>());
        indices.back()->Construir(entradas, {}, 0, 0);
        ms += Agora() - inicio;
        entradas.clear();
        entradas.shrink_to_fit();
        bytes += MemoriaEmUso() - antes;
        total += indices.back()->Total();
    }
    std::printf("Indice: %zu caixas construidas em %.1f ms, %.1f MB (%.1f bytes por objeto)\n", total, ms,
                bytes / 1e6, double(bytes) / double(total));
}

/// Microssegundos por clique (ObterListaDeObjetos) em cliques sorteados na tela, com e sem índice.
void MedirCliques(TGis &gis, const char *vista)
{
    std::mt19937 aleatorio(7u);
    std::uniform_int_distribution<int> x(0, Largura - 1);
    std::uniform_int_distribution<int> y(0, Altura - 1);
    std::vector<TPoint> cliques;
    for (int i = 0; i < 200; ++i)
        cliques.push_back(TPoint(x(aleatorio), y(aleatorio)));
    double us[2];
    int achados[2] = {0, 0};
    for (const bool indice : {true, false}) {
        gis.AtribuirUsarIndice(indice);
        TStringList lista;
        gis.ObterListaDeObjetos(cliques[0], lista); // o índice se constrói aqui, fora da medida
        const int vezes = indice ? 200 : 20;
        double melhor = 1e300;
        for (int r = 0; r < 3; ++r) {
            const double inicio = Agora();
            achados[indice ? 0 : 1] = 0;
            for (int i = 0; i < vezes; ++i) {
                gis.ObterListaDeObjetos(cliques[std::size_t(i)], lista);
                achados[indice ? 0 : 1] += lista.Count();
            }
            melhor = std::min(melhor, (Agora() - inicio) * 1000.0 / vezes);
        }
        us[indice ? 0 : 1] = melhor;
    }
    gis.AtribuirUsarIndice(true);
    std::printf("Clique %-9s com indice %.1f us, percurso linear %.1f us, razao %.4f\n", vista, us[0], us[1],
                us[0] / us[1]);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    TGis gis;
    QString png;
    QString pngDireto;
    int escala = 1;
    for (int i = 1; i < argc; ++i) {
        const QString a = QString::fromLocal8Bit(argv[i]);
        if (a == QLatin1String("--passo") && i + 1 < argc)
            GPasso = QString::fromLocal8Bit(argv[++i]).toInt();
        else if (a == QLatin1String("--escala") && i + 1 < argc)
            escala = std::max(1, QString::fromLocal8Bit(argv[++i]).toInt());
        else if (png.isEmpty())
            png = a;
        else
            pngDireto = a;
    }

    TotalLinhas *= escala;
    TotalAreas *= escala;
    TotalPontos *= escala;
    std::mt19937 aleatorio(20261121u);
    TMapa mapa;
    const std::size_t m0 = MemoriaEmUso();
    CriarLinhas(mapa.Linhas, aleatorio);
    const std::size_t m1 = MemoriaEmUso();
    CriarAreas(mapa.Areas, aleatorio);
    const std::size_t m2 = MemoriaEmUso();
    CriarPontos(mapa.Pontos, aleatorio);
    const std::size_t m3 = MemoriaEmUso();

    std::printf("Mapa B1: %d linhas x %d vertices (passo ate %d\"), %d areas x %d vertices, %d pontos\n",
                TotalLinhas, VerticesLinha, GPasso, TotalAreas, VerticesArea, TotalPontos);
    std::printf("Memoria: linhas %.1f MB = %.2f bytes por vertice de linha (objeto incluido)\n",
                (m1 - m0) / 1e6, double(m1 - m0) / (double(TotalLinhas) * VerticesLinha));
    std::printf("         areas %.1f MB = %.2f bytes por vertice de area\n", (m2 - m1) / 1e6,
                double(m2 - m1) / (double(TotalAreas) * VerticesArea));
    std::printf("         pontos %.1f MB = %.1f bytes por objeto ponto (sizeof %zu)\n", (m3 - m2) / 1e6,
                double(m3 - m2) / TotalPontos, sizeof(TGISPonto));

    TGISProjecaoMercator projecao;
    projecao.DoAtribuirAreaTela(TRect(0, 0, Largura, Altura));
    mapa.Linhas.CalcularLimites();
    TGISRet limites = mapa.Linhas.Limites();
    mapa.Areas.CalcularLimites();
    limites = Uniao(limites, mapa.Areas.Limites());
    projecao.DoAtribuirAreaMundo(limites);
    projecao.FitToRect(limites);
    const double zoomInteiro = projecao.Zoom();

    MedirIndice(mapa);
    // As camadas emprestadas ao controle para as consultas de clique (devolvidas no fim).
    gis.resize(Largura, Altura);
    gis.AtribuirProjecao(&projecao);
    for (TGISCamada *camada : {&mapa.CamadaAreas, &mapa.CamadaLinhas, &mapa.CamadaPontos})
        gis.Camadas().Add(camada);
    struct TDevolver
    {
        TGis &Gis;
        ~TDevolver()
        {
            while (Gis.Camadas().Count() > 0)
                Gis.Camadas().Extract(Gis.Camadas().Items(0));
            Gis.AtribuirProjecao(nullptr);
        }
    } devolver{gis};
    for (const int fator : {1, 64}) {
        projecao.AtribuirZoom(zoomInteiro * fator);
        MedirCliques(gis, fator == 1 ? "inteira" : "zoom 64x");
    }
    if (escala > 1)
        return 0;

    {
        // 1.000 meios acompanhados numa camada volátil sobre as camadas estáticas do B1, na
        // extensão inteira: cada quadro move todos e redesenha pelo controle (Desenhar).
        projecao.AtribuirZoom(zoomInteiro);
        auto *meios = new TGISCamada(QStringLiteral("Meios"));
        std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax);
        std::uniform_int_distribution<std::int32_t> lon(LonMin, LonMax);
        for (int i = 0; i < 1000; ++i) {
            auto *meio = new TGISPonto;
            meio->AtribuirForma(gisQuadrado);
            meio->TamanhoNaTela(TPoint(9, 9));
            meio->AtribuirPosicao(GISPosicao(lat(aleatorio), lon(aleatorio)));
            meios->Objetos().Add(meio);
        }
        gis.Camadas().Add(meios);
        auto mover = [&] {
            meios->Objetos().IniciarLote();
            for (TGISObjeto *o : meios->Objetos()) {
                const TGISPosicao p = o->Posicao();
                o->AtribuirPosicao(GISPosicao(p.Latitude + 30, p.Longitude + 30));
            }
            meios->Objetos().TerminarLote();
            gis.Desenhar();
        };
        const double msInteiro = Medir(2, mover);
        meios->AtribuirVolatil(true);
        const double msVolatil = Medir(2, mover);
        std::printf("1000 meios numa camada volatil: quadro %.2f ms, redesenho inteiro %.2f ms, razao %.3f\n", msVolatil,
                    msInteiro, msVolatil / msInteiro);
        gis.Camadas().Remove(meios);
    }

    double msDiretoInteiro = 0;
    QImage imagem(Largura, Altura, QImage::Format_ARGB32_Premultiplied);
    std::printf("%-10s %12s %12s %8s %14s %8s %16s\n", "vista", "elementos ms", "QPainter ms", "razao", "sem indice ms",
                "razao", "so recorte ms");
    for (const int fator : {1, 8, 64}) {
        projecao.AtribuirZoom(zoomInteiro * fator);
        // Um quadro antes, para que os pontos guardem a área de desenho deste zoom (o recorte usa a
        // do último desenho, como no controle do mapa).
        DesenharPelosElementos(gis, mapa, imagem, projecao);
        const TDireto direto = Projetar(mapa, projecao);
        gis.AtribuirUsarIndice(false);
        const double msLinear = Medir(0, [&] { DesenharPelosElementos(gis, mapa, imagem, projecao); });
        gis.AtribuirUsarIndice(true);
        const double ms = Medir(0, [&] { DesenharPelosElementos(gis, mapa, imagem, projecao); });
        // Com e sem o atalho da oclusão, alternados quadro a quadro (a carga da máquina cai igual
        // nos dois), o melhor de cada.
        double parciais[3];
        std::copy(GParcial[0], GParcial[0] + 3, parciais);
        double msComOclusao = 1e300;
        double msSemOclusao = 1e300;
        for (int i = 0; i < 2 * Repeticoes; ++i) {
            gis.AtribuirOclusao(i % 2 == 0);
            const double inicio = Agora();
            DesenharPelosElementos(gis, mapa, imagem, projecao);
            double &melhor = i % 2 == 0 ? msComOclusao : msSemOclusao;
            melhor = std::min(melhor, Agora() - inicio);
        }
        gis.AtribuirOclusao(true);
        std::copy(parciais, parciais + 3, GParcial[0]); // as parciais são as do quadro medido acima
        if (!png.isEmpty()) // a extensão inteira no nome dado; os zooms com "-8x", "-64x"
            imagem.save(fator == 1 ? png : QString(png).replace(QLatin1String(".png"), QStringLiteral("-%1x.png").arg(fator)));
        const TCobertura cobertura = ContarCoberturas(mapa, imagem, projecao);
        const double msDireto = Medir(1, [&] { DesenharDireto(direto, imagem); });
        int passam = 0;
        const double msRecorte = Medir(2, [&] { passam = Recortar(mapa, projecao); });
        if (fator == 1 && !pngDireto.isEmpty())
            imagem.save(pngDireto);
        if (fator == 1)
            msDiretoInteiro = msDireto;
        std::printf("%-10s %12.2f %12.2f %8.2f %14.2f %8.2f %9.1f (%d objetos passam)\n",
                    fator == 1 ? "inteira" : (fator == 8 ? "zoom 8x" : "zoom 64x"), ms, msDireto, ms / msDireto,
                    msLinear, msLinear / msDireto, msRecorte, passam);
        std::printf("   oclusao: %d areas cobrem a tela; a ultima e a %d.a das %d areas na tela; sem oclusao %.2f ms "
                    "(%.2f do QPainter; com oclusao, alternados, %.2f dela)\n",
                    cobertura.Cobrem, cobertura.PosicaoDaUltima, cobertura.NaTela, msSemOclusao, msSemOclusao / msDireto,
                    msComOclusao / msSemOclusao);
        std::printf("   por camada (areas/linhas/pontos) elementos %.1f/%.1f/%.1f, QPainter %.1f/%.1f/%.1f\n",
                    GParcial[0][0] / Repeticoes, GParcial[0][1] / Repeticoes, GParcial[0][2] / Repeticoes,
                    GParcial[1][0] / Repeticoes, GParcial[1][1] / Repeticoes, GParcial[1][2] / Repeticoes);
    }

    {
        // O atalho depende de haver uma área que cobre a tela: 64x em 100 centros sorteados, a soma
        // dos quadros com e sem ele (um de cada, alternados) e a do desenho direto.
        std::mt19937 sorteio(64u);
        std::uniform_int_distribution<std::int32_t> lat(LatMin, LatMax);
        std::uniform_int_distribution<std::int32_t> lon(LonMin, LonMax);
        const TGISPosicao centro = projecao.Centro();
        projecao.AtribuirZoom(zoomInteiro * 64);
        int vistasCobertas = 0;
        double somaCom = 0;
        double somaSem = 0;
        double somaDireto = 0;
        for (int v = 0; v < 100; ++v) {
            projecao.AtribuirCentro(GISPosicao(lat(sorteio), lon(sorteio)));
            vistasCobertas += ContarCoberturas(mapa, imagem, projecao).Cobrem > 0;
            for (const bool oclusao : {true, false}) {
                gis.AtribuirOclusao(oclusao);
                const double inicio = Agora();
                DesenharPelosElementos(gis, mapa, imagem, projecao);
                (oclusao ? somaCom : somaSem) += Agora() - inicio;
            }
            const TDireto direto = Projetar(mapa, projecao);
            const double inicio = Agora();
            DesenharDireto(direto, imagem);
            somaDireto += Agora() - inicio;
        }
        gis.AtribuirOclusao(true);
        projecao.AtribuirCentro(centro);
        std::printf("Zoom 64x em 100 centros sorteados: %d com uma area que cobre a tela; quadros com oclusao %.2f ms em "
                    "media = %.2f dos sem oclusao = %.2f do QPainter (sem oclusao %.2f do QPainter)\n",
                    vistasCobertas, somaCom / 100, somaCom / somaSem, somaCom / somaDireto, somaSem / somaDireto);
    }

    // O mapa inteiro pelo Desenhar do controle (fundo, camadas em ordem, cópia para a tela), numa
    // linha e em grupos (um por núcleo), sem e com todos os objetos rotulados pelo campo "Nome".
    projecao.AtribuirZoom(zoomInteiro);
    // Os dois modos alternados quadro a quadro (a carga da máquina compartilhada cai igual nos
    // dois), o melhor de cada.
    auto quadrosDoControle = [&](double &uma, double &grupos) {
        uma = grupos = 1e300;
        for (int i = 0; i <= 2 * Repeticoes; ++i) {
            const bool paralelo = i % 2 == 1;
            gis.AtribuirDesenhoParalelo(paralelo);
            const double inicio = Agora();
            gis.Desenhar();
            if (i >= 2) // os dois primeiros aquecem
                (paralelo ? grupos : uma) = std::min(paralelo ? grupos : uma, Agora() - inicio);
        }
    };
    double msUma, msGrupos;
    quadrosDoControle(msUma, msGrupos);
    std::printf("Desenhar inteiro (%d linhas de execucao): uma linha %.2f ms = %.2f do QPainter, "
                "em grupos %.2f ms = %.2f do QPainter (%.2f da uma linha)\n",
                gis.LinhasDoDesenho(), msUma, msUma / msDiretoInteiro, msGrupos, msGrupos / msDiretoInteiro,
                msGrupos / msUma);
    for (TGISCamada *camada : {&mapa.CamadaAreas, &mapa.CamadaLinhas, &mapa.CamadaPontos}) {
        const QString prefixo = camada->Nome().left(1);
        TGISObjetoList &objetos = camada->Objetos();
        objetos.IniciarLote();
        for (int i = 0; i < objetos.Count(); ++i) {
            objetos.Items(i)->Informacoes().AtribuirCampo(QStringLiteral("Nome"), prefixo + QString::number(i));
            objetos.Items(i)->AtribuirRotuloVisivel(true);
        }
        objetos.TerminarLote();
    }
    gis.Rotulos().Add(QStringLiteral("Nome"));
    const std::size_t antesDosTextos = MemoriaEmUso();
    double msRotUma, msRotGrupos;
    quadrosDoControle(msRotUma, msRotGrupos);
    const std::size_t textosProntos = MemoriaEmUso() - antesDosTextos;
    std::printf("Rotulados (%d rotulos): uma linha %.2f ms = %.2f do sem rotulos, em grupos %.2f ms = %.2f do sem "
                "rotulos\n",
                TotalLinhas + TotalAreas + TotalPontos, msRotUma, msRotUma / msUma, msRotGrupos, msRotGrupos / msGrupos);
    std::printf("Textos prontos dos canvas (um por linha de execucao): %.1f MB = %.2f da memoria do mapa\n",
                textosProntos / 1e6, double(textosProntos) / double(m3 - m0));
    if (!png.isEmpty())
        gis.Buffer().save(QString(png).replace(QLatin1String(".png"), QStringLiteral("-rotulos.png")));
    return 0;
}
