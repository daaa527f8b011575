#pragma once
/// \file
/// A janela principal do aplicativo de demonstração.

#include "control/IGISMouseEvent.h"

#include <QMainWindow>

class QLabel;

namespace tavru {

class TGis;
class TGISBarraDeManipulacao;
class TVisualizadorInformacoes;

/// Janela com o mapa no centro, a barra de manipulação em cima, o visualizador de informações numa
/// doca à direita e, na barra de estado, a latitude e a longitude sob o cursor.
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
    bool FAjustado = false;
};

} // namespace tavru
