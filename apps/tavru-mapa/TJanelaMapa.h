#pragma once
/// \file
/// A janela principal do aplicativo de demonstração.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/control/IGISMouseEvent.h>

#include <QMainWindow>
#include <memory>

class QLabel;

namespace Ui {
class TJanelaMapa;
}

namespace tavru {

class TFerramentasDaJanela;
class TGis;
class TGISBarraDeManipulacao;
class TVisualizadorInformacoes;

/// Janela com o mapa no centro, as barras de manipulação, geral e de inclusão em cima (o formulário
/// TJanelaMapa.ui, feito com os componentes da caixa "GIS" do Qt Designer), o visualizador de informações numa
/// doca à direita, o menu Arquivo (abrir um documento numa camada nova, salvar uma camada) e, na
/// barra de estado, a latitude e a longitude sob o cursor (atualizadas a cada movimento, zoom e
/// deslocamento, pelos sinais do mapa) e o zoom.
///
/// A janela é também uma ferramenta do mapa: sem ferramenta de navegação ativa, seleciona com um
/// clique o objeto rotulado mais de cima sob o cursor (um clique no vazio tira a seleção). Como é
/// um `QObject`, o mapa a esquece sozinho.
class TJanelaMapa : public QMainWindow, public IGISMouseEvent
{
    Q_OBJECT
public:
    explicit TJanelaMapa(QWidget *parent = nullptr);
    ~TJanelaMapa() override;

    TGis *Gis() const { return FGis; }

    /// Abre os arquivos em camadas novas; um erro vira uma caixa de mensagem (pelo provedor de
    /// diálogos) com a mensagem do tratador, e o mapa fica como estava. Cada arquivo aberto diz na
    /// barra de estado quantos objetos foram lidos, e a visão se ajusta à camada nova.
    void AbrirArquivos(const QStringList &arquivos);
    /// Pergunta um arquivo (filtro combinado de leitura do registro) e o abre numa camada nova.
    void AbrirCamada();
    /// Grava a camada do objeto selecionado (ou a de cima) no arquivo perguntado (filtro de
    /// escrita do registro; a proposta é `ArquivoParaSalvar`).
    void SalvarCamada();

    /// O texto da posição na barra de estado: latitude e longitude em graus, ou "fora do mundo"
    /// além de ±90° e ±180°.
    static QString TextoDaPosicao(const TGISPosicao &posicao);

    void GISMouseClick(const TPoint &ponto) override;

protected:
    /// Na primeira vez que aparece, ajusta o mapa ao tamanho que o controle ganhou.
    void showEvent(QShowEvent *evento) override;

private:
    /// Abre um arquivo numa camada nova, ajusta a visão a ela e diz quantos objetos leu; um erro
    /// vira uma caixa de mensagem.
    void Abrir(const QString &arquivo, const QString &tipo);
    /// O zoom na barra de estado.
    void MostrarZoom();

    std::unique_ptr<Ui::TJanelaMapa> FUi; ///< o formulário: o mapa, as barras e a lista de objetos
    TGis *FGis;
    TGISBarraDeManipulacao *FBarra;
    TVisualizadorInformacoes *FVisualizador;
    QLabel *FPosicao;
    QLabel *FZoom;
    TFerramentasDaJanela *FFerramentas;
    bool FAjustado = false;
};

} // namespace tavru
