#pragma once
/// \file
/// A doca da tabela de símbolos do aplicativo de demonstração.

#include <tavru/control/IGISMouseEvent.h>

#include <QDockWidget>
#include <QPointer>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavru {

class TGis;
class TTabelaDeSimbolos;

/// Doca com a tabela de símbolos: "Guardar como símbolo" converte o objeto selecionado no mapa
/// num símbolo da tabela; com um símbolo escolhido e "Colocar no mapa" ligado, cada clique no mapa
/// põe o símbolo convertido em objetos num retângulo de 64 x 64 pixels centrado no clique, na
/// camada "Símbolos" (criada por cima das outras na primeira vez).
///
/// A tabela é guardada em `simbolos.xml` na pasta de dados do aplicativo a cada mudança e lida
/// ao abrir, de modo que sobrevive ao programa; ela também é a tabela de símbolos do mapa
/// (pontos `gisSimbolo`). Erros aparecem numa caixa de mensagem e nada se perde.
///
/// A conversão deixa os pontos de fonte em (0, 0) e as figuras na área que o ".geo" delas dá; a
/// demonstração os leva ao clique, para que o usuário os veja onde clicou.
class TJanelaDeSimbolos : public QDockWidget, public IGISMouseEvent
{
    Q_OBJECT
public:
    /// Cria a doca, a põe à direita de `janela` e se registra como ferramenta de `gis`.
    /// \param arquivo onde a tabela é guardada (vazio: `simbolos.xml` na pasta de dados)
    TJanelaDeSimbolos(TGis *gis, QMainWindow *janela, const QString &arquivo = QString());
    ~TJanelaDeSimbolos() override;

    TTabelaDeSimbolos &Tabela() const { return *FTabela; }
    /// Converte o objeto selecionado e o acrescenta à tabela; responde se acrescentou.
    bool GuardarSelecionado();
    /// Escolhe o símbolo `indice` da tabela (-1: nenhum) e liga ou desliga a colocação.
    void EscolherSimbolo(int indice, bool colocar = true);
    /// Põe o símbolo escolhido no retângulo de 64 x 64 pixels centrado em `ponto`; responde se pôs.
    bool ColocarEm(const TPoint &ponto);

    void GISMouseClick(const TPoint &ponto) override;
    void GISSelecionou(TGISObjeto *objeto) override;

private:
    void Atualizar();
    void Gravar();

    QPointer<TGis> FGis; // a janela pode destruir o mapa antes da doca
    TTabelaDeSimbolos *FTabela;
    QString FArquivo;
    QListWidget *FLista;
    QPushButton *FGuardar;
    QPushButton *FRemover;
    QPushButton *FColocar;
};

} // namespace tavru
