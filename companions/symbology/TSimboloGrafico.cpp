#include <tavru/companions/symbology/TSimboloGrafico.h>

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tavru {

void TSimboloGrafico::LerArquivo(const QString &nome)
{
    FNomeArquivo = nome;
    if (!QFileInfo(nome).isFile())
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    QImageReader leitor(nome);
    leitor.setDecideFormatFromContent(true);
    const QImage lida = leitor.read();
    if (lida.isNull())
        throw EInOutError(QStringLiteral("Formato de imagem desconhecido ou arquivo corrompido: %1 (%2)")
                              .arg(nome, leitor.errorString()));
    FImagem = lida;
}

void TSimboloGrafico::DesenharRotacionado(TCanvas &canvas, const TRect &r, double) const
{
    const TRect o = ConcertaRect(r);
    // Em 64 bits: um retângulo de ponta a ponta da faixa de 32 bits não estoura.
    const std::int64_t w = std::int64_t(o.Right) - o.Left, h = std::int64_t(o.Bottom) - o.Top;
    if (FImagem.isNull() || w <= 0 || h <= 0)
        return;
    const double escala = std::min(double(w) / FImagem.width(), double(h) / FImagem.height());
    const std::int64_t largura = std::max<std::int64_t>(1, std::llround(FImagem.width() * escala));
    const std::int64_t altura = std::max<std::int64_t>(1, std::llround(FImagem.height() * escala));
    const int esquerda = static_cast<int>(o.Left + (w - largura) / 2);
    const int topo = static_cast<int>(o.Top + (h - altura) / 2);
    canvas.StretchDraw(TRect(esquerda, topo, static_cast<int>(esquerda + largura), static_cast<int>(topo + altura)),
                       FImagem);
}

} // namespace tavru
