// O formato PNG: lido pelo leitor de imagens da plataforma e gravado pelo gravador do Qt.

#include "FormatoQt_p.h"

namespace tavru {
namespace {

const TRegistroDeFormato RegistroPNG({{QStringLiteral("png")},
                                        QStringLiteral("Arquivo do PNG"),
                                        nullptr,
                                        [](const QImage &figura, const QString &nome) { GravarPeloQt(figura, nome, "png"); }});

} // namespace
} // namespace tavru
