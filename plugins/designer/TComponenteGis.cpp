#include "TComponenteGis.h"

#include "TColecaoGis.h"

#include <QIcon>

namespace tavru {

TComponenteGis::TComponenteGis(TDescricaoComponente descricao, QObject *parent)
    : QObject(parent), FDescricao(std::move(descricao))
{
}

QString TComponenteGis::group() const
{
    return TColecaoGis::Grupo();
}

QIcon TComponenteGis::icon() const
{
    return QIcon(FDescricao.Icone);
}

QWidget *TComponenteGis::createWidget(QWidget *parent)
{
    return FDescricao.Criar(parent, FInicializado);
}

void TComponenteGis::initialize(QDesignerFormEditorInterface *)
{
    FInicializado = true;
}

} // namespace tavru
