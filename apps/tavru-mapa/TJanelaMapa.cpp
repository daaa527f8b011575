#include "TJanelaMapa.h"

#include "ArquivosDoMapa.h"
#include "MapaEmbutido.h"
#include "TJanelaDeSimbolos.h"

#include <tavru/companions/components/TVisualizadorInformacoes.h>
#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/control/TGISBarraDeManipulacao.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace tavru {

TJanelaMapa::TJanelaMapa(QWidget *parent)
    : QMainWindow(parent),
      FGis(new TGis(this)),
      FBarra(new TGISBarraDeManipulacao(this)),
      FVisualizador(new TVisualizadorInformacoes(this)),
      FPosicao(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Tavru GIS — mapa de demonstração"));
    setCentralWidget(FGis);

    auto *ferramentas = addToolBar(QStringLiteral("Manipulação"));
    ferramentas->setMovable(false);
    ferramentas->addWidget(FBarra);
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
    arquivo->addAction(QStringLiteral("Sai&r"), this, &QWidget::close);
    auto *exibir = menuBar()->addMenu(QStringLiteral("&Exibir"));
    exibir->addAction(QStringLiteral("&Ajustar a Janela"), FGis, [this] { FGis->FitToWindow(); });
    exibir->addAction(doca->toggleViewAction());

    statusBar()->addPermanentWidget(FPosicao);
    statusBar()->showMessage(QStringLiteral("Clique num objeto rotulado para ver as suas informações."));

    MontarMapaEmbutido(*FGis);
    FGis->RegistrarMouseEvent(this);
    exibir->addAction((new TJanelaDeSimbolos(FGis, this))->toggleViewAction());
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
    for (const QString &arquivo : arquivos) {
        try {
            AbrirEmCamadaNova(*FGis, arquivo);
        } catch (const Exception &e) {
            Dialogos().Mensagem(e.Message(), QStringLiteral("Abrir camada"), mtErro);
        }
    }
}

void TJanelaMapa::AbrirCamada()
{
    const QString filtro = TGISObjetoList::ObterFiltroCompletoDeLeitura();
    QString nome;
    int indice = 1;
    if (!Dialogos().AbrirArquivo(QStringLiteral("Abrir camada"), filtro, nome, indice))
        return;
    try {
        AbrirEmCamadaNova(*FGis, nome, TipoDoArquivo(nome, TProvedorDeDialogos::ParDoFiltro(filtro, indice), true));
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Abrir camada"), mtErro);
    }
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
    QString nome = camada->Objetos().NomeArquivo();
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
    if (FBarra->Estado() == meSemAcao)
        FGis->SelecionarObjeto(FGis->ObterObjeto(ponto));
}

void TJanelaMapa::GISMouseMove(const TPoint &ponto)
{
    // O ponto do movimento é o do cursor: sem perguntar a posição ao sistema a cada movimento.
    const TGISPosicao p = FGis->Projecao()->TelaParaMundo(ponto);
    FPosicao->setText(
        QStringLiteral("Latitude %1   Longitude %2").arg(IntToGrau(p.Latitude, true), IntToGrau(p.Longitude, false)));
}

void TJanelaMapa::GisMouseLeave()
{
    FPosicao->clear();
}

} // namespace tavru
