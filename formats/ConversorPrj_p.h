#pragma once
// Privado (não instalado): das coordenadas de um Shapefile a graus de latitude e longitude, pelo
// ".prj" (PROJ).

#include <QString>
#include <vector>

typedef struct pj_ctx PJ_CONTEXT;
typedef struct PJconsts PJ;

namespace tavru::shp {

/// Converte as coordenadas (x, y) de um Shapefile em (longitude, latitude) em graus.
///
/// - Com ".prj" de um sistema geográfico (WGS 84, SIRGAS 2000, SAD69...): as coordenadas já são
///   graus.
/// - Com ".prj" de um sistema projetado (UTM e qualquer outro que o PROJ conheça): a projeção é
///   desfeita para a latitude e a longitude do sistema geográfico do próprio ".prj", sem troca
///   de datum.
/// - Sem ".prj": graus, quando a extensão do cabeçalho (`minX`...) cabe em ±180/±90.
/// \throws EFilerError ".prj" que o PROJ não entende, sistema que não é geográfico nem
///         projetado, ou sem ".prj" com coordenadas fora dos graus (a mensagem nomeia o arquivo).
class TConversorPrj
{
public:
    TConversorPrj(const QString &nomeShp, const QString &nomePrj, double minX, double minY, double maxX,
                  double maxY);
    ~TConversorPrj();
    TConversorPrj(const TConversorPrj &) = delete;
    TConversorPrj &operator=(const TConversorPrj &) = delete;

    /// Se as coordenadas são projetadas (passam pelo PROJ).
    bool Projetado() const { return FTransformacao != nullptr; }
    /// Converte `n` pontos no lugar: `x` vira longitude e `y` latitude, em graus. Falso quando
    /// algum ponto não tem conversão (fora do domínio da projeção, ou não finito). Sem projeção,
    /// só confere que são finitos.
    bool Converter(double *x, double *y, int n) const;

private:
    PJ_CONTEXT *FContexto = nullptr;
    PJ *FTransformacao = nullptr;
};

} // namespace tavru::shp
