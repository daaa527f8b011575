#include <tavru/control/TGISBarraDeInclusao.h>

#include "BitmapDoRecurso_p.h"

#include <tavru/companions/components/TBotaoRapido.h>
#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/TObjectList.h>

#include <QIcon>
#include <QPixmap>
#include <memory>

namespace tavru {

namespace {

/// O registro do programa, criado no primeiro uso já com as cinco entradas padrão.
std::vector<TGISBarraDeInclusao::TRegistro> &Registro()
{
    static std::vector<TGISBarraDeInclusao::TRegistro> registro = [] {
        const struct
        {
            const TClasseObjeto *Classe;
            const char *Dica;
            const char *Recurso;
        } padroes[] = {
            {&TGISPonto::Descritor, "Incluir Ponto", "BMP_PONTO"},
            {&TGISLinha::Descritor, "Incluir Linha", "BMP_LINHA"},
            {&TGISArea::Descritor, "Incluir Área", "BMP_AREA"},
            {&TGISAreaCircular::Descritor, "Incluir Área Circular", "BMP_AREA_CIRCULAR"},
            {&TGISImagem::Descritor, "Incluir Imagem", "BMP_IMAGEM"},
        };
        std::vector<TGISBarraDeInclusao::TRegistro> r;
        for (const auto &p : padroes)
            r.push_back({QString::fromUtf8(p.Dica), BitmapDoRecurso(p.Recurso), p.Classe});
        return r;
    }();
    return registro;
}

/// Lado de um botão quando a barra ainda não tem tamanho, em pixels.
constexpr int LadoBotao = 30;

} // namespace

void TGISBarraDeInclusao::RegistrarBotao(const TClasseObjeto &classe, const QString &hint, const QImage &bitmap)
{
    Registro().push_back({hint, bitmap.copy(), &classe});
}

void TGISBarraDeInclusao::RemoverRegistroBotao(const TClasseObjeto &classe)
{
    auto &registro = Registro();
    for (auto i = registro.begin(); i != registro.end(); ++i)
        if (*i->Classe == classe) {
            registro.erase(i);
            return;
        }
}

std::vector<TGISBarraDeInclusao::TRegistro> TGISBarraDeInclusao::ObterRegistro()
{
    return Registro();
}

void TGISBarraDeInclusao::RestaurarRegistro(const std::vector<TRegistro> &entradas)
{
    Registro() = entradas;
}

TGISBarraDeInclusao::TGISBarraDeInclusao(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::NoFocus); // TabStop desligado
    CriarComponentes();
}

TGISBarraDeInclusao::~TGISBarraDeInclusao()
{
    AtribuirGis(nullptr);
}

void TGISBarraDeInclusao::AtribuirGis(TGis *gis)
{
    if (FGis)
        disconnect(FGis, &TGis::Destruindo, this, &TGISBarraDeInclusao::Notification);
    FGis = gis;
    if (FGis)
        connect(FGis, &TGis::Destruindo, this, &TGISBarraDeInclusao::Notification, Qt::UniqueConnection);
}

void TGISBarraDeInclusao::Notification()
{
    FGis = nullptr;
}

void TGISBarraDeInclusao::CriarComponentes()
{
    for (auto &botao : FBotoes)
        delete botao.data();
    FBotoes.clear();
    FClasses.clear();
    FHints.Clear();
    const std::vector<TRegistro> &registro = Registro();
    for (int i = 0; i < static_cast<int>(registro.size()); ++i) {
        const TRegistro &entrada = registro[static_cast<size_t>(i)];
        auto *botao = new TBotaoRapido(this);
        FHints.Add(entrada.Hint);
        botao->SetHint(entrada.Hint);
        botao->setIcon(QIcon(QPixmap::fromImage(entrada.Bitmap)));
        botao->setIconSize(entrada.Bitmap.isNull() ? QSize(24, 24) : entrada.Bitmap.deviceIndependentSize().toSize());
        botao->setAutoRaise(FFlat);
        botao->SetAllowAllUp(true);
        botao->SetGroupIndex(i + 1);
        connect(botao, &QAbstractButton::clicked, this, [this, i] { AoClicar(i); });
        botao->show();
        FBotoes.emplace_back(botao);
        FClasses.push_back(entrada.Classe);
    }
    RedimensionarBotoes();
}

