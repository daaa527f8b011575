#pragma once
/// \file
/// O controle do mapa: camadas, projeção, buffer de desenho, rótulos, seleção e ferramentas.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TColor.h>
#include <tavru/platform/TFont.h>
#include <tavru/platform/TPen.h>
#include <tavru/platform/TPoint.h>

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QSet>
#include <QSize>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace tavru {

class IGISMouseEvent;
class TCanvas;
class TGISCamada;
class TGISCamadaList;
class TGISProjecao;
class TGradeDeRotulos;
class TSeta;
class TStringList;
class TTabelaDeCores;
class TTabelaDeSimbolos;
class TVisualizadorInformacoes;

/// O componente visual do mapa: mostra as camadas de objetos sobre o mundo em latitude e
/// longitude, guarda o objeto selecionado e entrega o mouse às ferramentas registradas.
///
/// **Posse.** O controle possui a lista de camadas (e com ela as camadas e os objetos), `Rotulos`,
/// `Pen`, `Brush`, `FonteRotulo`, `Font`, a `Seta`, o buffer de desenho e a imagem da tela. Não
/// possui o objeto selecionado (só uma referência), as tabelas de cores e de símbolos, o
/// visualizador de informações nem as ferramentas: esquece cada um desses componentes quando ele
/// é destruído (`QObject::destroyed`, ver `Notification`).
///
/// **Projeção.** `Projecao` é uma referência simples que o hospedeiro pode trocar; o controle
/// nunca libera uma projeção que recebeu, nem ao trocá-la nem na destruição. A projeção padrão (um
/// `TGISProjecaoMercator`) é criada pelo controle e fica guardada à parte até a destruição dele,
/// quando é liberada: quem a pegou não a usa depois que o controle morre. Trocar a projeção não a
/// libera, e `AtribuirProjecao(nullptr)` volta à padrão.
///
/// **Desenho.** Tudo é desenhado num buffer (`QImage` `Format_ARGB32_Premultiplied`) pelo canvas
/// `ObterAreaDeDesenho`. `Paint` copia o buffer inteiro para a imagem da tela (o "canvas da tela",
/// `ObterCanvasTela`) e `paintEvent` só mostra essa imagem. Ferramentas que desenham na tela (o
/// elástico de seleção) pintam na imagem da tela e pedem `update()`: o mapa não é redesenhado para
/// isso, e o desenho delas some no próximo `Paint`.
///
/// **Mouse.** O controle não interpreta o mouse: cada botão apertado ou solto, movimento, clique,
/// clique duplo, saída, pintura e pedido de seleção vai a cada ferramenta registrada, em ordem
/// (`IGISMouseEvent`). O clique é o da plataforma: o botão esquerdo apertado e solto dentro do
/// controle; ele é entregue antes do `GISMouseUp` desse soltar, como a plataforma faz. O clique
/// duplo chega depois do segundo `GISMouseDown` (o Qt entrega o segundo aperto antes do clique
/// duplo) e o soltar que o segue não é clique.
///
/// **Índices de camadas.** O índice 0 é desenhado primeiro (embaixo). As operações de ordem acham
/// a camada pelo nome sem diferenciar maiúsculas e ignoram nomes desconhecidos; `MoverParaFrente`
/// da camada de cima e `MoverParaTras` da de baixo levantam `EListError` da lista, de propósito.
///
/// **Extensões.** Além do comportamento de referência, o controle tem: sinais do Qt (seleção,
/// visão, cursor) ao lado dos eventos `std::function`; `Zoom` e `Centro` como propriedades;
/// `AjustarACamada`, que ajusta a visão aos limites de verdade de uma camada; a opção de pôr a seta
/// no centro da área do objeto; e duas opções dos rótulos (halo e rótulos sem sobreposição).
/// Todas as opções vêm desligadas, de modo que o desenho padrão fica o de referência.
///
/// Tudo roda na linha de execução da interface.
class TAVRU_GIS_EXPORT TGis : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QStringList Rotulos READ TextosRotulos WRITE AtribuirTextosRotulos)
    Q_PROPERTY(QColor Color READ CorQt WRITE AtribuirCorQt)
    Q_PROPERTY(double Zoom READ Zoom WRITE AtribuirZoom NOTIFY VisaoMudou)
    Q_PROPERTY(QPointF Centro READ CentroEmGraus WRITE AtribuirCentroEmGraus NOTIFY VisaoMudou)
    Q_PROPERTY(int CorDoHalo READ CorDoHalo WRITE AtribuirCorDoHalo)
    Q_PROPERTY(bool RotulosSemSobreposicao READ RotulosSemSobreposicao WRITE AtribuirRotulosSemSobreposicao)
    Q_PROPERTY(bool SetaNoCentroDaArea READ SetaNoCentroDaArea WRITE AtribuirSetaNoCentroDaArea)

