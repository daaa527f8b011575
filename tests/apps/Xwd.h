#pragma once
// A fotografia da tela dos testes de ponta a ponta: tirá-la com o `xwd` e ler o que ele grava.

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QString>
#include <QtEndian>

namespace tavru::teste {

/// A imagem de um arquivo XWD (o que `xwd` grava): 25 inteiros de 32 bits big-endian de
/// cabeçalho, nome da janela, mapa de cores e pixels ZPixmap de 24 ou 32 bits; nula se não for isso.
inline QImage LerXwd(const QByteArray &d)
{
    auto campo = [&](int i) { return qFromBigEndian<quint32>(d.constData() + 4 * i); };
    if (d.size() < 100 || campo(1) != 7 || campo(2) != 2 || (campo(11) != 24 && campo(11) != 32))
        return {};
    const int largura = int(campo(4)), altura = int(campo(5)), bytes = int(campo(11) / 8);
    const qint64 inicio = qint64(campo(0)) + qint64(campo(19)) * 12, porLinha = campo(12);
    if (largura <= 0 || altura <= 0 || largura > 8192 || altura > 8192 || inicio + porLinha * altura > d.size())
        return {};
    const quint32 mascaras[3] = {campo(14), campo(15), campo(16)};
    if (!mascaras[0] || !mascaras[1] || !mascaras[2])
        return {};
    QImage imagem(largura, altura, QImage::Format_RGB32);
    for (int y = 0; y < altura; ++y)
        for (int x = 0; x < largura; ++x) {
            const auto *p = reinterpret_cast<const uchar *>(d.constData() + inicio + y * porLinha + x * bytes);
            quint32 v = 0;
            for (int k = 0; k < bytes; ++k) // ordem dos bytes: campo 7 (0 = o menos significativo antes)
                v |= quint32(p[campo(7) ? k : bytes - 1 - k]) << (8 * (bytes - 1 - k));
            int c[3];
            for (int i = 0; i < 3; ++i)
                c[i] = int((v & mascaras[i]) / (mascaras[i] & (~mascaras[i] + 1)));
            imagem.setPixel(x, y, qRgb(c[0], c[1], c[2]));
        }
    return imagem;
}

/// Fotografa a tela X `tela` inteira com o `xwd` (no arquivo `foto`) e a lê; nula quando o `xwd`
/// falhou ou a fotografia não se lê.
inline QImage FotografarTela(const QString &xwd, const QString &tela, const QString &foto)
{
    QProcess captura;
    captura.start(xwd, {"-root", "-silent", "-display", tela, "-out", foto});
    if (!captura.waitForFinished(20000) || captura.exitCode() != 0)
        return {};
    QFile arquivo(foto);
    if (!arquivo.open(QIODevice::ReadOnly))
        return {};
    return LerXwd(arquivo.readAll());
}

} // namespace tavru::teste
