#include "FormatoQt_p.h"

#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtGlobal>

namespace tavru {

void GravarPeloQt(const QImage &figura, const QString &nomeArquivo, const char *formato)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter gravador(&buffer, formato);
    if (!gravador.write(figura))
        throw EInOutError(QStringLiteral("Não foi possível gravar a figura \"%1\": %2.")
                              .arg(nomeArquivo, gravador.errorString()));
    const QString motivo = GravarArquivoComum(nomeArquivo, bytes);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar a figura \"%1\": %2.").arg(nomeArquivo, motivo));
}

TRegistroDeFormato::TRegistroDeFormato(const TFormatoGrafico &formato)
{
    try {
        TFileFormatList::Registrar(formato);
        FExtensao = formato.Extensoes.value(0);
    } catch (const std::exception &e) {
        qWarning("Tavru: o formato de figura %s não foi registrado: %s", qPrintable(formato.Descricao), e.what());
    }
}

TRegistroDeFormato::~TRegistroDeFormato()
{
    if (!FExtensao.isEmpty())
        TFileFormatList::Remover(FExtensao);
}

} // namespace tavru
