// Um hospedeiro mínimo do pacote instalado: usa o controle, um elemento e o registro de tratadores
// (o tratador XML se registra quando a biblioteca carrega) e imprime o filtro de leitura.
#include <tavru/control/GIS.h>
#include <tavru/elements/GISElementos.h>
#include <tavru/xml/ReconheceArquivoXML.h>
#include <QApplication>
#include <cstdio>
int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    tavru::TGis gis;
    gis.resize(200, 100);
    auto *camada = new tavru::TGISCamada(QStringLiteral("Pontos"));
    auto *p = new tavru::TGISPonto;
    camada->Objetos().Add(p);
    gis.Camadas().Add(camada);
    gis.FitToWindow();
    std::printf("%s\n", qPrintable(tavru::TGISObjetoList::ObterFiltroCompletoDeLeitura()));
    return 0;
}
