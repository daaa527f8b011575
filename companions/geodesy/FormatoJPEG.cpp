// O formato JPEG: lido pelo leitor de imagens da plataforma e gravado pelo gravador do Qt.

#include "FormatoQt_p.h"

namespace tavru {
namespace {

const TRegistroDeFormato RegistroJPEG({{QStringLiteral("jpg"), QStringLiteral("jpeg")},
                                        QStringLiteral("Arquivo do JPEG"),
                                        nullptr,
                                        [](const QImage &figura, const QString &nome) { GravarPeloQt(figura, nome, "jpg"); }});

} // namespace
} // namespace tavru
