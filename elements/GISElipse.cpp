#include <tavru/elements/GISElipse.h>

#include <tavru/companions/geodesy/Distancia.h>

namespace tavru {

const TClasseObjeto TGISElipse::Descritor = TClasseObjeto::De<TGISElipse>("TGISElipse");

TGISElipse::TGISElipse() = default;

TGISElipse::~TGISElipse() = default;

void TGISElipse::ObterPontos(TGISPosicaoList &lista) const
{
    const TGISPosicao centro = Posicao();
    const double rumo = Rumo();
    MontarContorno(lista, [&](double a1, double a2, bool externo, TGISPosicao *pontos, int quantidade,
                              bool horario, bool) {
        if (externo)
            TracaArcoElipse(rumo, a1, a2, centro, RaioMaior(), FRaioMaiorY, pontos, quantidade, horario);
        else
            TracaArcoElipse(rumo, a1, a2, centro, RaioMenor(), FRaioMenorY, pontos, quantidade, horario);
    });
}

} // namespace tavru
