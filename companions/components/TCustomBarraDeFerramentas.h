#pragma once
/// \file
/// A barra de ferramentas base: um painel com uma lista de botões rápidos.

#include <tavru/companions/components/TListaBotoes.h>
#include <tavru/platform/Exportacao.h>

#include <QWidget>

namespace tavru {

/// Painel que segura uma `TListaBotoes` e encaminha o clique de cada botão para `DoClicar` com o
/// índice dele (o botão já no estado novo).
///
/// Uma barra concreta monta os seus botões em `CriarComponentes`, que ela mesma chama no seu
/// construtor (a base não chama operações virtuais na construção), e trata os cliques
/// sobrescrevendo `DoClicar`, chamando primeiro o da base. `Atualizar` é a operação de refresco:
/// redesenha os botões com o estado que têm (não levanta nem abaixa nenhum).
class TAVRU_COMPONENTES_EXPORT TCustomBarraDeFerramentas : public QWidget
{
    Q_OBJECT
public:
    explicit TCustomBarraDeFerramentas(QWidget *parent = nullptr);
    ~TCustomBarraDeFerramentas() override;

    TListaBotoes &Botoes() { return FBotoes; }
    const TListaBotoes &Botoes() const { return FBotoes; }
    /// Atalho para `Botoes().ObterBotao(indice)`.
    TBotaoRapido *ObterBotao(int indice) const { return FBotoes.ObterBotao(indice); }

    /// Redesenha a barra e os botões.
    virtual void Atualizar();

protected:
    /// Monta os botões; a base não monta nenhum.
    virtual void CriarComponentes();
    /// O tratamento de um clique no botão `indice`; a base não faz nada.
    virtual void DoClicar(int indice);

private:
    TListaBotoes FBotoes;
};

} // namespace tavru
