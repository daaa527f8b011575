#include "LeituraComProgresso.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISTratadorDeArquivo.h>

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <exception>
#include <memory>

namespace tavru {

namespace {

// O que a leitura conta e o que a interface pede, lidos e escritos pelas duas linhas.
struct TEstado
{
    std::atomic<int> Milesimos{0};
    std::atomic<int> Objetos{0};
    std::atomic<bool> Cancelar{false};
};

QString Rotulo(const QString &arquivo, int objetos)
{
    return QStringLiteral("Lendo %1...\n%2 objetos lidos").arg(QFileInfo(arquivo).fileName()).arg(objetos);
}

} // namespace

void LerComProgresso(QWidget *pai, TGISObjetoList &lista, const QString &arquivo, const QString &tipo)
{
    auto estado = std::make_shared<TEstado>();
    QProgressDialog caixa(Rotulo(arquivo, 0), QStringLiteral("Cancelar"), 0, 1000, pai);
    caixa.setWindowTitle(QStringLiteral("Abrir camada"));
    caixa.setWindowModality(Qt::WindowModal);
    caixa.setMinimumDuration(500); // só as leituras que passam de meio segundo mostram a caixa
    caixa.setAutoReset(false);
    caixa.setAutoClose(false);
    caixa.setValue(0);
    QObject::connect(&caixa, &QProgressDialog::canceled, [estado] { estado->Cancelar = true; });
    const auto mostrar = [&] {
        caixa.setLabelText(Rotulo(arquivo, estado->Objetos));
        caixa.setValue(estado->Milesimos);
    };
    const auto avisar = [estado](double fracao, int objetos) {
        estado->Milesimos = static_cast<int>(fracao * 999.0); // 1000 fecharia a caixa antes do fim
        estado->Objetos = objetos;
        return !estado->Cancelar.load();
    };

    if (tipo.compare(QStringLiteral("XML"), Qt::CaseInsensitive) == 0) {
        // O documento XML é lido noutra linha: a janela continua atendendo, e os objetos só
        // passam para o mapa aqui, depois que a leitura acabou.
        TGISObjetoList rascunho;
        std::exception_ptr erro;
        QEventLoop laco;
        std::unique_ptr<QThread> linha(QThread::create([&] {
            try {
                rascunho.Ler(arquivo, tipo, QVariantMap(), avisar);
            } catch (...) {
                erro = std::current_exception();
            }
        }));
        QObject::connect(linha.get(), &QThread::finished, &laco, &QEventLoop::quit);
        QTimer relogio;
        QObject::connect(&relogio, &QTimer::timeout, &caixa, mostrar);
        relogio.start(50);
        linha->start();
        laco.exec();
        linha->wait();
        if (erro)
            std::rethrow_exception(erro);
        lista.Transferir(rascunho);
    } else {
        lista.Ler(arquivo, tipo, QVariantMap(), [&](double fracao, int objetos) {
            const bool continuar = avisar(fracao, objetos);
            mostrar();
            QApplication::processEvents();
            return continuar && !estado->Cancelar;
        });
    }
}

} // namespace tavru
