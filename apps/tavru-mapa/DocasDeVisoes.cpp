#include "DocasDeVisoes.h"

#include <tavru/control/TGis.h>
#include <tavru/platform/Exception.h>
#include <tavru/views/TGISArvoreDeAcompanhamento.h>
#include <tavru/views/TGISConfigurarCamadas.h>
#include <tavru/views/TGISMiniatura.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <cstdio>

namespace tavru {

namespace {

QDockWidget &Doca(QMainWindow &janela, QMenu &exibir, const QString &titulo, const QString &nome, QWidget *conteudo)
{
    auto *doca = new QDockWidget(titulo, &janela);
    doca->setObjectName(nome);
    conteudo->setParent(doca);
    doca->setWidget(conteudo);
    janela.addDockWidget(Qt::RightDockWidgetArea, doca);
    exibir.addAction(doca->toggleViewAction());
    return *doca;
}

} // namespace

void MontarDocasDeVisoes(QMainWindow &janela, TGis &gis, QMenu &exibir)
{
    auto *painel = new TGISConfigurarCamadas;
    painel->setObjectName(QStringLiteral("painelDeCamadas"));
    painel->AtribuirGis(&gis);
    Doca(janela, exibir, QStringLiteral("Camadas"), QStringLiteral("Camadas"), painel);

    auto *miniatura = new TGISMiniatura;
    miniatura->setObjectName(QStringLiteral("miniatura"));
    miniatura->AtribuirGis(&gis);
    // O Brasil e a plotagem: os textos dos oceanos e a grade alargariam a extensão.
    miniatura->AtribuirCamadas({QStringLiteral("Estados"), QStringLiteral("Lagos"), QStringLiteral("Plotagem")});
    Doca(janela, exibir, QStringLiteral("Situação"), QStringLiteral("Situacao"), miniatura);

    // A situação de exemplo acompanha os meios da camada de plotagem pelo "Identificador".
    auto *arvore = new TGISArvoreDeAcompanhamento;
    arvore->setObjectName(QStringLiteral("acompanhamento"));
    arvore->AtribuirGis(&gis);
    try {
        arvore->Abrir(QStringLiteral(":/acompanhamento/acompanhamento.xml"));
    } catch (const Exception &erro) {
        std::fprintf(stderr, "%s\n", qPrintable(erro.Message()));
    }
    Doca(janela, exibir, QStringLiteral("Acompanhamento"), QStringLiteral("Acompanhamento"), arvore);
}

} // namespace tavru
