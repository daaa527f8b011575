#include <tavru/platform/TContextoDeDesenho.h>

#include <atomic>

namespace tavru {

TContextoDeDesenho::TContextoDeDesenho() = default;

TContextoDeDesenho::~TContextoDeDesenho() = default;

std::size_t TContextoDeDesenho::NovaChave()
{
    static std::atomic<std::size_t> proxima{0};
    return proxima.fetch_add(1, std::memory_order_relaxed);
}

} // namespace tavru