void TGISBarraDeInclusao::RedimensionarBotoes()
{
    if (FRedimensionando)
        return;
    FRedimensionando = true;
    const int visiveis = Visiveis();
    if (visiveis >= 1) {
        const int largura = width() / visiveis;
        const int altura = height();
        int esquerda = 0;
        for (int i = 0; i < Count(); ++i) {
            TBotaoRapido *botao = FBotoes[static_cast<size_t>(i)];
            if (!botao) // liberado por fora da barra
                continue;
            botao->setGeometry(esquerda, 0, largura, altura);
            if (i < FHints.Count())
                botao->SetHint(FHints.Strings(i));
            if (!botao->isHidden())
                esquerda += largura;
        }
        resize(esquerda, height());
    }
    FRedimensionando = false;
    Atualizar();
}

void TGISBarraDeInclusao::Atualizar()
{
    if (!FGis || FBotoes.empty())
        return;
    for (auto &botao : FBotoes)
        if (botao)
            botao->SetDown(false);
}

TBotaoRapido *TGISBarraDeInclusao::ObterBotao(int indice) const
{
    if (indice < 0 || indice >= Count())
        ErroIndiceLista(indice);
    return FBotoes[static_cast<size_t>(indice)];
}

const TClasseObjeto &TGISBarraDeInclusao::ObterClasse(int indice) const
{
    if (indice < 0 || indice >= Count())
        ErroIndiceLista(indice);
    return *FClasses[static_cast<size_t>(indice)];
}

void TGISBarraDeInclusao::AtribuirFlat(bool flat)
{
    if (flat == FFlat)
        return;
    FFlat = flat;
    for (auto &botao : FBotoes)
        if (botao)
            botao->setAutoRaise(flat);
}

void TGISBarraDeInclusao::AtribuirTextosHints(const QStringList &hints)
{
    TStringList lista;
    lista.AtribuirTextos(hints);
    AtribuirHints(lista);
}

void TGISBarraDeInclusao::AtribuirHints(const TStringList &hints)
{
    if (hints.Text() == FHints.Text())
        return;
    FHints.Assign(hints);
    RedimensionarBotoes();
}

void TGISBarraDeInclusao::AoClicar(int indice)
{
    Atualizar();
    if (OnClicar)
        OnClicar(*this, indice);
}

void TGISBarraDeInclusao::resizeEvent(QResizeEvent *evento)
{
    QWidget::resizeEvent(evento);
    RedimensionarBotoes();
}

int TGISBarraDeInclusao::Visiveis() const
{
    int visiveis = 0;
    for (const auto &botao : FBotoes)
        visiveis += botao && !botao->isHidden();
    return visiveis;
}

QSize TGISBarraDeInclusao::sizeHint() const
{
    return QSize(Visiveis() * LadoBotao, LadoBotao);
}

TGISObjeto *TGISBarraDeInclusao::IncluirObjeto(const TClasseObjeto &classe, TGis &gis, TGISCamada &camada,
                                               const TPoint &ponto, const QString &nome)
{
    std::unique_ptr<TGISObjeto> objeto = classe.Criar();
    if (!objeto->ConfiguracaoPadrao(*gis.Projecao(), ponto))
        return nullptr;
    if (!nome.isEmpty()) {
        objeto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), nome);
        objeto->AtribuirRotuloVisivel(true);
    }
    TGISObjeto *incluido = objeto.get();
    camada.Objetos().Add(objeto.release());
    gis.SelecionarObjeto(incluido);
    return incluido;
}

QString TGISBarraDeInclusao::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGISBarraDeInclusao::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
