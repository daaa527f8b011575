#include <tavru/companions/components/TCustomBarraDeFerramentas.h>

namespace tavru {

TCustomBarraDeFerramentas::TCustomBarraDeFerramentas(QWidget *parent)
    : QWidget(parent), FBotoes(this, [this](int indice) { DoClicar(indice); })
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

TCustomBarraDeFerramentas::~TCustomBarraDeFerramentas() = default;

void TCustomBarraDeFerramentas::Atualizar()
{
    FBotoes.Atualizar();
    update();
}

void TCustomBarraDeFerramentas::CriarComponentes() {}

void TCustomBarraDeFerramentas::DoClicar(int) {}

} // namespace tavru
