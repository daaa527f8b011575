#include <tavru/companions/geodesy/RotacaoDeFonte.h>

namespace tavru {

void RotacionarFonte(TFont &fonte, int angulo)
{
    fonte.Escapement = angulo;
}

} // namespace tavru
