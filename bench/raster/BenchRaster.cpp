// Benchmark do desenho de figuras grandes: uma figura gerada de 10.800 x 5.400 pixels (8 bits,
// paleta de 256 cores, gravada como BMP e lida por `TGISImagem::LerArquivo`) deitada no mundo
// inteiro, desenhada por `TGISImagem::Desenhar` num canvas de 1920 x 1080 na extensão inteira e
// ampliada 8, 64 e 512 vezes em torno do Brasil (projeção linear, um zoom 1 põe os 360 graus em
// 1920 pixels).
//
// Mede, na mesma execução, a melhor de cinco de cada:
// - o limite prático: `QPainter::drawImage` só do retângulo visível da mesma figura de 8 bits;
// - um quadro repetido (a mesma visão, a parte escalada já no cache do canvas);
// - uma visão nova (deslocada um pixel a cada vez: o cache não serve).
// E a memória residente (VmRSS) depois de ler a figura, menos a de antes, contra a figura
// guardada mais uma tela de 32 bits; o pico (VmHWM) durante a leitura também.
//
// Metas: quadro repetido até 0,2 × o limite; visão nova até 1,5 ×; a memória até 1,2 × a conta.

#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/TCanvas.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>

using namespace tavru;

namespace {

using Relogio = std::chrono::steady_clock;

constexpr int Largura = 10800, Altura = 5400, TelaX = 1920, TelaY = 1080;

/// Um campo de /proc/self/status em bytes (VmRSS, VmHWM).
double Memoria(const char *campo)
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &linha : f.readAll().split('\n'))
        if (linha.startsWith(campo))
            return linha.mid(int(qstrlen(campo)) + 1).trimmed().split(' ').first().toDouble() * 1024.0;
    return 0;
}

/// Linear: `Escala` pixels por segundo de arco, o centro do mundo dado no meio da tela.
class TProjecaoLinear : public TGISProjecao
{
public:
    double Escala = 1.0;
    double CentroLat = 0, CentroLon = 0;
    std::unique_ptr<TGISProjecao> Criar() const override { return std::make_unique<TProjecaoLinear>(); }
    void FitToRect(const TGISRet &) override {}
    TPoint MundoParaTela(const TGISPosicao &p) const override
    {
        return TPoint(int(std::lround((p.Longitude - CentroLon) * Escala + TelaX / 2.0)),
                      int(std::lround(TelaY / 2.0 - (p.Latitude - CentroLat) * Escala)));
    }
    TGISPosicao TelaParaMundo(const TPoint &p) const override
    {
        return GISPosicao(int(std::lround(CentroLat + (TelaY / 2.0 - p.Y) / Escala)),
                          int(std::lround(CentroLon + (p.X - TelaX / 2.0) / Escala)));
    }
};

