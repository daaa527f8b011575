#include <tavru/elements/GISPonto.h>

#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <atomic>
#include <typeinfo>
#include <unordered_map>

namespace tavru {

const TClasseObjeto TGISPonto::Descritor = TClasseObjeto::De<TGISPonto>("TGISPonto");

namespace {

// Lido pelo desenho em qualquer linha de execução; só os testes o mudam.
std::atomic<bool> GUsarCarimbo{true};

/// Chave de um carimbo: a figura, o tamanho e o que o desenho usa da caneta e do pincel.
struct TChaveCarimbo
{
    TForma Forma;
    int Largura;
    int Altura;
    TPen Caneta;
    TBrush Pincel;

    friend bool operator==(const TChaveCarimbo &a, const TChaveCarimbo &b)
    {
        return a.Forma == b.Forma && a.Largura == b.Largura && a.Altura == b.Altura && a.Caneta == b.Caneta
            && a.Pincel == b.Pincel;
    }
};

struct THashCarimbo
{
    std::size_t operator()(const TChaveCarimbo &c) const noexcept
    {
        std::size_t h = static_cast<std::size_t>(c.Forma);
        auto mistura = [&h](std::size_t v) { h = h * 1000003u ^ v; };
        mistura(static_cast<std::size_t>(c.Largura));
        mistura(static_cast<std::size_t>(c.Altura));
        mistura(static_cast<std::size_t>(static_cast<std::uint32_t>(c.Caneta.Color)));
        mistura(static_cast<std::size_t>(c.Caneta.Width) << 8 | c.Caneta.Style);
        mistura(static_cast<std::size_t>(static_cast<std::uint32_t>(c.Pincel.Color)) << 4 | c.Pincel.Style);
        return h;
    }
};

/// Um carimbo pronto: a imagem e a margem (pixels) em volta do retângulo da figura.
struct TCarimbo
{
    QImage Imagem;
    int Margem = 0;
};

/// Limite de carimbos guardados; ao passar dele o cache recomeça vazio.
constexpr std::size_t MaximoDeCarimbos = 1024;

/// Os carimbos de um canvas, no contexto de desenho dele.
using TCarimbos = std::unordered_map<TChaveCarimbo, TCarimbo, THashCarimbo>;

TCarimbos &Carimbos(TCanvas &canvas)
{
    return canvas.Contexto().Obter<TCarimbos>();
}

/// As figuras simples, desenhadas só com caneta e pincel.
void DesenharFiguraSimples(TCanvas &canvas, TForma forma, const TRect &r)
{
    const TPoint centro = Centro(r); // (Left + Right) div 2, sem estourar
    const int cx = centro.X;
    const int cy = centro.Y;
    switch (forma) {
    case gisCruz:
        canvas.MoveTo(cx, r.Top);
        canvas.LineTo(cx, r.Bottom);
        canvas.MoveTo(r.Left, cy);
        canvas.LineTo(r.Right, cy);
        break;
    case gisCirculo:
        canvas.Ellipse(r.Left, r.Top, r.Right, r.Bottom);
        break;
    case gisQuadrado:
        canvas.Rectangle(r.Left, r.Top, r.Right, r.Bottom);
        break;
    case gisTriangulo: {
        const TPoint pontos[4] = {TPoint(cx, r.Top), TPoint(r.Left, r.Bottom), TPoint(r.Right, r.Bottom),
                                  TPoint(cx, r.Top)};
        canvas.Polygon(pontos, 4);
        break;
    }
    default:
        break;
    }
}

/// Se a figura pode ser carimbada neste canvas sem mudar um pixel do resultado.
bool PodeCarimbar(const TCanvas &canvas, const TRect &r)
{
    if (!GUsarCarimbo || typeid(canvas) != typeid(TCanvas))
        return false;
    const QImage *imagem = canvas.Imagem();
    if (!imagem || imagem->isNull())
        return false;
    switch (imagem->format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        break;
    default:
        return false;
    }
    const int largura = r.Right - r.Left;
    const int altura = r.Bottom - r.Top;
    if (largura < 0 || altura < 0 || largura > TGISPonto::TamanhoMaximoCarimbo
        || altura > TGISPonto::TamanhoMaximoCarimbo)
        return false;
    // As hachuras do pincel se alinham à origem do dispositivo e as canetas largas saem da
    // figura: só o pincel sólido ou transparente e canetas finas dão o mesmo resultado.
    const TBrush &pincel = canvas.Brush();
    if (pincel.Style != bsSolid && pincel.Style != bsClear)
        return false;
    const int caneta = canvas.Pen().Width;
    if (caneta < 0 || caneta > 8)
        return false;
    // Uma figura cortada pela borda da imagem é rasterizada depois do recorte, o que pode mudar um
    // pixel da borda: essa vai direto (são poucas).
    const int m = caneta + 2;
    return r.Left >= m && r.Top >= m && r.Right < imagem->width() - m && r.Bottom < imagem->height() - m;
}

/// Desenha a figura por um carimbo (criado na primeira vez).
void Carimbar(TCanvas &canvas, TForma forma, const TRect &r)
{
    const int largura = r.Right - r.Left;
    const int altura = r.Bottom - r.Top;
    const TChaveCarimbo chave{forma, largura, altura, canvas.Pen(), canvas.Brush()};
    TCarimbos &carimbos = Carimbos(canvas);
    auto it = carimbos.find(chave);
    if (it == carimbos.end()) {
        if (carimbos.size() >= MaximoDeCarimbos)
            carimbos.clear();
        TCarimbo carimbo;
        carimbo.Margem = canvas.Pen().Width + 2;
        const int m = carimbo.Margem;
        carimbo.Imagem = QImage(largura + 2 * m + 1, altura + 2 * m + 1, QImage::Format_ARGB32_Premultiplied);
        carimbo.Imagem.fill(Qt::transparent);
        {
            TCanvas local(&carimbo.Imagem);
            local.Pen().Assign(canvas.Pen());
            local.Brush().Assign(canvas.Brush());
            DesenharFiguraSimples(local, forma, TRect(m, m, m + largura, m + altura));
        }
        it = carimbos.emplace(chave, std::move(carimbo)).first;
    }
    canvas.Draw(r.Left - it->second.Margem, r.Top - it->second.Margem, it->second.Imagem);
    if (forma == gisCruz)
        canvas.SetPenPos(TPoint(r.Right, Centro(r).Y));
}

} // namespace

TGISPonto::TGISPonto() = default;

TGISPonto::~TGISPonto() = default;

bool TGISPonto::ObterValido() const
{
    return Valida(Posicao());
}

void TGISPonto::AtribuirCor(TColor cor)
{
    FFonte.Color = cor;
    Mudou();
}

TColor TGISPonto::ObterCor() const
{
    return FFonte.Color;
}

bool TGISPonto::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    AtribuirPosicao(projecao.TelaParaMundo(ponto));
    FTamanhoMaximo = TPoint(50, 50);
    FTamanhoMinimo = TPoint(5, 5);
    FTamanhoNoMundo = GISPosicao(100, 100);
    return true;
}

