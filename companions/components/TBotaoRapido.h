#pragma once
/// \file
/// O botão rápido das barras de ferramentas: um `QToolButton` com grupo e estado "abaixado".

#include <tavru/platform/Exportacao.h>

#include <QToolButton>

namespace tavru {

/// Botão rápido da plataforma sobre um `QToolButton`.
///
/// - `GroupIndex` 0: botão de apertar e soltar; nunca fica abaixado (`SetDown(true)` é ignorado).
/// - `GroupIndex` diferente de 0: o botão fica abaixado ao ser clicado, e abaixá-lo (pelo clique
///   ou por `SetDown(true)`) levanta os outros botões do mesmo grupo que são filhos do mesmo widget.
///   Um segundo clique num botão abaixado o levanta só quando `AllowAllUp` está ligado; senão ele
///   continua abaixado.
///
/// O estado muda antes do sinal `clicked`, de modo que quem trata o clique já vê o estado novo.
/// `Hint` é a dica (o `toolTip`). Padrões: grupo 0, levantado, `AllowAllUp` desligado.
class TAVRU_COMPONENTES_EXPORT TBotaoRapido : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(int GroupIndex READ GroupIndex WRITE SetGroupIndex)
    Q_PROPERTY(bool Down READ Down WRITE SetDown)
    Q_PROPERTY(bool AllowAllUp READ AllowAllUp WRITE SetAllowAllUp)
public:
    explicit TBotaoRapido(QWidget *parent = nullptr);

    int GroupIndex() const { return FGroupIndex; }
    /// Troca o grupo; passar para o grupo 0 levanta o botão.
    void SetGroupIndex(int grupo);
    bool Down() const { return isChecked(); }
    /// Abaixa ou levanta o botão (sem emitir `clicked`); abaixar levanta os outros do grupo.
    void SetDown(bool abaixado);
    bool AllowAllUp() const { return FAllowAllUp; }
    void SetAllowAllUp(bool permitir) { FAllowAllUp = permitir; }
    QString Hint() const { return toolTip(); }
    void SetHint(const QString &dica) { setToolTip(dica); }

protected:
    /// O passo do clique que decide o estado novo (as regras da classe).
    void nextCheckState() override;

private:
    int FGroupIndex = 0;
    bool FAllowAllUp = false;
};

} // namespace tavru
