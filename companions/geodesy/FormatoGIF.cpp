// O formato GIF: lido pelo leitor de imagens da plataforma (o Qt lê GIF) e gravado pelo giflib
// (o Qt não grava GIF). A figura é gravada com a paleta dela quando já tem 8 bits; senão é
// reduzida a 256 cores pelo Qt, sem pontilhado.

#include "FormatoQt_p.h"

#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <gif_lib.h>

#include <memory>
#include <vector>

namespace tavru {
namespace {

int Acrescentar(GifFileType *gif, const GifByteType *dados, int tamanho)
{
    static_cast<QByteArray *>(gif->UserData)->append(reinterpret_cast<const char *>(dados), tamanho);
    return tamanho;
}

[[noreturn]] void Falhou(const QString &nome, int erro)
{
    const char *texto = GifErrorString(erro);
    throw EInOutError(QStringLiteral("Não foi possível gravar a figura GIF \"%1\": erro %2 do giflib (%3).")
                          .arg(nome)
                          .arg(erro)
                          .arg(QString::fromLatin1(texto ? texto : "?")));
}

void GravarGIF(const QImage &figura, const QString &nome)
{
    if (figura.isNull() || figura.width() > 65535 || figura.height() > 65535)
        throw EInOutError(QStringLiteral("A figura GIF \"%1\" não pode ser gravada: o GIF guarda de 1 a 65535 pixels "
                                         "de cada lado.")
                              .arg(nome));
    const QImage indexada = figura.format() == QImage::Format_Indexed8
                                ? figura
                                : figura.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    if (indexada.isNull())
        throw EInOutError(QStringLiteral("Memória insuficiente para gravar a figura GIF \"%1\".").arg(nome));
    const QVector<QRgb> cores = indexada.colorTable();
    // O GIF quer uma paleta de 2, 4, ..., 256 cores.
    int tamanhoPaleta = 2;
    while (tamanhoPaleta < cores.size())
        tamanhoPaleta *= 2;
    std::vector<GifColorType> paleta(static_cast<size_t>(tamanhoPaleta), GifColorType{0, 0, 0});
    for (int i = 0; i < cores.size(); ++i)
        paleta[static_cast<size_t>(i)] = GifColorType{static_cast<GifByteType>(qRed(cores[i])),
                                                      static_cast<GifByteType>(qGreen(cores[i])),
                                                      static_cast<GifByteType>(qBlue(cores[i]))};
    const std::unique_ptr<ColorMapObject, void (*)(ColorMapObject *)> mapa(
        GifMakeMapObject(tamanhoPaleta, paleta.data()), GifFreeMapObject);
    if (!mapa)
        throw EInOutError(QStringLiteral("Memória insuficiente para gravar a figura GIF \"%1\".").arg(nome));

    QByteArray bytes;
    int erro = 0;
    GifFileType *gif = EGifOpen(&bytes, Acrescentar, &erro);
    if (!gif)
        Falhou(nome, erro);
    const auto fechar = [&gif]() {
        int e = 0;
        const int ok = EGifCloseFile(gif, &e);
        gif = nullptr;
        return ok == GIF_OK ? 0 : e;
    };
    EGifSetGifVersion(gif, true);
    bool ok = EGifPutScreenDesc(gif, indexada.width(), indexada.height(), 8, 0, mapa.get()) == GIF_OK &&
              EGifPutImageDesc(gif, 0, 0, indexada.width(), indexada.height(), false, nullptr) == GIF_OK;
    std::vector<GifPixelType> linha(static_cast<size_t>(indexada.width()));
    for (int y = 0; ok && y < indexada.height(); ++y) {
        const uchar *origem = indexada.constScanLine(y);
        std::copy(origem, origem + indexada.width(), linha.begin());
        ok = EGifPutLine(gif, linha.data(), indexada.width()) == GIF_OK;
    }
    if (!ok) {
        const int e = gif->Error;
        fechar();
        Falhou(nome, e);
    }
    if (const int e = fechar())
        Falhou(nome, e);
    const QString motivo = GravarArquivoComum(nome, bytes);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar a figura GIF \"%1\": %2.").arg(nome, motivo));
}

const TRegistroDeFormato RegistroGIF({{QStringLiteral("gif")}, QStringLiteral("Arquivo do gif"), nullptr, GravarGIF});

} // namespace
} // namespace tavru
