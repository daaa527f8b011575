#include <tavru/companions/symbology/TSimboloGrafico.h>

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <cmath>

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
    if (FImagem.isNull() || o.Width() <= 0 || o.Height() <= 0)
        return;
    const double escala = std::min(double(o.Width()) / FImagem.width(), double(o.Height()) / FImagem.height());
    const int largura = std::max(1, static_cast<int>(std::lround(FImagem.width() * escala)));
    const int altura = std::max(1, static_cast<int>(std::lround(FImagem.height() * escala)));
    const int esquerda = o.Left + (o.Width() - largura) / 2;
    const int topo = o.Top + (o.Height() - altura) / 2;
    canvas.StretchDraw(TRect(esquerda, topo, esquerda + largura, topo + altura), FImagem);
}

} // namespace tavru
