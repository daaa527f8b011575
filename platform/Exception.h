#pragma once
/// \file
/// A família de exceções da casa: uma classe base com mensagem em `QString` e uma subclasse por
/// tipo de erro. Mensagens vêm em português; as que hospedeiros e documentos comparam (um tipo de
/// tratador repetido, um índice de lista) são textos fixos, mantidos byte a byte.

#include <tavru/platform/Exportacao.h>

#include <QByteArray>
#include <QString>
#include <exception>

namespace tavru {

/// Base de todas as exceções da casa. `what()` devolve a mensagem em UTF-8.
class TAVRU_PLATAFORMA_EXPORT Exception : public std::exception
{
public:
    explicit Exception(const QString &mensagem);
    const QString &Message() const noexcept { return FMensagem; }
    const char *what() const noexcept override;

private:
    QString FMensagem;
    QByteArray FUtf8;
};

#define TAVRU_EXCECAO(Nome)                                                                        \
    class TAVRU_PLATAFORMA_EXPORT Nome : public Exception                                           \
    {                                                                                               \
    public:                                                                                         \
        using Exception::Exception;                                                                 \
    };

/// Índice fora dos limites de uma lista.
TAVRU_EXCECAO(EListError)
/// Texto que não é um número (ou ângulo, distância, posição) válido.
TAVRU_EXCECAO(EConvertError)
/// Operação inválida no estado atual (por exemplo, registro duplicado).
TAVRU_EXCECAO(EInvalidOperation)
/// Erro de leitura ou gravação de dados estruturados.
TAVRU_EXCECAO(EFilerError)
/// Erro de entrada e saída de arquivos.
TAVRU_EXCECAO(EInOutError)
/// Divisão por zero (uma escala ou um vão nulo). Nunca se produz infinito no lugar.
TAVRU_EXCECAO(EZeroDivide)
/// Conversão de tipo inválida (um item de lista que não é da classe esperada).
TAVRU_EXCECAO(EInvalidCast)

#undef TAVRU_EXCECAO

/// Um valor que veio de fora, citado numa mensagem de erro: entre aspas duplas quando tem até 60
/// caracteres; mais longo, os 57 primeiros, "..." e o comprimento (`"abc..." (texto de 10485760
/// caracteres)`), para que um valor enorme não vire uma mensagem enorme.
TAVRU_PLATAFORMA_EXPORT QString CitarValor(const QString &valor);

} // namespace tavru
