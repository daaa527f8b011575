#include <tavru/core/TGISTratadorDeArquivo.h>

#include <algorithm>
#include <cmath>

namespace tavru {

TGISTratadorDeArquivo::~TGISTratadorDeArquivo() = default;

void TGISTratadorDeArquivo::AtribuirProgresso(const TProgressoDeLeitura &progresso, int intervaloMs)
{
    FProgresso = progresso;
    FIntervaloMs = std::max(0, intervaloMs);
    FFracao = 0.0;
    FDesdeOAviso.invalidate();
}

void TGISTratadorDeArquivo::AvisarProgresso(double fracao, int objetos)
{
    if (!FProgresso)
        return;
    // Nunca volta nem passa de 1: um leitor que estima mal o total não faz a barra andar para trás.
    if (std::isfinite(fracao))
        FFracao = std::max(FFracao, std::min(fracao, 1.0));
    const bool fim = FFracao >= 1.0;
    if (!fim && FDesdeOAviso.isValid() && FDesdeOAviso.elapsed() < FIntervaloMs)
        return;
    FDesdeOAviso.start();
    if (!FProgresso(FFracao, objetos))
        throw ELeituraCancelada(QStringLiteral("Leitura cancelada"));
}

} // namespace tavru
