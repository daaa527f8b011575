#include "TJanelaMapa.h"

#include "MapaEmbutido.h"

#include "companions/components/TVisualizadorInformacoes.h"
#include "companions/geodesy/TextoGeodesico.h"
#include "control/TGISBarraDeManipulacao.h"
#include "control/TGis.h"

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
    arquivo->addAction(QStringLiteral("&Sair"), this, &QWidget::close);
    auto *exibir = menuBar()->addMenu(QStringLiteral("&Exibir"));
    exibir->addAction(QStringLiteral("&Ajustar a Janela"), FGis, [this] { FGis->FitToWindow(); });
    exibir->addAction(doca->toggleViewAction());

    statusBar()->addPermanentWidget(FPosicao);
    statusBar()->showMessage(QStringLiteral("Clique num objeto rotulado para ver as suas informações."));

    MontarMapaEmbutido(*FGis);
    FGis->RegistrarMouseEvent(this);
    FGis->Zerado();
}

void TJanelaMapa::showEvent(QShowEvent *evento)
{
    QMainWindow::showEvent(evento);
    if (!FAjustado) {
        FAjustado = true;
        FGis->FitToWindow();
    }
}

TJanelaMapa::~TJanelaMapa()
{
    FGis->RemoverRegistroMouseEvent(this);
}

void TJanelaMapa::GISMouseClick(const TPoint &ponto)
{
    if (FBarra->Estado() == meSemAcao)
        FGis->SelecionarObjeto(FGis->ObterObjeto(ponto));
}

void TJanelaMapa::GISMouseMove(const TPoint &)
{
    FPosicao->setText(QStringLiteral("Latitude %1   Longitude %2")
                          .arg(IntToGrau(FGis->ObterLatitude(), true), IntToGrau(FGis->ObterLongitude(), false)));
}

void TJanelaMapa::GisMouseLeave()
{
    FPosicao->clear();
}

} // namespace tavru
