#pragma once
// Processos dos testes de ponta a ponta: esperar uma linha da saída e encerrar.

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
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

/// Inicia um Xvfb de 1280 x 900, que escolhe um número de tela livre e o escreve na saída
/// (-displayfd 1). Devolve ":N", ou vazio quando a tela não abriu (e o servidor fica encerrado).
inline QString IniciarXvfb(QProcess &servidor, const QString &xvfb)
{
    servidor.start(xvfb, {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp"});
    if (!servidor.waitForStarted(10000))
        return {};
    const QString numero = EsperarLinha(servidor, 20000);
    if (numero.isEmpty()) {
        Encerrar(servidor);
        return {};
    }
    return QStringLiteral(":") + numero;
}

/// O ambiente deste processo com o aplicativo mandado para a tela X `tela` (pelo xcb).
inline QProcessEnvironment AmbienteNaTela(const QString &tela)
{
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.remove(QStringLiteral("WAYLAND_DISPLAY"));
    ambiente.insert(QStringLiteral("DISPLAY"), tela);
    ambiente.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    return ambiente;
}

} // namespace tavru::teste
