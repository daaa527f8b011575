#pragma once
/// \file
/// As barras geral e de inclusão, a lista instantânea de objetos e o que a janela faz com os
/// botões delas.

#include <tavru/control/IGISMouseEvent.h>
#include <tavru/core/TClasseObjeto.h>

#include <QObject>
#include <QString>

class QMainWindow;

namespace tavru {

class TGis;
class TGISBarraDeFerramenta;
class TGISBarraDeInclusao;
class TGISBarraDeManipulacao;
class TGisPopUpListBox;
class TVisualizadorInformacoes;

/// Com a barra geral, a de inclusão e a lista instantânea de objetos que a janela lhe dá (do
/// formulário dela), liga o arrasto para mover da barra de manipulação e a barra de escala do mapa, e
/// observa os botões (as barras, de propósito, não fazem isso sozinhas):
///
/// - "Interrogar" (abaixado): um clique seleciona o objeto rotulado de cima e o visualizador mostra
///   as informações dele;
/// - "Editar" (abaixado): um clique seleciona; arrastar o objeto selecionado o move (o arrasto
///   para mover o mapa fica desligado enquanto isso);
/// - "Visualizar", "Ajustar a Janela", "Ampliar uma Área", "Ampliar" e "Reduzir" levam a barra de
///   manipulação ao estado correspondente (e os botões das duas barras andam juntos);
/// - "Altera Cor de Fundo" troca a cor de fundo do mapa por uma de uma lista, em roda;
/// - um botão de inclusão é lembrado (ele volta para cima na hora) e o próximo clique no mapa
///   inclui um objeto daquela classe ali, na camada "Inclusões", e o seleciona; Esc esquece;
/// - sem nada disso, um clique com objetos rotulados abre a lista deles (mesmo com um só), e
///   escolher seleciona; um clique no vazio tira a seleção.
///
/// Com a variável de ambiente `TAVRU_MAPA_ESTADO` definida, escreve na saída padrão uma linha a
/// cada mudança de visão, seleção ou posição do cursor, e uma quando a lista aparece (para os
/// testes de ponta a ponta).
class TFerramentasDaJanela : public QObject, public IGISMouseEvent
{
    Q_OBJECT
public:
    TFerramentasDaJanela(QMainWindow &janela, TGis &gis, TGISBarraDeManipulacao &manipulacao,
                         TGISBarraDeFerramenta &geral, TGISBarraDeInclusao &inclusao, TGisPopUpListBox &lista,
                         TVisualizadorInformacoes &visualizador);
    ~TFerramentasDaJanela() override;

    /// Se a janela deve selecionar com um clique ela mesma ("Interrogar" e "Editar"): não quando
    /// há uma inclusão pendente nem quando a lista de objetos está ligada.
    bool CliqueSeleciona() const;

    void GISMouseClick(const TPoint &ponto) override;
    void GISMouseMove(const TPoint &ponto) override;
    void GISMouseUp(const TPoint &ponto, TMouseButton botao, TShiftState shift) override;
    void GISMouseDown(const TPoint &ponto, TMouseButton botao, TShiftState shift) override;
    void GISPaint() override;
    void GISSelecionou(TGISObjeto *objeto) override;
    bool GISKeyDown(int tecla, TShiftState shift) override;

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    void AoClicarGeral(int indice);
    void EscolherInclusao(int indice);
    /// Levanta o botão abaixado da barra de manipulação (pelo clique dele): nenhuma ferramenta.
    void PararFerramenta();
    /// Os botões de navegação da barra geral seguem o estado da barra de manipulação.
    void SincronizarGeral();
    /// Liga ou desliga a lista e o arrasto para mover conforme os botões, e diz o modo na barra
    /// de estado.
    void AtualizarModo();
    void Incluir(const TPoint &ponto);
    void Mensagem(const QString &texto);
    void Relatar();

    QMainWindow &FJanela;
    TGis &FGis;
    TGISBarraDeManipulacao &FManipulacao;
    TVisualizadorInformacoes &FVisualizador;
    TGISBarraDeFerramenta *FGeral;
    TGISBarraDeInclusao *FInclusao;
    TGisPopUpListBox *FLista;
    const TClasseObjeto *FClasse = nullptr;
    QString FNomeClasse;
    int FIncluidos = 0;
    int FCor = 0;
    bool FEditando = false;
    TPoint FInicio;
    TPoint FUltimo;
    TPoint FCursor;
    bool FRelatar = false;
    QString FRelato;
};

} // namespace tavru
