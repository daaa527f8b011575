#pragma once
// O bitmap de uma barra a partir do recurso do módulo (uso interno das barras do controle).

#include <QGuiApplication>
#include <QImage>
#include <QString>

namespace tavru {

/// O bitmap do recurso `nome` ("BMP_AMPLIAR"): numa tela de densidade maior que 1, a versão de
/// dobro do tamanho ("BMP_AMPLIAR@2x", 48 x 48) com razão de pixels 2, que ocupa o mesmo lugar
/// (24 x 24) e fica nítida; senão, ou sem essa versão, a de 24 x 24. Nulo se não há recurso.
inline QImage BitmapDoRecurso(const char *nome)
{
    const QString recurso = QStringLiteral(":/") + QLatin1String(nome);
    if (qGuiApp && qGuiApp->devicePixelRatio() > 1.0) {
        QImage dobro(recurso + QStringLiteral("@2x"));
        if (!dobro.isNull()) {
            dobro.setDevicePixelRatio(2.0);
            return dobro;
        }
    }
    return QImage(recurso);
}

} // namespace tavru
