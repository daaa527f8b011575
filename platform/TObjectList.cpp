#include <tavru/platform/TObjectList.h>

namespace tavru {

void ErroIndiceLista(int indice)
{
    throw EListError(QStringLiteral("Índice de lista fora dos limites (%1)").arg(indice));
}

} // namespace tavru
