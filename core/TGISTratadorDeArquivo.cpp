#include <tavru/core/TGISTratadorDeArquivo.h>

namespace tavru {

TGISTratadorDeArquivo::~TGISTratadorDeArquivo() = default;

} // namespace tavru
