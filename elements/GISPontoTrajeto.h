#pragma once
/// \file
/// O vértice de uma trajetória.

#include <tavru/companions/components/TInformacoes.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

/// Vértice de uma trajetória (um objeto simples, não um objeto do mapa): o deslocamento em
/// relação à posição da trajetória, um registro de informações, a trava e o rótulo.
///
/// Um vértice travado (`Fixo`) não é movido pelas operações de edição da trajetória
/// (`AtribuirGISPosicao`, `AtribuirPonto`, `AjustarAoRetangulo`), e o seu rótulo aparece no
/// mapa, pendurado abaixo dele.
///
/// Posse: o vértice possui o seu registro de informações (um valor).
class TAVRU_GIS_EXPORT TGISPontoTrajeto
{
public:
    TGISPontoTrajeto() = default;
    TGISPontoTrajeto(const TGISPontoTrajeto &) = delete;
    TGISPontoTrajeto &operator=(const TGISPontoTrajeto &) = delete;

    /// O deslocamento, em segundos de arco, a partir da posição da trajetória, no referencial dela
    /// sem giro (como os pontos guardados de uma linha).
    TGISPosicao Posicao() const { return FPosicao; }
    void AtribuirPosicao(const TGISPosicao &p) { FPosicao = p; }
    TInformacoes &Informacoes() { return FInformacoes; }
    const TInformacoes &Informacoes() const { return FInformacoes; }
    /// Travado: não se move pela edição e mostra o rótulo.
    bool Fixo() const { return FFixo; }
    void AtribuirFixo(bool fixo) { FFixo = fixo; }
    /// Rótulo escrito abaixo de um vértice travado (vazio: nenhum).
    QString Rotulo() const { return FRotulo; }
    void AtribuirRotulo(const QString &rotulo) { FRotulo = rotulo; }

private:
    TGISPosicao FPosicao;
    TInformacoes FInformacoes;
    bool FFixo = false;
    QString FRotulo;
};

} // namespace tavru