TGISRet TGISPonto::AreaNoMundo() const
{
    const TGISPosicao p = Posicao();
    const std::int64_t lat = std::int64_t(p.Latitude) - FTamanhoNoMundo.Latitude / 2;
    const std::int64_t lon = std::int64_t(p.Longitude) - FTamanhoNoMundo.Longitude / 2;
    return GISRet(Saturar32(lat), Saturar32(lon), Saturar32(lat + FTamanhoNoMundo.Latitude),
                  Saturar32(lon + FTamanhoNoMundo.Longitude));
}

TRect TGISPonto::ObterAreaDesenho(const TGISProjecao &projecao)
{
    const TRect r = RetanguloNaTela(projecao);
    FAreaDesenho = ConcertaRect(projecao.TelaParaMundoRet(r));
    return r;
}

TRect TGISPonto::RetanguloNaTela(const TGISProjecao &projecao) const
{
    const TRect tela = ConcertaRect(projecao.MundoParaTelaRet(AreaNoMundo()));
    const TPoint c = Centro(tela);
    std::int64_t largura;
    std::int64_t altura;
    if (FTamanhoMaximo == FTamanhoMinimo) {
        largura = FTamanhoMinimo.X;
        altura = FTamanhoMinimo.Y;
    } else {
        // Levado primeiro ao mínimo e depois ao máximo, nessa ordem.
        largura = std::min<std::int64_t>(std::max<std::int64_t>(std::int64_t(tela.Right) - tela.Left, FTamanhoMinimo.X),
                                         FTamanhoMaximo.X);
        altura = std::min<std::int64_t>(std::max<std::int64_t>(std::int64_t(tela.Bottom) - tela.Top, FTamanhoMinimo.Y),
                                        FTamanhoMaximo.Y);
    }
    // Em 64 bits: longe da tela, a projeção dá pixels na ponta da faixa de 32.
    TRect r;
    r.Left = Saturar32(c.X - largura / 2);
    r.Right = Saturar32(r.Left + largura);
    r.Top = Saturar32(c.Y - altura / 2);
    r.Bottom = Saturar32(r.Top + altura);
    return r;
}

