#pragma once
/// \file
/// A janela principal do aplicativo de demonstração.

#include <tavru/control/IGISMouseEvent.h>

#include <QMainWindow>

class QLabel;

namespace tavru {

class TFerramentasDaJanela;
class TGis;
class TGISBarraDeManipulacao;
class TVisualizadorInformacoes;

/// Janela com o mapa no centro, a barra de manipulação em cima, o visualizador de informações numa
/// doca à direita, o menu Arquivo (abrir um documento numa camada nova, salvar uma camada) e, na
/// barra de estado, a latitude e a longitude sob o cursor.
///
/// A janela é também uma ferramenta do mapa: mostra a posição do cursor a cada movimento e, sem
/// ferramenta de navegação ativa, seleciona com um clique o objeto rotulado mais de cima sob o
/// cursor (um clique no vazio tira a seleção). Como é um `QObject`, o mapa a esquece sozinho.
class TJanelaMapa : public QMainWindow, public IGISMouseEvent
{
    Q_OBJECT
public:
    explicit TJanelaMapa(QWidget *parent = nullptr);
    ~TJanelaMapa() override;

    TGis *Gis() const { return FGis; }

    /// Abre os arquivos em camadas novas; um erro vira uma caixa de mensagem (pelo provedor de
    /// diálogos) com a mensagem do tratador, e o mapa fica como estava.
    void AbrirArquivos(const QStringList &arquivos);
    /// Pergunta um arquivo (filtro combinado de leitura do registro) e o abre numa camada nova.
    void AbrirCamada();
    /// Grava a camada do objeto selecionado (ou a de cima) no arquivo perguntado (filtro de
    /// escrita do registro).
    void SalvarCamada();

    void GISMouseClick(const TPoint &ponto) override;
    void GISMouseMove(const TPoint &ponto) override;
    void GisMouseLeave() override;

protected:
    /// Na primeira vez que aparece, ajusta o mapa ao tamanho que o controle ganhou.
    void showEvent(QShowEvent *evento) override;

private:
    TGis *FGis;
    TGISBarraDeManipulacao *FBarra;
    TVisualizadorInformacoes *FVisualizador;
    QLabel *FPosicao;
    TFerramentasDaJanela *FFerramentas;
    bool FAjustado = false;
};

} // namespace tavru
