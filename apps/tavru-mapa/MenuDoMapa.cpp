#include "MenuDoMapa.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>

namespace tavru {

namespace {

const QString FILTRO = QStringLiteral("Mapas Tavru (*.tmapa)|*.tmapa|Todos os Arquivos (*.*)|*.*");
const QString CHAVE = QStringLiteral("UltimoMapa");

QString UltimoMapa() { return QSettings().value(CHAVE).toString(); }
void LembrarMapa(const QString &nome) { QSettings().setValue(CHAVE, QFileInfo(nome).absoluteFilePath()); }

void Abrir(TGis &gis, QMainWindow &janela, const QString &nome)
{
    gis.AbrirMapa(nome);
    LembrarMapa(nome);
    janela.statusBar()->showMessage(QStringLiteral("Mapa %1 aberto: %2 camadas").arg(nome).arg(gis.Camadas().Count()));
}

} // namespace

void AcrescentarMenuDoMapa(QMenu &menu, TGis &gis, QMainWindow &janela)
{
    menu.addAction(QStringLiteral("Abrir &mapa..."), &janela, [&gis, &janela] {
        QString nome = UltimoMapa();
        int indice = 1;
        if (!Dialogos().AbrirArquivo(QStringLiteral("Abrir mapa"), FILTRO, nome, indice))
            return;
        try {
            Abrir(gis, janela, nome);
        } catch (const Exception &e) {
            Dialogos().Mensagem(e.Message(), QStringLiteral("Abrir mapa"), mtErro);
        }
    });
    menu.addAction(QStringLiteral("Salvar m&apa..."), &janela, [&gis, &janela] {
        QString nome = UltimoMapa();
        if (nome.isEmpty())
            nome = QDir::home().filePath(QStringLiteral("mapa.tmapa"));
        int indice = 1;
        if (!Dialogos().SalvarArquivo(QStringLiteral("Salvar mapa"), FILTRO, nome, indice))
            return;
        if (indice == 1 && QFileInfo(nome).suffix().isEmpty())
            nome += QStringLiteral(".tmapa");
        try {
            gis.SalvarMapa(nome);
            LembrarMapa(nome);
            janela.statusBar()->showMessage(QStringLiteral("Mapa salvo em %1").arg(nome));
        } catch (const Exception &e) {
            Dialogos().Mensagem(e.Message(), QStringLiteral("Salvar mapa"), mtErro);
        }
    });
}

void ReabrirUltimoMapa(TGis &gis, QMainWindow &janela)
{
    const QString nome = UltimoMapa();
    if (nome.isEmpty() || !QFileInfo(nome).isFile())
        return;
    try {
        Abrir(gis, janela, nome);
    } catch (const Exception &e) {
        janela.statusBar()->showMessage(e.Message());
    }
}

} // namespace tavru
