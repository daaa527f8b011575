// O formato BMP: lido pelo leitor de imagens da plataforma e gravado pelo gravador do Qt.

#include "FormatoQt_p.h"

namespace tavru {
namespace {

const TRegistroDeFormato RegistroBMP({{QStringLiteral("bmp")},
                                        QStringLiteral("Arquivo bitmap"),
                                        nullptr,
                                        [](const QImage &figura, const QString &nome) { GravarPeloQt(figura, nome, "bmp"); }});

} // namespace
} // namespace tavru
