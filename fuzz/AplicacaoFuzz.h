#pragma once
// A aplicação Qt dos alvos de fuzzing (fontes e figuras precisam dela), sem tela.

#include <QGuiApplication>
#include <QString>
#include <QTemporaryDir>

namespace tavru::fuzz {

inline void IniciarAplicacao(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication aplicacao(*argc, *argv);
}

/// Uma pasta temporária do processo, para os alvos que leem de um arquivo com nome (apagada ao
/// sair).
inline QString PastaTemporaria()
{
    static QTemporaryDir pasta;
    return pasta.path();
}

} // namespace tavru::fuzz
