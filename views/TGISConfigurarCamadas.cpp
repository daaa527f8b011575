#include "TGISConfigurarCamadas.h"

#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QColorDialog>
#include <QDropEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLocale>
#include <QMenu>
#include <QPixmap>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>

namespace tavru {

namespace {

enum Coluna { colNome, colCor, colZoom, colObjetos };

// A camada de cada linha vai no dado do item (a linha 0 é a última camada da lista do mapa).
constexpr int PapelCamada = Qt::UserRole + 1;

TGISCamada *CamadaDoItem(const QTreeWidgetItem *item)
{
    return item ? static_cast<TGISCamada *>(item->data(colNome, PapelCamada).value<void *>()) : nullptr;
}

QString TextoDoZoom(double zoom)
{
    QLocale local(QLocale::Portuguese, QLocale::Brazil);
    local.setNumberOptions(QLocale::OmitGroupSeparator);
    return local.toString(zoom, 'g', 6);
}

} // namespace

/// A lista com o arrastar e soltar das linhas: o soltar não mexe nos itens, pede ao painel que
/// mova a camada no mapa (com o veto), e a lista se refaz a partir do mapa.
class TGISConfigurarCamadas::TLista : public QTreeWidget
{
public:
    TLista(TGISConfigurarCamadas &painel) : QTreeWidget(&painel), FPainel(painel) {}

protected:
    void dropEvent(QDropEvent *evento) override
    {
        QTreeWidgetItem *origem = currentItem();
        QTreeWidgetItem *alvo = itemAt(evento->position().toPoint());
        evento->setDropAction(Qt::IgnoreAction);
        evento->accept();
        if (!origem)
            return;
        const int de = indexOfTopLevelItem(origem);
        const int para = alvo ? indexOfTopLevelItem(alvo) : topLevelItemCount() - 1;
        FPainel.Soltar(de, para);
    }

private:
    TGISConfigurarCamadas &FPainel;
};

TGISConfigurarCamadas::TGISConfigurarCamadas(QWidget *parent) : QWidget(parent), FLista(new TLista(*this))
{
    FLista->setColumnCount(4);
    FLista->setHeaderLabels({QStringLiteral("Camada"), QStringLiteral("Cor"), QStringLiteral("Zoom"),
                             QStringLiteral("Objetos")});
    FLista->setRootIsDecorated(false);
    FLista->setUniformRowHeights(true);
    FLista->setSelectionMode(QAbstractItemView::SingleSelection);
    FLista->setDragDropMode(QAbstractItemView::InternalMove);
    FLista->setContextMenuPolicy(Qt::CustomContextMenu);
    FLista->header()->setSectionResizeMode(colNome, QHeaderView::Stretch);
    FLista->header()->setStretchLastSection(false);
    for (int c : {colCor, colZoom, colObjetos})
        FLista->header()->setSectionResizeMode(c, QHeaderView::ResizeToContents);

    auto botao = [this](const QString &texto, const QString &dica, auto acao) {
        auto *b = new QToolButton(this);
        b->setText(texto);
        b->setToolTip(dica);
        connect(b, &QToolButton::clicked, this, acao);
        return b;
    };
    FInserir = botao(QStringLiteral("Inserir"), QStringLiteral("Inserir uma camada vazia"), [this] { PerguntarEInserir(); });
    FRemover = botao(QStringLiteral("Remover"), QStringLiteral("Remover a camada"), [this] { PerguntarERemover(); });
    FImportar = botao(QStringLiteral("Importar"), QStringLiteral("Ler um arquivo numa camada nova"), [this] { PerguntarEImportar(); });
    FExportar = botao(QStringLiteral("Exportar"), QStringLiteral("Gravar a camada num arquivo"), [this] { PerguntarEExportar(); });
    FSubir = botao(QStringLiteral("Subir"), QStringLiteral("Desenhar a camada mais acima"), [this] { Subir(CamadaEscolhida()); });
    FDescer = botao(QStringLiteral("Descer"), QStringLiteral("Desenhar a camada mais abaixo"), [this] { Descer(CamadaEscolhida()); });
    FCor = botao(QStringLiteral("Cor"), QStringLiteral("Recolorir os objetos da camada"), [this] { PerguntarEColorir(); });

    // Duas fileiras, para o painel caber numa doca estreita.
    auto *botoes = new QGridLayout;
    botoes->setContentsMargins(0, 0, 0, 0);
    botoes->setSpacing(2);
    int n = 0;
    for (QToolButton *b : {FInserir, FRemover, FImportar, FExportar, FSubir, FDescer, FCor}) {
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        botoes->addWidget(b, n / 4, n % 4);
        ++n;
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(botoes);
    layout->addWidget(FLista);

    connect(FLista, &QTreeWidget::itemChanged, this, &TGISConfigurarCamadas::LinhaMudou);
    connect(FLista, &QTreeWidget::currentItemChanged, this, [this] { AtualizarBotoes(); });
    connect(FLista, &QWidget::customContextMenuRequested, this, &TGISConfigurarCamadas::MostrarMenu);

    EscolherCor = [this](TColor &cor) {
        const QColor escolhida = QColorDialog::getColor(cor == clNone ? QColor(Qt::black) : ParaQColor(cor), this,
                                                        QStringLiteral("Cor da camada"));
        if (!escolhida.isValid())
            return false;
        cor = DeQColor(escolhida);
        return true;
    };
    AtualizarBotoes();
}

TGISConfigurarCamadas::~TGISConfigurarCamadas()
{
    if (FGis)
        FGis->Camadas().RemoverObservador(this);
}

void TGISConfigurarCamadas::AtribuirGis(TGis *gis)
{
    if (FGis == gis)
        return;
    if (FGis) {
        FGis->Camadas().RemoverObservador(this);
        disconnect(FGis, nullptr, this, nullptr);
    }
    FGis = gis;
    if (gis) {
        gis->Camadas().AdicionarObservador(this);
        // O mapa morre antes do painel: a lista de camadas some com ele, e o QPointer esquece.
        connect(gis, &TGis::VisaoMudou, this, [this] { AtualizarContagens(); });
    }
    Atualizar();
}

void TGISConfigurarCamadas::GISMudou(const TGISAviso &)
{
    // O aviso chega no meio da mudança (com `gmLiberado`, a camada ainda está na lista): refaz
    // depois, uma vez só por volta do laço de eventos.
    if (FRefazerPendente)
        return;
    FRefazerPendente = true;
    QMetaObject::invokeMethod(this, [this] {
        if (FRefazerPendente)
            Atualizar();
    }, Qt::QueuedConnection);
}

void TGISConfigurarCamadas::Atualizar()
{
    FRefazerPendente = false;
    TGISCamada *escolhida = CamadaEscolhida();
    FRefazendo = true;
    // As mesmas camadas na mesma ordem: as linhas ficam (só os textos mudam), de modo que a linha
    // que está avisando uma mudança da caixa continua viva.
    const int total = FGis ? FGis->Camadas().Count() : 0;
    bool iguais = FLista->topLevelItemCount() == total;
    for (int r = 0; iguais && r < total; ++r)
        iguais = CamadaDoItem(FLista->topLevelItem(r)) == FGis->Camadas().Items(total - 1 - r);
    if (iguais) {
        for (int r = 0; r < total; ++r)
            MontarLinha(*FLista->topLevelItem(r), *FGis->Camadas().Items(total - 1 - r));
        FRefazendo = false;
        AtualizarBotoes();
        return;
    }
    FLista->setUpdatesEnabled(false);
    FLista->clear();
    if (FGis) {
        const TGISCamadaList &camadas = FGis->Camadas();
        QList<QTreeWidgetItem *> itens;
        itens.reserve(camadas.Count());
        QTreeWidgetItem *atual = nullptr;
        for (int i = camadas.Count() - 1; i >= 0; --i) {
            TGISCamada *camada = camadas.Items(i);
            auto *item = new QTreeWidgetItem;
            item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
            item->setData(colNome, PapelCamada, QVariant::fromValue<void *>(camada));
            MontarLinha(*item, *camada);
            if (camada == escolhida)
                atual = item;
            itens.append(item);
        }
        FLista->addTopLevelItems(itens);
        if (atual)
            FLista->setCurrentItem(atual);
    }
    FLista->setUpdatesEnabled(true);
    FRefazendo = false;
    AtualizarBotoes();
}

void TGISConfigurarCamadas::MontarLinha(QTreeWidgetItem &item, TGISCamada &camada)
{
    item.setText(colNome, camada.Nome());
    item.setCheckState(colNome, camada.Visivel() ? Qt::Checked : Qt::Unchecked);
    if (camada.Cor() == clNone) {
        item.setIcon(colCor, QIcon());
        item.setToolTip(colCor, QStringLiteral("sem cor própria"));
    } else {
        QPixmap amostra(14, 14);
        amostra.fill(ParaQColor(camada.Cor()));
        item.setIcon(colCor, QIcon(amostra));
        item.setToolTip(colCor, ParaQColor(camada.Cor()).name());
    }
    item.setText(colZoom, QStringLiteral("%1 – %2").arg(TextoDoZoom(camada.ZoomMinimo()), TextoDoZoom(camada.ZoomMaximo())));
    item.setText(colObjetos, QString::number(camada.Objetos().Count()));
    item.setTextAlignment(colObjetos, Qt::AlignRight | Qt::AlignVCenter);
}

void TGISConfigurarCamadas::AtualizarContagens()
{
    if (FRefazerPendente)
        return;
    FRefazendo = true;
    for (int r = 0; r < FLista->topLevelItemCount(); ++r) {
        QTreeWidgetItem *item = FLista->topLevelItem(r);
        if (const TGISCamada *camada = CamadaDoItem(item)) {
            const QString total = QString::number(camada->Objetos().Count());
            if (item->text(colObjetos) != total)
                item->setText(colObjetos, total);
        }
    }
    FRefazendo = false;
}

void TGISConfigurarCamadas::AtualizarBotoes()
{
    TGISCamada *camada = CamadaEscolhida();
    const int indice = IndiceNoMapa(camada);
    const int total = FGis ? FGis->Camadas().Count() : 0;
    FInserir->setEnabled(FGis);
    FImportar->setEnabled(FGis);
    for (QToolButton *b : {FRemover, FExportar, FCor})
        b->setEnabled(indice >= 0);
    FSubir->setEnabled(indice >= 0 && indice < total - 1);
    FDescer->setEnabled(indice > 0);
}

QTreeWidget *TGISConfigurarCamadas::Lista() const
{
    return FLista;
}

TGISCamada *TGISConfigurarCamadas::CamadaEscolhida() const
{
    return CamadaDoItem(FLista->currentItem());
}

void TGISConfigurarCamadas::EscolherCamada(TGISCamada *camada)
{
    for (int r = 0; r < FLista->topLevelItemCount(); ++r) {
        if (CamadaDoItem(FLista->topLevelItem(r)) == camada) {
            FLista->setCurrentItem(FLista->topLevelItem(r));
            return;
        }
    }
    FLista->setCurrentItem(nullptr);
}

int TGISConfigurarCamadas::IndiceNoMapa(const TGISCamada *camada) const
{
    return FGis && camada ? FGis->Camadas().IndexOf(camada) : -1;
}

bool TGISConfigurarCamadas::DoAntesDaOperacao(TGISOperacaoCamada operacao, TGISCamada *camada)
{
    bool pode = true;
    if (OnAntesDaOperacao)
        OnAntesDaOperacao(this, operacao, camada, pode);
    return pode;
}

void TGISConfigurarCamadas::DoDepoisDaOperacao(TGISOperacaoCamada operacao, TGISCamada *camada)
{
    Atualizar();
    if (camada)
        EscolherCamada(camada);
    if (FGis)
        FGis->Desenhar();
    if (OnDepoisDaOperacao)
        OnDepoisDaOperacao(this, operacao, camada);
}

// Operações.

bool TGISConfigurarCamadas::Inserir(const QString &nome)
{
    if (!FGis || nome.trimmed().isEmpty())
        return false;
    auto nova = std::make_unique<TGISCamada>(nome.trimmed());
    if (!DoAntesDaOperacao(gocInserir, nova.get()))
        return false;
    TGISCamada *camada = nova.release();
    FGis->Camadas().Add(camada);
    DoDepoisDaOperacao(gocInserir, camada);
    return true;
}

bool TGISConfigurarCamadas::Remover(TGISCamada *camada)
{
    const int indice = IndiceNoMapa(camada);
    if (indice < 0 || !DoAntesDaOperacao(gocRemover, camada))
        return false;
    FGis->Camadas().Delete(indice);
    DoDepoisDaOperacao(gocRemover, nullptr);
    return true;
}

bool TGISConfigurarCamadas::Importar(const QString &arquivo, const QString &tipo)
{
    if (!FGis)
        return false;
    const QString achado = tipo.isEmpty() ? TGISObjetoList::ObterTipoPeloArquivo(arquivo, true) : tipo;
    if (achado.isEmpty())
        throw EInvalidOperation(QStringLiteral("Nenhum tratador lê arquivos do tipo \"%1\".").arg(QFileInfo(arquivo).suffix()));
    const QString base = QFileInfo(arquivo).completeBaseName();
    QString nome = base;
    for (int n = 2; FGis->ObterCamada(nome); ++n)
        nome = QStringLiteral("%1 (%2)").arg(base).arg(n);
    auto nova = std::make_unique<TGISCamada>(nome);
    nova->Objetos().Ler(arquivo, achado); // os erros seguem, e a camada nova morre aqui
    if (!DoAntesDaOperacao(gocImportar, nova.get()))
        return false;
    TGISCamada *camada = nova.release();
    FGis->Camadas().Add(camada);
    DoDepoisDaOperacao(gocImportar, camada);
    return true;
}

bool TGISConfigurarCamadas::Exportar(TGISCamada *camada, const QString &arquivo, const QString &tipo)
{
    if (IndiceNoMapa(camada) < 0)
        return false;
    const QString achado = tipo.isEmpty() ? TGISObjetoList::ObterTipoPeloArquivo(arquivo, false) : tipo;
    if (achado.isEmpty())
        throw EInvalidOperation(QStringLiteral("Nenhum tratador grava arquivos do tipo \"%1\".").arg(QFileInfo(arquivo).suffix()));
    if (!DoAntesDaOperacao(gocExportar, camada))
        return false;
    camada->Objetos().Gravar(arquivo, achado);
    // Gravar não muda o que se vê: só o aviso, sem redesenhar.
    if (OnDepoisDaOperacao)
        OnDepoisDaOperacao(this, gocExportar, camada);
    return true;
}

bool TGISConfigurarCamadas::Mover(TGISCamada *camada, int para)
{
    const int de = IndiceNoMapa(camada);
    if (de < 0 || para < 0 || para >= FGis->Camadas().Count() || para == de)
        return false;
    if (!DoAntesDaOperacao(gocMover, camada))
        return false;
    FGis->Camadas().Move(de, para);
    DoDepoisDaOperacao(gocMover, camada);
    return true;
}

bool TGISConfigurarCamadas::Subir(TGISCamada *camada)
{
    return Mover(camada, IndiceNoMapa(camada) + 1);
}

bool TGISConfigurarCamadas::Descer(TGISCamada *camada)
{
    const int indice = IndiceNoMapa(camada);
    return indice > 0 && Mover(camada, indice - 1);
}

bool TGISConfigurarCamadas::Colorir(TGISCamada *camada, TColor cor)
{
    if (IndiceNoMapa(camada) < 0 || !DoAntesDaOperacao(gocCor, camada))
        return false;
    camada->AtribuirCor(cor);
    DoDepoisDaOperacao(gocCor, camada);
    return true;
}

bool TGISConfigurarCamadas::MostrarCamada(TGISCamada *camada, bool visivel)
{
    if (IndiceNoMapa(camada) < 0 || camada->Visivel() == visivel || !DoAntesDaOperacao(gocVisibilidade, camada))
        return false;
    camada->AtribuirVisivel(visivel);
    DoDepoisDaOperacao(gocVisibilidade, camada);
    return true;
}

// Com perguntas.

void TGISConfigurarCamadas::PerguntarEInserir()
{
    if (!FGis)
        return;
    QString nome = QStringLiteral("Camada %1").arg(FGis->Camadas().Count() + 1);
    if (!Dialogos().InputQuery(QStringLiteral("Inserir camada"), QStringLiteral("Nome da camada nova:"), nome))
        return;
    if (nome.trimmed().isEmpty())
        return;
    Inserir(nome);
}

void TGISConfigurarCamadas::PerguntarERemover()
{
    if (TGISCamada *camada = CamadaEscolhida())
        Remover(camada);
}

void TGISConfigurarCamadas::PerguntarEImportar()
{
    if (!FGis)
        return;
    const QString filtro = TGISObjetoList::ObterFiltroCompletoDeLeitura();
    QString arquivo;
    int indice = 1;
    if (!Dialogos().AbrirArquivo(QStringLiteral("Importar camada"), filtro, arquivo, indice))
        return;
    try {
        Importar(arquivo, TGISObjetoList::ObterTipoPeloFiltro(TProvedorDeDialogos::ParDoFiltro(filtro, indice), true));
    } catch (const Exception &erro) {
        MostrarErro(erro.Message());
    }
}

void TGISConfigurarCamadas::PerguntarEExportar()
{
    TGISCamada *camada = CamadaEscolhida();
    if (!camada)
        return;
    const QString filtro = TGISObjetoList::ObterFiltroCompletoDeEscrita();
    QString arquivo = camada->Objetos().NomeArquivo();
    if (arquivo.isEmpty() || arquivo.startsWith(QLatin1Char(':')))
        arquivo = camada->Nome() + QStringLiteral(".xml");
    int indice = 1;
    if (!Dialogos().SalvarArquivo(QStringLiteral("Exportar camada"), filtro, arquivo, indice))
        return;
    try {
        Exportar(camada, arquivo, TGISObjetoList::ObterTipoPeloFiltro(TProvedorDeDialogos::ParDoFiltro(filtro, indice), false));
    } catch (const Exception &erro) {
        MostrarErro(erro.Message());
    }
}

void TGISConfigurarCamadas::PerguntarEColorir()
{
    TGISCamada *camada = CamadaEscolhida();
    if (!camada || !EscolherCor)
        return;
    TColor cor = camada->Cor();
    if (!EscolherCor(cor))
        return;
    if (!Dialogos().Mensagem(QStringLiteral("Todos os objetos da camada \"%1\" passam a ter esta cor. Continuar?").arg(camada->Nome()),
                             QStringLiteral("Cor da camada"), mtConfirmacao))
        return;
    Colorir(camada, cor);
}

void TGISConfigurarCamadas::MostrarErro(const QString &mensagem)
{
    Dialogos().Mensagem(mensagem, QStringLiteral("Camadas"), mtErro);
}

// Lista.

void TGISConfigurarCamadas::LinhaMudou(QTreeWidgetItem *item, int coluna)
{
    if (FRefazendo || coluna != colNome)
        return;
    TGISCamada *camada = CamadaDoItem(item);
    if (!camada)
        return;
    const bool marcada = item->checkState(colNome) == Qt::Checked;
    if (marcada != camada->Visivel() && !MostrarCamada(camada, marcada)) {
        // Vetada: a caixa volta ao que a camada é.
        FRefazendo = true;
        item->setCheckState(colNome, camada->Visivel() ? Qt::Checked : Qt::Unchecked);
        FRefazendo = false;
    }
}

void TGISConfigurarCamadas::Soltar(int linhaDe, int linhaPara)
{
    if (!FGis || linhaDe < 0 || linhaPara < 0)
        return;
    TGISCamada *camada = CamadaDoItem(FLista->topLevelItem(linhaDe));
    // A linha 0 é a última camada da lista do mapa.
    Mover(camada, FGis->Camadas().Count() - 1 - linhaPara);
}

void TGISConfigurarCamadas::MostrarMenu(const QPoint &ponto)
{
    if (QTreeWidgetItem *item = FLista->itemAt(ponto))
        FLista->setCurrentItem(item);
    QMenu menu(this);
    for (QToolButton *b : {FInserir, FRemover, FImportar, FExportar, FSubir, FDescer, FCor}) {
        QAction *acao = menu.addAction(b->text(), b, &QToolButton::click);
        acao->setEnabled(b->isEnabled());
    }
    menu.exec(FLista->viewport()->mapToGlobal(ponto));
}

} // namespace tavru

namespace tavru {
TGis *TGISConfigurarCamadas::GIS() const
{
    return FGis;
}
QString TGISConfigurarCamadas::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGISConfigurarCamadas::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
