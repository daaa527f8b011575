// O formato EMF: lido pelo libemf2svg (o metarquivo vira SVG) e desenhado pelo Qt SVG numa figura
// de 32 bits sobre fundo branco, no tamanho que o cabeçalho diz (rclBounds, em pixels), limitado a
// 4096 pixels no lado maior; gravado por um gravador pequeno daqui: o cabeçalho, um registro
// EMR_STRETCHDIBITS com a figura (24 bits) e o registro do fim.
//
// O libemf2svg é código C que lê dados de fora; antes de entregar o arquivo a ele, a estrutura é
// conferida aqui: o cabeçalho, o tamanho de cada registro (múltiplo de 4, dentro do arquivo), o
// registro do fim presente, e os deslocamentos dos bitmaps dos registros de figura dentro do
// registro.

#include "FormatoQt_p.h"
#include "Metarquivo_p.h"

#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <QIODevice>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <emf2svg.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tavru {
namespace {

constexpr qint64 TamanhoMaximo = qint64(64) * 1024 * 1024;
constexpr int LadoMaximo = 4096;
constexpr quint32 Assinatura = 0x464D4520u; // " EMF"
constexpr quint32 EmrHeader = 1, EmrEof = 14, EmrBitBlt = 76, EmrStretchBlt = 77, EmrStretchDIBits = 81,
                  EmrSetDIBitsToDevice = 80;

[[noreturn]] void Ruim(const QString &motivo)
{
    throw EInOutError(QStringLiteral("Metarquivo EMF inválido: %1.").arg(motivo));
}

/// O bitmap de um registro: cabeçalho em `offBmi` (com `cbBmi` bytes) e pixels em `offBits`
/// (`cbBits` bytes), deslocamentos a partir do começo do registro `i`, que vai até `fim`.
void ConferirBitmap(const QByteArray &b, qint64 i, qint64 fim, qint64 campos)
{
    const qint64 offBmi = Le32(b, campos), cbBmi = Le32(b, campos + 4);
    const qint64 offBits = Le32(b, campos + 8), cbBits = Le32(b, campos + 12);
    if (cbBmi == 0 && cbBits == 0)
        return; // sem bitmap (um BitBlt que só pinta)
    if (offBmi + cbBmi > fim - i || offBits + cbBits > fim - i)
        Ruim(QStringLiteral("bitmap fora do registro"));
    const QString problema = ProblemaDoDIB(b, i + offBmi, i + offBits + cbBits, i + offBits);
    if (!problema.isEmpty())
        Ruim(problema);
}

/// A estrutura do metarquivo; devolve o tamanho do cabeçalho (rclBounds) em pixels.
QSize ConferirEstrutura(const QByteArray &b)
{
    if (b.size() < 88 || Le32(b, 0) != EmrHeader || Le32(b, 40) != Assinatura)
        Ruim(QStringLiteral("cabeçalho desconhecido"));
    const qint32 esquerda = qint32(Le32(b, 8)), topo = qint32(Le32(b, 12));
    const qint32 direita = qint32(Le32(b, 16)), baixo = qint32(Le32(b, 20));
    const qint64 largura = qint64(direita) - esquerda + 1, altura = qint64(baixo) - topo + 1;
    if (largura <= 0 || altura <= 0 || largura > 1000000 || altura > 1000000)
        Ruim(QStringLiteral("tamanho %1 x %2 no cabeçalho").arg(largura).arg(altura));
    qint64 i = 0;
    for (;;) {
        if (b.size() - i < 8)
            Ruim(QStringLiteral("falta o registro do fim"));
        const quint32 tipo = Le32(b, i);
        const qint64 tamanho = Le32(b, i + 4);
        if (tamanho < 8 || tamanho % 4 != 0 || tamanho > b.size() - i)
            Ruim(QStringLiteral("registro de tamanho %1 no byte %2").arg(tamanho).arg(i));
        const qint64 fim = i + tamanho;
        if (tipo == EmrEof)
            return QSize(int(largura), int(altura));
        // Os campos de bitmap de cada registro de figura, e o tamanho mínimo dele.
        qint64 campos = -1, minimo = 0;
        if (tipo == EmrStretchDIBits) {
            campos = i + 48;
            minimo = 80;
        } else if (tipo == EmrSetDIBitsToDevice) {
            campos = i + 48;
            minimo = 76;
        } else if (tipo == EmrBitBlt) {
            campos = i + 84;
            minimo = 100;
        } else if (tipo == EmrStretchBlt) {
            campos = i + 84;
            minimo = 108;
        }
        if (campos >= 0) {
            if (tamanho < minimo)
                Ruim(QStringLiteral("registro de figura curto no byte %1").arg(i));
            ConferirBitmap(b, i, fim, campos);
        }
        i = fim;
    }
}

QImage LerEMF(QIODevice &fluxo, const std::function<void(QSize)> &conferir)
{
    if (fluxo.size() > TamanhoMaximo)
        Ruim(QStringLiteral("maior que %1 MB").arg(TamanhoMaximo / (1024 * 1024)));
    QByteArray bytes = fluxo.readAll();
    QSize tamanho = ConferirEstrutura(bytes);
    const double reducao = std::min(1.0, double(LadoMaximo) / std::max(tamanho.width(), tamanho.height()));
    tamanho = QSize(std::max(1, int(std::lround(tamanho.width() * reducao))),
                    std::max(1, int(std::lround(tamanho.height() * reducao))));
    conferir(tamanho);

    char espaco[] = "svg";
    generatorOptions opcoes{};
    opcoes.nameSpace = espaco;
    opcoes.verbose = false;
    opcoes.emfplus = true;
    opcoes.svgDelimiter = true;
    opcoes.imgWidth = tamanho.width();
    opcoes.imgHeight = tamanho.height();
    char *svg = nullptr;
    size_t tamanhoSvg = 0;
    const int ok = emf2svg(bytes.data(), size_t(bytes.size()), &svg, &tamanhoSvg, &opcoes);
    const QByteArray texto = svg ? QByteArray(svg, qsizetype(tamanhoSvg)) : QByteArray();
    std::free(svg);
    if (!ok || texto.isEmpty())
        Ruim(QStringLiteral("o libemf2svg não o leu"));
    QSvgRenderer desenhista(texto);
    if (!desenhista.isValid())
        Ruim(QStringLiteral("o SVG do libemf2svg não se desenha"));
    QImage figura(tamanho, QImage::Format_RGB32);
    if (figura.isNull())
        throw EInOutError(QStringLiteral("Memória insuficiente para o metarquivo EMF."));
    figura.fill(Qt::white);
    QPainter pintor(&figura);
    desenhista.render(&pintor, QRectF(0, 0, tamanho.width(), tamanho.height()));
    return figura;
}

void GravarEMF(const QImage &figura, const QString &nome)
{
    if (figura.isNull() || figura.width() > 32767 || figura.height() > 32767)
        throw EInOutError(
            QStringLiteral("A figura \"%1\" não cabe no EMF gravado aqui, de 1 a 32767 pixels de cada lado.").arg(nome));
    const int w = figura.width(), h = figura.height();
    const qint64 dib = TamanhoDIB24(w, h);
    const qint64 registro = 80 + dib, total = 88 + registro + 20;
    QByteArray b;
    // EMR_HEADER: limites em pixels (inclusivos), moldura em centésimos de milímetro (96 pontos
    // por polegada), assinatura, versão, bytes, registros, alças, descrição e paleta vazias, e o
    // dispositivo de referência (1024 x 768 pixels em 271 x 203 mm: 96 pontos por polegada).
    Anexar32(b, EmrHeader);
    Anexar32(b, 88);
    for (qint32 v : {0, 0, w - 1, h - 1})
        Anexar32(b, quint32(v));
    for (qint32 v : {0, 0, qint32(std::lround(w * 2540.0 / 96)) - 1, qint32(std::lround(h * 2540.0 / 96)) - 1})
        Anexar32(b, quint32(v));
    Anexar32(b, Assinatura);
    Anexar32(b, 0x10000);
    Anexar32(b, quint32(total));
    Anexar32(b, 3);
    Anexar16(b, 1);
    Anexar16(b, 0);
    Anexar32(b, 0);
    Anexar32(b, 0);
    Anexar32(b, 0);
    for (qint32 v : {1024, 768, 271, 203})
        Anexar32(b, quint32(v));
    // EMR_STRETCHDIBITS: limites, destino (0, 0), origem (0, 0, w, h), o bitmap logo depois dos
    // 80 bytes do registro, cores RGB, SRCCOPY, destino w x h.
    Anexar32(b, EmrStretchDIBits);
    Anexar32(b, quint32(registro));
    for (qint32 v : {0, 0, w - 1, h - 1, 0, 0, 0, 0, w, h, 80, 40, 120, qint32(dib - 40), 0})
        Anexar32(b, quint32(v));
    Anexar32(b, 0x00CC0020u);
    Anexar32(b, quint32(w));
    Anexar32(b, quint32(h));
    AnexarDIB24(b, figura);
    // EMR_EOF: sem paleta.
    for (quint32 v : {EmrEof, 20u, 0u, 16u, 20u})
        Anexar32(b, v);
    const QString motivo = GravarArquivoComum(nome, b);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o metarquivo \"%1\": %2.").arg(nome, motivo));
}

const TRegistroDeFormato RegistroEMF({{QStringLiteral("emf")}, QStringLiteral("Arquivo MetaFile"), LerEMF, GravarEMF});

} // namespace
} // namespace tavru
