#pragma once
/// \file
/// O painel de camadas de um mapa: ordem, visibilidade, cor, inclusão, remoção, importação e
/// exportação.

#include <tavru/core/IGISObservador.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QPointer>
#include <QWidget>
#include <functional>

class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tavru {

class TGis;
class TLigacaoAoGis;
class TGISCamada;

/// A operação do painel que um evento anuncia.
enum TGISOperacaoCamada {
    gocInserir,      ///< uma camada vazia nova, por cima de todas
    gocRemover,      ///< a camada sai do mapa e é liberada
    gocImportar,     ///< uma camada nova, lida de um arquivo, por cima de todas
    gocExportar,     ///< os objetos da camada gravados num arquivo
    gocMover,        ///< a camada muda de lugar (Subir, Descer, arrastar)
    gocCor,          ///< `TGISCamada::AtribuirCor`, que recolore todos os objetos
    gocVisibilidade  ///< `TGISCamada::AtribuirVisivel`
};

/// Painel de camadas ligado a um `TGis`: lista as camadas com a de cima primeiro (a última da
/// lista do mapa, desenhada por cima), cada uma com uma caixa de visibilidade (`Visivel` da
/// camada), uma amostra da cor (`Cor` da camada; vazia quando é -1), a faixa de zoom
/// ("mínimo – máximo") e o número de objetos.
///
/// **Operações.** Os botões e o menu de contexto "Inserir" (pergunta o nome), "Remover",
/// "Importar" (pergunta o arquivo pelos filtros de leitura do registro de tratadores e lê numa
/// camada nova com o nome do arquivo), "Exportar" (filtros de escrita), "Subir", "Descer"
/// (desabilitados na camada de cima e na de baixo, onde a troca da lista levantaria) e "Cor"
/// (pergunta a cor e confirma antes, porque todos os objetos da camada são recoloridos) chamam as
/// operações públicas de mesmo nome; arrastar uma linha para outra chama `Mover`. Cada operação
/// levanta `OnAntesDaOperacao` (que pode vetar) e, feita, `OnDepoisDaOperacao`; o mapa é
/// redesenhado uma vez por operação (`TGis::Desenhar`), menos em "Exportar", que não muda o que
/// se vê. As perguntas passam pelo provedor de
/// diálogos (`Dialogos()`), exceto a da cor, que é `EscolherCor` (o seletor de cores do Qt por
/// padrão). Erros de leitura e gravação chegam como mensagem de erro e o mapa fica como estava.
///
/// **Mudanças de fora.** O painel observa a lista de camadas do mapa e se refaz (na volta ao laço
/// de eventos) quando camadas entram, saem ou mudam de lugar; as contagens de objetos se atualizam
/// a cada desenho do mapa (`VisaoMudou`). Nome, zoom e cor mudados direto na camada aparecem no
/// próximo `Atualizar`.
///
/// **Posse.** O mapa não é possuído: o painel o esquece quando ele é destruído e tira o seu
/// observador ao ser destruído antes dele. Extensão (o painel não tem contrato de referência).
class TAVRU_GIS_EXPORT TGISConfigurarCamadas : public QWidget, private IGISObservador
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
public:
    /// Antes de uma operação: `camada` é a camada em jogo (em `gocInserir` e `gocImportar`, a
    /// camada nova, ainda fora do mapa); pôr `podeContinuar` em falso desiste sem mudar nada.
    using TOnAntesDaOperacao
        = std::function<void(QObject *sender, TGISOperacaoCamada operacao, TGISCamada *camada, bool &podeContinuar)>;
    /// Depois de uma operação feita (em `gocRemover`, a camada já foi liberada: chega nula).
    using TOnDepoisDaOperacao = std::function<void(QObject *sender, TGISOperacaoCamada operacao, TGISCamada *camada)>;

    explicit TGISConfigurarCamadas(QWidget *parent = nullptr);
    ~TGISConfigurarCamadas() override;

