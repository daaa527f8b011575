#include <tavru/control/TGis.h>

#include <tavru/companions/components/TSeta.h>
#include <tavru/companions/components/TTabelaDeCores.h>
#include <tavru/companions/components/TVisualizadorInformacoes.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/control/IGISMouseEvent.h>
#include <tavru/control/TGradeDeRotulos_p.h>
#include <tavru/control/TDocumentoDoMapa.h>
#include <tavru/control/TGISBarraDeEscala.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISIndiceEspacial.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TStringList.h>

#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QBrush>
#include <QFont>
#include <QPen>
#include <QRegion>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <condition_variable>
#include <exception>
#include <limits>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <unordered_map>
#include <typeinfo>

namespace tavru {

/// Ouve a liberação do objeto selecionado (o aviso chega antes de a memória ser liberada).
class TGis::TObservadorDaSelecao : public IGISObservador
{
public:
    explicit TObservadorDaSelecao(TGis &gis) : FGis(gis) {}
    void GISMudou(const TGISAviso &aviso) override
    {
        if (aviso.Mudanca == gmLiberado && aviso.Objeto == FGis.FObjetoSelecionado)
            FGis.SelecaoLiberada();
    }

private:
    TGis &FGis;
};

namespace {
/// O que decide os pixels das camadas estáticas guardadas: a vista, o que o controle usa para
/// desenhar e, por camada, a identidade, o contador de mudanças e o que a faz ser desenhada.
struct TChaveDoFundo
{
    struct TCamadaNaChave
    {
        const TGISCamada *Camada;
        std::uint64_t Contador;
        bool Visivel;
        double ZoomMinimo;
        double ZoomMaximo;
        bool operator==(const TCamadaNaChave &o) const
        {
            return Camada == o.Camada && Contador == o.Contador && Visivel == o.Visivel
                && ZoomMinimo == o.ZoomMinimo && ZoomMaximo == o.ZoomMaximo;
        }
    };
    QSize Tamanho;
    const TGISProjecao *Projecao = nullptr;
    TGISPosicao Centro;
    double Zoom = 0;
    TRect Tela;
    TColor Fundo = 0;
    QFont Fonte;
    QFont FonteRotulo;
    QPen Caneta;
    QBrush Pincel;
    QStringList Rotulos;
    const void *TabelaDeCores = nullptr;
    const void *TabelaDeSimbolos = nullptr;
    bool SemSobreposicao = false;
    TColor Halo = 0;
    bool Suavizar = false;
    double Razao = 1.0;
    std::vector<TCamadaNaChave> Camadas;
    bool operator==(const TChaveDoFundo &o) const
    {
        return Tamanho == o.Tamanho && Projecao == o.Projecao && Centro == o.Centro && Zoom == o.Zoom
            && Tela.Left == o.Tela.Left && Tela.Top == o.Tela.Top && Tela.Right == o.Tela.Right
            && Tela.Bottom == o.Tela.Bottom && Fundo == o.Fundo && Fonte == o.Fonte && FonteRotulo == o.FonteRotulo
            && Caneta == o.Caneta && Pincel == o.Pincel && Rotulos == o.Rotulos && TabelaDeCores == o.TabelaDeCores
            && TabelaDeSimbolos == o.TabelaDeSimbolos && SemSobreposicao == o.SemSobreposicao && Halo == o.Halo
            && Suavizar == o.Suavizar && Razao == o.Razao && Camadas == o.Camadas;
    }
};
} // namespace

struct TGis::TFundoGuardado
{
    TChaveDoFundo Chave;
    QImage Imagem;
    std::optional<TGradeDeRotulos> Grade;
};

/// O desenho em grupos: uma linha de execução por grupo a mais, cada uma com a sua imagem
/// transparente e o seu canvas, que vivem tanto quanto ela (os textos prontos de um canvas usam
/// as fontes da linha que os preparou, que o Qt guarda por linha e libera quando ela termina), e
/// o custo de cada camada no último quadro, que reparte as camadas do próximo.
struct TGis::TDesenhoEmGrupos
{
    class TLinha
    {
    public:
        TLinha() : FLinha([this] { Laco(); }) {}
        ~TLinha()
        {
            {
                std::lock_guard<std::mutex> trava(FTrava);
                FSair = true;
            }
            FAviso.notify_all();
            FLinha.join();
        }
        /// Dá a tarefa à linha (que a roda com o seu canvas, sobre a sua imagem).
        void Iniciar(std::function<void(TCanvas &)> tarefa)
        {
            {
                std::lock_guard<std::mutex> trava(FTrava);
                FTarefa = std::move(tarefa);
                FFalha = nullptr;
                FFeita = false;
            }
            FAviso.notify_all();
        }
        /// Espera a tarefa; relança o que ela lançou.
        void Esperar()
        {
            std::unique_lock<std::mutex> trava(FTrava);
            FAviso.wait(trava, [this] { return FFeita; });
            if (FFalha)
                std::rethrow_exception(std::exchange(FFalha, nullptr));
        }
        QImage Imagem;

