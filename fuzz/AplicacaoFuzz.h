#pragma once
// A aplicação Qt dos alvos de fuzzing (fontes e figuras precisam dela), sem tela.

#include <QGuiApplication>

namespace tavru::fuzz {

inline void IniciarAplicacao(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication aplicacao(*argc, *argv);
}

} // namespace tavru::fuzz
