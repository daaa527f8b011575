#include "TGISMiniatura.h"

#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/platform/TCanvas.h>

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace tavru {

TGISMiniatura::TGISMiniatura(QWidget *parent)
    : QWidget(parent), FCorDoRetangulo(DeQColor(Qt::red)), FProjecao(std::make_unique<TGISProjecaoMercator>())
{
    setMinimumSize(60, 50);
    setCursor(Qt::PointingHandCursor);
}

TGISMiniatura::~TGISMiniatura() = default;

void TGISMiniatura::AtribuirGis(TGis *gis)
{
    if (FGis == gis)
        return;
    if (FGis)
        disconnect(FGis, nullptr, this, nullptr);
    FGis = gis;
    FMarcas.clear();
    if (gis)
        connect(gis, &TGis::VisaoMudou, this, qOverload<>(&QWidget::update));
    update();
}

void TGISMiniatura::AtribuirCamadas(const QStringList &nomes)
{
    FNomes = nomes;
    FMarcas.clear();
    update();
}

void TGISMiniatura::AtribuirCorDoRetangulo(TColor cor)
{
    FCorDoRetangulo = cor;
    update();
}

std::vector<TGISCamada *> TGISMiniatura::CamadasMostradas() const
{
    std::vector<TGISCamada *> camadas;
    if (!FGis)
        return camadas;
    const TGISCamadaList &lista = FGis->Camadas();
    for (int i = 0; i < lista.Count(); ++i) {
        TGISCamada *camada = lista.Items(i);
        if (FNomes.isEmpty() || FNomes.contains(camada->Nome(), Qt::CaseInsensitive))
            camadas.push_back(camada);
    }
    return camadas;
}

std::vector<TGISMiniatura::TMarca> TGISMiniatura::MarcasAtuais() const
{
    std::vector<TMarca> marcas;
    for (const TGISCamada *camada : CamadasMostradas())
        marcas.push_back(TMarca{camada, camada->ContadorDeMudancas(), camada->Visivel()});
    return marcas;
}

void TGISMiniatura::GarantirImagem()
{
    const QSize tamanho = size().expandedTo(QSize(1, 1));
    std::vector<TMarca> marcas = MarcasAtuais();
    // Um mapa sem camadas também tem imagem: o fundo.
    if (!FImagem.isNull() && FImagem.size() == tamanho && marcas == FMarcas && !marcas.empty())
        return;
    FMarcas = std::move(marcas);
    ++FRedesenhos;

    FImagem = QImage(tamanho, QImage::Format_ARGB32_Premultiplied);
    FImagem.fill(FGis ? ParaQColor(FGis->Color()) : palette().color(QPalette::Window));
    FProjecao->DoAtribuirAreaTela(TRect(0, 0, tamanho.width(), tamanho.height()));
    if (!FGis)
        return;

    const std::vector<TGISCamada *> camadas = CamadasMostradas();
    // A extensão dos objetos visíveis das camadas visíveis.
    TGISRet limites = GISRet(0, 0, 0, 0);
    bool algum = false;
    for (const TGISCamada *camada : camadas) {
        if (!camada->Visivel())
            continue;
        const TGISObjetoList &objetos = camada->Objetos();
        for (int o = 0; o < objetos.Count(); ++o) {
            const TGISObjeto *objeto = objetos.Items(o);
            if (!objeto || !objeto->Visivel())
                continue;
            try {
                const TGISRet area = objeto->Area();
                limites = algum ? Uniao(limites, area) : area;
                algum = true;
            } catch (const std::exception &) {
                // Um objeto que não se deixa medir fica de fora da extensão.
            }
        }
    }
    if (!algum)
        return;
    FProjecao->FitToRect(limites);

    TCanvas canvas(&FImagem);
    const TRect tela = FProjecao->AreaTela();
    for (TGISCamada *camada : camadas) {
        if (!camada->Visivel())
            continue;
        const TGISObjetoList &objetos = camada->Objetos();
        for (int o = 0; o < objetos.Count(); ++o) {
            TGISObjeto *objeto = objetos.Items(o);
            if (!objeto || !objeto->Visivel())
                continue;
            try {
                if (!Intersecao(FProjecao->MundoParaTelaRet(objeto->Area()), tela))
                    continue;
                canvas.Pen().Assign(FGis->Pen());
                canvas.Brush().Assign(FGis->Brush());
                objeto->Desenhar(canvas, *FProjecao, false);
            } catch (const std::exception &) {
                // Um objeto que falha ao desenhar não apaga a miniatura.
            }
        }
    }
}

const QImage &TGISMiniatura::Imagem()
{
    GarantirImagem();
    return FImagem;
}

QRect TGISMiniatura::RetanguloDaVisao()
{
    if (!FGis || !FGis->Projecao())
        return {};
    GarantirImagem();
    const TGISProjecao &principal = *FGis->Projecao();
    const TGISRet mundo = principal.TelaParaMundoRet(principal.AreaTela());
    const TRect r = ConcertaRect(FProjecao->MundoParaTelaRet(mundo));
    return QRect(QPoint(r.Left, r.Top), QPoint(r.Right, r.Bottom));
}

TGISPosicao TGISMiniatura::PosicaoDoPixel(const QPoint &pixel)
{
    GarantirImagem();
    return FProjecao->TelaParaMundo(TPoint(pixel.x(), pixel.y()));
}

void TGISMiniatura::paintEvent(QPaintEvent *)
{
    GarantirImagem();
    QPainter pintor(this);
    pintor.drawImage(0, 0, FImagem);
    if (!FGis)
        return;
    pintor.setPen(QPen(ParaQColor(FCorDoRetangulo), 2));
    pintor.setBrush(Qt::NoBrush);
    const QRect r = RetanguloDaVisao();
    // Uma visão menor que 3 pixels na miniatura vira uma cruz, para não sumir.
    if (r.width() < 3 && r.height() < 3) {
        const QPoint c = r.center();
        pintor.drawLine(c - QPoint(5, 0), c + QPoint(5, 0));
        pintor.drawLine(c - QPoint(0, 5), c + QPoint(0, 5));
    } else {
        pintor.drawRect(r);
    }
    pintor.setPen(palette().color(QPalette::Mid));
    pintor.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TGISMiniatura::Centrar(const QPoint &pixel)
{
    if (!FGis)
        return;
    FGis->Visao(PosicaoDoPixel(pixel), FGis->Zoom());
}

void TGISMiniatura::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() == Qt::LeftButton)
        Centrar(evento->position().toPoint());
}

void TGISMiniatura::mouseMoveEvent(QMouseEvent *evento)
{
    if (evento->buttons() & Qt::LeftButton)
        Centrar(evento->position().toPoint());
}

} // namespace tavru

namespace tavru {
TGis *TGISMiniatura::GIS() const
{
    return FGis;
}
QString TGISMiniatura::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGISMiniatura::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