    TGis *GIS() const;
    /// Liga o painel a `gis` (nulo: nenhum) e lista as camadas dele.
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }

    /// Refaz a lista a partir do mapa, mantendo a camada escolhida.
    void Atualizar();

    /// A camada da linha escolhida, ou nula.
    TGISCamada *CamadaEscolhida() const;
    /// Escolhe a linha da camada (nula: nenhuma).
    void EscolherCamada(TGISCamada *camada);
    /// A lista mostrada (uma linha por camada, a de cima primeiro; coluna 0 com a caixa e o nome).
    QTreeWidget *Lista() const;

    // Operações (cada uma com o veto e o aviso; falso se vetada, cancelada ou sem efeito).

    /// Acrescenta uma camada vazia chamada `nome` por cima de todas e a escolhe.
    bool Inserir(const QString &nome);
    /// Tira a camada do mapa e a libera.
    bool Remover(TGISCamada *camada);
    /// Lê `arquivo` pelo tratador `tipo` (vazio: pela extensão) numa camada nova, por cima, com o
    /// nome do arquivo sem extensão. Levanta os erros do tratador; o mapa fica como estava.
    bool Importar(const QString &arquivo, const QString &tipo = QString());
    /// Grava os objetos da camada em `arquivo` pelo tratador `tipo` (vazio: pela extensão).
    bool Exportar(TGISCamada *camada, const QString &arquivo, const QString &tipo = QString());
    /// Leva a camada ao índice `para` da lista do mapa (0 é a de baixo).
    bool Mover(TGISCamada *camada, int para);
    /// Um lugar para cima (para o fim da lista do mapa). Falso na camada de cima.
    bool Subir(TGISCamada *camada);
    /// Um lugar para baixo. Falso na camada de baixo.
    bool Descer(TGISCamada *camada);
    /// `AtribuirCor(cor)` da camada (recolore todos os objetos; -1 tira a cor da camada).
    bool Colorir(TGISCamada *camada, TColor cor);
    /// `AtribuirVisivel(visivel)` da camada.
    bool MostrarCamada(TGISCamada *camada, bool visivel);

    // As mesmas operações com as perguntas ao usuário, sobre a camada escolhida.

    void PerguntarEInserir();
    void PerguntarERemover();
    void PerguntarEImportar();
    void PerguntarEExportar();
    void PerguntarEColorir();

    /// Pede a cor ao usuário; `cor` entra com a atual. Falso se cancelado. Trocável (testes).
    std::function<bool(TColor &cor)> EscolherCor;

    TOnAntesDaOperacao OnAntesDaOperacao;
    TOnDepoisDaOperacao OnDepoisDaOperacao;

protected:
    /// Levanta `OnAntesDaOperacao`; verdadeiro se pode continuar.
    virtual bool DoAntesDaOperacao(TGISOperacaoCamada operacao, TGISCamada *camada);
    /// Levanta `OnDepoisDaOperacao` e redesenha o mapa.
    virtual void DoDepoisDaOperacao(TGISOperacaoCamada operacao, TGISCamada *camada);

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    class TLista;
    QPointer<TGis> FGis;
    TLista *FLista;
    QToolButton *FInserir, *FRemover, *FImportar, *FExportar, *FSubir, *FDescer, *FCor;
    bool FRefazendo = false;
    bool FRefazerPendente = false;

    void GISMudou(const TGISAviso &aviso) override;
    void MontarLinha(QTreeWidgetItem &item, TGISCamada &camada);
    void AtualizarContagens();
    void AtualizarBotoes();
    void LinhaMudou(QTreeWidgetItem *item, int coluna);
    void MostrarMenu(const QPoint &ponto);
    void Soltar(int linhaDe, int linhaPara);
    int IndiceNoMapa(const TGISCamada *camada) const;
    void MostrarErro(const QString &mensagem);
};

} // namespace tavru
