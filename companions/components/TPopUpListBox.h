#pragma once
/// \file
/// A caixa de lista que aparece sob o cursor para o usuário escolher um item.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TStringList.h>

#include <QListWidget>
#include <functional>

namespace tavru {

/// Lista de textos que aparece como janela instantânea (`Executar`) e avisa a escolha do usuário
/// (`DoEscolher`).
///
/// Os itens são uma `TStringList` (`Items`): cada texto pode levar um ponteiro anexado, que a
/// lista nunca possui. `Executar` mostra os textos como estão nesse momento, perto do ponto dado,
/// sem nenhum escolhido (`ItemIndex` -1), e volta na hora (não espera a escolha). O usuário escolhe
/// com um clique ou com Enter no item corrente; então a lista some, `ItemIndex` fica com o índice
/// escolhido e `DoEscolher` roda. Esc, ou um clique fora, fecha sem escolher (e sem `DoEscolher`).
///
/// Uma subclasse trata a escolha sobrescrevendo `DoEscolher` e chamando primeiro o da base, que
/// levanta `OnEscolher`.
class TAVRU_COMPONENTES_EXPORT TPopUpListBox : public QListWidget
{
    Q_OBJECT
public:
    /// Número máximo de linhas mostradas de uma vez (o resto rola).
    static constexpr int LinhasVisiveis = 12;

    explicit TPopUpListBox(QWidget *parent = nullptr);
    ~TPopUpListBox() override;

    /// Os itens (textos com os objetos anexados).
    TStringList &Items() { return FItems; }
    const TStringList &Items() const { return FItems; }
    /// O índice do item escolhido por último, ou -1.
    int ItemIndex() const { return FItemIndex; }

    /// Mostra os itens sob o cursor do mouse.
    void Executar();
    /// Mostra os itens com o canto de cima à esquerda em `posicaoGlobal` (coordenadas da tela),
    /// dentro da área disponível da tela. Sem itens, só esconde a lista.
    void Executar(const QPoint &posicaoGlobal);
    /// A escolha do usuário do item `indice` (o que o clique e o Enter fazem): esconde a lista,
    /// guarda o índice e chama `DoEscolher`. Índice fora dos itens levanta `EListError`.
    void Escolher(int indice);

    /// Levantado pela `DoEscolher` da base.
    std::function<void(TPopUpListBox &lista)> OnEscolher;

protected:
    /// O usuário escolheu `ItemIndex`; a base levanta `OnEscolher`.
    virtual void DoEscolher();
    void keyPressEvent(QKeyEvent *evento) override;

private:
    TStringList FItems;
    int FItemIndex = -1;
};

} // namespace tavru
