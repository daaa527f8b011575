#include <tavru/control/TLigacaoAoGis.h>

#include <tavru/control/TGis.h>

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace tavru {

TLigacaoAoGis::TLigacaoAoGis(QWidget &componente, std::function<void(TGis *)> ligar)
    : QObject(&componente), FComponente(componente), FLigar(std::move(ligar))
{
    componente.installEventFilter(this);
}

void TLigacaoAoGis::AtribuirNome(const QString &nome)
{
    FNome = nome;
    FLigado = nullptr;
    // O formulário ainda está sendo montado: o mapa pode vir depois deste componente.
    QTimer::singleShot(0, this, [this] { Resolver(); });
}

bool TLigacaoAoGis::Resolver()
{
    if (FNome.isEmpty())
        return false;
    TGis *gis = AcharGis(FComponente, FNome);
    if (gis && gis != FLigado) {
        FLigado = gis;
        FLigar(gis);
    }
    return gis != nullptr;
}

TGis *TLigacaoAoGis::AcharGis(const QWidget &componente, const QString &nome)
{
    const QWidget *raiz = &componente;
    while (raiz->parentWidget())
        raiz = raiz->parentWidget();
    if (auto *gis = qobject_cast<TGis *>(const_cast<QWidget *>(raiz)); gis && gis->objectName() == nome)
        return gis;
    return raiz->findChild<TGis *>(nome);
}

bool TLigacaoAoGis::eventFilter(QObject *alvo, QEvent *evento)
{
    if (alvo == &FComponente && evento->type() == QEvent::Show)
        Resolver();
    return QObject::eventFilter(alvo, evento);
}

} // namespace tavru