double MelhorDeCinco(const std::function<void(int)> &quadro)
{
    double melhor = 1e9;
    for (int i = 0; i < 5; ++i) {
        const auto inicio = Relogio::now();
        quadro(i);
        melhor = std::min(melhor, std::chrono::duration<double>(Relogio::now() - inicio).count());
    }
    return melhor;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTemporaryDir temporaria;
    const QString pasta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : temporaria.path();
    const QString arquivo = pasta + QStringLiteral("/grande.bmp");
    {
        // Faixas de latitude e de longitude em 256 cores.
        QImage gerada(Largura, Altura, QImage::Format_Indexed8);
        QVector<QRgb> cores;
        for (int i = 0; i < 256; ++i)
            cores.append(qRgb(i, (i * 7) & 255, 255 - i));
        gerada.setColorTable(cores);
        for (int y = 0; y < Altura; ++y) {
            uchar *linha = gerada.scanLine(y);
            for (int x = 0; x < Largura; ++x)
                linha[x] = uchar((x / 40 + y / 25) & 255);
        }
        if (!gerada.save(arquivo, "BMP")) {
            std::fprintf(stderr, "não foi possível gravar %s\n", qPrintable(arquivo));
            return 1;
        }
    }
    // O pico da leitura, sem o da geração: "5" em clear_refs zera o VmHWM (Linux 4.0 em diante).
    {
        QFile zerar(QStringLiteral("/proc/self/clear_refs"));
        if (zerar.open(QIODevice::WriteOnly))
            zerar.write("5");
    }
    const double rssAntes = Memoria("VmRSS:");
    TGISImagem imagem;
    imagem.LerArquivo(arquivo);
    const double rssDepois = Memoria("VmRSS:"), pico = Memoria("VmHWM:");
    imagem.AtribuirAreaImagem(GISRet(-324000, -648000, 324000, 648000));
    const QImage &figura = imagem.Imagem();
    const double guardada = double(figura.sizeInBytes()), tela = double(TelaX) * TelaY * 4;
    constexpr double MB = 1024.0 * 1024.0;
    std::printf("figura %dx%d, formato %d, %.1f MB guardados; tela %.1f MB\n", figura.width(), figura.height(),
                int(figura.format()), guardada / MB, tela / MB);
    std::printf("memória: residente depois de ler - antes = %.1f MB (%.2f x a figura + uma tela); pico da leitura "
                "(VmHWM) - antes = %.1f MB\n",
                (rssDepois - rssAntes) / MB, (rssDepois - rssAntes) / (guardada + tela), (pico - rssAntes) / MB);

    QImage destino(TelaX, TelaY, QImage::Format_ARGB32_Premultiplied);
    TCanvas canvas(&destino);
    TProjecaoLinear projecao;
    std::printf("%-8s %12s %12s %12s %10s %10s\n", "zoom", "limite ms", "repetido ms", "nova ms", "repet/lim",
                "nova/lim");
    for (double zoom : {1.0, 8.0, 64.0, 512.0}) {
        projecao.Escala = TelaX / 1296000.0 * zoom;
        projecao.CentroLat = zoom == 1.0 ? 0 : -15 * 3600;
        projecao.CentroLon = zoom == 1.0 ? 0 : -50 * 3600;
        const auto fixarCentro = [&](int deslocamento) {
            projecao.CentroLon = (zoom == 1.0 ? 0 : -50 * 3600) + deslocamento / projecao.Escala;
        };
        // O limite: drawImage do retângulo de origem visível, esticado no retângulo de tela dele.
        const double limite = MelhorDeCinco([&](int i) {
            fixarCentro(i + 1);
            const TRect r = ConcertaRect(projecao.MundoParaTelaRet(imagem.AreaImagem()));
            const QRectF alvo(r.Left, r.Top, r.Right - r.Left, r.Bottom - r.Top);
            const QRectF visivel = alvo.intersected(QRectF(0, 0, TelaX, TelaY));
            const double ex = figura.width() / alvo.width(), ey = figura.height() / alvo.height();
            const QRectF origem((visivel.left() - alvo.left()) * ex, (visivel.top() - alvo.top()) * ey,
                                visivel.width() * ex, visivel.height() * ey);
            QPainter p(&destino);
            p.drawImage(visivel, figura, origem);
        });
        const double nova = MelhorDeCinco([&](int i) {
            fixarCentro(i + 10);
            imagem.Desenhar(canvas, projecao, false);
            canvas.AtribuirImagem(&destino);
        });
        fixarCentro(0);
        imagem.Desenhar(canvas, projecao, false);
        canvas.AtribuirImagem(&destino);
        const double repetido = MelhorDeCinco([&](int) {
            imagem.Desenhar(canvas, projecao, false);
            canvas.AtribuirImagem(&destino);
        });
        std::printf("%-8.0f %12.2f %12.2f %12.2f %10.2f %10.2f\n", zoom, limite * 1e3, repetido * 1e3, nova * 1e3,
                    repetido / limite, nova / limite);
    }
    return 0;
}