    private:
        void Laco()
        {
            TCanvas canvas(nullptr);
            std::unique_lock<std::mutex> trava(FTrava);
            for (;;) {
                FAviso.wait(trava, [this] { return FSair || FTarefa; });
                if (FSair)
                    break;
                std::function<void(TCanvas &)> tarefa = std::move(FTarefa);
                FTarefa = nullptr;
                trava.unlock();
                std::exception_ptr falha;
                try {
                    tarefa(canvas);
                } catch (...) {
                    falha = std::current_exception();
                }
                canvas.AtribuirImagem(nullptr); // termina o pintor antes de a imagem ser lida
                trava.lock();
                FFalha = falha;
                FFeita = true;
                FAviso.notify_all();
            }
        }
        std::mutex FTrava;
        std::condition_variable FAviso;
        std::function<void(TCanvas &)> FTarefa;
        std::exception_ptr FFalha;
        bool FFeita = true;
        bool FSair = false;
        std::thread FLinha; // por último: começa com o resto já construído
    };
    std::vector<std::unique_ptr<TLinha>> Linhas;
    std::unordered_map<const TGISCamada *, double> Custo;
};

TGis::TGis(QWidget *parent)
    : QWidget(parent),
      FSeta(std::make_unique<TSeta>()),
      FRotulos(std::make_unique<TStringList>()),
      FCanvas(std::make_unique<TCanvas>(&FBuffer)),
      FCanvasTela(std::make_unique<TCanvas>(&FTela)),
      FCamadas(std::make_unique<TGISCamadaList>()),
      FProjecaoPropria(std::make_unique<TGISProjecaoMercator>()),
      FVigia(std::make_unique<QObject>()),
      FObservadorDaSelecao(std::make_unique<TObservadorDaSelecao>(*this))
{
    FProjecao = FProjecaoPropria.get();
    FLinhasDoDesenho = std::max(1, std::min(int(std::thread::hardware_concurrency()), 64));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

TGis::~TGis()
{
    emit Destruindo();
    // Daqui em diante o controle está pela metade: nenhum sinal sai dele.
    blockSignals(true);
    FVigia.reset();
    FFerramentas.clear();
    FSeta.reset();
    TGis::Limpar();
    FCamadas.reset();
    FCanvas.reset();
    FBuffer = QImage();
    FCanvasTela.reset();
    FTela = QImage();
    FRotulos.reset();
}

// Camadas.

TGISCamada *TGis::ObterCamada(const QString &nome) const
{
    const int i = FCamadas->IndexOf(nome);
    return i < 0 ? nullptr : FCamadas->Items(i);
}

void TGis::ObterNomesCamadas(TStringList &nomes) const
{
    nomes.Clear();
    for (int i = 0; i < FCamadas->Count(); ++i)
        nomes.Add(FCamadas->Items(i)->Nome());
}

void TGis::TrazerParaFrente(const QString &nome)
{
    const int i = FCamadas->IndexOf(nome);
    if (i >= 0)
        FCamadas->Add(FCamadas->Extract(FCamadas->Items(i)));
}

void TGis::EnviarParaTras(const QString &nome)
{
    const int i = FCamadas->IndexOf(nome);
    if (i >= 0)
        FCamadas->Insert(0, FCamadas->Extract(FCamadas->Items(i)));
}

void TGis::MoverParaFrente(const QString &nome)
{
    const int i = FCamadas->IndexOf(nome);
    if (i >= 0)
        FCamadas->Exchange(i, i + 1);
}

void TGis::MoverParaTras(const QString &nome)
{
    const int i = FCamadas->IndexOf(nome);
    if (i >= 0)
        FCamadas->Exchange(i, i - 1);
}

void TGis::Limpar()
{
    const bool tinhaSelecao = FObjetoSelecionado != nullptr;
    VigiarSelecao(nullptr);
    FCamadas->Clear();
    if (tinhaSelecao)
        emit ObjetoSelecionadoMudou(nullptr);
}

void TGis::SalvarMapa(const QString &nomeArquivo)
{
    TDocumentoDoMapa::Gravar(*this, nomeArquivo);
}

void TGis::AbrirMapa(const QString &nomeArquivo)
{
    TDocumentoDoMapa::Ler(*this, nomeArquivo);
}

// Desenho.

void TGis::Desenhar()
{
    if (!isEnabled())
        return;
    const int largura = width();
    const int altura = height();
    FProjecao->DoAtribuirAreaTela(TRect(0, 0, largura, altura));
    // O buffer tem os pixels do aparelho; o pintor dele trabalha em pixels lógicos.
    const double razao = FRazaoDePixels > 0.0 ? FRazaoDePixels : devicePixelRatioF();
    const QSize aparelho(std::max(static_cast<int>(std::lround(largura * razao)), 0),
                         std::max(static_cast<int>(std::lround(altura * razao)), 0));
    if (FBuffer.size() != aparelho || FBuffer.devicePixelRatio() != razao) {
        FCanvas->AtribuirImagem(nullptr);
        FBuffer = QImage(aparelho, QImage::Format_ARGB32_Premultiplied);
        FBuffer.setDevicePixelRatio(razao);
        FCanvas->AtribuirImagem(&FBuffer);
    }
    TCanvas &canvas = *FCanvas;
    TGISObjeto::AtribuirTabelaSimbolos(FTabelaDeSimbolos);
    TGISObjeto::AtribuirTabelaSimbolos(canvas, FTabelaDeSimbolos);
    const double zoom = FProjecao->Zoom();
    // Sem sobreposição de rótulos, a grade vale para o desenho inteiro (todas as camadas).
    std::optional<TGradeDeRotulos> grade;

    // Com uma camada volátil, as camadas abaixo dela (e o fundo) vêm da imagem guardada quando a
    // chave é a mesma; senão são desenhadas e guardadas, com a grade dos rótulos como ficou.
    int primeiroVolatil = -1;
    for (int i = 0; i < FCamadas->Count() && primeiroVolatil < 0; ++i)
        if (FCamadas->Items(i)->Volatil())
            primeiroVolatil = i;
    std::optional<TChaveDoFundo> chave;
    if (primeiroVolatil >= 0) {
        chave.emplace();
        chave->Tamanho = FBuffer.size();
        chave->Projecao = FProjecao;
        chave->Centro = FProjecao->Centro();
        chave->Zoom = zoom;
        chave->Tela = FProjecao->AreaTela();
        chave->Fundo = FColor;
        chave->Fonte = FFont.ParaQFont();
        chave->FonteRotulo = FFonteRotulo.ParaQFont();
        chave->Caneta = FPen.ParaQPen();
        chave->Pincel = FBrush.ParaQBrush();
        chave->Rotulos = TextosRotulos();
        chave->TabelaDeCores = FTabelaDeCores;
        chave->TabelaDeSimbolos = FTabelaDeSimbolos;
        chave->SemSobreposicao = FRotulosSemSobreposicao;
        chave->Halo = FCorDoHalo;
        chave->Suavizar = Suavizar();
        chave->Razao = FBuffer.devicePixelRatio();
        for (int i = 0; i < primeiroVolatil; ++i) {
            const TGISCamada *c = FCamadas->Items(i);
            chave->Camadas.push_back({c, c->ContadorDeMudancas(), c->Visivel(), c->ZoomMinimo(), c->ZoomMaximo()});
        }
    }
    int primeira = 0;
    const bool reaproveitar = chave && FFundo && FFundo->Chave == *chave;
    if (reaproveitar) {
        if (FBuffer.sizeInBytes() > 0)
            std::memcpy(FBuffer.bits(), FFundo->Imagem.constBits(), std::size_t(FBuffer.sizeInBytes()));
        grade = FFundo->Grade;
        primeira = primeiroVolatil;
    } else {
        canvas.Brush().Style = bsSolid;
        canvas.Brush().Color = FColor;
        canvas.FillRect(TRect(0, 0, largura, altura));
        if (FRotulosSemSobreposicao)
            grade.emplace(FProjecao->AreaTela());
    }
    if (chave && !reaproveitar) {
        DesenharCamadas(0, primeiroVolatil, grade ? &*grade : nullptr);
        if (!FFundo)
            FFundo = std::make_unique<TFundoGuardado>();
        FFundo->Chave = *chave;
        FFundo->Imagem = FBuffer.copy();
        FFundo->Grade = grade;
        primeira = primeiroVolatil;
    }
    DesenharCamadas(primeira, FCamadas->Count(), grade ? &*grade : nullptr);
    DesenharObjetoSelecionado();
    if (FSeta->Mostrar())
        FSeta->Desenhar(canvas);
    Paint();
    AvisarVisao();
}

namespace {
/// Um rótulo a escrever depois dos objetos da camada.
struct TRotuloDoQuadro
{
    int X = 0;
    int Y = 0;
    QString Texto;
};
/// Os rótulos de um quadro, reaproveitados no contexto do canvas.
struct TRotulosDoQuadro
{
    std::vector<TRotuloDoQuadro> Itens;
};
/// Os índices dos candidatos de uma consulta ao índice, reaproveitados no contexto do canvas.
struct TCandidatosDoQuadro
{
    std::vector<int> Itens;
};

/// O retângulo de tela com que o controle recorta e pré-testa um objeto (não ordenado). O de um
/// ponto é onde ele desenha nesta projeção, e não a área do último desenho (que pode ter sido
/// noutra projeção ou noutro canvas): assim um quadro não depende dos anteriores, e o índice,
/// que guarda o ponto pela posição, devolve todos os que o percurso linear aceitaria.
TRect RetanguloDeRecorte(const TGISObjeto &objeto, const TGISProjecao &projecao)
{
    if (const auto *ponto = dynamic_cast<const TGISPonto *>(&objeto))
        return ponto->RetanguloNaTela(projecao);
    return projecao.MundoParaTelaRet(objeto.Area());
}

/// O teste de recorte do desenho: o barato da projeção (que só recusa o que está certamente
/// fora) e depois o exato.
bool NaTela(const TGISObjeto &objeto, const TGISProjecao &projecao, const TRect &tela)
{
    if (const auto *ponto = dynamic_cast<const TGISPonto *>(&objeto))
        return Intersecao(ponto->RetanguloNaTela(projecao), tela);
    const TGISRet area = objeto.Area();
    return projecao.Visivel(area) && Intersecao(projecao.MundoParaTelaRet(area), tela);
}

/// Verdadeiro quando desenhar o objeto só pinta pixels: uma linha ou área sem rótulo a escrever.
/// Um objeto assim, escondido por uma área que cobre a tela, pode ser pulado.
bool SoPixels(const TGISObjeto &objeto)
{
    const std::type_info &tipo = typeid(objeto);
    if (tipo != typeid(TGISLinha) && tipo != typeid(TGISArea) && tipo != typeid(TGISAreaComFuros))
        return false;
    return !(objeto.RotuloVisivel() && objeto.Informacoes().ObterTotal() > 0);
}

/// Metade do maior lado que o ponto pode ter na tela, mais a folga do arredondamento do centro.
int MeioTamanhoNaTela(const TGISPonto &ponto)
{
    const TPoint a = ponto.TamanhoMaximo();
    const TPoint b = ponto.TamanhoMinimo();
    const std::int64_t maior = std::max({std::llabs(a.X), std::llabs(a.Y), std::llabs(b.X), std::llabs(b.Y)});
    return int(std::min<std::int64_t>(maior / 2 + 2, 1 << 20));
}

/// O índice da camada, refeito (por carga em bloco) quando o contador de mudanças dela andou.
/// Um ponto entra pelo retângulo `AreaNoMundo` (o centro do seu desenho fica na imagem dele) e a
/// folga do índice é o maior meio tamanho na tela dos pontos; um composto, cuja área depende do
/// último desenho dos seus pontos, entra em toda consulta.
const TGISIndiceEspacial &IndiceAtual(const TGISCamada &camada)
{
    TGISIndiceEspacial &indice = camada.Indice();
    const std::uint64_t versao = camada.ContadorDeMudancas();
    if (indice.Construido() && indice.Versao() == versao)
        return indice;
    const TGISObjetoList &objetos = camada.Objetos();
    std::vector<TGISIndiceEspacial::TEntrada> entradas;
    entradas.reserve(std::size_t(objetos.Count()));
    std::vector<int> sempre;
    int folga = 0;
    for (int i = 0; i < objetos.Count(); ++i) {
        const TGISObjeto *objeto = objetos.Items(i);
        if (!objeto)
            continue;
        if (const auto *ponto = dynamic_cast<const TGISPonto *>(objeto)) {
            entradas.push_back({ponto->AreaNoMundo(), i});
            folga = std::max(folga, MeioTamanhoNaTela(*ponto));
        } else if (dynamic_cast<const TGISComposto *>(objeto)) {
            sempre.push_back(i);
        } else {
            entradas.push_back({objeto->Area(), i});
        }
    }
    indice.Construir(entradas, sempre, versao, folga);
    return indice;
}

/// Os candidatos da camada para um retângulo de tela crescido de `margem` pixels, em ordem de
/// índice. Falso quando o percurso linear deve ser usado: índice desligado, projeção que não é a
/// Mercator do controle (o índice precisa de uma projeção alinhada aos eixos e monótona) ou
/// consulta que cobre a camada inteira (então andar a lista é o mais barato).
bool ConsultarIndice(const TGISCamada &camada, const TGISProjecao &projecao, const TRect &tela, int margem,
                     std::vector<int> &candidatos)
{
    if (typeid(projecao) != typeid(TGISProjecaoMercator))
        return false;
    const TGISIndiceEspacial &indice = IndiceAtual(camada);
    const TRect crescido = Inflar(ConcertaRect(tela), margem + indice.FolgaTela() + 2);
    TGISRet mundo = ConcertaRect(projecao.TelaParaMundoRet(crescido));
    // Onde a volta não alcança o retângulo crescido (a conversão parou na ponta da faixa), o lado
    // fica aberto até o fim.
    const TRect volta = ConcertaRect(projecao.MundoParaTelaRet(mundo));
    if (volta.Left > crescido.Left + 1)
        mundo.Pos1.Longitude = INT32_MIN;
    if (volta.Right < crescido.Right - 1)
        mundo.Pos2.Longitude = INT32_MAX;
    if (volta.Top > crescido.Top + 1)
        mundo.Pos2.Latitude = INT32_MAX;
    if (volta.Bottom < crescido.Bottom - 1)
        mundo.Pos1.Latitude = INT32_MIN;
    if (Contem(mundo, indice.Extensao()))
        return false;
    indice.Consultar(mundo, candidatos);
    return true;
}
} // namespace

void TGis::AplicarTabelaDeCores(TGISCamada &camada)
{
    if (!FTabelaDeCores)
        return;
    for (TGISObjeto *objeto : camada.Objetos())
        if (objeto && objeto->IndiceCor() >= 0 && objeto->IndiceCor() < FTabelaDeCores->ObterTotal())
            objeto->AtualizarCores(*FTabelaDeCores);
}

void TGis::DesenharCamada(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao)
{
    std::optional<TGradeDeRotulos> grade;
    if (FRotulosSemSobreposicao)
        grade.emplace(projecao.AreaTela());
    const int escondidos = FOclusao ? std::max(UltimaCobertura(camada, canvas, projecao), 0) : 0;
    DesenharCamada(camada, canvas, projecao, grade ? &*grade : nullptr, escondidos);
}

int TGis::UltimaCobertura(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao)
{
    if (!camada.Visivel())
        return -1;
    const TGISObjetoList &objetos = camada.Objetos();
    const TRect tela = projecao.AreaTela();
    // A caixa de uma área que cobre a tela contém a tela, e a extensão do índice contém a caixa:
    // na vista da camada inteira, nada cobre, e a lista nem é andada.
    if (FUsarIndice && typeid(projecao) == typeid(TGISProjecaoMercator)) {
        const TRect extensao = ConcertaRect(projecao.MundoParaTelaRet(IndiceAtual(camada).Extensao()));
        if (extensao.Left > tela.Left || extensao.Top > tela.Top || extensao.Right < tela.Right
            || extensao.Bottom < tela.Bottom)
            return -1;
    }
    std::vector<int> &candidatos = canvas.Contexto().Obter<TCandidatosDoQuadro>().Itens;
    const bool filtrado = FUsarIndice && ConsultarIndice(camada, projecao, tela, 0, candidatos);
    const int passos = filtrado ? int(candidatos.size()) : objetos.Count();
    // De trás para a frente: a primeira que cobre é a última desenhada.
    for (int k = passos - 1; k >= 0; --k) {
        const int i = filtrado ? candidatos[std::size_t(k)] : k;
        TGISObjeto *objeto = objetos.Items(i);
        if (!objeto || typeid(*objeto) != typeid(TGISArea) || !objeto->Visivel() || !NaTela(*objeto, projecao, tela))
            continue;
        if (FTabelaDeCores && objeto->IndiceCor() >= 0 && objeto->IndiceCor() < FTabelaDeCores->ObterTotal())
            objeto->AtualizarCores(*FTabelaDeCores);
        if (static_cast<const TGISArea *>(objeto)->CobreRetangulo(canvas, projecao, tela))
            return i;
    }
    return -1;
}

void TGis::DesenharCamada(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao, TGradeDeRotulos *grade,
                          int escondidosAte)
{
    canvas.Font().Assign(FFont);
    canvas.Brush().Assign(FBrush);
    canvas.Pen().Assign(FPen);

    // Só os objetos desenhados com rótulo entram, na ordem dos índices, que é a ordem em que os
    // rótulos são escritos.
    const TGISObjetoList &objetos = camada.Objetos();
    const int total = objetos.Count();
    std::vector<TRotuloDoQuadro> &rotulos = canvas.Contexto().Obter<TRotulosDoQuadro>().Itens;
    rotulos.clear();

    if (camada.Visivel()) {
        const TRect tela = projecao.AreaTela();
        // O índice só escolhe candidatos, em ordem de índice; o teste exato é o mesmo.
        std::vector<int> &candidatos = canvas.Contexto().Obter<TCandidatosDoQuadro>().Itens;
        const bool filtrado = FUsarIndice && ConsultarIndice(camada, projecao, tela, 0, candidatos);
        const int passos = filtrado ? int(candidatos.size()) : total;
        for (int k = 0; k < passos; ++k) {
            const int i = filtrado ? candidatos[std::size_t(k)] : k;
            TGISObjeto *objeto = objetos.Items(i);
            // Um objeto escondido (`Visivel` falso) fica na camada mas não é desenhado nem rotulado.
            if (!objeto || !objeto->Visivel() || !NaTela(*objeto, projecao, tela))
                continue;
            if (i < escondidosAte && SoPixels(*objeto))
                continue;
            canvas.Brush().Assign(FBrush);
            canvas.Pen().Assign(FPen);
            canvas.Font().Assign(FFonteRotulo);
            if (FTabelaDeCores && objeto->IndiceCor() >= 0 && objeto->IndiceCor() < FTabelaDeCores->ObterTotal())
                objeto->AtualizarCores(*FTabelaDeCores);
            objeto->Desenhar(canvas, projecao, false);

            if (objeto->RotuloVisivel() && objeto->Informacoes().ObterTotal() > 0) {
                // A extensão é medida de novo depois do desenho, de propósito: um ponto (e um
                // composto com pontos) guarda a área que acabou de desenhar.
                auto *ponto = dynamic_cast<TGISPonto *>(objeto);
                const TRect referencia = ponto ? ponto->ObterAreaDesenho(projecao)
                                               : ConcertaRect(projecao.MundoParaTelaRet(objeto->Area()));
                const TPoint ancora = Centro(referencia);
                QString texto = ObterRotulo(*objeto);
                if (texto.isEmpty())
                    continue;
                const int x = ancora.X - canvas.TextWidth(texto) / 2;
                rotulos.push_back(TRotuloDoQuadro{x, ancora.Y, std::move(texto)});
            }
        }
    }

    // Os rótulos, por ordem de índice de objeto. O alinhamento é o de esquerda e topo, qualquer
    // que seja o que um objeto deixou no canvas.
    const unsigned alinhamento = canvas.SetTextAlign(TA_LEFT | TA_TOP);
    for (const TRotuloDoQuadro &r : rotulos) {
        canvas.Brush().Style = bsClear;
        EscreverRotulo(canvas, r.X, r.Y, r.Texto, grade);
    }
    canvas.SetTextAlign(alinhamento);
    rotulos.clear();
    TContextoDeDesenho::Aliviar(rotulos);
}

void TGis::DesenharCamadas(int de, int ate, TGradeDeRotulos *grade)
{
    const double zoom = FProjecao->Zoom();
    std::vector<TGISCamada *> camadas;
    for (int i = de; i < ate; ++i) {
        TGISCamada *camada = FCamadas->Items(i);
        if (!(zoom < camada->ZoomMinimo()) && !(zoom > camada->ZoomMaximo()))
            camadas.push_back(camada);
    }
    // A última área que cobre a tela esconde as camadas de baixo e o começo da sua.
    std::vector<int> escondidos(camadas.size(), 0);
    for (std::size_t k = camadas.size(); FOclusao && k-- > 0;) {
        const int cobre = UltimaCobertura(*camadas[k], *FCanvas, *FProjecao);
        if (cobre < 0)
            continue;
        escondidos[k] = cobre;
        std::fill(escondidos.begin(), escondidos.begin() + std::ptrdiff_t(k), std::numeric_limits<int>::max());
        break;
    }
    const int linhas = FDesenhoParalelo && !grade ? std::min(FLinhasDoDesenho, int(camadas.size())) : 1;
    if (linhas < 2) {
        for (std::size_t k = 0; k < camadas.size(); ++k)
            DesenharCamada(*camadas[k], *FCanvas, *FProjecao, grade, escondidos[k]);
        return;
    }

    // Grupos seguidos de custo parecido: o custo de uma camada é o do último quadro (uma camada
    // nova conta pelo número de objetos, como se cada um custasse um microssegundo).
    if (!FGrupos)
        FGrupos = std::make_unique<TDesenhoEmGrupos>();
    TDesenhoEmGrupos &grupos = *FGrupos;
    std::vector<double> custo(camadas.size());
    double total = 0;
    for (std::size_t k = 0; k < camadas.size(); ++k) {
        const auto achado = grupos.Custo.find(camadas[k]);
        custo[k] = achado != grupos.Custo.end() ? achado->second : camadas[k]->Objetos().Count() * 1e-3 + 1e-3;
        total += custo[k];
    }
    // inicio[g] é a primeira camada do grupo g; o grupo g vai até inicio[g + 1].
    std::vector<std::size_t> inicio{0};
    double acumulado = 0;
    for (std::size_t k = 0; k < camadas.size(); ++k) {
        const int gruposAbertos = int(inicio.size());
        if (k > inicio.back() && gruposAbertos < linhas && acumulado + custo[k] / 2 > total * gruposAbertos / linhas)
            inicio.push_back(k);
        acumulado += custo[k];
    }
    inicio.push_back(camadas.size());
    const std::size_t outros = inicio.size() - 2; // grupos além do primeiro

    while (grupos.Linhas.size() < outros)
        grupos.Linhas.push_back(std::make_unique<TDesenhoEmGrupos::TLinha>());
    const double razao = FBuffer.devicePixelRatio();
    for (std::size_t g = 0; g < outros; ++g) {
        QImage &imagem = grupos.Linhas[g]->Imagem;
        if (imagem.size() != FBuffer.size() || imagem.devicePixelRatio() != razao) {
            imagem = QImage(FBuffer.size(), QImage::Format_ARGB32_Premultiplied);
            imagem.setDevicePixelRatio(razao);
        }
        imagem.fill(Qt::transparent);
    }

    // Cada grupo desenha as suas camadas em ordem, com a sua cópia da projeção, e mede cada uma.
    std::vector<double> medido(camadas.size());
    auto desenharGrupo = [&](std::size_t g, TCanvas &canvas, const TGISProjecao &projecao) {
        for (std::size_t k = inicio[g]; k < inicio[g + 1]; ++k) {
            const auto comeco = std::chrono::steady_clock::now();
            DesenharCamada(*camadas[k], canvas, projecao, nullptr, escondidos[k]);
            medido[k] = std::chrono::duration<double>(std::chrono::steady_clock::now() - comeco).count();
        }
    };
    std::vector<std::unique_ptr<TGISProjecao>> projecoes;
    for (std::size_t g = 0; g < outros; ++g)
        projecoes.push_back(FProjecao->Duplicar());
    const bool suavizar = Suavizar();
    for (std::size_t g = 0; g < outros; ++g) {
        TDesenhoEmGrupos::TLinha &linha = *grupos.Linhas[g];
        linha.Iniciar([&, g, suavizar](TCanvas &canvas) {
            canvas.AtribuirImagem(&grupos.Linhas[g]->Imagem);
            canvas.AtribuirSuavizar(suavizar);
            TGISObjeto::AtribuirTabelaSimbolos(canvas, FTabelaDeSimbolos);
            desenharGrupo(g + 1, canvas, *projecoes[g]);
        });
    }
    std::exception_ptr falha;
    try {
        desenharGrupo(0, *FCanvas, *FProjecao);
    } catch (...) {
        falha = std::current_exception();
    }
    for (std::size_t g = 0; g < outros; ++g) {
        try {
            grupos.Linhas[g]->Esperar();
        } catch (...) {
            if (!falha)
                falha = std::current_exception();
        }
    }
    if (falha)
        std::rethrow_exception(falha);

    // As imagens dos outros grupos, por cima e em ordem. Um pixel opaco cobre o de baixo
    // exatamente; um transparente o deixa como está.
    for (std::size_t g = 0; g < outros; ++g)
        FCanvas->Draw(0, 0, grupos.Linhas[g]->Imagem);
    grupos.Custo.clear();
    for (std::size_t k = 0; k < camadas.size(); ++k)
        grupos.Custo[camadas[k]] = medido[k];
}

void TGis::DesenharObjetoSelecionado()
{
    if (!FObjetoSelecionado)
        return;
    FSeta->Mover(FProjecao->MundoParaTela(PosicaoDaSeta(*FObjetoSelecionado)));
    TCanvas &canvas = *FCanvas;
    const TColor cor = FSeta->Brush().Color;
    canvas.Pen().Color = cor;
    canvas.Pen().Width = 2;
    canvas.Brush().Color = cor;
    canvas.Brush().Style = bsBDiagonal;
    FObjetoSelecionado->Desenhar(canvas, *FProjecao, true);
}

namespace {
/// O tamanho de uma imagem em pixels lógicos (os do controle).
QSize TamanhoLogico(const QImage &imagem)
{
    return imagem.deviceIndependentSize().toSize();
}
} // namespace

bool TGis::Suavizar() const
{
    return FCanvas->Suavizar();
}

void TGis::AtribuirSuavizar(bool ligado)
{
    FCanvas->AtribuirSuavizar(ligado);
}

void TGis::CopiarBufferParaTela()
{
    FCanvasTela->AtribuirImagem(nullptr);
    if (FTela.size() == FBuffer.size() && FTela.format() == FBuffer.format() && !FBuffer.isNull()
        && FTela.bytesPerLine() == FBuffer.bytesPerLine() && FTela.devicePixelRatio() == FBuffer.devicePixelRatio())
        std::memcpy(FTela.bits(), FBuffer.constBits(), static_cast<size_t>(FBuffer.sizeInBytes()));
    else
        FTela = FBuffer.copy();
    FCanvasTela->AtribuirImagem(&FTela);
}

void TGis::Paint()
{
    CopiarBufferParaTela();
    if (FMostrarEscala)
        TGISBarraDeEscala::Desenhar(*FCanvasTela, *FProjecao, TRect(0, 0, TamanhoLogico(FTela).width(), TamanhoLogico(FTela).height()));
    update();
    if (OnPaint)
        OnPaint(this);
    ParaCadaFerramenta([](IGISMouseEvent &f) { f.GISPaint(); });
}

void TGis::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    if (!FTela.isNull())
        pintor.drawImage(0, 0, FTela);
    // O que a imagem ainda não cobre (antes do primeiro desenho, ou com o controle desabilitado
    // depois de crescer) fica com a cor de fundo.
    const QRegion resto = QRegion(rect()) - QRegion(QRect(QPoint(0, 0), TamanhoLogico(FTela)));
    for (const QRect &r : resto)
        pintor.fillRect(r, CorQt());
}

// Rótulos.

void TGis::AtualizarRotulos()
{
    const QString nome = QStringLiteral("Nome");
    if (FRotulos->IndexOf(nome) < 0)
        FRotulos->Add(nome);
    for (int i = 0; i < FCamadas->Count(); ++i) {
        const TGISObjetoList &objetos = FCamadas->Items(i)->Objetos();
        if (objetos.Count() < 1 || !objetos.Items(0))
            continue;
        const TInformacoes &info = objetos.Items(0)->Informacoes();
        if (info.ObterTotal() > 0 && FRotulos->IndexOf(info.ObterNomeCampo(0)) < 0)
            FRotulos->Add(info.ObterNomeCampo(0));
    }
    Desenhar();
}

QString TGis::ObterRotulo(const TGISObjeto &objeto) const
{
    const TInformacoes &info = objeto.Informacoes();
    const QString separador = QStringLiteral(", ");
    QString texto;
    for (int i = 0; i < FRotulos->Count(); ++i) {
        const int campo = info.ObterIndiceCampo(FRotulos->Strings(i));
        if (campo < 0)
            continue;
        const QString valor = info.ObterValorCampo(campo).trimmed();
        // O valor já está no texto quando aparece nele terminando onde termina um trecho (antes
        // de ", " ou no fim): "Azul" já está em "Rio Azul", "Rio" não.
        if (valor.isEmpty())
            continue;
        if (texto.isEmpty()) { // o primeiro valor: dividido, sem cópia
            texto = valor;
            continue;
        }
        if ((texto + separador).contains(valor + separador))
            continue;
        texto += separador;
        texto += valor;
    }
    return texto;
}

void TGis::ObterRotulos(TStringList &nomes) const
{
    nomes.Clear();
    for (int c = 0; c < FCamadas->Count(); ++c) {
        const TGISObjetoList &objetos = FCamadas->Items(c)->Objetos();
        for (int o = 0; o < objetos.Count(); ++o) {
            const TGISObjeto *objeto = objetos.Items(o);
            if (!objeto)
                continue;
            const TInformacoes &info = objeto->Informacoes();
            for (int f = 0; f < info.ObterTotal(); ++f) {
                QString nome = info.ObterNomeCampo(f).toLower();
                if (nome.isEmpty())
                    continue;
                nome[0] = nome[0].toUpper();
                if (nomes.IndexOf(nome) < 0)
                    nomes.Add(nome);
            }
        }
    }
}

// Seleção.

void TGis::SelecionarObjeto(TGISObjeto *objeto)
{
    if (objeto == FObjetoSelecionado)
        return;
    TGISObjeto *const anterior = FObjetoSelecionado;
    if (DoMudaObjetoSelecionado(objeto))
        VigiarSelecao(objeto);
    if (FVisualizadorInformacoes) {
        if (FObjetoSelecionado)
            FVisualizadorInformacoes->AtribuirInformacoes(FObjetoSelecionado->Informacoes().Linhas());
        else
            FVisualizadorInformacoes->Limpar();
    }
    Desenhar();
    ParaCadaFerramenta([objeto](IGISMouseEvent &f) { f.GISSelecionou(objeto); });
    if (FObjetoSelecionado != anterior)
        emit ObjetoSelecionadoMudou(FObjetoSelecionado);
}

bool TGis::DoMudaObjetoSelecionado(TGISObjeto *objeto)
{
    FSeta->AtribuirMostrar(objeto != nullptr);
    bool podeMudar = true;
    if (OnMudaObjetoSelecionado)
        OnMudaObjetoSelecionado(this, objeto, podeMudar);
    return podeMudar;
}

void TGis::VigiarSelecao(TGISObjeto *objeto)
{
    if (FObjetoSelecionado == objeto)
        return;
    if (FObjetoSelecionado)
        FObjetoSelecionado->RemoverObservador(FObservadorDaSelecao.get());
    FObjetoSelecionado = objeto;
    if (objeto)
        objeto->AdicionarObservador(FObservadorDaSelecao.get());
}

void TGis::SelecaoLiberada()
{
    FObjetoSelecionado = nullptr; // sem tirar o observador: o objeto já está sendo desfeito
    FSeta->AtribuirMostrar(false);
    if (FVisualizadorInformacoes)
        FVisualizadorInformacoes->Limpar();
    ParaCadaFerramenta([](IGISMouseEvent &f) { f.GISSelecionou(nullptr); });
    emit ObjetoSelecionadoMudou(nullptr);
}

void TGis::Zerado()
{
    AtualizarRotulos();
    SelecionarObjeto(nullptr);
}

// Visão.

void TGis::resizeEvent(QResizeEvent *evento)
{
    QWidget::resizeEvent(evento);
    FProjecao->DoAtribuirAreaTela(TRect(0, 0, width(), height()));
    Desenhar();
    AvisarVisao();
}

void TGis::FitToWindow()
{
    TGISRet r = GISRet(0, 0, 0, 0);
    for (int c = 0; c < FCamadas->Count(); ++c) {
        const TGISCamada *camada = FCamadas->Items(c);
        if (!camada->Visivel())
            continue;
        const TGISObjetoList &objetos = camada->Objetos();
        for (int o = 0; o < objetos.Count(); ++o) {
            const TGISObjeto *objeto = objetos.Items(o);
            if (!objeto)
                continue;
            try {
                const TGISRet area = objeto->Area();
                if (r.Pos1.Latitude == 0 && r.Pos2.Latitude == 0)
                    r = area;
                else
                    r = Uniao(r, area);
            } catch (const std::exception &) {
                // Um objeto que não se deixa medir fica de fora do ajuste.
            }
        }
    }
    FProjecao->DoAtribuirAreaTela(TRect(0, 0, width(), height()));
    FProjecao->FitToRect(r);
    Desenhar();
}

void TGis::FitToCamada(const QString &nome)
{
    if (TGISCamada *camada = ObterCamada(nome)) {
        const TGISRet limites = camada->Objetos().Limites();
        if (limites.Pos1.Latitude == limites.Pos2.Latitude || limites.Pos1.Longitude == limites.Pos2.Longitude)
            camada->Objetos().CalcularLimites();
    }
    FProjecao->FitToRect(Escalonar(FRetanguloAjuste, 10.0));
}

void TGis::Visao(const TGISPosicao &posicao, double zoom)
{
    FProjecao->AtribuirCentro(posicao);
    FProjecao->DoAtribuirZoom(zoom);
    Desenhar();
}

void TGis::ZoomArea(const QString &nome, int indice)
{
    TGISCamada *camada = ObterCamada(nome);
    if (!camada)
        return;
    const TGISObjeto *objeto = camada->Objetos().Items(indice);
    if (!objeto) // um lugar vazio da lista não tem extensão
        return;
    const TGISRet a = objeto->Area();
    auto mais = [](std::int32_t v, int d) { return Saturar32(std::int64_t(v) + d); };
    FProjecao->FitToRect(GISRet(mais(a.Pos1.Latitude, -10), mais(a.Pos1.Longitude, -10), mais(a.Pos2.Latitude, 10),
                                mais(a.Pos2.Longitude, 10)));
}

void TGis::VisualizarObjeto(TGISObjeto *objeto, bool centralizar, int percentual)
{
    if (!objeto)
        return;
    TGISProjecao &projecao = *FProjecao;
    if (percentual != 0) {
        const TGISPosicao centro = projecao.Centro();
        projecao.FitToRect(Escalonar(objeto->Area(), percentual / 100.0));
        projecao.AtribuirCentro(centro);
    }
    const TGISRet v = ConcertaRect(projecao.TelaParaMundoRet(projecao.AreaTela()));
    TGISRet o = ConcertaRect(objeto->Area());
    if (centralizar || Contem(o, v)) {
        projecao.AtribuirCentro(Centro(objeto->Area()));
    } else {
        // A margem: o desenho do ponto, ou a própria tela (não o objeto, de propósito), crescidos
        // do tamanho da seta.
        auto *ponto = dynamic_cast<TGISPonto *>(objeto);
        const TRect margem = ponto ? ponto->ObterAreaDesenho(projecao) : projecao.MundoParaTelaRet(v);
        o = ConcertaRect(projecao.TelaParaMundoRet(Inflar(margem, FSeta->Tamanho())));
        auto deslocamento = [](std::int64_t o1, std::int64_t o2, std::int64_t v1, std::int64_t v2) -> std::int64_t {
            if (o1 < v1)
                return o1 - v1;
            if (o2 > v2)
                return o2 - v2;
            return 0;
        };
        const std::int64_t dLat = deslocamento(o.Pos1.Latitude, o.Pos2.Latitude, v.Pos1.Latitude, v.Pos2.Latitude);
        const std::int64_t dLon =
            deslocamento(o.Pos1.Longitude, o.Pos2.Longitude, v.Pos1.Longitude, v.Pos2.Longitude);
        const TGISPosicao centro = projecao.Centro();
        projecao.AtribuirCentro(GISPosicao(Saturar32(centro.Latitude + dLat), Saturar32(centro.Longitude + dLon)));
    }
    SelecionarObjeto(objeto);
}

void TGis::CalcularZoomInteligente()
{
    TGISProjecao &projecao = *FProjecao;
    for (int c = 0; c < FCamadas->Count(); ++c) {
        TGISCamada &camada = *FCamadas->Items(c);
        TGISObjetoList &objetos = camada.Objetos();
        objetos.CalcularLimites();
        const TPoint p1 = projecao.MundoParaTela(objetos.Limites().Pos1);
        const TPoint p2 = projecao.MundoParaTela(objetos.Limites().Pos2);
        const std::int64_t dx = std::llabs(std::int64_t(p2.X) - p1.X);
        const std::int64_t dy = std::llabs(std::int64_t(p2.Y) - p1.Y);
        if (dx > 0 && dy > 0) {
            const double fx = static_cast<double>(projecao.AreaTela().Width()) / static_cast<double>(dx);
            const double fy = static_cast<double>(projecao.AreaTela().Height()) / static_cast<double>(dy);
            const double zx = fx * projecao.Zoom();
            const double zy = fy * projecao.Zoom();
            camada.AtribuirZoomMinimo(zx > zy ? zx : zy);
        }
        AjustarEscalaDasImagens(camada);
    }
}

void TGis::AjustarEscalaDasImagens(TGISCamada &camada)
{
    const TGISRet mundo = FProjecao->AreaMundo();
    const TGISObjetoList &objetos = camada.Objetos();
    for (int i = 0; i < objetos.Count(); ++i) {
        auto *imagem = dynamic_cast<TGISImagem *>(objetos.Items(i));
        if (!imagem)
            continue;
        const TGISRet area = imagem->Area();
        const double altura = static_cast<double>(area.Pos2.Latitude) - area.Pos1.Latitude;
        const double largura = static_cast<double>(area.Pos2.Longitude) - area.Pos1.Longitude;
        if (altura == 0.0 || largura == 0.0)
            continue;
        const double ry = (static_cast<double>(mundo.Pos2.Latitude) - mundo.Pos1.Latitude) / altura;
        const double rx = (static_cast<double>(mundo.Pos2.Longitude) - mundo.Pos1.Longitude) / largura;
        imagem->AtribuirEscala(ry < rx ? ry : rx);
    }
}

TPoint TGis::PosicaoDoCursor() const
{
    const QPoint p = mapFromGlobal(QCursor::pos());
    return TPoint(p.x(), p.y());
}

TGISPosicao TGis::ObterPosicaoCursor() const
{
    return FProjecao->TelaParaMundo(PosicaoDoCursor());
}

std::int32_t TGis::ObterLatitude() const
{
    return ObterPosicaoCursor().Latitude;
}

std::int32_t TGis::ObterLongitude() const
{
    return ObterPosicaoCursor().Longitude;
}

// Propriedades.

QColor TGis::CorQt() const
{
    return ParaQColor(FColor);
}

void TGis::AtribuirCorQt(const QColor &cor)
{
    FColor = DeQColor(cor);
}

QStringList TGis::TextosRotulos() const
{
    return FRotulos->Textos();
}

void TGis::AtribuirTextosRotulos(const QStringList &nomes)
{
    FRotulos->AtribuirTextos(nomes);
}

void TGis::AtribuirTabelaDeSimbolos(TTabelaDeSimbolos *tabela)
{
    FTabelaDeSimbolos = tabela;
    VigiarComponente(tabela);
}

void TGis::AtribuirTabelaDeCores(TTabelaDeCores *tabela)
{
    FTabelaDeCores = tabela;
    VigiarComponente(tabela);
}

void TGis::AtribuirVisualizadorInformacoes(TVisualizadorInformacoes *visualizador)
{
    FVisualizadorInformacoes = visualizador;
    VigiarComponente(visualizador);
}

void TGis::AtribuirProjecao(TGISProjecao *projecao)
{
    FProjecao = projecao ? projecao : FProjecaoPropria.get();
}

// Componentes vigiados.

void TGis::VigiarComponente(QObject *componente)
{
    if (!componente || FVigiados.contains(componente))
        return;
    FVigiados.insert(componente);
    connect(componente, &QObject::destroyed, FVigia.get(), [this](QObject *morto) {
        FVigiados.remove(morto);
        Notification(morto);
    });
}

void TGis::Notification(QObject *componente)
{
    if (componente == FVisualizadorInformacoes)
        FVisualizadorInformacoes = nullptr;
    else if (componente == FTabelaDeSimbolos)
        FTabelaDeSimbolos = nullptr;
    else if (componente == FTabelaDeCores)
        FTabelaDeCores = nullptr;
    FFerramentas.erase(std::remove_if(FFerramentas.begin(), FFerramentas.end(),
                                      [componente](const TRegistroFerramenta &r) { return r.Objeto == componente; }),
                       FFerramentas.end());
}

// Ferramentas.

void TGis::RegistrarMouseEvent(IGISMouseEvent *intf)
{
    if (!intf)
        return;
    for (const TRegistroFerramenta &r : FFerramentas)
        if (r.Ferramenta == intf)
            return;
    QObject *objeto = dynamic_cast<QObject *>(intf);
    FFerramentas.push_back({intf, objeto});
    VigiarComponente(objeto);
}

void TGis::RemoverRegistroMouseEvent(IGISMouseEvent *intf)
{
    FFerramentas.erase(std::remove_if(FFerramentas.begin(), FFerramentas.end(),
                                      [intf](const TRegistroFerramenta &r) { return r.Ferramenta == intf; }),
                       FFerramentas.end());
}

std::vector<IGISMouseEvent *> TGis::MouseEvents() const
{
    std::vector<IGISMouseEvent *> lista;
    lista.reserve(FFerramentas.size());
    for (const TRegistroFerramenta &r : FFerramentas)
        lista.push_back(r.Ferramenta);
    return lista;
}

void TGis::ParaCadaFerramenta(const std::function<void(IGISMouseEvent &)> &acao)
{
    const std::vector<IGISMouseEvent *> lista = MouseEvents();
    for (IGISMouseEvent *ferramenta : lista) {
        const bool registrada = std::any_of(FFerramentas.begin(), FFerramentas.end(),
                                            [ferramenta](const TRegistroFerramenta &r) { return r.Ferramenta == ferramenta; });
        if (registrada)
            acao(*ferramenta);
    }
}

void TGis::ObterListaDeObjetos(const TPoint &ponto, TStringList &lista)
{
    lista.Clear();
    const TRect cliente(0, 0, width(), height());
    TGISProjecao &projecao = *FProjecao;
    const double zoom = projecao.Zoom();
    std::vector<int> candidatos;
    for (int c = FCamadas->Count() - 1; c >= 0; --c) {
        const TGISCamada &camada = *FCamadas->Items(c);
        if (!camada.Visivel() || camada.Tipo() < gtcInterrogavel || zoom < camada.ZoomMinimo()
            || zoom > camada.ZoomMaximo())
            continue;
        const TGISObjetoList &objetos = camada.Objetos();
        // O índice dá os candidatos perto do clique (crescido da maior margem abaixo), em ordem de
        // índice; andamos do último ao primeiro, como a lista.
        const int margemMaxima = std::max(std::abs(Arredondar(projecao.ErroTelaPonto() * zoom / 2.0)),
                                          std::abs(Arredondar(projecao.ErroTelaPonto())));
        const bool filtrado = FUsarIndice
            && ConsultarIndice(camada, projecao, TRect(ponto.X, ponto.Y, ponto.X, ponto.Y), margemMaxima, candidatos);
        const int passos = filtrado ? int(candidatos.size()) : objetos.Count();
        for (int k = passos - 1; k >= 0; --k) {
            const int o = filtrado ? candidatos[std::size_t(k)] : k;
            TGISObjeto *objeto = objetos.Items(o);
            // Um objeto escondido não é achado por clique.
            if (!objeto || !objeto->Visivel())
                continue;
            // Em ordem antes de crescer: a latitude maior fica em cima, e crescer o retângulo
            // projetado como veio o encolheria na vertical.
            const TRect r = ConcertaRect(RetanguloDeRecorte(*objeto, projecao));
            if (!Intersecao(r, projecao.AreaTela()))
                continue;
            const int margem = r.Left == r.Right ? Arredondar(projecao.ErroTelaPonto() * zoom / 2.0)
                                                 : Arredondar(projecao.ErroTelaPonto());
            const TRect crescido = Inflar(r, margem);
            if (!Intersecao(crescido, cliente) || !PertenceRect(ponto, crescido))
                continue;
            if (!objeto->Pertence(projecao, ponto))
                continue;
            const QString rotulo = ObterRotulo(*objeto);
            if (!rotulo.isEmpty())
                lista.AddObject(rotulo, objeto);
        }
    }
}

TGISObjeto *TGis::ObterObjeto(const TPoint &ponto)
{
    TStringList lista;
    ObterListaDeObjetos(ponto, lista);
    return lista.Count() > 0 ? lista.Objeto<TGISObjeto>(0) : nullptr;
}

// Mouse.

namespace {

bool BotaoDaPlataforma(Qt::MouseButton botao, TMouseButton &resultado)
{
    switch (botao) {
    case Qt::LeftButton: resultado = mbLeft; return true;
    case Qt::RightButton: resultado = mbRight; return true;
    case Qt::MiddleButton: resultado = mbMiddle; return true;
    default: return false;
    }
}

TPoint PontoDoEvento(const QMouseEvent *evento)
{
    const QPoint p = evento->position().toPoint();
    return TPoint(p.x(), p.y());
}

} // namespace

void TGis::mousePressEvent(QMouseEvent *evento)
{
    QWidget::mousePressEvent(evento);
    TMouseButton botao;
    if (!BotaoDaPlataforma(evento->button(), botao))
        return;
    if (botao == mbLeft)
        FCliqueArmado = true;
    const TPoint ponto = PontoDoEvento(evento);
    const TShiftState shift = ShiftDeQt(evento->modifiers(), evento->buttons());
    ParaCadaFerramenta([&](IGISMouseEvent &f) { f.GISMouseDown(ponto, botao, shift); });
}

void TGis::mouseDoubleClickEvent(QMouseEvent *evento)
{
    // Não chama a base, que repetiria o aperto: o Qt já entregou o segundo aperto antes.
    TMouseButton botao;
    if (!BotaoDaPlataforma(evento->button(), botao))
        return;
    if (botao == mbLeft)
        FCliqueArmado = false;
    const TPoint naoDefinido;
    ParaCadaFerramenta([&](IGISMouseEvent &f) { f.GISMouseDblClick(naoDefinido); });
}

void TGis::mouseReleaseEvent(QMouseEvent *evento)
{
    QWidget::mouseReleaseEvent(evento);
    TMouseButton botao;
    if (!BotaoDaPlataforma(evento->button(), botao))
        return;
    const TPoint ponto = PontoDoEvento(evento);
    if (botao == mbLeft && FCliqueArmado) {
        FCliqueArmado = false;
        if (rect().contains(evento->position().toPoint())) {
            const TPoint cursor = PosicaoDoCursor();
            ParaCadaFerramenta([&](IGISMouseEvent &f) { f.GISMouseClick(cursor); });
        }
    }
    const TShiftState shift = ShiftDeQt(evento->modifiers(), evento->buttons());
    ParaCadaFerramenta([&](IGISMouseEvent &f) { f.GISMouseUp(ponto, botao, shift); });
}

void TGis::mouseMoveEvent(QMouseEvent *evento)
{
    QWidget::mouseMoveEvent(evento);
    const TPoint ponto = PontoDoEvento(evento);
    ParaCadaFerramenta([&](IGISMouseEvent &f) { f.GISMouseMove(ponto); });
    FCursorDentro = true;
    FPontoDoCursor = ponto;
    emit PosicaoDoCursorMudou(FProjecao->TelaParaMundo(ponto));
}

void TGis::leaveEvent(QEvent *evento)
{
    QWidget::leaveEvent(evento);
    ParaCadaFerramenta([](IGISMouseEvent &f) { f.GisMouseLeave(); });
    FCursorDentro = false;
    emit CursorSaiu();
}

// Extensões: visão, seta e rótulos.

double TGis::Zoom() const
{
    return FProjecao->Zoom();
}

void TGis::AtribuirZoom(double zoom)
{
    if (!std::isfinite(zoom))
        return;
    FProjecao->DoAtribuirZoom(zoom);
    Desenhar();
}

QPointF TGis::CentroEmGraus() const
{
    const TGISPosicao c = FProjecao->Centro();
    return QPointF(c.Longitude / 3600.0, c.Latitude / 3600.0);
}

void TGis::AtribuirCentroEmGraus(const QPointF &graus)
{
    if (!std::isfinite(graus.x()) || !std::isfinite(graus.y()))
        return;
    // Limitado antes de arredondar, para que a conversão nunca transborde.
    auto segundos = [](double g) {
        return Saturar32(static_cast<std::int64_t>(std::llround(std::clamp(g * 3600.0, -4.0e9, 4.0e9))));
    };
    FProjecao->AtribuirCentro(GISPosicao(segundos(graus.y()), segundos(graus.x())));
    Desenhar();
}

void TGis::AjustarACamada(const QString &nome)
{
    TGISCamada *camada = ObterCamada(nome);
    if (!camada)
        return;
    TGISObjetoList &objetos = camada->Objetos();
    if (std::none_of(objetos.begin(), objetos.end(), [](const TGISObjeto *o) { return o != nullptr; }))
        return;
    objetos.CalcularLimites();
    FProjecao->DoAtribuirAreaTela(TRect(0, 0, width(), height()));
    FProjecao->FitToRect(objetos.Limites());
    Desenhar();
}

TGISPosicao TGis::PosicaoDaSeta(const TGISObjeto &objeto) const
{
    const TGISPosicao p = objeto.Posicao();
    if (!FSetaNoCentroDaArea)
        return p;
    const TGISRet area = objeto.Area();
    return Contem(area, GISRet(p.Latitude, p.Longitude, p.Latitude, p.Longitude)) ? p : Centro(area);
}

bool TGis::EscreverRotulo(TCanvas &canvas, int x, int y, const QString &texto, TGradeDeRotulos *grade)
{
    const int halo = FCorDoHalo == clNone ? 0 : 2;
    if (grade) {
        const QSize tamanho = canvas.TextExtent(texto);
        const TRect caixa(x - halo, y - halo, x + tamanho.width() + halo, y + tamanho.height() + halo);
        if (!grade->Ocupar(caixa))
            return false;
    }
    if (halo) {
        // O contorno: o texto na cor do halo em cada deslocamento de até 2 pixels (sem os quatro
        // cantos, para um contorno arredondado), depois o texto por cima.
        const TColor cor = canvas.Font().Color;
        canvas.Font().Color = FCorDoHalo;
        for (int dy = -halo; dy <= halo; ++dy)
            for (int dx = -halo; dx <= halo; ++dx)
                if ((dx || dy) && std::abs(dx) + std::abs(dy) < 2 * halo)
                    canvas.TextOut(x + dx, y + dy, texto);
        canvas.Font().Color = cor;
    }
    canvas.TextOut(x, y, texto);
    return true;
}

void TGis::AvisarVisao()
{
    const double zoom = FProjecao->Zoom();
    const TGISPosicao centro = FProjecao->Centro();
    const QSize tamanho = size();
    if (FVisaoAvisada && zoom == FZoomAvisado && centro.Latitude == FCentroAvisado.Latitude
        && centro.Longitude == FCentroAvisado.Longitude && tamanho == FTamanhoAvisado)
        return;
    FVisaoAvisada = true;
    FZoomAvisado = zoom;
    FCentroAvisado = centro;
    FTamanhoAvisado = tamanho;
    emit VisaoMudou();
    if (FCursorDentro)
        emit PosicaoDoCursorMudou(FProjecao->TelaParaMundo(FPontoDoCursor));
}

void TGis::wheelEvent(QWheelEvent *evento)
{
    const QPoint p = evento->position().toPoint();
    const TPoint ponto(p.x(), p.y());
    const TPoint angulo(evento->angleDelta().x(), evento->angleDelta().y());
    const TPoint pixels(evento->pixelDelta().x(), evento->pixelDelta().y());
    const TShiftState shift = ShiftDeQt(evento->modifiers(), evento->buttons());
    bool tratado = false;
    ParaCadaFerramenta([&](IGISMouseEvent &f) { tratado = f.GISMouseWheel(ponto, angulo, pixels, shift) || tratado; });
    if (tratado)
        evento->accept();
    else
        QWidget::wheelEvent(evento);
}

void TGis::keyPressEvent(QKeyEvent *evento)
{
    const TShiftState shift = ShiftDeQt(evento->modifiers(), Qt::NoButton);
    bool tratado = false;
    ParaCadaFerramenta([&](IGISMouseEvent &f) { tratado = f.GISKeyDown(evento->key(), shift) || tratado; });
    if (tratado)
        evento->accept();
    else
        QWidget::keyPressEvent(evento);
}

bool TGis::event(QEvent *evento)
{
    if (evento->type() == QEvent::ToolTip) {
        auto *ajuda = static_cast<QHelpEvent *>(evento);
        if (TGISObjeto *objeto = ObterObjeto(TPoint(ajuda->pos().x(), ajuda->pos().y()))) {
            QToolTip::showText(ajuda->globalPos(), ObterRotulo(*objeto), this);
            return true;
        }
        if (toolTip().isEmpty()) {
            QToolTip::hideText();
            evento->ignore();
            return true;
        }
    }
    return QWidget::event(evento);
}

} // namespace tavru
