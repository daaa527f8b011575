#include "TMapaDeAmostra.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>

#include <QEvent>
#include <memory>

namespace tavru {

namespace {

/// Ajusta o mapa à janela quando ele muda de tamanho (filha do mapa).
class TAjusteAoTamanho : public QObject
{
public:
    explicit TAjusteAoTamanho(TGis &gis) : QObject(&gis), FGis(gis) { gis.installEventFilter(this); }

    bool eventFilter(QObject *alvo, QEvent *evento) override
    {
        if (alvo == &FGis && evento->type() == QEvent::Resize && FGis.width() > 0 && FGis.height() > 0)
            FGis.FitToWindow();
        return QObject::eventFilter(alvo, evento);
    }

private:
    TGis &FGis;
};

} // namespace

void MontarMapaDeAmostra(TGis &gis)
{
    gis.AtribuirCorQt(QColor(0xA8, 0xC8, 0xE8));
    for (const char *nome : {"litoral", "cidades"}) {
        auto camada = std::make_unique<TGISCamada>(QString::fromLatin1(nome));
        try {
            camada->Objetos().Ler(QStringLiteral(":/tavru-designer/%1.xml").arg(QLatin1String(nome)),
                                  QStringLiteral("XML"));
        } catch (const Exception &) {
            continue;
        }
        // Só as cidades rotuladas: o litoral é uma linha só, de nome repetido em cada pedaço.
        camada->Visibilidade(true, camada->Nome() == QLatin1String("cidades"));
        gis.Camadas().Add(camada.release());
    }
    gis.AtualizarRotulos();
    new TAjusteAoTamanho(gis);
}

} // namespace tavru