TGISRet TGISPonto::Area() const
{
    if (FAreaDesenho.Pos1 == FAreaDesenho.Pos2)
        return AreaNoMundo();
    return FAreaDesenho;
}

void TGISPonto::TamanhoNaTela(const TPoint &tamanho)
{
    FTamanhoMaximo = tamanho;
    FTamanhoMinimo = tamanho;
    Mudou();
}

void TGISPonto::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    const TRect r = ObterAreaDesenho(projecao);
    const TFont salva = canvas.Font();
    if (!selecionado) {
        canvas.Pen().Assign(Caneta());
        canvas.Pen().Color = clBlack;
        canvas.Brush().Color = FFonte.Color;
        canvas.Brush().Style = bsSolid;
        if (FForma == gisFonte || FForma == gisSimbolo)
            canvas.Pen().Color = FFonte.Color;
    }
    DesenharFigura(canvas, r);
    canvas.Font().Assign(salva);
}

void TGISPonto::DesenharFigura(TCanvas &canvas, const TRect &r)
{
    TForma forma = FForma;
    switch (forma) {
    case gisFonte:
        canvas.Font().Assign(FFonte);
        canvas.Font().SetHeight(r.Bottom - r.Top);
        canvas.Brush().Style = bsClear;
        canvas.TextRect(r, r.Left, r.Top, QString(FLetra));
        return;
    case gisSimbolo: {
        const TTabelaDeSimbolos *tabela = ObterTabelaSimbolos(canvas);
        if (FSimbolo >= 0 && tabela && FSimbolo < tabela->ObterTotal()) {
            canvas.Brush().Style = bsClear;
            tabela->DesenharRotacionado(FSimbolo, canvas, r, Orientacao());
            return;
        }
        forma = gisTriangulo; // o triângulo no lugar do símbolo que falta, de propósito
        break;
    }
    case gisCruz:
    case gisCirculo:
    case gisQuadrado:
    case gisTriangulo:
        break;
    default:
        return;
    }
    if (PodeCarimbar(canvas, r))
        Carimbar(canvas, forma, r);
    else
        DesenharFiguraSimples(canvas, forma, r);
}

bool TGISPonto::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    return PertenceRect(ponto, ObterAreaDesenho(projecao));
}

void TGISPonto::AtribuirUsarCarimbo(bool usar)
{
    GUsarCarimbo = usar;
}

bool TGISPonto::UsarCarimbo()
{
    return GUsarCarimbo;
}

void TGISPonto::LimparCarimbos(TCanvas &canvas)
{
    Carimbos(canvas).clear();
}

int TGISPonto::TotalDeCarimbos(TCanvas &canvas)
{
    return static_cast<int>(Carimbos(canvas).size());
}

} // namespace tavru
