#pragma once
/// \file
/// A área com furos: as partes de uma área preenchidas como uma figura só, pela regra par-ímpar.

#include <tavru/elements/GISArea.h>
#include <tavru/platform/Exportacao.h>

namespace tavru {

/// Área cujas partes formam uma figura só (extensão, para os polígonos de Shapefiles): um ponto
/// está dentro quando está dentro de um número ímpar de partes, de modo que uma parte dentro de
/// outra é um furo, e uma parte dentro de um furo é uma ilha.
///
/// É uma `TGISArea` (cor, pincel, `IndicePincel`, extensão e posição iguais); mudam só o desenho,
/// que preenche todas as partes juntas pela regra par-ímpar e contorna cada uma com a caneta, e o
/// teste de pertinência, que conta em quantas partes o ponto cai (`PertenceAArea` da projeção em
/// cada parte) e responde pela paridade. No documento XML ela é um `Area` de várias partes com o
/// atributo `Regra="ParImpar"`; sem o atributo, o `Area` volta como `TGISArea`.
class TAVRU_GIS_EXPORT TGISAreaComFuros : public TGISArea
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISAreaComFuros();
    ~TGISAreaComFuros() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Com `selecionado` falso, pincel de `Pincel` e caneta de `Caneta`; as partes com pontos,
    /// desbastadas como por `DesenharOtimizado`, vão juntas para `TCanvas::PolyPolygon`.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro quando o ponto cai num número ímpar de partes.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
};

} // namespace tavru
