#include <tavru/gdal/TGISImagemGDAL.h>
#include "FonteGDAL_p.h"
#include "GdalComum_p.h"

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TContextoDeDesenho.h>

#include <algorithm>
#include <atomic>
#include <deque>

namespace tavru {

const TClasseObjeto TGISImagemGDAL::Descritor = TClasseObjeto::De<TGISImagemGDAL>("TGISImagemGDAL");

namespace {

// As últimas partes lidas, por canvas (no contexto de desenho dele), dentro de um orçamento de
// duas telas; a mais antiga sai primeiro.
struct TPartesGDAL
{
    struct TParte
    {
        std::uint64_t Serie;
        TRect Tela;
        TRect Visivel;
        QImage Figura;
    };
    std::deque<TParte> Partes;

    void Guardar(TParte parte, qint64 orcamento)
    {
        Partes.push_front(std::move(parte));
        qint64 total = 0;
        for (std::size_t i = 0; i < Partes.size(); ++i) {
            total += Partes[i].Figura.sizeInBytes();
            if (total > orcamento && i > 0) {
                Partes.resize(i);
                break;
            }
        }
    }
};

bool Iguais(const TRect &a, const TRect &b)
{
    return a.Left == b.Left && a.Top == b.Top && a.Right == b.Right && a.Bottom == b.Bottom;
}

std::uint64_t NovaSerie()
{
    static std::atomic<std::uint64_t> serie{0};
    return ++serie;
}

} // namespace

TGISImagemGDAL::TGISImagemGDAL() = default;
TGISImagemGDAL::~TGISImagemGDAL() = default;

int TGISImagemGDAL::Largura() const
{
    return FFonte ? FFonte->Largura() : 0;
}

int TGISImagemGDAL::Altura() const
{
    return FFonte ? FFonte->Altura() : 0;
}

bool TGISImagemGDAL::Reprojetada() const
{
    return FFonte && FFonte->Reprojetada();
}

void TGISImagemGDAL::Abrir(const QString &nome)
{
    if (!AbrirArquivoComum(nome))
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    auto fonte = std::make_shared<const gdal::TFonteGDAL>(nome);
    QImage previa = fonte->Previa(LadoDaPrevia);
    // A leitura da imagem comum guarda o nome do arquivo mesmo quando não decodifica a figura; o
    // GeoTIFF recusa na hora (sem ler o arquivo inteiro), e os formatos que só o GDAL lê falham
    // no cabeçalho. A prévia e a área são as do GDAL.
    try {
        const gdal::TSoONome soONome;
        TGISImagem::LerArquivo(nome);
    } catch (const Exception &) {
    }
    FFonte = std::move(fonte);
    FSerie = NovaSerie();
    std::int32_t oeste = 0, norte = 0, leste = 0, sul = 0;
    gdal::GrausParaSegundos(FFonte->Oeste(), FFonte->Norte(), oeste, norte);
    gdal::GrausParaSegundos(FFonte->Leste(), FFonte->Sul(), leste, sul);
    AtribuirImagem(previa);
    AtribuirArea(GISRet(sul, oeste, norte, leste));
}

void TGISImagemGDAL::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    const QImage *tela = canvas.Imagem();
    if (!FFonte || !tela || tela->isNull()) {
        TGISImagem::Desenhar(canvas, projecao, selecionado);
        return;
    }
    const double zoom = projecao.Zoom();
    if (selecionado || zoom < ZoomMinimoImagem() || zoom > ZoomMaximoImagem())
        return;
    const TRect r = ConcertaRect(projecao.MundoParaTelaRet(AreaImagem()));
    const double razao = tela->devicePixelRatio();
    const std::int64_t largura = static_cast<std::int64_t>(tela->width() / razao);
    const std::int64_t altura = static_cast<std::int64_t>(tela->height() / razao);
    const TRect visivel{static_cast<int>(std::max<std::int64_t>(r.Left, 0)),
                        static_cast<int>(std::max<std::int64_t>(r.Top, 0)),
                        static_cast<int>(std::min<std::int64_t>(r.Right, largura)),
                        static_cast<int>(std::min<std::int64_t>(r.Bottom, altura))};
    if (visivel.Left >= visivel.Right || visivel.Top >= visivel.Bottom || r.Right <= r.Left || r.Bottom <= r.Top)
        return;

    TPartesGDAL &partes = canvas.Contexto().Obter<TPartesGDAL>();
    auto achada = std::find_if(partes.Partes.begin(), partes.Partes.end(), [&](const TPartesGDAL::TParte &p) {
        return p.Serie == FSerie && Iguais(p.Tela, r) && Iguais(p.Visivel, visivel);
    });
    QImage figura;
    if (achada != partes.Partes.end()) {
        figura = achada->Figura;
    } else {
        // A janela da figura que cai na parte visível da tela, na resolução da tela (em pixels do
        // aparelho numa tela de alta densidade).
        const double px = static_cast<double>(FFonte->Largura()) / (static_cast<double>(r.Right) - r.Left);
        const double py = static_cast<double>(FFonte->Altura()) / (static_cast<double>(r.Bottom) - r.Top);
        const QRectF janela((visivel.Left - static_cast<double>(r.Left)) * px,
                            (visivel.Top - static_cast<double>(r.Top)) * py,
                            (static_cast<double>(visivel.Right) - visivel.Left) * px,
                            (static_cast<double>(visivel.Bottom) - visivel.Top) * py);
        const QSize tamanho(static_cast<int>(std::lround((visivel.Right - visivel.Left) * razao)),
                            static_cast<int>(std::lround((visivel.Bottom - visivel.Top) * razao)));
        figura = FFonte->Ler(janela, tamanho);
        if (figura.isNull())
            return;
        figura.setDevicePixelRatio(razao);
        partes.Guardar({FSerie, r, visivel, figura}, tela->sizeInBytes() * 2);
    }
    canvas.Draw(visivel.Left, visivel.Top, figura);
}

} // namespace tavru
