#include <tavru/platform/Exception.h>

namespace tavru {

Exception::Exception(const QString &mensagem)
    : FMensagem(mensagem), FUtf8(mensagem.toUtf8())
{
}

const char *Exception::what() const noexcept
{
    return FUtf8.constData();
}

} // namespace tavru
