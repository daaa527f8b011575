#pragma once
/// \file
/// Lista ordenada de posições do mundo (os vértices de linhas e áreas).

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>

#include <vector>

namespace tavru {

/// Lista de `TGISPosicao` guardadas por valor num único vetor contíguo.
///
/// A lista possui os seus registros: as posições entram e saem por cópia, e uma cópia obtida
/// antes (`ObterPosicao`) não muda quando a lista muda. Não há uma alocação por registro: o vetor
/// contíguo é o que os laços de conversão da projeção percorrem (`Dados`).
///
/// Índices fora de `0..Count()-1` levantam `EListError`. `Remove` e `Extract` de uma posição que
/// não está na lista também levantam (procuram o índice -1): não voltam em silêncio. Com posições
/// repetidas, `IndexOf`, `Remove` e `Extract` agem sobre a primeira.
class TAVRU_GIS_EXPORT TGISPosicaoList
{
public:
    TGISPosicaoList() = default;

    int Count() const { return static_cast<int>(FItens.size()); }
    bool IsEmpty() const { return FItens.empty(); }

    /// Acrescenta uma cópia no fim e devolve o seu índice.
    int Add(const TGISPosicao &p);
    /// Insere uma cópia no índice (0..Count(); Count() acrescenta no fim).
    void Insert(int indice, const TGISPosicao &p);
    /// Sobrescreve o registro do índice no lugar.
    void AtribuirPosicao(int indice, const TGISPosicao &p);
    /// Cópia do registro do índice.
    TGISPosicao ObterPosicao(int indice) const;
    TGISPosicao operator[](int indice) const { return ObterPosicao(indice); }
    TGISPosicao First() const { return ObterPosicao(0); }
    TGISPosicao Last() const { return ObterPosicao(Count() - 1); }

    /// Primeiro índice com latitude e longitude iguais às de `p`, ou -1.
    int IndexOf(const TGISPosicao &p) const;
    /// Tira a primeira ocorrência de `p` e devolve o índice em que estava.
    int Remove(const TGISPosicao &p);
    /// Tira a primeira ocorrência de `p` e devolve uma cópia dela.
    TGISPosicao Extract(const TGISPosicao &p);
    /// Tira o registro do índice.
    void Delete(int indice);
    /// Troca dois registros de lugar.
    void Exchange(int i, int j);
    /// Esvazia a lista.
    void Clear() { FItens.clear(); }

    /// Muda o número de registros; os novos valem (0, 0).
    void Redimensionar(int total);
    /// Reserva espaço para `total` registros sem mudar a contagem.
    void Reservar(int total);

    /// Os registros, contíguos, em ordem (válidos até a próxima mudança da lista).
    const TGISPosicao *Dados() const { return FItens.data(); }
    TGISPosicao *Dados() { return FItens.data(); }

    std::vector<TGISPosicao>::const_iterator begin() const { return FItens.begin(); }
    std::vector<TGISPosicao>::const_iterator end() const { return FItens.end(); }

    friend bool operator==(const TGISPosicaoList &a, const TGISPosicaoList &b) { return a.FItens == b.FItens; }
    friend bool operator!=(const TGISPosicaoList &a, const TGISPosicaoList &b) { return !(a == b); }

private:
    void Verificar(int indice) const;

    std::vector<TGISPosicao> FItens;
};

} // namespace tavru
