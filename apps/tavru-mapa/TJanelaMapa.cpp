#include "TJanelaMapa.h"

#include "ArquivosDoMapa.h"
#include "DocasDeVisoes.h"
#include "FerramentasDaJanela.h"
#include "LeituraComProgresso.h"
#include "MapaEmbutido.h"
#include "MenuDoMapa.h"
#include "TJanelaDeSimbolos.h"
#include "ui_TJanelaMapa.h"

#include <tavru/companions/components/TVisualizadorInformacoes.h>
#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/control/TGISBarraDeManipulacao.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QDockWidget>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QStatusBar>

namespace tavru {

TJanelaMapa::TJanelaMapa(QWidget *parent)
    : QMainWindow(parent),
      FUi(std::make_unique<Ui::TJanelaMapa>()),
      FVisualizador(new TVisualizadorInformacoes(this)),
      FPosicao(new QLabel(this)),
      FZoom(new QLabel(this))
{
    // O formulário põe o mapa e as barras; as barras se ligam ao mapa pela propriedade GIS, e a
    // de manipulação já agora, porque as ferramentas da janela contam com ela ligada.
    FUi->setupUi(this);
    FGis = FUi->gis;
    FBarra = FUi->barraDeManipulacao;
    FBarra->AtribuirGis(FGis);

    auto *doca = new QDockWidget(QStringLiteral("Informações"), this);
    doca->setObjectName(QStringLiteral("Informacoes"));
    doca->setWidget(FVisualizador);
    addDockWidget(Qt::RightDockWidgetArea, doca);
    FGis->AtribuirVisualizadorInformacoes(FVisualizador);

    auto *arquivo = menuBar()->addMenu(QStringLiteral("&Arquivo"));
    arquivo->addAction(QStringLiteral("&Abrir camada..."), QKeySequence::Open, this, &TJanelaMapa::AbrirCamada);
    arquivo->addAction(QStringLiteral("&Salvar camada..."), QKeySequence::Save, this, &TJanelaMapa::SalvarCamada);
    arquivo->addSeparator();
    AcrescentarMenuDoMapa(*arquivo, *FGis, *this);
    arquivo->addSeparator();
    arquivo->addAction(QStringLiteral("Sai&r"), this, &QWidget::close);
    auto *exibir = menuBar()->addMenu(QStringLiteral("&Exibir"));
    exibir->addAction(QStringLiteral("&Ajustar a Janela"), FGis, [this] { FGis->FitToWindow(); });
    exibir->addAction(doca->toggleViewAction());

    FPosicao->setObjectName(QStringLiteral("posicao"));
    FZoom->setObjectName(QStringLiteral("zoom"));
    statusBar()->addPermanentWidget(FPosicao);
    statusBar()->addPermanentWidget(FZoom);
    statusBar()->showMessage(QStringLiteral("Clique num objeto rotulado para ver as suas informações."));
    connect(FGis, &TGis::PosicaoDoCursorMudou, FPosicao,
            [this](const TGISPosicao &p) { FPosicao->setText(TextoDaPosicao(p)); });
    connect(FGis, &TGis::CursorSaiu, FPosicao, &QLabel::clear);
    connect(FGis, &TGis::VisaoMudou, FZoom, [this] { MostrarZoom(); });

    MontarMapaEmbutido(*FGis);
    FGis->RegistrarMouseEvent(this);
    FFerramentas = new TFerramentasDaJanela(*this, *FGis, *FBarra, *FUi->barraGeral, *FUi->barraDeInclusao,
                                            *FUi->listaDeObjetos, *FVisualizador);
    exibir->addAction((new TJanelaDeSimbolos(FGis, this))->toggleViewAction());
    MontarDocasDeVisoes(*this, *FGis, *exibir);
    FGis->Zerado();
}

void TJanelaMapa::showEvent(QShowEvent *evento)
{
    QMainWindow::showEvent(evento);
    if (!FAjustado) {
        FAjustado = true;
        AjustarVistaInicial(*FGis);
    }
}

TJanelaMapa::~TJanelaMapa()
{
    FGis->RemoverRegistroMouseEvent(this);
}

void TJanelaMapa::AbrirArquivos(const QStringList &arquivos)
{
    for (const QString &arquivo : arquivos)
        Abrir(arquivo, QString());
}

void TJanelaMapa::Abrir(const QString &arquivo, const QString &tipo)
{
    try {
        TGISCamada &camada = AbrirEmCamadaNova(*FGis, arquivo, tipo, [this](TGISObjetoList &lista, const QString &a, const QString &t) {
            LerComProgresso(this, lista, a, t);
        });
        FGis->AjustarACamada(camada.Nome());
        const int total = camada.Objetos().Count();
        statusBar()->showMessage(QStringLiteral("%1 %2 lido%3 de %4")
                                     .arg(total)
                                     .arg(total == 1 ? QStringLiteral("objeto") : QStringLiteral("objetos"),
                                          total == 1 ? QString() : QStringLiteral("s"), arquivo));
    } catch (const ELeituraCancelada &) {
        statusBar()->showMessage(QStringLiteral("Leitura de %1 cancelada").arg(arquivo));
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Abrir camada"), mtErro);
    }
}

void TJanelaMapa::AbrirCamada()
{
    const QString filtro = TGISObjetoList::ObterFiltroCompletoDeLeitura();
    QString nome;
    int indice = 1;
    if (!Dialogos().AbrirArquivo(QStringLiteral("Abrir camada"), filtro, nome, indice))
        return;
    Abrir(nome, TipoDoArquivo(nome, TProvedorDeDialogos::ParDoFiltro(filtro, indice), true));
}

void TJanelaMapa::SalvarCamada()
{
    TGISCamadaList &camadas = FGis->Camadas();
    TGISCamada *camada = FGis->ObjetoSelecionado() ? camadas.ObterCamadaPeloObjeto(FGis->ObjetoSelecionado()) : nullptr;
    if (!camada && camadas.Count() > 0)
        camada = camadas.Last();
    if (!camada)
        return;
    const QString filtro = TGISObjetoList::ObterFiltroCompletoDeEscrita();
    const QString titulo = QStringLiteral("Salvar a camada %1").arg(camada->Nome());
    QString nome = ArquivoParaSalvar(*camada);
    int indice = 1;
    if (!Dialogos().SalvarArquivo(titulo, filtro, nome, indice))
        return;
    try {
        GravarCamada(*camada, nome, TipoDoArquivo(nome, TProvedorDeDialogos::ParDoFiltro(filtro, indice), false));
        statusBar()->showMessage(QStringLiteral("Camada %1 gravada em %2").arg(camada->Nome(), nome), 5000);
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), titulo, mtErro);
    }
}

void TJanelaMapa::GISMouseClick(const TPoint &ponto)
{
    if (FBarra->Estado() == meSemAcao && FFerramentas->CliqueSeleciona())
        FGis->SelecionarObjeto(FGis->ObterObjeto(ponto));
}

QString TJanelaMapa::TextoDaPosicao(const TGISPosicao &p)
{
    if (p.Latitude < MundoInteiro.Pos1.Latitude || p.Latitude > MundoInteiro.Pos2.Latitude
        || p.Longitude < MundoInteiro.Pos1.Longitude || p.Longitude > MundoInteiro.Pos2.Longitude)
        return QStringLiteral("fora do mundo");
    return QStringLiteral("Latitude %1   Longitude %2").arg(IntToGrau(p.Latitude, true), IntToGrau(p.Longitude, false));
}

void TJanelaMapa::MostrarZoom()
{
    FZoom->setText(QStringLiteral("Zoom %1").arg(QLocale(QLocale::Portuguese, QLocale::Brazil).toString(FGis->Zoom(), 'f', 2)));
}

} // namespace tavru
