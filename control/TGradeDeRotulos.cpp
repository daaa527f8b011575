#include <tavru/control/TGradeDeRotulos_p.h>

#include <algorithm>
#include <cstdint>

namespace tavru {

namespace {

constexpr int CelulasPorEixo = 128;
constexpr int MenorCelula = 48;

/// O lado da célula para cobrir `extensao` pixels com no máximo `CelulasPorEixo` células.
int LadoDaCelula(std::int64_t extensao)
{
    return static_cast<int>(std::max<std::int64_t>(MenorCelula, (extensao + CelulasPorEixo - 1) / CelulasPorEixo));
}

bool Sobrepoem(const TRect &a, const TRect &b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

} // namespace

TGradeDeRotulos::TGradeDeRotulos(const TRect &tela) : FTela(tela)
{
    const std::int64_t largura = std::max<std::int64_t>(1, std::int64_t(tela.Right) - tela.Left);
    const std::int64_t altura = std::max<std::int64_t>(1, std::int64_t(tela.Bottom) - tela.Top);
    FLarguraCelula = LadoDaCelula(largura);
    FAlturaCelula = LadoDaCelula(altura);
    FColunas = static_cast<int>((largura + FLarguraCelula - 1) / FLarguraCelula);
    FLinhas = static_cast<int>((altura + FAlturaCelula - 1) / FAlturaCelula);
    FCelulas.resize(static_cast<size_t>(FColunas) * static_cast<size_t>(FLinhas));
}

void TGradeDeRotulos::Faixa(const TRect &caixa, int &c1, int &c2, int &l1, int &l2) const
{
    auto celula = [](std::int64_t v, std::int64_t origem, int lado, int total) {
        const std::int64_t d = v - origem;
        const std::int64_t c = d < 0 ? -1 : d / lado;
        return static_cast<int>(std::clamp<std::int64_t>(c, 0, total - 1));
    };
    c1 = celula(caixa.Left, FTela.Left, FLarguraCelula, FColunas);
    c2 = celula(std::int64_t(caixa.Right) - 1, FTela.Left, FLarguraCelula, FColunas);
    l1 = celula(caixa.Top, FTela.Top, FAlturaCelula, FLinhas);
    l2 = celula(std::int64_t(caixa.Bottom) - 1, FTela.Top, FAlturaCelula, FLinhas);
}

bool TGradeDeRotulos::Ocupar(const TRect &caixa)
{
    if (caixa.Right <= caixa.Left || caixa.Bottom <= caixa.Top)
        return true;
    int c1, c2, l1, l2;
    Faixa(caixa, c1, c2, l1, l2);
    for (int l = l1; l <= l2; ++l)
        for (int c = c1; c <= c2; ++c)
            for (int i : FCelulas[static_cast<size_t>(l) * FColunas + c])
                if (Sobrepoem(caixa, FCaixas[static_cast<size_t>(i)]))
                    return false;
    const int indice = static_cast<int>(FCaixas.size());
    FCaixas.push_back(caixa);
    for (int l = l1; l <= l2; ++l)
        for (int c = c1; c <= c2; ++c)
            FCelulas[static_cast<size_t>(l) * FColunas + c].push_back(indice);
    return true;
}

} // namespace tavru
