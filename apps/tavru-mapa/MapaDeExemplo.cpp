#include "MapaDeExemplo.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>

#include <QFile>

namespace tavru {

namespace {

bool TipoDeCamada(const QString &texto, TGISTipoCamada &tipo)
{
    const struct
    {
        const char *Nome;
        TGISTipoCamada Tipo;
    } tipos[] = {{"gtcPanoDeFundo", gtcPanoDeFundo}, {"gtcInterrogavel", gtcInterrogavel}, {"gtcEditavel", gtcEditavel}};
    for (const auto &t : tipos)
        if (texto == QLatin1String(t.Nome)) {
            tipo = t.Tipo;
            return true;
        }
    return false;
}

} // namespace

void CarregarMapaDeExemplo(TGis &gis)
{
    QFile lista(QStringLiteral(":/mapa/camadas.txt"));
    if (!lista.open(QIODevice::ReadOnly))
        return;
    const QStringList linhas = QString::fromUtf8(lista.readAll()).split(QLatin1Char('\n'));
    for (const QString &linha : linhas) {
        const QStringList campos = linha.trimmed().split(QLatin1Char(';'));
        TGISTipoCamada tipo;
        if (linha.startsWith(QLatin1Char('#')) || campos.size() != 3 || !TipoDeCamada(campos[2], tipo))
            continue;
        auto camada = std::make_unique<TGISCamada>(campos[1]);
        camada->AtribuirTipo(tipo);
        camada->Objetos().Ler(QStringLiteral(":/mapa/") + campos[0], QStringLiteral("XML"));
        if (campos[1] == QLatin1String("Cidades") || tipo == gtcEditavel)
            camada->Visibilidade(true, true);
        gis.Camadas().Add(camada.release());
    }
}

} // namespace tavru
