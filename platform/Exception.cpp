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

namespace tavru {

QString CitarValor(const QString &valor)
{
    constexpr qsizetype Maximo = 60;
    if (valor.size() <= Maximo)
        return QLatin1Char('"') + valor + QLatin1Char('"');
    qsizetype corte = Maximo - 3;
    if (valor.at(corte - 1).isHighSurrogate())
        --corte; // não parte um caractere fora do plano básico ao meio
    return QStringLiteral("\"%1...\" (texto de %2 caracteres)").arg(valor.left(corte)).arg(valor.size());
}

} // namespace tavru
