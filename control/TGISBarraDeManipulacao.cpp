#include <tavru/control/TGISBarraDeManipulacao.h>

#include "BitmapDoRecurso_p.h"

#include <tavru/core/Arredondar.h>

#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <algorithm>
#include <cstdint>
#include <cmath>
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
    // O mesmo mapa: nada muda, nem a ordem das ferramentas registradas nele.
    if (FGis == gis)
        return;
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
        Botoes().Add(QString::fromUtf8(b.Dica), BitmapDoRecurso(b.Recurso));
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
    } else if (FArrastarParaMover && FEstado == meSemAcao && botao == mbLeft) {
        FArrastePendente = true;
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
        return;
    }
    if (FArrastePendente && FEstado == meSemAcao) {
        const double dx = ponto.X - FPontoPressionado.X;
        const double dy = ponto.Y - FPontoPressionado.Y;
        if (std::hypot(dx, dy) <= ArrasteParaMover)
            return;
        FArrastePendente = false;
        FEstadoAnterior = FEstado;
        FEstado = meMover;
        FGis->CancelarClique();
    }
    if (FEstado == meMover) {
        TGISProjecao &projecao = *FGis->Projecao();
        MoverCentro(projecao.TelaParaMundo(FPontoPressionado), projecao.TelaParaMundo(ponto));
        FPontoPressionado = ponto;
        FGis->Desenhar();
    }
}

void TGISBarraDeManipulacao::MoverCentro(const TGISPosicao &depois, const TGISPosicao &antes)
{
    // Em 64 bits, levado à faixa de 32: arrastar sem parar para um lado não estoura o centro.
    auto mover = [](std::int64_t centro, std::int64_t depois, std::int64_t antes) {
        return Saturar32(centro + (depois - antes));
    };
    TGISProjecao &projecao = *FGis->Projecao();
    const TGISPosicao centro = projecao.Centro();
    projecao.AtribuirCentro(GISPosicao(mover(centro.Latitude, depois.Latitude, antes.Latitude),
                                       mover(centro.Longitude, depois.Longitude, antes.Longitude)));
}

void TGISBarraDeManipulacao::GISMouseUp(const TPoint &ponto, TMouseButton, TShiftState)
{
    FArrastePendente = false;
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

bool TGISBarraDeManipulacao::GISMouseWheel(const TPoint &ponto, const TPoint &angulo, const TPoint &pixels,
                                            TShiftState)
{
    if (!FGis)
        return false;
    // A rolagem fina, quando há, é a medida mais precisa; senão, o giro (120 por entalhe, com
    // frações nas rodas sem degraus).
    const double entalhes = pixels.Y != 0 ? double(pixels.Y) / PixelsPorEntalhe
                                          : double(angulo.Y) / 120.0;
    if (entalhes == 0.0)
        return false;
    ZoomEmTorno(ponto, std::pow(FatorRoda, entalhes));
    return true;
}

bool TGISBarraDeManipulacao::GISKeyDown(int tecla, TShiftState)
{
    if (!FGis)
        return false;
    const TRect tela = FGis->Projecao()->AreaTela();
    const int dx = tela.Width() / 10;
    const int dy = tela.Height() / 10;
    switch (tecla) {
    case Qt::Key_Left: Deslocar(-dx, 0); return true;
    case Qt::Key_Right: Deslocar(dx, 0); return true;
    case Qt::Key_Up: Deslocar(0, -dy); return true;
    case Qt::Key_Down: Deslocar(0, dy); return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: ZoomEmTorno(FGis->Projecao()->ObterCentroTela(), FatorRoda); return true;
    case Qt::Key_Minus: ZoomEmTorno(FGis->Projecao()->ObterCentroTela(), 1.0 / FatorRoda); return true;
    case Qt::Key_Home: FGis->FitToWindow(); return true;
    default: return false;
    }
}

void TGISBarraDeManipulacao::ZoomEmTorno(const TPoint &ponto, double fator)
{
    if (!FGis)
        return;
    TGISProjecao &projecao = *FGis->Projecao();
    // O novo centro sai da própria projeção (zoom novo, centro velho): serve a qualquer projeção
    // em que mover o centro só translada a imagem.
    const TGISPosicao antes = projecao.TelaParaMundo(ponto);
    projecao.DoAtribuirZoom(projecao.Zoom() * fator);
    MoverCentro(antes, projecao.TelaParaMundo(ponto));
    FGis->Desenhar();
}

void TGISBarraDeManipulacao::Deslocar(int dx, int dy)
{
    if (!FGis)
        return;
    TGISProjecao &projecao = *FGis->Projecao();
    const TPoint centro = projecao.ObterCentroTela();
    MoverCentro(projecao.TelaParaMundo(TPoint(centro.X + dx, centro.Y + dy)), projecao.TelaParaMundo(centro));
    FGis->Desenhar();
}

QString TGISBarraDeManipulacao::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGISBarraDeManipulacao::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
