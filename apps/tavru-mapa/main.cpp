// tavru-mapa: o aplicativo de demonstração. Com tela, abre a janela do mapa; sem tela (nem
// DISPLAY nem WAYLAND_DISPLAY, ou uma tela que não abre), ou com "--png ARQUIVO", desenha o mapa
// num PNG e imprime o caminho dele. Os arquivos dados na linha de comando abrem em camadas novas
// por cima do mapa de exemplo, e a visão se ajusta ao último aberto.

#include "ArquivosDoMapa.h"
#include "MapaEmbutido.h"
#include "MenuDoMapa.h"
#include "PluginsDoMapa.h"
#include "TJanelaMapa.h"
#include "TraducoesDoQt.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/platform/Exception.h>
#ifdef TAVRU_COM_GDAL
#include <tavru/gdal/ReconheceArquivosGDAL.h> // GeoTIFF, GeoJSON, GeoPackage, KML, GPX...
#endif

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>

using namespace tavru;

namespace {

/// Avisa na saída padrão, uma vez, quando o mapa foi pintado na tela (os testes de ponta a ponta
/// esperam por esta linha antes de fotografar a tela).
class TAvisoDePintura : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint && !FAvisado) {
            FAvisado = true;
            QTimer::singleShot(0, this, [] {
                std::printf("Mapa na tela\n");
                std::fflush(stdout);
            });
        }
        return QObject::eventFilter(alvo, evento);
    }

private:
    bool FAvisado = false;
};

int DesenharEmPng(const QString &arquivo, const QStringList &documentos)
{
    TGis gis;
    gis.resize(1000, 760);
    MontarMapaEmbutido(gis);
    gis.Zerado();
    int resultado = 0;
    QString ultima;
    for (const QString &documento : documentos) {
        try {
            ultima = AbrirEmCamadaNova(gis, documento).Nome();
        } catch (const Exception &e) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(documento), qPrintable(e.Message()));
            resultado = 1;
        }
    }
    AjustarVistaInicial(gis);
    if (!ultima.isEmpty())
        gis.AjustarACamada(ultima);
    const QString caminho = QFileInfo(arquivo).absoluteFilePath();
    if (!gis.Buffer().save(caminho, "PNG")) {
        std::fprintf(stderr, "Não foi possível gravar %s\n", qPrintable(caminho));
        return 1;
    }
    std::printf("%s\n", qPrintable(caminho));
    return resultado;
}

} // namespace

int main(int argc, char **argv)
{
    QString arquivoPng;
    QStringList documentos;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("--png") && i + 1 < argc) {
            arquivoPng = QString::fromLocal8Bit(argv[++i]);
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            std::printf("Uso: tavru-mapa [--png ARQUIVO] [DOCUMENTO...]\n"
                        "  Abre o mapa de demonstração numa janela, com cada DOCUMENTO numa camada nova.\n"
                        "  Sem tela, ou com --png, desenha o mapa num PNG (padrão: tavru-mapa.png na\n"
                        "  pasta temporária) e imprime o caminho; erros de leitura vão para a saída de\n"
                        "  erros e o código de saída é 1.\n");
            return 0;
        } else {
            documentos << arg;
        }
    }
    const bool semTela = qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool escolhida = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if ((semTela || !arquivoPng.isEmpty()) && !escolhida)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (!escolhida) // uma tela que não abre cai na plataforma sem tela, em vez de abortar
        qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb;offscreen" : "wayland;xcb;offscreen");

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavru-mapa"));
    CarregarTraducoesDoQt(app);
    CarregarPluginsDoMapa();
#ifdef TAVRU_COM_GDAL
    (void)VersaoDoGdal(); // usa a biblioteca do GDAL, que registra os formatos dela ao carregar
#endif
    AjustarDocumentosDoAplicativo();
    const bool telaAbriu = !semTela && QGuiApplication::platformName() != QLatin1String("offscreen");
    if (!semTela && !telaAbriu && arquivoPng.isEmpty() && !escolhida)
        std::fprintf(stderr, "Não foi possível abrir a tela \"%s\"; o mapa vai para um PNG.\n",
                     qPrintable(qEnvironmentVariable(qEnvironmentVariableIsEmpty("DISPLAY") ? "WAYLAND_DISPLAY" : "DISPLAY")));
    if (!telaAbriu || !arquivoPng.isEmpty())
        return DesenharEmPng(arquivoPng.isEmpty() ? QDir::temp().filePath(QStringLiteral("tavru-mapa.png"))
                                                  : arquivoPng,
                             documentos);

    TJanelaMapa janela;
    TAvisoDePintura aviso;
    janela.Gis()->installEventFilter(&aviso);
    janela.resize(1100, 760);
    janela.show();
    if (documentos.isEmpty())
        ReabrirUltimoMapa(*janela.Gis(), janela);
    janela.AbrirArquivos(documentos);
    return app.exec();
}
