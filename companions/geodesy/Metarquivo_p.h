#pragma once
// Peças comuns dos metarquivos (WMF e EMF): números little-endian lidos e escritos e a
// conferência de um bitmap independente de dispositivo (DIB) antes de entregá-lo a uma biblioteca
// de fora. Não instalado.

#include <QByteArray>
#include <QString>
#include <QtEndian>

namespace tavru {

inline quint16 Le16(const QByteArray &b, qint64 i)
{
    return qFromLittleEndian<quint16>(b.constData() + i);
}
inline quint32 Le32(const QByteArray &b, qint64 i)
{
    return qFromLittleEndian<quint32>(b.constData() + i);
}
inline void Anexar16(QByteArray &b, quint16 v)
{
    char c[2];
    qToLittleEndian(v, c);
    b.append(c, 2);
}
inline void Anexar32(QByteArray &b, quint32 v)
{
    char c[4];
    qToLittleEndian(v, c);
    b.append(c, 4);
}

/// O problema do DIB que começa em `inicio` e cujos pixels podem ir até `fim` (o cabeçalho do
/// bitmap cabe, sem compressão, 1/4/8/24/32 bits, até 32767 pixels de lado, e a paleta e os pixels
/// que ele diz cabem), ou o texto vazio quando está bom. `inicioPixels` < 0: os pixels vêm logo
/// depois do cabeçalho e da paleta; senão, é onde começam.
QString ProblemaDoDIB(const QByteArray &b, qint64 inicio, qint64 fim, qint64 inicioPixels = -1);

/// Escreve um cabeçalho de bitmap de 24 bits (40 bytes, 96 pontos por polegada) e os pixels, de
/// baixo para cima em BGR, de `figura` em `b`.
void AnexarDIB24(QByteArray &b, const class QImage &figura);
/// Bytes do DIB de 24 bits de uma figura de `largura` x `altura` (cabeçalho e pixels).
qint64 TamanhoDIB24(int largura, int altura);

} // namespace tavru
