#pragma once
/// \file
/// A tabela de cores: uma lista de cores indexada, com uma cor padrão para índices fora dela.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QObject>
#include <vector>

namespace tavru {

/// Tabela de cores que os objetos do mapa consultam pelo seu índice de cor (`AtualizarCores`).
///
/// É um componente (`QObject`): o controle do mapa guarda uma referência a ela e a esquece quando
/// ela é destruída (`QObject::destroyed`). As cores são `TColor` (`0x00BBGGRR`). Um índice fora de
/// `0..ObterTotal()-1` (inclusive negativo) não é erro: `ObterCor` devolve a cor padrão.
class TAVRU_COMPONENTES_EXPORT TTabelaDeCores : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int CorPadrao READ CorPadrao WRITE AtribuirCorPadrao)

public:
    explicit TTabelaDeCores(QObject *parent = nullptr);

    /// Número de cores da lista.
    int ObterTotal() const { return static_cast<int>(FCores.size()); }
    /// A cor do índice; fora da lista, a cor padrão.
    TColor ObterCor(int indice) const;
    /// Troca a cor de um índice da lista (fora dela levanta `EListError`).
    void AtribuirCor(int indice, TColor cor);
    /// Acrescenta uma cor no fim e devolve o seu índice.
    int Adicionar(TColor cor);
    /// Tira a cor do índice (fora da lista levanta `EListError`).
    void Remover(int indice);
    void Limpar() { FCores.clear(); }

    const std::vector<TColor> &Cores() const { return FCores; }
    void AtribuirCores(const std::vector<TColor> &cores) { FCores = cores; }

    /// Cor dada aos índices fora da lista. Padrão: preto.
    TColor CorPadrao() const { return FCorPadrao; }
    void AtribuirCorPadrao(TColor cor) { FCorPadrao = cor; }

private:
    std::vector<TColor> FCores;
    TColor FCorPadrao = clBlack;
};

} // namespace tavru
