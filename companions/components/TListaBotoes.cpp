#include <tavru/companions/components/TListaBotoes.h>

#include <tavru/platform/TObjectList.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QPixmap>

namespace tavru {

TListaBotoes::TListaBotoes(QWidget *dono, TAoClicar aoClicar)
    : FDono(dono), FLeiaute(new QHBoxLayout(dono)), FAoClicar(std::move(aoClicar))
{
    FLeiaute->setContentsMargins(2, 2, 2, 2);
    FLeiaute->setSpacing(1);
    FLeiaute->addStretch(1);
}

TListaBotoes::~TListaBotoes() = default;

int TListaBotoes::Add(const QString &hint, const QImage &bitmap)
{
    const int indice = Count();
    // O esticador do fim fica sempre por último.
    const int lugar = FLeiaute->count() - 1;
    if (hint.isEmpty()) {
        FBotoes.emplace_back(nullptr);
        FLeiaute->insertSpacing(lugar, LarguraEspaco);
        return indice;
    }
    auto *botao = new TBotaoRapido(FDono);
    botao->SetHint(hint);
    botao->setIcon(QIcon(QPixmap::fromImage(bitmap)));
    botao->setIconSize(bitmap.isNull() ? QSize(24, 24) : bitmap.size().boundedTo(QSize(24, 24)));
    botao->setFixedSize(LadoBotao, LadoBotao);
    botao->SetGroupIndex(GrupoPadrao);
    botao->SetAllowAllUp(true);
    QObject::connect(botao, &QAbstractButton::clicked, botao, [this, indice] {
        if (FAoClicar)
            FAoClicar(indice);
    });
    FLeiaute->insertWidget(lugar, botao);
    FBotoes.emplace_back(botao);
    return indice;
}

TBotaoRapido *TListaBotoes::ObterBotao(int indice) const
{
    if (indice < 0 || indice >= Count())
        ErroIndiceLista(indice);
    return FBotoes[static_cast<size_t>(indice)].data();
}

void TListaBotoes::Limpar()
{
    for (auto &botao : FBotoes)
        delete botao.data();
    FBotoes.clear();
    while (FLeiaute->count() > 1)
        delete FLeiaute->takeAt(0);
}

void TListaBotoes::Atualizar()
{
    for (auto &botao : FBotoes)
        if (botao)
            botao->update();
    FLeiaute->invalidate();
}

} // namespace tavru
