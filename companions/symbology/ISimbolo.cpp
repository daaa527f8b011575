#include <tavru/companions/symbology/ISimbolo.h>

namespace tavru {

ISimbolo::~ISimbolo() = default;

} // namespace tavru
