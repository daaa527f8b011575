#pragma once
/// \file
/// A elipse: as quatro figuras da área circular com arcos de elipse.

#include <tavru/elements/GISAreaCircular.h>
#include <tavru/platform/Exportacao.h>

namespace tavru {

/// Elipse, setor de elipse, anel elíptico ou setor de anel elíptico, com os mesmos casos e as
/// mesmas quantidades de pontos da área circular, traçados por `TracaArcoElipse`.
///
/// Semi-eixos em milhas náuticas: `RaioMaior` e `RaioMaiorY` da elipse externa, `RaioMenor` e
/// `RaioMenorY` da interna. Com rumo 0, o primeiro semi-eixo (`RaioMaior`, `RaioMenor`) é o
/// leste-oeste e o segundo (`...Y`) o norte-sul; o rumo (graus, náutico) gira a elipse inteira.
/// Ao contrário do círculo, o rumo é passado à parte a `TracaArcoElipse`, em graus, e não é
/// somado aos azimutes, que já contam a partir dele. O caso do furo é decidido só por
/// `RaioMenor` (> 0), como no círculo.
///
/// A configuração padrão é a do círculo: os semi-eixos Y ficam 0 (uma elipse sem área) até que
/// alguém os atribua.
class TAVRU_GIS_EXPORT TGISElipse : public TGISAreaCircular
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISElipse();
    ~TGISElipse() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    void ObterPontos(TGISPosicaoList &lista) const override;

    /// Segundo semi-eixo da elipse externa, em milhas náuticas.
    double RaioMaiorY() const { return FRaioMaiorY; }
    void AtribuirRaioMaiorY(double raio) { FRaioMaiorY = raio; Mudou(); }
    /// Segundo semi-eixo da elipse interna, em milhas náuticas.
    double RaioMenorY() const { return FRaioMenorY; }
    void AtribuirRaioMenorY(double raio) { FRaioMenorY = raio; Mudou(); }

protected:
    std::array<double, 2> ParametrosDoContorno() const override { return {FRaioMaiorY, FRaioMenorY}; }

private:
    double FRaioMaiorY = 0.0;
    double FRaioMenorY = 0.0;
};

} // namespace tavru
