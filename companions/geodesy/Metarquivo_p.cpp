#include "Metarquivo_p.h"

#include <QImage>

#include <cstdlib>

namespace tavru {

namespace {
qint64 Linha24(int largura)
{
    return ((qint64(largura) * 24 + 31) / 32) * 4;
}
} // namespace

QString ProblemaDoDIB(const QByteArray &b, qint64 inicio, qint64 fim, qint64 inicioPixels)
{
    if (inicio < 0 || fim > b.size() || fim - inicio < 40)
        return QStringLiteral("registro de figura sem cabeçalho de bitmap");
    const quint32 tamanhoCabecalho = Le32(b, inicio);
    const qint32 largura = qint32(Le32(b, inicio + 4)), altura = qint32(Le32(b, inicio + 8));
    const quint16 bits = Le16(b, inicio + 14);
    const quint32 compressao = Le32(b, inicio + 16);
    if (tamanhoCabecalho < 40 || tamanhoCabecalho > quint32(fim - inicio) || largura <= 0 || altura == 0 ||
        largura > 32767 || std::abs(qint64(altura)) > 32767)
        return QStringLiteral("cabeçalho de bitmap fora do lugar");
    if (compressao != 0 || (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32))
        return QStringLiteral("bitmap de %1 bits ou comprimido, que não é lido").arg(bits);
    const qint64 linha = ((qint64(largura) * bits + 31) / 32) * 4;
    const qint64 paleta = bits <= 8 ? (qint64(1) << bits) * 4 : 0;
    const qint64 pixels = inicioPixels < 0 ? inicio + tamanhoCabecalho + paleta : inicioPixels;
    if (inicioPixels < 0 ? pixels > fim : inicio + tamanhoCabecalho + paleta > fim)
        return QStringLiteral("bitmap maior que o registro");
    if (pixels < 0 || pixels + linha * std::abs(qint64(altura)) > fim)
        return QStringLiteral("bitmap maior que o registro");
    return QString();
}

qint64 TamanhoDIB24(int largura, int altura)
{
    return 40 + Linha24(largura) * altura;
}

void AnexarDIB24(QByteArray &b, const QImage &figura)
{
    const QImage rgb = figura.convertToFormat(QImage::Format_RGB888);
    const int w = rgb.width(), h = rgb.height();
    const qint64 linha = Linha24(w);
    Anexar32(b, 40);
    Anexar32(b, quint32(w));
    Anexar32(b, quint32(h));
    Anexar16(b, 1);
    Anexar16(b, 24);
    Anexar32(b, 0);
    Anexar32(b, quint32(linha * h));
    Anexar32(b, 3780); // 96 pontos por polegada, em pontos por metro
    Anexar32(b, 3780);
    Anexar32(b, 0);
    Anexar32(b, 0);
    QByteArray pixels(int(linha), '\0');
    for (int y = h - 1; y >= 0; --y) {
        const uchar *origem = rgb.constScanLine(y);
        for (int x = 0; x < w; ++x) {
            pixels[3 * x] = char(origem[3 * x + 2]);
            pixels[3 * x + 1] = char(origem[3 * x + 1]);
            pixels[3 * x + 2] = char(origem[3 * x]);
        }
        b.append(pixels);
    }
}

} // namespace tavru
