#include "FerramentasDaJanela.h"

#include <tavru/companions/components/TBotaoRapido.h>
#include <tavru/companions/components/TVisualizadorInformacoes.h>
#include <tavru/control/TGISBarraDeFerramenta.h>
#include <tavru/control/TGISBarraDeInclusao.h>
#include <tavru/control/TGISBarraDeManipulacao.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>
#include <tavru/views/TGisPopUpListBox.h>

#include <QEvent>
#include <QMainWindow>
#include <QStatusBar>
#include <cmath>
#include <cstdio>

namespace tavru {

namespace {

using B = TGISBarraDeFerramenta;

/// As cores de fundo que "Altera Cor de Fundo" percorre, em roda: o mar do mapa de exemplo,
/// branco, cinza claro e um azul noturno.
const TColor CoresDeFundo[] = {RGB(170, 205, 235), RGB(255, 255, 255), RGB(225, 225, 225), RGB(35, 50, 80)};

/// Um arrasto de mais que isto (pixels) ao editar não é clique, como o do mapa.
constexpr int ArrasteDeEdicao = TGISBarraDeManipulacao::ArrasteParaMover;

} // namespace

TFerramentasDaJanela::TFerramentasDaJanela(QMainWindow &janela, TGis &gis, TGISBarraDeManipulacao &manipulacao,
                                           TGISBarraDeFerramenta &geral, TGISBarraDeInclusao &inclusao,
                                           TGisPopUpListBox &lista, TVisualizadorInformacoes &visualizador)
    : QObject(&janela),
      FJanela(janela),
      FGis(gis),
      FManipulacao(manipulacao),
      FVisualizador(visualizador),
      FGeral(&geral),
      FInclusao(&inclusao),
      FLista(&lista),
      FRelatar(!qEnvironmentVariableIsEmpty("TAVRU_MAPA_ESTADO"))
{
    FGeral->AtribuirGis(&gis);
    FInclusao->AtribuirGis(&gis);
    FManipulacao.AtribuirArrastarParaMover(true);
    gis.AtribuirMostrarEscala(true);
    gis.RegistrarMouseEvent(this);

    for (int i : {B::bfInterrogar, B::bfEditar, B::bfVisualizar, B::bfAjustar, B::bfAmpliarArea, B::bfAmpliar,
                  B::bfReduzir, B::bfCorDeFundo})
        connect(FGeral->ObterBotao(i), &QAbstractButton::clicked, this, [this, i] { AoClicarGeral(i); });
    for (int i = 0; i < FManipulacao.Botoes().Count(); ++i)
        connect(FManipulacao.ObterBotao(i), &QAbstractButton::clicked, this, [this] {
            SincronizarGeral();
            AtualizarModo();
        });
    FInclusao->OnClicar = [this](TGISBarraDeInclusao &, int indice) { EscolherInclusao(indice); };
    FLista->installEventFilter(this);
    SincronizarGeral();
    AtualizarModo();
}

// O mapa esquece sozinho uma ferramenta que é um QObject destruído (e pode já ter sido destruído
// antes dela, junto com a janela).
TFerramentasDaJanela::~TFerramentasDaJanela() = default;

bool TFerramentasDaJanela::CliqueSeleciona() const
{
    return !FClasse && !FLista->GIS();
}

void TFerramentasDaJanela::Mensagem(const QString &texto)
{
    FJanela.statusBar()->showMessage(texto);
}

void TFerramentasDaJanela::AoClicarGeral(int indice)
{
    auto alinhar = [this](int geral, int manipulacao) {
        // O botão de manipulação é clicado quando o seu estado difere do geral: a barra de
        // manipulação faz a mudança pelas próprias regras.
        if (FGeral->ObterBotao(geral)->Down() != FManipulacao.ObterBotao(manipulacao)->Down())
            FManipulacao.ObterBotao(manipulacao)->click();
    };
    switch (indice) {
    case B::bfVisualizar: PararFerramenta(); break;
    case B::bfAjustar: FManipulacao.ObterBotao(btnAjustar)->click(); break;
    case B::bfAmpliarArea: alinhar(indice, btnAmpliarArea); break;
    case B::bfAmpliar: alinhar(indice, btnAmpliar); break;
    case B::bfReduzir: alinhar(indice, btnReduzir); break;
    case B::bfCorDeFundo:
        FCor = (FCor + 1) % int(std::size(CoresDeFundo));
        FGis.AtribuirColor(CoresDeFundo[FCor]);
        FGis.Desenhar();
        break;
    default: break;
    }
    SincronizarGeral();
    AtualizarModo();
}

void TFerramentasDaJanela::PararFerramenta()
{
    for (int i = btnMover; i <= btnReduzir; ++i)
        if (FManipulacao.ObterBotao(i)->Down())
            FManipulacao.ObterBotao(i)->click();
}

void TFerramentasDaJanela::SincronizarGeral()
{
    const TBarraManipulacaoEstado e = FManipulacao.Estado();
    const struct
    {
        int Botao;
        bool Abaixado;
    } botoes[] = {{B::bfVisualizar, e == meSemAcao},
                  {B::bfAmpliarArea, e == mePreZoomRet || e == meZoomRet},
                  {B::bfAmpliar, e == meAmpliar},
                  {B::bfReduzir, e == meReduzir}};
    for (const auto &b : botoes)
        if (!b.Abaixado)
            FGeral->ObterBotao(b.Botao)->SetDown(false);
    for (const auto &b : botoes)
        if (b.Abaixado)
            FGeral->ObterBotao(b.Botao)->SetDown(true);
}

void TFerramentasDaJanela::AtualizarModo()
{
    const bool interrogar = FGeral->ObterBotao(B::bfInterrogar)->Down();
    const bool editar = FGeral->ObterBotao(B::bfEditar)->Down();
    FManipulacao.AtribuirArrastarParaMover(!editar);
    const bool lista = !FClasse && !interrogar && !editar && FManipulacao.Estado() == meSemAcao;
    if (lista != (FLista->GIS() != nullptr))
        FLista->AtribuirGis(lista ? &FGis : nullptr);
    if (FClasse)
        Mensagem(QStringLiteral("Clique no mapa para incluir: %1 (Esc cancela).").arg(FNomeClasse));
    else if (interrogar)
        Mensagem(QStringLiteral("Interrogar: clique num objeto rotulado para ver as suas informações."));
    else if (editar)
        Mensagem(QStringLiteral("Editar: clique num objeto para selecioná-lo e arraste-o para movê-lo."));
    else if (lista)
        Mensagem(QStringLiteral("Clique nos objetos para escolher um na lista; arraste para mover o mapa; "
                                "a roda amplia e reduz."));
    else
        Mensagem(QString());
}

void TFerramentasDaJanela::EscolherInclusao(int indice)
{
    FClasse = &FInclusao->ObterClasse(indice);
    FNomeClasse = FInclusao->ObterHints().Count() > indice ? FInclusao->ObterHints().Strings(indice) : QString();
    FNomeClasse.remove(QStringLiteral("Incluir "));
    PararFerramenta();
    SincronizarGeral();
    AtualizarModo();
    FGis.setFocus(); // para que o Esc chegue ao mapa
}

void TFerramentasDaJanela::Incluir(const TPoint &ponto)
{
    const TClasseObjeto &classe = *FClasse;
    FClasse = nullptr; // uma inclusão por clique no botão
    AtualizarModo();
    TGISCamada *camada = FGis.ObterCamada(QStringLiteral("Inclusões"));
    if (!camada) {
        camada = new TGISCamada(QStringLiteral("Inclusões"));
        camada->AtribuirTipo(gtcEditavel);
        FGis.Camadas().Add(camada);
    }
    try {
        const QString nome = QStringLiteral("%1 %2").arg(FNomeClasse).arg(FIncluidos + 1);
        if (TGISBarraDeInclusao::IncluirObjeto(classe, FGis, *camada, ponto, nome)) {
            ++FIncluidos;
            Mensagem(QStringLiteral("Incluído: %1.").arg(nome));
        }
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Incluir"), mtErro);
    }
}

void TFerramentasDaJanela::GISMouseClick(const TPoint &ponto)
{
    if (FClasse) {
        Incluir(ponto);
        return;
    }
    if (FLista->GIS() && !FGis.ObterObjeto(ponto))
        FGis.SelecionarObjeto(nullptr);
    else if (FGeral->ObterBotao(B::bfInterrogar)->Down() && FManipulacao.Estado() == meSemAcao)
        if (TGISObjeto *objeto = FGis.ObterObjeto(ponto)) {
            FVisualizador.AtribuirInformacoes(objeto->Informacoes().Linhas());
            Mensagem(QStringLiteral("Interrogar: %1").arg(FGis.ObterRotulo(*objeto)));
        }
}

void TFerramentasDaJanela::GISMouseDown(const TPoint &ponto, TMouseButton botao, TShiftState)
{
    AtualizarModo();
    TGISObjeto *selecionado = FGis.ObjetoSelecionado();
    if (botao == mbLeft && !FClasse && FGeral->ObterBotao(B::bfEditar)->Down() && FManipulacao.Estado() == meSemAcao
        && selecionado && selecionado->Pertence(*FGis.Projecao(), ponto)) {
        FEditando = true;
        FInicio = ponto;
        FUltimo = ponto;
    }
}

void TFerramentasDaJanela::GISMouseMove(const TPoint &ponto)
{
    FCursor = ponto;
    if (FEditando) {
        TGISObjeto *objeto = FGis.ObjetoSelecionado();
        if (!objeto) {
            FEditando = false;
            return;
        }
        const TGISProjecao &projecao = *FGis.Projecao();
        const TGISPosicao antes = projecao.TelaParaMundo(FUltimo);
        const TGISPosicao agora = projecao.TelaParaMundo(ponto);
        const TGISPosicao p = objeto->Posicao();
        objeto->AtribuirPosicao(GISPosicao(p.Latitude + (agora.Latitude - antes.Latitude),
                                           p.Longitude + (agora.Longitude - antes.Longitude)));
        FUltimo = ponto;
        if (std::hypot(ponto.X - FInicio.X, ponto.Y - FInicio.Y) > ArrasteDeEdicao)
            FGis.CancelarClique();
        FGis.Desenhar();
    }
    Relatar();
}

void TFerramentasDaJanela::GISMouseUp(const TPoint &, TMouseButton, TShiftState)
{
    FEditando = false;
}

void TFerramentasDaJanela::GISPaint()
{
    Relatar();
}

void TFerramentasDaJanela::GISSelecionou(TGISObjeto *)
{
    Relatar();
}

bool TFerramentasDaJanela::GISKeyDown(int tecla, TShiftState)
{
    if (tecla != Qt::Key_Escape || !FClasse)
        return false;
    FClasse = nullptr;
    AtualizarModo();
    Mensagem(QStringLiteral("Inclusão cancelada."));
    return true;
}

bool TFerramentasDaJanela::eventFilter(QObject *alvo, QEvent *evento)
{
    if (FRelatar && alvo == FLista && evento->type() == QEvent::Show) {
        const QRect g = FLista->geometry();
        std::printf("lista %d,%d,%d,%d linha=%d itens=%s\n", g.x(), g.y(), g.width(), g.height(),
                    FLista->sizeHintForRow(0), qPrintable(FLista->Items().Textos().join(QLatin1Char('|'))));
        std::fflush(stdout);
    }
    return QObject::eventFilter(alvo, evento);
}

void TFerramentasDaJanela::Relatar()
{
    if (!FRelatar || !FGis.isVisible())
        return;
    const TGISProjecao &projecao = *FGis.Projecao();
    const TGISRet mundo = projecao.TelaParaMundoRet(projecao.AreaTela());
    const TGISPosicao centro = projecao.Centro();
    const TGISPosicao cursor = projecao.TelaParaMundo(FCursor);
    const QPoint origem = FGis.mapToGlobal(QPoint(0, 0));
    const TGISObjeto *selecionado = FGis.ObjetoSelecionado();
    const QString relato =
        QStringLiteral("estado zoom=%1 centro=%2,%3 selecionado=%4 mapa=%5,%6,%7,%8 mundo=%9,%10,%11,%12 "
                       "cursor=%13,%14 ponto=%15,%16")
            .arg(projecao.Zoom(), 0, 'g', 10)
            .arg(centro.Latitude)
            .arg(centro.Longitude)
            .arg(selecionado ? FGis.ObterRotulo(*selecionado) : QString())
            .arg(origem.x())
            .arg(origem.y())
            .arg(FGis.width())
            .arg(FGis.height())
            .arg(mundo.Pos1.Latitude)
            .arg(mundo.Pos1.Longitude)
            .arg(mundo.Pos2.Latitude)
            .arg(mundo.Pos2.Longitude)
            .arg(cursor.Latitude)
            .arg(cursor.Longitude)
            .arg(FCursor.X)
            .arg(FCursor.Y);
    if (relato == FRelato)
        return;
    FRelato = relato;
    std::printf("%s\n", qPrintable(relato));
    std::fflush(stdout);
}

} // namespace tavru
