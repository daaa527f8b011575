#include <tavru/companions/components/TBotaoRapido.h>

namespace tavru {

TBotaoRapido::TBotaoRapido(QWidget *parent) : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
}

void TBotaoRapido::SetGroupIndex(int grupo)
{
    FGroupIndex = grupo;
    if (grupo == 0)
        SetDown(false);
    setCheckable(grupo != 0);
}

void TBotaoRapido::SetDown(bool abaixado)
{
    if (FGroupIndex == 0)
        abaixado = false;
    if (abaixado == isChecked())
        return;
    setChecked(abaixado);
    if (!abaixado || !parentWidget())
        return;
    const auto irmaos = parentWidget()->findChildren<TBotaoRapido *>(Qt::FindDirectChildrenOnly);
    for (TBotaoRapido *outro : irmaos)
        if (outro != this && outro->FGroupIndex == FGroupIndex)
            outro->SetDown(false);
}

void TBotaoRapido::nextCheckState()
{
    if (FGroupIndex == 0)
        return;
    if (isChecked() && !FAllowAllUp)
        return;
    SetDown(!isChecked());
}

} // namespace tavru
