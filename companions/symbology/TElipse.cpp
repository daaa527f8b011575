#include <tavru/companions/symbology/TElipse.h>

namespace tavru {

double TElipse::SemiEixoVertical(bool externo) const
{
    const double y = externo ? FRaioExternoY : FRaioInternoY;
    return y > 0.0 ? y : TSetor::SemiEixoVertical(externo);
}

} // namespace tavru