public:
    /// Os nomes que o código gerado pelo uic chama para as propriedades que um formulário guarda
    /// (`set` e o nome da propriedade); cada um só chama o `Atribuir...` da propriedade.
    void setRotulos(const QStringList &nomes) { AtribuirTextosRotulos(nomes); }
    void setColor(const QColor &cor) { AtribuirCorQt(cor); }
    void setZoom(double zoom) { AtribuirZoom(zoom); }
    void setCentro(const QPointF &graus) { AtribuirCentroEmGraus(graus); }
    void setCorDoHalo(int cor) { AtribuirCorDoHalo(static_cast<TColor>(cor)); }
    void setRotulosSemSobreposicao(bool ligada) { AtribuirRotulosSemSobreposicao(ligada); }
    void setSetaNoCentroDaArea(bool ligada) { AtribuirSetaNoCentroDaArea(ligada); }

    /// Pergunta ao hospedeiro se a seleção pode mudar para `novoObjeto` (nulo: nenhum);
    /// `podeMudar` chega verdadeiro e o tratador o põe em falso para recusar.
    using TOnMudaObjetoSelecionado = std::function<void(QObject *sender, TGISObjeto *novoObjeto, bool &podeMudar)>;
    /// Evento simples (só quem o levanta).
    using TNotifyEvent = std::function<void(QObject *sender)>;

    /// Cria o controle com a seta, `Rotulos` vazio, a lista de camadas vazia, as fontes, o pincel
    /// e a caneta padrão, nenhum evento, nenhuma ferramenta e a projeção Mercator própria.
    explicit TGis(QWidget *parent = nullptr);
    /// Esquece as ferramentas, libera a seta, chama `Limpar` e libera o resto; a projeção recebida
    /// não é liberada.
    ~TGis() override;

    // Camadas (nenhuma destas operações redesenha).

    /// A lista de camadas (possuída pelo controle).
    TGISCamadaList &Camadas() { return *FCamadas; }
    const TGISCamadaList &Camadas() const { return *FCamadas; }
    /// A primeira camada com esse nome, sem diferenciar maiúsculas, ou nula.
    TGISCamada *ObterCamada(const QString &nome) const;
    /// Esvazia `nomes` e põe nela o nome de cada camada, na ordem da lista.
    void ObterNomesCamadas(TStringList &nomes) const;
    /// Leva a camada para o fim da lista (desenhada por último, por cima).
    void TrazerParaFrente(const QString &nome);
    /// Leva a camada para o índice 0 (desenhada primeiro).
    void EnviarParaTras(const QString &nome);
    /// Troca a camada com a seguinte (a de cima levanta `EListError`).
    void MoverParaFrente(const QString &nome);
    /// Troca a camada com a anterior (a de baixo levanta `EListError`).
    void MoverParaTras(const QString &nome);
    /// Esquece o objeto selecionado (sem perguntar) e esvazia a lista de camadas. Não redesenha.
    virtual void Limpar();
    /// Extensão: grava o mapa inteiro (camadas, opções dos rótulos, visão) no documento do mapa
    /// `nomeArquivo` (ver `TDocumentoDoMapa`, que diz o que se guarda e o que lança).
    void SalvarMapa(const QString &nomeArquivo);
    /// Extensão: troca o mapa pelo do documento `nomeArquivo` só quando ele se lê inteiro; um erro
    /// deixa o mapa como estava (ver `TDocumentoDoMapa`).
    void AbrirMapa(const QString &nomeArquivo);

    // Desenho.

    /// Desenha tudo no buffer e mostra: nada acontece com o controle desabilitado. Ajusta a tela da
    /// projeção ao controle, pinta o fundo com `Color`, entrega a tabela de símbolos aos objetos,
    /// desenha as camadas do índice 0 para cima (só as que têm o zoom da projeção dentro dos seus
    /// limites, inclusive), o objeto selecionado, a seta (quando mostrada) e chama `Paint`.
    virtual void Desenhar();
    /// Desenha os objetos da camada que caem na tela (e só se ela está visível) e depois os
    /// rótulos deles, de modo que nenhum objeto cubra um rótulo da própria camada. Um objeto com
    /// `Visivel` falso é pulado (nem ele nem o rótulo dele), como nas consultas: o campo vale no
    /// desenho e nas consultas, embora os passos de desenho de referência não o testem.
    ///
    /// Guarda o seu rascunho (os rótulos do quadro) no contexto do canvas e não muda o controle:
    /// duas camadas diferentes podem ser desenhadas ao mesmo tempo em dois canvas, com duas cópias
    /// da projeção (`TGISProjecao::Duplicar`), enquanto a interface não mexe no controle nem nas
    /// camadas. Escreve no modelo só o que o desenho de sempre escreve: a área de desenho de cada
    /// ponto desenhado (sem aviso) e, com `TabelaDeCores`, as cores da tabela nos objetos
    /// desenhados (com aviso, só quando uma cor muda). Quem desenha fora da linha da interface
    /// chama antes `AplicarTabelaDeCores` na linha da interface. Com `Oclusao`, pula o que uma
    /// área da própria camada que cobre a tela esconde.
    void DesenharCamada(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao);
    /// Aplica a tabela de cores (quando há) a cada objeto da camada com índice de cor dentro
    /// dela, como o desenho faz; depois disso o desenho não muda cor alguma. Extensão.
    void AplicarTabelaDeCores(TGISCamada &camada);
    /// Põe a seta no objeto selecionado e o desenha por cima, hachurado na cor da seta.
    void DesenharObjetoSelecionado();
    /// O canvas do buffer de desenho. As ferramentas desenham nele as suas prévias.
    TCanvas &ObterAreaDeDesenho() { return *FCanvas; }
    /// O buffer de desenho (o mapa desenhado da última vez).
    const QImage &Buffer() const { return FBuffer; }
    /// O canvas da imagem da tela (o que `paintEvent` mostra). Quem desenha nele chama `update()`.
    TCanvas &ObterCanvasTela() { return *FCanvasTela; }
    /// A imagem da tela.
    const QImage &ImagemTela() const { return FTela; }

    // Rótulos.

    /// Nomes de campos de informação usados nos rótulos, em ordem de prioridade (possuída).
    TStringList &Rotulos() { return *FRotulos; }
    const TStringList &Rotulos() const { return *FRotulos; }
    /// Acrescenta "Nome" e o primeiro campo do primeiro objeto de cada camada a `Rotulos` (sem
    /// repetir, nunca tirando nada) e redesenha.
    void AtualizarRotulos();
    /// O rótulo do objeto: os valores (sem brancos nas pontas) dos campos de `Rotulos` que o
    /// objeto tem, em ordem, separados por ", ". Um valor que já aparece no texto montado é pulado;
    /// o teste é de trecho, não de campo, e conta o valor que termina onde termina um trecho (antes
    /// de ", " ou no fim do texto): com "Rio Azul" montado, "Azul" é pulado e "Rio" entra
    /// ("Rio Azul, Rio").
    QString ObterRotulo(const TGISObjeto &objeto) const;
    /// Esvazia `nomes` e põe nela cada nome de campo distinto do mapa, com a primeira letra
    /// maiúscula e o resto minúsculo ("NOME" e "nome" dão "Nome").
    void ObterRotulos(TStringList &nomes) const;

    // Seleção.

    /// O objeto selecionado, ou nulo. Nunca pendurado: quando o objeto selecionado é liberado (por
    /// `Remove`, `Delete`, `Clear` da lista dele, pela camada que o possui, ...), o controle o
    /// esquece sem perguntar: a seta deixa de ser mostrada, o visualizador é esvaziado e cada
    /// ferramenta recebe `GISSelecionou(nullptr)`; nada é redesenhado (o próximo `Desenhar` mostra).
    /// Extrair ou mover o objeto não muda a seleção.
    TGISObjeto *ObjetoSelecionado() const { return FObjetoSelecionado; }
    /// Pergunta (`DoMudaObjetoSelecionado`), seleciona se pode, entrega as informações ao
    /// visualizador, redesenha e avisa cada ferramenta com o objeto pedido, mesmo recusado. Pedir o
    /// objeto que já está selecionado não faz nada.
    void SelecionarObjeto(TGISObjeto *objeto);
    /// `AtualizarRotulos` e depois `SelecionarObjeto(nullptr)`: o recomeço que o hospedeiro chama
    /// depois de encher ou esvaziar as camadas.
    void Zerado();

    // Visão.

    /// Ajusta a visão a todos os objetos das camadas visíveis (ao retângulo (0, 0, 0, 0) quando não
    /// há nenhum) e redesenha. Um objeto cuja extensão falha ao ser medida é pulado.
    void FitToWindow();
    /// Ajusta a visão ao retângulo de ajuste escalado por 10 (não aos limites da camada, de
    /// propósito: nada escreve esse retângulo, que fica (0, 0, 0, 0)). Calcula os limites da camada
    /// quando os guardados são degenerados. Não redesenha.
    void FitToCamada(const QString &nome);
    /// Centra em `posicao` com `zoom` e redesenha.
    void Visao(const TGISPosicao &posicao, double zoom);
    /// Ajusta a visão à extensão do objeto `indice` da camada, crescida de 10 segundos de arco em
    /// cada coordenada. Índice fora da lista levanta `EListError`; um lugar vazio da lista não faz
    /// nada. Não redesenha.
    void ZoomArea(const QString &nome, int indice);
    /// Traz o objeto para a visão (centrando-o, ou deslocando só o bastante para que ele fique com
    /// a margem da seta dentro da tela) e o seleciona. Com `percentual` diferente de 0, o zoom
    /// passa a mostrar a extensão do objeto escalada por `percentual` / 100 sem mudar o centro.
    /// Sem objeto, nada.
    void VisualizarObjeto(TGISObjeto *objeto, bool centralizar, int percentual);
    /// Calcula o zoom mínimo de cada camada a partir da visão atual (o zoom em que a extensão da
    /// camada enche a tela) e a escala de cada imagem. Não redesenha.
    void CalcularZoomInteligente();
    /// A posição do mundo sob o cursor do mouse (`QCursor::pos()` levado ao controle).
    TGISPosicao ObterPosicaoCursor() const;
    /// A latitude sob o cursor, em segundos de arco.
    std::int32_t ObterLatitude() const;
    /// A longitude sob o cursor, em segundos de arco.
    std::int32_t ObterLongitude() const;
    /// O retângulo de ajuste de `FitToCamada`: (0, 0, 0, 0), e nenhuma operação o escreve.
    TGISRet RetanguloAjuste() const { return FRetanguloAjuste; }

    // Ferramentas e consultas.

    /// Acrescenta a ferramenta, se ainda não está registrada. Se ela é um `QObject`, é esquecida
    /// quando for destruída.
    void RegistrarMouseEvent(IGISMouseEvent *intf);
    /// Tira a ferramenta, se está registrada.
    void RemoverRegistroMouseEvent(IGISMouseEvent *intf);
    /// As ferramentas registradas, em ordem.
    std::vector<IGISMouseEvent *> MouseEvents() const;
    /// Extensão: o clique do botão esquerdo que está apertado não será entregue ao soltar. Uma
    /// ferramenta que fez do aperto um arrasto chama isto, para que o soltar não seja um clique.
    void CancelarClique() { FCliqueArmado = false; }
    /// Esvazia `lista` e põe nela o rótulo e o objeto de cada objeto rotulado sob `ponto`
    /// (pixels), de cima para baixo: camadas da última para a primeira (só as visíveis,
    /// consultáveis e com o zoom nos seus limites), objetos do último para o primeiro; objetos com
    /// `Visivel` falso ficam de fora.
    void ObterListaDeObjetos(const TPoint &ponto, TStringList &lista);
    /// O objeto rotulado mais de cima sob `ponto`, ou nulo.
    TGISObjeto *ObterObjeto(const TPoint &ponto);

    // Propriedades.

    /// Caneta padrão dos objetos.
    TPen &Pen() { return FPen; }
    /// Pincel padrão dos objetos.
    TBrush &Brush() { return FBrush; }
    /// Fonte dos rótulos.
    TFont &FonteRotulo() { return FFonteRotulo; }
    /// A fonte do controle na forma da plataforma, que o canvas recebe antes de cada camada
    /// (independente de `QWidget::font()`).
    TFont &Font() { return FFont; }
    /// A seta de seleção (possuída).
    TSeta &Seta() { return *FSeta; }
    /// Extensão: a barra de escala (km e milhas náuticas, ver `TGISBarraDeEscala`) no canto de
    /// baixo à esquerda. Ela é desenhada na imagem da tela depois do mapa, nunca no buffer (que
    /// fica igual com ou sem ela). Padrão: desligada. Vale a partir do próximo `Paint`.
    bool MostrarEscala() const { return FMostrarEscala; }
    void AtribuirMostrarEscala(bool mostrar) { FMostrarEscala = mostrar; }
    /// Cor de fundo do mapa. Padrão: a cor de janela do sistema (`clWindow`).
    TColor Color() const { return FColor; }
    void AtribuirColor(TColor cor) { FColor = cor; }
    QColor CorQt() const;
    void AtribuirCorQt(const QColor &cor);
    QStringList TextosRotulos() const;
    void AtribuirTextosRotulos(const QStringList &nomes);

    TTabelaDeSimbolos *TabelaDeSimbolos() const { return FTabelaDeSimbolos; }
    void AtribuirTabelaDeSimbolos(TTabelaDeSimbolos *tabela);
    TTabelaDeCores *TabelaDeCores() const { return FTabelaDeCores; }
    void AtribuirTabelaDeCores(TTabelaDeCores *tabela);
    TVisualizadorInformacoes *VisualizadorInformacoes() const { return FVisualizadorInformacoes; }
    void AtribuirVisualizadorInformacoes(TVisualizadorInformacoes *visualizador);
    /// A projeção em uso (nunca nula).
    TGISProjecao *Projecao() const { return FProjecao; }
    /// Troca a projeção (não possuída, não liberada); nula volta à projeção padrão do controle.
    void AtribuirProjecao(TGISProjecao *projecao);

    /// Levantado por `DoMudaObjetoSelecionado`.
    TOnMudaObjetoSelecionado OnMudaObjetoSelecionado;
    /// Levantado por `Paint`, depois de mostrar o buffer.
    TNotifyEvent OnPaint;

    // Extensões: visão, seta e rótulos.

    /// O zoom da projeção (a razão da escala da tela, `TGISProjecao::Zoom`).
    double Zoom() const;
    /// Muda o zoom da projeção (limitado por ela) e redesenha. Um valor que não é finito é ignorado.
    void AtribuirZoom(double zoom);
    /// O centro da visão em graus decimais: x é a longitude, y a latitude.
    QPointF CentroEmGraus() const;
    /// Centra a visão no ponto em graus (x longitude, y latitude; arredondado ao segundo de arco) e
    /// redesenha. Um ponto que não é finito é ignorado.
    void AtribuirCentroEmGraus(const QPointF &graus);
    /// Ajusta a visão aos limites de verdade dos objetos da camada (recalculados com
    /// `CalcularLimites`) e redesenha. Ao contrário de `FitToCamada`, que fica como é, este ajusta
    /// à camada. Camada desconhecida ou sem objetos: nada.
    void AjustarACamada(const QString &nome);

    /// Verdadeiro: quando a `Posicao` do objeto selecionado fica fora da sua `Area` (linhas e
    /// áreas lidas de documentos ficam em (0, 0)), a seta aponta o centro da área. Falso (padrão):
    /// a seta aponta a `Posicao`, como no desenho de referência.
    bool SetaNoCentroDaArea() const { return FSetaNoCentroDaArea; }
    void AtribuirSetaNoCentroDaArea(bool ligada) { FSetaNoCentroDaArea = ligada; }
    /// Cor do halo dos rótulos (`0x00BBGGRR`): cada rótulo ganha um contorno de 2 pixels nessa cor
    /// por baixo do texto, para que se leia sobre fundos escuros. -1 (padrão): sem halo.
    TColor CorDoHalo() const { return FCorDoHalo; }
    void AtribuirCorDoHalo(TColor cor) { FCorDoHalo = cor; }
    /// Verdadeiro: num desenho do mapa inteiro (`Desenhar`), das camadas de baixo para cima e, em
    /// cada uma, na ordem em que os rótulos são escritos, um rótulo cuja caixa (a do texto sem a
    /// rotação da fonte, mais o halo quando há) se sobrepõe à de um rótulo já escrito é pulado:
    /// vale o primeiro. Uma grade das caixas escritas mantém o custo linear. Com
    /// `DesenharCamada` chamado sozinho, vale dentro da camada. Falso (padrão): todos os rótulos.
    bool RotulosSemSobreposicao() const { return FRotulosSemSobreposicao; }
    void AtribuirRotulosSemSobreposicao(bool ligada) { FRotulosSemSobreposicao = ligada; }
    /// Extensão: linhas e formas suavizadas (antialiasing) no buffer. Padrão: desligado (o desenho
    /// pixel a pixel de referência). Vale a partir do próximo `Desenhar`.
    bool Suavizar() const;
    void AtribuirSuavizar(bool ligado);
    /// Extensão: a razão entre pixels do aparelho e pixels lógicos do buffer e da imagem da tela.
    /// 0 (padrão) segue a tela do controle (`devicePixelRatioF`, 2 numa tela de alta densidade);
    /// outro valor a fixa (testes, figuras para impressão). O buffer tem largura x razão pixels de
    /// aparelho de largura, e o desenho, as ferramentas, a projeção e as conversões entre mundo e
    /// tela continuam em pixels lógicos (os do controle). Vale a partir do próximo `Desenhar`.
    double RazaoDePixels() const { return FRazaoDePixels; }
    void AtribuirRazaoDePixels(double razao) { FRazaoDePixels = std::isfinite(razao) && razao > 0.0 ? razao : 0.0; }
    /// Extensão: se o recorte do desenho e as consultas de objetos (`ObterObjeto`,
    /// `ObterListaDeObjetos`) usam o índice espacial de cada camada (verdadeiro, padrão) ou andam a
    /// lista inteira. O índice é só um filtro de candidatos: a resposta, a ordem de desenho e os
    /// pixels são os mesmos nos dois modos. Um ponto é recortado pelo retângulo em que desenha na
    /// projeção atual (`TGISPonto::RetanguloNaTela`), nos dois modos.
    bool UsarIndice() const { return FUsarIndice; }
    void AtribuirUsarIndice(bool usar) { FUsarIndice = usar; }
    /// Extensão: se o desenho pula o que uma área opaca esconde (verdadeiro, padrão). Uma
    /// `TGISArea` (a classe exata, não as derivadas) visível, de pincel sólido e cor opaca, cujo
    /// polígono desenhado contém a tela inteira (`TGISArea::CobreRetangulo`) esconde tudo o que foi
    /// desenhado antes dela: os objetos anteriores da sua camada e as camadas de baixo. Desses, são
    /// pulados só linhas e áreas (`TGISLinha`, `TGISArea`, `TGISAreaComFuros`) sem rótulo a
    /// escrever; os outros são desenhados como sempre (um ponto guarda a área do seu desenho, um
    /// rótulo passa pela grade de sobreposição), e acabam cobertos. Os pixels, os rótulos e a
    /// seleção (desenhada por último) são os mesmos com e sem; um objeto pulado não recebe as
    /// cores da tabela neste quadro, como um que está fora da tela.
    bool Oclusao() const { return FOclusao; }
    void AtribuirOclusao(bool ligada) { FOclusao = ligada; }
    /// Extensão: verdadeiro desenha as camadas de `Desenhar` em mais de uma linha de execução
    /// (uma por núcleo, no máximo `LinhasDoDesenho`): as camadas são repartidas em grupos seguidos
    /// pelo custo do quadro anterior, o primeiro grupo é desenhado no buffer e cada outro numa
    /// imagem transparente própria, composta por cima na ordem das camadas. Os pixels são os do
    /// desenho numa linha só, menos o arredondamento das misturas de pixels meio transparentes: o
    /// texto de um rótulo pode diferir em 1 por canal (2 com halo; alguns níveis onde rótulos se
    /// sobrepõem, mais numa tela de alta densidade) e, com `Suavizar`, as bordas em poucos níveis. As
    /// camadas precisam ser independentes (nenhum objeto em duas camadas desenhadas ao mesmo
    /// tempo); os avisos e eventos ficam na linha da interface, que espera o quadro inteiro. Com
    /// `RotulosSemSobreposicao` o desenho é numa linha só (a grade dos rótulos é uma só, em ordem).
    /// Falso (padrão): uma linha. Cada linha a mais guarda uma imagem do tamanho do buffer e fica
    /// esperando o próximo quadro enquanto o controle existir.
    bool DesenhoParalelo() const { return FDesenhoParalelo; }
    void AtribuirDesenhoParalelo(bool ligado) { FDesenhoParalelo = ligado; }
    /// Extensão: quantas linhas de execução o desenho paralelo usa no máximo (padrão: os núcleos
    /// da máquina; 1 desliga na prática).
    int LinhasDoDesenho() const { return FLinhasDoDesenho; }
    void AtribuirLinhasDoDesenho(int linhas) { FLinhasDoDesenho = std::max(1, std::min(linhas, 64)); }

