#pragma once
/// \file
/// A lista de botões rápidos de uma barra de ferramentas.

#include <tavru/companions/components/TBotaoRapido.h>
#include <tavru/platform/Exportacao.h>

#include <QImage>
#include <QPointer>
#include <QString>
#include <functional>
#include <vector>

class QHBoxLayout;

namespace tavru {

/// Os botões de uma barra, da esquerda para a direita, na ordem de `Add`.
///
/// Os botões são filhos (Qt) do widget dono da lista, que os libera; a lista só os arruma e os
/// acha pelo índice. Uma posição pode ser um espaço vazio (sem botão), que conta no índice. Cada
/// clique chama `aoClicar` com o índice do botão, depois que o botão já mudou de estado.
///
/// `Add` dá a cada botão o grupo `GrupoPadrao` (2: os botões de uma barra se excluem entre si; o
/// grupo 1 fica livre para um grupo à parte, o 0 é o de apertar e soltar) e liga `AllowAllUp`, para
/// que um segundo clique levante o botão abaixado.
class TAVRU_COMPONENTES_EXPORT TListaBotoes
{
public:
    static constexpr int GrupoPadrao = 2;
    /// Tamanho de cada botão, em pixels (o bitmap é mostrado no seu tamanho, até 24 x 24).
    static constexpr int LadoBotao = 30;
    /// Largura de um espaço vazio, em pixels.
    static constexpr int LarguraEspaco = 8;

    using TAoClicar = std::function<void(int indice)>;

    /// Lista que põe os botões em `dono` (que precisa ainda não ter leiaute).
    TListaBotoes(QWidget *dono, TAoClicar aoClicar);
    ~TListaBotoes();
    TListaBotoes(const TListaBotoes &) = delete;
    TListaBotoes &operator=(const TListaBotoes &) = delete;

    /// Acrescenta um botão com a dica e uma cópia do bitmap, no fim; com a dica vazia acrescenta
    /// um espaço vazio. Devolve o índice da posição.
    int Add(const QString &hint, const QImage &bitmap);
    /// Número de posições (botões e espaços).
    int Count() const { return static_cast<int>(FBotoes.size()); }
    /// O botão da posição, ou nulo num espaço vazio. Índice fora da lista levanta `EListError`.
    TBotaoRapido *ObterBotao(int indice) const;
    /// Tira todos os botões (liberando-os) e os espaços.
    void Limpar();
    /// Redesenha os botões com o estado que eles têm.
    void Atualizar();

private:
    QWidget *FDono;
    QHBoxLayout *FLeiaute;
    TAoClicar FAoClicar;
    std::vector<QPointer<TBotaoRapido>> FBotoes;
};

} // namespace tavru
