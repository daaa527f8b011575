#include "PluginsDoMapa.h"

#include <tavru/formats/TTratadorDeArquivosDGN.h>

#include <QCoreApplication>
#include <QDir>

namespace tavru {

void CarregarPluginsDoMapa()
{
    const QStringList pastas = qEnvironmentVariable("TAVRU_PLUGINS").split(QDir::listSeparator(), Qt::SkipEmptyParts);
    for (const QString &pasta : pastas)
        TTratadorDeArquivosDGN::CarregarPlugins(pasta);

    const QString instalada = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(TAVRU_PLUGINS_INSTALADOS));
    TTratadorDeArquivosDGN::CarregarPlugins(QDir(instalada).exists() ? instalada
                                                                     : QStringLiteral(TAVRU_PLUGINS_COMPILACAO));
}

} // namespace tavru
