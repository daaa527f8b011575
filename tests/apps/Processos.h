#pragma once
// Processos dos testes de ponta a ponta: esperar uma linha da saída e encerrar.

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
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

/// Um programa num Xvfb próprio, para os testes que olham a tela de verdade (fotografada pelo xwd).
/// Os dois processos são encerrados na destruição.
struct TProgramaNaTela
{
    QProcess Servidor;
    QProcess Programa;
    QString Tela;
    QString Xwd;
    /// A primeira linha que o programa escreveu (o aviso de que está na tela), ou vazia.
    QString Aviso;

    /// Abre a tela, inicia o programa nela e espera a primeira linha dele (30 s). Devolve o motivo
    /// para pular o teste (Xvfb ou xwd não instalados, tela que não abriu), ou vazio.
    QString Iniciar(const QString &programa, const QStringList &argumentos)
    {
        const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        Xwd = QStandardPaths::findExecutable(QStringLiteral("xwd"));
        if (xvfb.isEmpty() || Xwd.isEmpty())
            return QStringLiteral("Xvfb ou xwd não instalados");
        Tela = IniciarXvfb(Servidor, xvfb);
        if (Tela.isEmpty())
            return QStringLiteral("o Xvfb não abriu uma tela: ") + QString::fromLocal8Bit(Servidor.readAllStandardError());
        Programa.setProcessEnvironment(AmbienteNaTela(Tela));
        Programa.start(programa, argumentos);
        Aviso = EsperarLinha(Programa, 30000);
        return {};
    }
    ~TProgramaNaTela()
    {
        Encerrar(Programa);
        Encerrar(Servidor);
    }
};

} // namespace tavru::teste
