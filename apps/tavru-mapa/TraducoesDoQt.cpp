#include "TraducoesDoQt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tavru {

QTranslator *CarregarTraducoesDoQt(QCoreApplication &aplicativo)
{
    auto *tradutor = new QTranslator(&aplicativo);
    if (!tradutor->load(QLocale(QLocale::Portuguese, QLocale::Brazil), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))
        || !QCoreApplication::installTranslator(tradutor)) {
        delete tradutor;
        return nullptr;
    }
    return tradutor;
}

} // namespace tavru
