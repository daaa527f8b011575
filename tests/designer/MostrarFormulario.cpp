// Auxiliar do teste na tela: carrega um formulário pelo QUiLoader com o plug-in do Designer da
// compilação, põe o mapa de cidades no mapa dele, mostra-o no canto da tela e avisa na saída.
//   mostrar_formulario FORMULARIO.ui PASTA_DO_PLUGIN DOCUMENTO.xml

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QUiLoader>
#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc != 4)
        return 2;
    QUiLoader carregador;
    carregador.addPluginPath(QString::fromLocal8Bit(argv[2]));
    QFile arquivo(QString::fromLocal8Bit(argv[1]));
    if (!arquivo.open(QIODevice::ReadOnly))
        return 1;
    std::unique_ptr<QWidget> formulario(carregador.load(&arquivo));
    auto *gis = formulario ? formulario->findChild<tavru::TGis *>("gis") : nullptr;
    if (!gis) {
        std::fprintf(stderr, "%s\n", qPrintable(carregador.errorString()));
        return 1;
    }
    auto camada = std::make_unique<tavru::TGISCamada>(QStringLiteral("Cidades"));
    camada->Objetos().Ler(QString::fromLocal8Bit(argv[3]), QStringLiteral("XML"));
    camada->Visibilidade(true, true);
    gis->Camadas().Add(camada.release());
    formulario->move(0, 0);
    formulario->show();
    QTimer::singleShot(300, [&] {
        gis->FitToWindow();
        std::printf("Formulario na tela\n");
        std::fflush(stdout);
    });
    return app.exec();
}
