#include <tavru/platform/TColor.h>

#include <QGuiApplication>
#include <QPalette>

namespace tavru {

QColor ParaQColor(TColor cor)
{
    if (cor == clNone)
        return QColor(0, 0, 0, 0);
    const auto u = static_cast<std::uint32_t>(cor);
    if (u & 0x80000000u) {
        const QPalette paleta = QGuiApplication::instance() ? QGuiApplication::palette() : QPalette();
        switch (u & 0xFF) {
        case 0x05: return paleta.color(QPalette::Base);
        case 0x08: return paleta.color(QPalette::Text);
        case 0x0F: return paleta.color(QPalette::Button);
        default: return paleta.color(QPalette::Window);
        }
    }
    return QColor(u & 0xFF, (u >> 8) & 0xFF, (u >> 16) & 0xFF);
}

TColor DeQColor(const QColor &cor)
{
    return RGB(cor.red(), cor.green(), cor.blue());
}

} // namespace tavru
