#pragma once
// Processos dos testes de ponta a ponta: esperar uma linha da saída e encerrar.

#include <QElapsedTimer>
#include <QProcess>
#include <QString>

namespace tavru::teste {

/// Espera uma linha na saída do processo, até `ms` milissegundos; vazia se não veio.
inline QString EsperarLinha(QProcess &processo, int ms)
{
    QElapsedTimer relogio;
    relogio.start();
    while (relogio.elapsed() < ms) {
        if (processo.canReadLine())
            return QString::fromLocal8Bit(processo.readLine()).trimmed();
        if (processo.state() == QProcess::NotRunning)
            return {};
        processo.waitForReadyRead(200);
    }
    return {};
}

/// Encerra o processo, se ainda roda.
inline void Encerrar(QProcess &processo)
{
    if (processo.state() == QProcess::NotRunning)
        return;
    processo.terminate();
    if (!processo.waitForFinished(5000)) {
        processo.kill();
        processo.waitForFinished(5000);
    }
}

} // namespace tavru::teste
