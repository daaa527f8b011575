#pragma once
/// \file
/// A elipse de um símbolo vetorial.

#include <tavru/companions/symbology/TSetor.h>

namespace tavru {

/// Um setor de elipse: as figuras de `TSetor` com arcos de elipse.
///
/// `RaioExterno` e `RaioInterno` são os semi-eixos horizontais; os verticais são
/// `RaioExternoY` e `RaioInternoY` (extensão deste pacote: os objetos do mapa não os movem), e
/// um semi-eixo vertical zero ou negativo vale o horizontal, de modo que uma elipse que só
/// recebeu os raios se desenha como círculo. Os ângulos são os paramétricos da elipse.
class TAVRU_SIMBOLOGIA_EXPORT TElipse : public TSetor
{
public:
    TElipse() = default;

    double RaioExternoY() const { return FRaioExternoY; }
    void AtribuirRaioExternoY(double r) { FRaioExternoY = r; }
    double RaioInternoY() const { return FRaioInternoY; }
    void AtribuirRaioInternoY(double r) { FRaioInternoY = r; }

protected:
    double SemiEixoVertical(bool externo) const override;

private:
    double FRaioExternoY = 0.0;
    double FRaioInternoY = 0.0;
};

} // namespace tavru
