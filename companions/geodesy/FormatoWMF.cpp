// O formato WMF: lido pelo libwmf (o dispositivo "gd" desenha o metarquivo numa figura de 32 bits
// no tamanho que o cabeçalho dele diz, limitado a 4096 pixels no lado maior) e gravado por um
// gravador pequeno daqui: um WMF "placeable" com um só registro META_STRETCHDIB que estica a
// figura (24 bits) sobre o retângulo inteiro.
//
// O libwmf é código C que lê dados de fora e já teve quebras conhecidas; antes de entregar o
// arquivo a ele, a estrutura é conferida aqui: cabeçalhos, o tamanho de cada registro dentro do
// arquivo, o registro do fim presente, e o tamanho de cada registro de figura (os DIB) coerente
// com o cabeçalho do bitmap que ele traz.

#include "FormatoQt_p.h"
#include "Metarquivo_p.h"

#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <QIODevice>

#include <libwmf/api.h>
#include <libwmf/gd.h>
#include <libwmf/gd/gd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tavru {
namespace {

/// O maior metarquivo lido (bytes).
constexpr qint64 TamanhoMaximo = qint64(64) * 1024 * 1024;
/// O lado maior da figura desenhada (pixels).
constexpr int LadoMaximo = 4096;
constexpr quint32 ChavePlaceable = 0x9AC6CDD7u;

[[noreturn]] void Ruim(const QString &motivo)
{
    throw EInOutError(QStringLiteral("Metarquivo WMF inválido: %1.").arg(motivo));
}

void ConferirDIB(const QByteArray &b, qint64 inicio, qint64 fim)
{
    const QString problema = ProblemaDoDIB(b, inicio, fim);
    if (!problema.isEmpty())
        Ruim(problema);
}

/// A estrutura do metarquivo inteiro, antes de o libwmf vê-lo.
void ConferirEstrutura(const QByteArray &b)
{
    qint64 i = 0;
    if (b.size() >= 22 && Le32(b, 0) == ChavePlaceable)
        i = 22;
    if (b.size() - i < 18)
        Ruim(QStringLiteral("arquivo curto demais"));
    const quint16 tipo = Le16(b, i), tamanhoCabecalho = Le16(b, i + 2);
    if ((tipo != 1 && tipo != 2) || tamanhoCabecalho != 9)
        Ruim(QStringLiteral("cabeçalho desconhecido"));
    i += 18;
    for (;;) {
        if (b.size() - i < 6)
            Ruim(QStringLiteral("falta o registro do fim"));
        const qint64 palavras = Le32(b, i);
        const quint16 funcao = Le16(b, i + 4);
        if (palavras < 3 || palavras * 2 > b.size() - i)
            Ruim(QStringLiteral("registro de tamanho %1 no byte %2").arg(palavras).arg(i));
        const qint64 fim = i + palavras * 2;
        switch (funcao) {
        case 0x0000: // fim
            return;
        case 0x0F43: // META_STRETCHDIB: operação(4), uso(2), 8 coordenadas(16), DIB
            ConferirDIB(b, i + 6 + 22, fim);
            break;
        case 0x0B41: // META_DIBSTRETCHBLT: operação(4), 8 coordenadas(16), DIB
            ConferirDIB(b, i + 6 + 20, fim);
            break;
        case 0x0940: // META_DIBBITBLT: operação(4), 6 coordenadas(12), DIB
            ConferirDIB(b, i + 6 + 16, fim);
            break;
        case 0x0142: // META_DIBCREATEPATTERNBRUSH: estilo(2), uso(2), DIB
            ConferirDIB(b, i + 6 + 4, fim);
            break;
        default:
            break;
        }
        i = fim;
    }
}

QImage LerWMF(QIODevice &fluxo, const std::function<void(QSize)> &conferir)
{
    if (fluxo.size() > TamanhoMaximo)
        Ruim(QStringLiteral("maior que %1 MB").arg(TamanhoMaximo / (1024 * 1024)));
    QByteArray bytes = fluxo.readAll();
    ConferirEstrutura(bytes);

    // O libwmf só começa a tocar um metarquivo com as fontes PostScript padrão à mão; sem elas
    // instaladas (o Debian as tem em pacotes à parte), cada uma aponta para a DejaVu Sans.
    static char fonte[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    static char pasta[] = "/usr/share/fonts/truetype/dejavu";
    static const char *const padrao[] = {"Times-Roman", "Times-Italic", "Times-Bold", "Times-BoldItalic",
                                         "Helvetica", "Helvetica-Oblique", "Helvetica-Bold", "Helvetica-BoldOblique",
                                         "Courier", "Courier-Oblique", "Courier-Bold", "Courier-BoldOblique",
                                         "Symbol", "ZapfDingbats"};
    constexpr int quantas = int(sizeof(padrao) / sizeof(padrao[0]));
    wmfMapping ps[quantas + 1] = {};
    for (int k = 0; k < quantas; ++k)
        ps[k] = wmfMapping{const_cast<char *>(padrao[k]), fonte, FT_ENCODING_NONE};
    char *pastas[] = {pasta, nullptr};

    wmfAPI_Options opcoes{};
    opcoes.function = wmf_gd_function;
    opcoes.font.ps = ps;
    opcoes.fontdirs = pastas;
    wmfAPI *api = nullptr;
    const unsigned long bandeiras = WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG |
                                    WMF_OPT_FONTMAP | WMF_OPT_FONTDIRS;
    if (wmf_api_create(&api, bandeiras, &opcoes) != wmf_E_None || !api) {
        if (api)
            wmf_api_destroy(api);
        Ruim(QStringLiteral("o libwmf não começou"));
    }
    // A figura do dispositivo "gd" pedida como imagem fica com quem pede: o wmf_api_destroy não a
    // solta, e o libwmf não exporta o gdImageDestroy. Ela é solta aqui pelo leiaute público do
    // gd.h do libwmf: as linhas de 32 bits num bloco só (o que wmf_gd_image_pixels devolve), a
    // lista das linhas e a estrutura.
    struct TFim
    {
        wmfAPI *Api;
        ~TFim()
        {
            if (auto *imagem = static_cast<gdImagePtr>(WMF_GD_GetData(Api)->gd_image)) {
                if (imagem->trueColor && imagem->tpixels) {
                    std::free(imagem->tpixels[0]);
                    std::free(imagem->tpixels);
                }
                std::free(imagem);
                WMF_GD_GetData(Api)->gd_image = nullptr;
            }
            wmf_api_destroy(Api);
        }
    } fim{api};
    wmfD_Rect caixa{};
    if (wmf_mem_open(api, reinterpret_cast<unsigned char *>(bytes.data()), long(bytes.size())) != wmf_E_None ||
        wmf_scan(api, 0, &caixa) != wmf_E_None)
        Ruim(QStringLiteral("o libwmf não o leu"));
    unsigned int largura = 0, altura = 0;
    if (wmf_display_size(api, &largura, &altura, 96, 96) != wmf_E_None || largura == 0 || altura == 0)
        Ruim(QStringLiteral("sem tamanho"));
    const double reducao = std::min(1.0, double(LadoMaximo) / double(std::max(largura, altura)));
    largura = std::max(1u, static_cast<unsigned>(std::lround(largura * reducao)));
    altura = std::max(1u, static_cast<unsigned>(std::lround(altura * reducao)));
    conferir(QSize(int(largura), int(altura)));

    wmf_gd_t *gd = WMF_GD_GetData(api);
    gd->type = wmf_gd_image;
    gd->width = largura;
    gd->height = altura;
    gd->bbox = caixa;
    if (wmf_play(api, 0, &caixa) != wmf_E_None || !gd->gd_image)
        Ruim(QStringLiteral("o libwmf não o desenhou"));
    const int *pixels = wmf_gd_image_pixels(gd->gd_image);
    if (!pixels)
        Ruim(QStringLiteral("o libwmf não o desenhou"));
    QImage figura(int(largura), int(altura), QImage::Format_RGB32);
    if (figura.isNull())
        throw EInOutError(QStringLiteral("Memória insuficiente para o metarquivo WMF."));
    for (int y = 0; y < figura.height(); ++y) {
        QRgb *linha = reinterpret_cast<QRgb *>(figura.scanLine(y));
        for (int x = 0; x < figura.width(); ++x)
            linha[x] = 0xFF000000u | (quint32(pixels[qint64(y) * largura + x]) & 0xFFFFFFu);
    }
    return figura;
}

void GravarWMF(const QImage &figura, const QString &nome)
{
    if (figura.isNull() || figura.width() > 32767 || figura.height() > 32767)
        throw EInOutError(
            QStringLiteral("A figura \"%1\" não cabe num WMF, que guarda de 1 a 32767 pixels de cada lado.").arg(nome));
    const int w = figura.width(), h = figura.height();
    const qint64 bytesDIB = TamanhoDIB24(w, h);
    const qint64 palavrasDIB = 3 + 11 + bytesDIB / 2; // tamanho, função, parâmetros, DIB
    if (palavrasDIB > 0x7FFFFFFF / 2)
        throw EInOutError(QStringLiteral("A figura \"%1\" é grande demais para um WMF.").arg(nome));

    QByteArray b;
    // Cabeçalho "placeable": chave, alça, caixa (0, 0, w, h), unidades por polegada (96), soma.
    Anexar32(b, ChavePlaceable);
    Anexar16(b, 0);
    Anexar16(b, 0);
    Anexar16(b, 0);
    Anexar16(b, quint16(w));
    Anexar16(b, quint16(h));
    Anexar16(b, 96);
    Anexar32(b, 0);
    quint16 soma = 0;
    for (int k = 0; k < 10; ++k)
        soma ^= Le16(b, 2 * k);
    Anexar16(b, soma);
    // Cabeçalho do metarquivo: em memória, 9 palavras, versão 3.0, tamanho total em palavras,
    // nenhum objeto, maior registro.
    const qint64 total = 9 + 5 + 5 + palavrasDIB + 3;
    Anexar16(b, 1);
    Anexar16(b, 9);
    Anexar16(b, 0x0300);
    Anexar32(b, quint32(total));
    Anexar16(b, 0);
    Anexar32(b, quint32(palavrasDIB));
    Anexar16(b, 0);
    // A janela: origem (0, 0) e extensão (w, h), y antes de x.
    Anexar32(b, 5);
    Anexar16(b, 0x020B);
    Anexar16(b, 0);
    Anexar16(b, 0);
    Anexar32(b, 5);
    Anexar16(b, 0x020C);
    Anexar16(b, quint16(h));
    Anexar16(b, quint16(w));
    // META_STRETCHDIB: SRCCOPY, cores RGB, origem (0, 0, w, h), destino (0, 0, w, h), o DIB.
    Anexar32(b, quint32(palavrasDIB));
    Anexar16(b, 0x0F43);
    Anexar32(b, 0x00CC0020u);
    Anexar16(b, 0);
    for (int v : {h, w, 0, 0, h, w, 0, 0})
        Anexar16(b, quint16(v));
    AnexarDIB24(b, figura);
    // O fim.
    Anexar32(b, 3);
    Anexar16(b, 0);
    const QString motivo = GravarArquivoComum(nome, b);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o metarquivo \"%1\": %2.").arg(nome, motivo));
}

const TRegistroDeFormato RegistroWMF({{QStringLiteral("wmf")}, QStringLiteral("Arquivo MetaFile"), LerWMF, GravarWMF});

} // namespace
} // namespace tavru
