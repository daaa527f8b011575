#include <tavru/control/TGISBarraDeManipulacao.h>

#include <tavru/core/Arredondar.h>

#include <tavru/control/TGis.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tavru {

TGISBarraDeManipulacao::TGISBarraDeManipulacao(QWidget *parent) : TCustomBarraDeFerramentas(parent)
{
    CriarComponentes();
}

TGISBarraDeManipulacao::~TGISBarraDeManipulacao()
{
    AtribuirGis(nullptr);
}

void TGISBarraDeManipulacao::AtribuirGis(TGis *gis)
{
    if (FGis) {
        FGis->RemoverRegistroMouseEvent(this);
        disconnect(FGis, &TGis::Destruindo, this, &TGISBarraDeManipulacao::Notification);
    }
    FGis = gis;
    if (FGis) {
        FGis->RegistrarMouseEvent(this);
        connect(FGis, &TGis::Destruindo, this, &TGISBarraDeManipulacao::Notification, Qt::UniqueConnection);
    }
}

void TGISBarraDeManipulacao::Notification()
{
    FGis = nullptr;
}

void TGISBarraDeManipulacao::CriarComponentes()
{
    struct TBotao
    {
        const char *Dica;
        const char *Recurso;
    };
    static const TBotao tabela[] = {
        {"Ajustar a Janela", "BMP_AJUSTARZOOM"},
        {"Mover", "BMP_MOVER"},
        {"Ampliar uma Área", "BMP_ZOOMRET"},
        {"Ampliar", "BMP_AMPLIAR"},
        {"Reduzir", "BMP_REDUZIR"},
    };
    for (const TBotao &b : tabela) {
        const QImage bitmap(QStringLiteral(":/") + QLatin1String(b.Recurso));
        Botoes().Add(QString::fromUtf8(b.Dica), bitmap);
    }
    for (int i = 0; i < Botoes().Count(); ++i)
        if (TBotaoRapido *botao = ObterBotao(i))
            botao->SetGroupIndex(1);
}

void TGISBarraDeManipulacao::DoClicar(int indice)
{
    TCustomBarraDeFerramentas::DoClicar(indice);
    if (!FGis)
        return;
    switch (indice) {
    case btnAjustar: FGis->FitToWindow(); break;
    case btnMover: FEstado = mePreMover; break;
    case btnAmpliarArea: FEstado = mePreZoomRet; break;
    case btnAmpliar: FEstado = meAmpliar; break;
    case btnReduzir: FEstado = meReduzir; break;
    default: break;
    }
    if (TBotaoRapido *ajustar = ObterBotao(btnAjustar))
        ajustar->SetDown(false);
    TBotaoRapido *clicado = ObterBotao(indice);
    if (clicado && !clicado->Down())
        FEstado = meSemAcao;
}

void TGISBarraDeManipulacao::AtribuirEstado(TBarraManipulacaoEstado estado)
{
    if (estado == FEstado)
        return;
    FEstado = estado;
    Atualizar();
    int botao = -1;
    switch (estado) {
    case mePreZoomRet:
    case meZoomRet: botao = btnAmpliarArea; break;
    case meAmpliar: botao = btnAmpliar; break;
    case meReduzir: botao = btnReduzir; break;
    case mePreMover:
    case meMover: botao = btnMover; break;
    case meSemAcao: break;
    }
    if (botao >= 0)
        if (TBotaoRapido *b = ObterBotao(botao))
            b->SetDown(true);
}

void TGISBarraDeManipulacao::GISMouseDown(const TPoint &ponto, TMouseButton botao, TShiftState shift)
{
    if (!FGis)
        return;
    if (!(FEstado == meSemAcao || FEstado == mePreZoomRet || FEstado == mePreMover || botao == mbRight))
        return;
    FPontoPressionado = ponto;
    FUltimoPonto = ponto;
    const bool retangulo = (FEstado == mePreZoomRet && botao == mbLeft)
        || (shift == Shift(ssCtrl) && botao == mbLeft) || botao == mbMiddle
        || shift == (Shift(ssLeft) | Shift(ssRight));
    if (retangulo) {
        FEstadoAnterior = FEstado;
        FEstado = meZoomRet;
    } else if ((FEstado == mePreMover && botao == mbLeft) || botao == mbRight) {
        FEstadoAnterior = FEstado;
        FEstado = meMover;
    }
}

void TGISBarraDeManipulacao::InverterRetangulo(const TPoint &ate)
{
    TCanvas &tela = FGis->ObterCanvasTela();
    const TRect r = ConcertaRect(TRect(FPontoPressionado, ate));
    tela.CopyRect(r, tela, r);
}

void TGISBarraDeManipulacao::GISMouseMove(const TPoint &ponto)
{
    if (!FGis)
        return;
    if (FEstado == meZoomRet) {
        TCanvas &tela = FGis->ObterCanvasTela();
        const TCopyMode modo = tela.CopyMode();
        tela.SetCopyMode(cmDstInvert);
        InverterRetangulo(FUltimoPonto); // apaga o anterior
        FUltimoPonto = ponto;
        InverterRetangulo(FUltimoPonto);
        tela.SetCopyMode(modo);
        FGis->update();
    } else if (FEstado == meMover) {
        TGISProjecao &projecao = *FGis->Projecao();
        const TGISPosicao aqui = projecao.TelaParaMundo(ponto);
        const TGISPosicao antes = projecao.TelaParaMundo(FPontoPressionado);
        // Em 64 bits, levado à faixa de 32: arrastar sem parar para um lado não estoura o centro.
        auto mover = [](std::int64_t centro, std::int64_t aqui, std::int64_t antes) {
            return Saturar32(centro - (aqui - antes));
        };
        const TGISPosicao centro = projecao.Centro();
        projecao.AtribuirCentro(GISPosicao(mover(centro.Latitude, aqui.Latitude, antes.Latitude),
                                           mover(centro.Longitude, aqui.Longitude, antes.Longitude)));
        FPontoPressionado = ponto;
        FGis->Desenhar();
    }
}

void TGISBarraDeManipulacao::GISMouseUp(const TPoint &ponto, TMouseButton, TShiftState)
{
    if (!FGis)
        return;
    if (FEstado == meZoomRet) {
        FEstado = FEstadoAnterior;
        if (std::abs(FPontoPressionado.X - ponto.X) > ArrasteMinimo
            && std::abs(FPontoPressionado.Y - ponto.Y) > ArrasteMinimo) {
            TGISProjecao &projecao = *FGis->Projecao();
            projecao.FitToRect(TGISRet{projecao.TelaParaMundo(FPontoPressionado), projecao.TelaParaMundo(ponto)});
        }
        FGis->Desenhar();
    } else if (FEstado == meMover) {
        FEstado = FEstadoAnterior;
    }
}

void TGISBarraDeManipulacao::GISMouseClick(const TPoint &ponto)
{
    if (!FGis || (FEstado != meAmpliar && FEstado != meReduzir))
        return;
    TGISProjecao &projecao = *FGis->Projecao();
    const long double fator = FEstado == meAmpliar ? FatorAmpliar : FatorReduzir;
    projecao.AtribuirCentro(projecao.TelaParaMundo(ponto));
    projecao.DoAtribuirZoom(static_cast<double>(fator * static_cast<long double>(projecao.Zoom())));
    FGis->Desenhar();
}

} // namespace tavru