Q_SIGNALS:
    /// Emitido no começo da destruição, enquanto o controle ainda está inteiro: quem guarda uma
    /// referência a ele (as barras) a esquece aqui.
    void Destruindo();
    /// Extensão: o objeto selecionado mudou (depois da pergunta `OnMudaObjetoSelecionado`: uma
    /// mudança recusada não emite). Nulo: nenhum. Também quando `Limpar` esquece a seleção.
    void ObjetoSelecionadoMudou(tavru::TGISObjeto *objeto);
    /// Extensão: o zoom, o centro ou o tamanho da tela mudou desde o último aviso. Verificado no
    /// fim de cada `Desenhar` e a cada redimensionamento, de modo que ferramentas que mexem direto
    /// na projeção e depois redesenham também avisam.
    void VisaoMudou();
    /// Extensão: a posição do mundo (segundos de arco) sob o cursor, a cada movimento do mouse e
    /// a cada mudança da visão com o cursor sobre o mapa. Pode ficar fora do mundo (além de
    /// ±90° e ±180°) quando a visão mostra o que há além dele.
    void PosicaoDoCursorMudou(const tavru::TGISPosicao &posicao);
    /// Extensão: o cursor saiu do mapa.
    void CursorSaiu();

protected:
    /// Levanta `OnMudaObjetoSelecionado` e responde se a seleção pode mudar. Antes, e mesmo que a
    /// mudança seja recusada, a seta passa a ser mostrada só quando um objeto foi pedido.
    virtual bool DoMudaObjetoSelecionado(TGISObjeto *objeto);
    /// Copia o buffer para a imagem da tela, agenda a pintura, levanta `OnPaint` e avisa as
    /// ferramentas (`GISPaint`).
    virtual void Paint();
    /// Um componente referenciado foi destruído: esquece o visualizador, a tabela de símbolos ou a
    /// de cores (a primeira que for ele, nessa ordem) e tira das ferramentas as que forem ele.
    virtual void Notification(QObject *componente);
    /// O passo das imagens do zoom inteligente: a escala de cada `TGISImagem` da camada passa a ser
    /// a menor das razões entre o mundo mostrado e a área da imagem (vertical quando menor que a
    /// horizontal, senão horizontal), com vãos inteiros de segundos de arco. Uma imagem de vão zero
    /// num eixo fica com a escala que tinha.
    virtual void AjustarEscalaDasImagens(TGISCamada &camada);
    /// A posição do cursor do sistema em pixels do controle.
    virtual TPoint PosicaoDoCursor() const;

    void paintEvent(QPaintEvent *evento) override;
    void resizeEvent(QResizeEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseDoubleClickEvent(QMouseEvent *evento) override;
    void leaveEvent(QEvent *evento) override;
    /// Extensão: a roda vai a cada ferramenta (`GISMouseWheel`), com o ponto do cursor.
    void wheelEvent(QWheelEvent *evento) override;
    /// Extensão: a tecla vai a cada ferramenta (`GISKeyDown`); o controle tem o foco pelo clique
    /// ou pelo Tab.
    void keyPressEvent(QKeyEvent *evento) override;
    /// Extensão: com o cursor parado, a dica mostra o rótulo do objeto rotulado mais de cima sob
    /// ele (o mesmo de `ObterObjeto`); sem objeto, a dica do próprio widget, se houver.
    bool event(QEvent *evento) override;

private:
    struct TRegistroFerramenta
    {
        IGISMouseEvent *Ferramenta;
        QObject *Objeto; ///< a mesma ferramenta vista como `QObject`, ou nula
    };

    /// Liga `Notification` à destruição do componente (uma vez por componente). As ligações têm
    /// `FVigia` como contexto, desfeito no começo da destruição do controle: um componente que
    /// morre depois (um filho do controle) não chama um controle pela metade.
    void VigiarComponente(QObject *componente);
    /// Chama `acao` em cada ferramenta registrada, em ordem; uma ferramenta tirada durante a volta
    /// não é chamada depois de tirada.
    void ParaCadaFerramenta(const std::function<void(IGISMouseEvent &)> &acao);
    /// Ajusta a imagem da tela ao buffer sem deixar o canvas pintando numa imagem que muda.
    void CopiarBufferParaTela();
    /// Troca o objeto selecionado, observando a liberação do novo.
    void VigiarSelecao(TGISObjeto *objeto);
    /// O objeto selecionado foi liberado: esquece-o sem perguntar.
    void SelecaoLiberada();

    class TObservadorDaSelecao;

    // Na ordem de construção.
    std::unique_ptr<TSeta> FSeta;
    struct TFundoGuardado;
    /// As camadas estáticas abaixo da primeira volátil, já desenhadas, e o que as decidiu.
    std::unique_ptr<TFundoGuardado> FFundo;
    struct TDesenhoEmGrupos;
    /// As imagens e canvas das linhas de execução a mais e o custo de cada camada no último quadro.
    std::unique_ptr<TDesenhoEmGrupos> FGrupos;
    TTabelaDeCores *FTabelaDeCores = nullptr;
    std::unique_ptr<TStringList> FRotulos;
    TFont FFonteRotulo;
    TTabelaDeSimbolos *FTabelaDeSimbolos = nullptr;
    TVisualizadorInformacoes *FVisualizadorInformacoes = nullptr;
    TGISObjeto *FObjetoSelecionado = nullptr;
    QImage FBuffer;
    std::unique_ptr<TCanvas> FCanvas;
    QImage FTela;
    std::unique_ptr<TCanvas> FCanvasTela;
    std::unique_ptr<TGISCamadaList> FCamadas;
    TBrush FBrush;
    TPen FPen;
    TFont FFont;
    TColor FColor = clWindow;
    std::unique_ptr<TGISProjecao> FProjecaoPropria;
    TGISProjecao *FProjecao = nullptr;
    std::vector<TRegistroFerramenta> FFerramentas;
    std::unique_ptr<QObject> FVigia;
    QSet<QObject *> FVigiados;
    TGISRet FRetanguloAjuste = GISRet(0, 0, 0, 0);
    bool FCliqueArmado = false;
    std::unique_ptr<TObservadorDaSelecao> FObservadorDaSelecao;

    double FRazaoDePixels = 0.0;

    // Extensões: as opções da seta e dos rótulos, e o que foi avisado por último.

    /// Desenha a camada escrevendo os rótulos na grade dada (nula: sem teste de sobreposição). Os
    /// objetos de índice abaixo de `escondidosAte` estão sob uma área que cobre a tela: os que nada
    /// guardam do desenho e não têm rótulo são pulados.
    void DesenharCamada(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao, TGradeDeRotulos *grade,
                        int escondidosAte);
    /// O índice do último objeto da camada que, desenhado, cobre a tela inteira (-1: nenhum; sempre
    /// -1 numa camada invisível). Aplica a tabela de cores aos candidatos, como o desenho faria.
    int UltimaCobertura(TGISCamada &camada, TCanvas &canvas, const TGISProjecao &projecao);
    /// Desenha no buffer as camadas de índice `de` a `ate` - 1 que o zoom mostra, em ordem: numa
    /// linha só ou, com `DesenhoParalelo` e sem grade, em grupos.
    void DesenharCamadas(int de, int ate, TGradeDeRotulos *grade);
    /// Escreve o rótulo em (x, y) com o halo, se há; pula-o (falso) quando a grade diz que ele se
    /// sobrepõe a outro.
    bool EscreverRotulo(TCanvas &canvas, int x, int y, const QString &texto, TGradeDeRotulos *grade);
    /// Onde a seta aponta: a `Posicao` do objeto ou, com `SetaNoCentroDaArea` e a posição fora da
    /// área, o centro da área.
    TGISPosicao PosicaoDaSeta(const TGISObjeto &objeto) const;
    /// Emite `VisaoMudou` (e a posição do cursor, se ele está sobre o mapa) quando o zoom, o
    /// centro ou o tamanho diferem dos do último aviso.
    void AvisarVisao();

    TColor FCorDoHalo = clNone;
    bool FRotulosSemSobreposicao = false;
    bool FUsarIndice = true;
    bool FOclusao = true;
    bool FDesenhoParalelo = false;
    int FLinhasDoDesenho = 1;
    bool FSetaNoCentroDaArea = false;
    bool FVisaoAvisada = false;
    double FZoomAvisado = 0.0;
    TGISPosicao FCentroAvisado{};
    QSize FTamanhoAvisado;
    bool FCursorDentro = false;
    TPoint FPontoDoCursor;
    bool FMostrarEscala = false;
};

} // namespace tavru
