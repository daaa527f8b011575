#include "TJanelaDeSimbolos.h"

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TProvedorDeDialogos.h>
#include <tavru/xml/ConverteGisObjetoISimbolo.h>

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

namespace tavru {

namespace {
const QString NomeDaCamada = QStringLiteral("Símbolos");
constexpr int LadoDoIcone = 48;
constexpr int LadoNoMapa = 64;

QIcon Icone(const ISimbolo &simbolo)
{
    QImage imagem(LadoDoIcone, LadoDoIcone, QImage::Format_ARGB32_Premultiplied);
    imagem.fill(Qt::white);
    {
        TCanvas canvas(&imagem);
        simbolo.Desenhar(canvas, TRect(2, 2, LadoDoIcone - 2, LadoDoIcone - 2));
    }
    return QIcon(QPixmap::fromImage(imagem));
}

QString NomeDoObjeto(const TGISObjeto &objeto)
{
    const QString nome = objeto.Informacoes().ObterValor(QStringLiteral("Nome"));
    if (!nome.isEmpty())
        return nome;
    return objeto.Informacoes().ObterTotal() > 0 ? objeto.Informacoes().ObterValorCampo(0) : objeto.Classe().Nome();
}
} // namespace

TJanelaDeSimbolos::TJanelaDeSimbolos(TGis *gis, QMainWindow *janela, const QString &arquivo)
    : QDockWidget(QStringLiteral("Símbolos"), janela),
      FGis(gis),
      FTabela(new TTabelaDeSimbolos(this)),
      FArquivo(arquivo),
      FLista(new QListWidget),
      FGuardar(new QPushButton(QStringLiteral("&Guardar como símbolo"))),
      FRemover(new QPushButton(QStringLiteral("&Remover"))),
      FColocar(new QPushButton(QStringLiteral("&Colocar no mapa")))
{
    setObjectName(QStringLiteral("Simbolos"));
    if (FArquivo.isEmpty())
        FArquivo = QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
                       .filePath(QStringLiteral("simbolos.xml"));
    FLista->setViewMode(QListView::IconMode);
    FLista->setIconSize(QSize(LadoDoIcone, LadoDoIcone));
    FLista->setResizeMode(QListView::Adjust);
    FLista->setMovement(QListView::Static);
    FColocar->setCheckable(true);
    FGuardar->setEnabled(false);

    auto *botoes = new QHBoxLayout;
    botoes->addWidget(FGuardar);
    botoes->addWidget(FRemover);
    auto *conteudo = new QWidget;
    auto *coluna = new QVBoxLayout(conteudo);
    coluna->addLayout(botoes);
    coluna->addWidget(FLista);
    coluna->addWidget(FColocar);
    auto *dica = new QLabel(QStringLiteral("Selecione um objeto rotulado e guarde-o; escolha um símbolo e clique no "
                                           "mapa para colocá-lo."));
    dica->setWordWrap(true);
    coluna->addWidget(dica);
    setWidget(conteudo);
    janela->addDockWidget(Qt::RightDockWidgetArea, this);

    connect(FGuardar, &QPushButton::clicked, this, [this] { GuardarSelecionado(); });
    connect(FRemover, &QPushButton::clicked, this, [this] {
        const int i = FLista->currentRow();
        if (i < 0)
            return;
        FTabela->Remover(i);
        Atualizar();
        Gravar();
    });
    connect(FLista, &QListWidget::currentRowChanged, this,
            [this](int i) { FColocar->setChecked(FColocar->isChecked() && i >= 0); });

    if (QFileInfo::exists(FArquivo)) {
        try {
            FTabela->Ler(FArquivo);
        } catch (const Exception &e) {
            Dialogos().Mensagem(e.Message(), QStringLiteral("Ler a tabela de símbolos"), mtErro);
        }
    }
    Atualizar();
    FGis->AtribuirTabelaDeSimbolos(FTabela);
    FGis->RegistrarMouseEvent(this);
}

TJanelaDeSimbolos::~TJanelaDeSimbolos()
{
    if (FGis)
        FGis->RemoverRegistroMouseEvent(this);
}

void TJanelaDeSimbolos::Atualizar()
{
    const int atual = FLista->currentRow();
    FLista->clear();
    for (int i = 0; i < FTabela->ObterTotal(); ++i) {
        const ISimbolo &s = *FTabela->ObterSimbolo(i);
        FLista->addItem(new QListWidgetItem(Icone(s), s.Nome()));
    }
    FLista->setCurrentRow(std::min(atual, FLista->count() - 1));
    FRemover->setEnabled(FTabela->ObterTotal() > 0);
}

void TJanelaDeSimbolos::Gravar()
{
    try {
        QDir().mkpath(QFileInfo(FArquivo).absolutePath());
        FTabela->Gravar(FArquivo);
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Gravar a tabela de símbolos"), mtErro);
    }
}

bool TJanelaDeSimbolos::GuardarSelecionado()
{
    const TGISObjeto *objeto = FGis->ObjetoSelecionado();
    if (!objeto)
        return false;
    try {
        std::unique_ptr<ISimbolo> simbolo = GisObjetoToSimbolo(*objeto);
        simbolo->AtribuirNome(NomeDoObjeto(*objeto));
        const int indice = FTabela->Adicionar(std::move(simbolo));
        Atualizar();
        FLista->setCurrentRow(indice);
        Gravar();
        return true;
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Guardar como símbolo"), mtErro);
        return false;
    }
}

void TJanelaDeSimbolos::EscolherSimbolo(int indice, bool colocar)
{
    FLista->setCurrentRow(indice);
    FColocar->setChecked(colocar && FLista->currentRow() >= 0);
}

bool TJanelaDeSimbolos::ColocarEm(const TPoint &ponto)
{
    const ISimbolo *simbolo = FTabela->ObterSimbolo(FLista->currentRow());
    if (!simbolo || !FColocar->isChecked())
        return false;
    const int meio = LadoNoMapa / 2;
    const TGISRet retangulo =
        FGis->Projecao()->TelaParaMundoRet(TRect(ponto.X - meio, ponto.Y - meio, ponto.X + meio, ponto.Y + meio));
    std::unique_ptr<TGISObjeto> objeto;
    try {
        objeto = SimboloToGisObjeto(simbolo, retangulo);
    } catch (const Exception &e) {
        Dialogos().Mensagem(e.Message(), QStringLiteral("Colocar o símbolo"), mtErro);
        return false;
    }
    if (!objeto)
        return false;
    // Pontos de fonte e figuras não olham o retângulo: a demonstração os leva ao clique.
    if (auto *p = dynamic_cast<TGISPonto *>(objeto.get()); p && p->Forma() == gisFonte)
        p->AtribuirPosicao(Centro(retangulo));
    else if (auto *imagem = dynamic_cast<TGISImagem *>(objeto.get()))
        imagem->AtribuirArea(retangulo);

    TGISCamadaList &camadas = FGis->Camadas();
    const int i = camadas.IndexOf(NomeDaCamada);
    TGISCamada *camada = i >= 0 ? camadas.ObterGISCamada(i) : nullptr;
    if (!camada) {
        camada = new TGISCamada(NomeDaCamada);
        camada->Visibilidade(true, false);
        camadas.Add(camada);
    }
    camada->Objetos().Add(objeto.release());
    FGis->Desenhar();
    return true;
}

void TJanelaDeSimbolos::GISMouseClick(const TPoint &ponto)
{
    ColocarEm(ponto);
}

void TJanelaDeSimbolos::GISSelecionou(TGISObjeto *objeto)
{
    FGuardar->setEnabled(objeto != nullptr);
}

} // namespace tavru
