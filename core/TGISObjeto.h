#pragma once
/// \file
/// A base abstrata de todo objeto do mapa.

#include <tavru/companions/components/TInformacoes.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/IGISObservador.h>
#include <tavru/core/TClasseObjeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>
#include <tavru/platform/TObjectList.h>
#include <tavru/platform/TPen.h>
#include <tavru/platform/TPoint.h>

#include <cstdint>
#include <memory>

namespace tavru {

class TCanvas;
class TGISObjetoList;
class TGISObservadores;
class TGISProjecao;
class TTabelaDeCores;
class TTabelaDeSimbolos;

/// Objeto do mapa: posição, orientação, caneta, índice de cor, registro de informações, código,
/// visibilidade, rótulo e as ligações de dependência com outros objetos.
///
/// Posse: o objeto possui a sua caneta e o seu registro de informações. Pertence à
/// `TGISObjetoList` em que está. As listas `Dependentes` e `Pais` não possuem nada: são
/// referências mantidas dos dois lados (se A está nos dependentes de B, B está nos pais de A), e a
/// destruição de um objeto desfaz todas as suas ligações antes, de modo que nenhum outro objeto
/// fica com um ponteiro para ele.
///
/// Padrões: caneta padrão, `IndiceCor` -1, informações vazias, `Codigo` 0, visível, sem rótulo,
/// posição (0, 0), orientação 0.0 (radianos, anti-horária).
///
/// Uma tabela de símbolos é compartilhada pela classe toda (`ObterTabelaSimbolos`); o controle do
/// mapa a entrega antes de desenhar. Ela é esquecida sozinha quando é destruída. O desenho usa a
/// tabela dada ao canvas em que desenha, quando há uma (`AtribuirTabelaSimbolos(canvas, ...)`), e
/// só então a da classe: quem desenha fora da linha da interface dá a tabela ao seu canvas.
///
/// **Avisos.** O objeto sabe a lista que o possui (`Lista`: posta ao entrar numa
/// `TGISObjetoList`, tirada ao sair dela e antes de a lista liberá-lo). Toda mudança de extensão ou
/// de aparência feita pela API avisa, uma vez por chamada, os observadores do objeto e os da lista
/// dele com `gmAlterado`: `AtribuirPosicao` (e cada dependente avisa por si ao segui-la),
/// `AtribuirOrientacao`, `AtribuirCaneta`, `AtribuirIndiceCor`, `AtribuirInformacoes`,
/// `AtribuirVisivel`, `AtribuirRotuloVisivel`, `AtribuirCor` e os `Atribuir...`, `Calcular...`,
/// `Inserir...` e `Ajustar...` das subclasses. `Codigo` e `Referencia` não avisam. Quem muda o
/// objeto por trás da API (pelas referências `Caneta()`, `Informacoes()`, `Pontos()`, `Fonte()`,
/// `Pincel()`) chama `Mudou()` depois. Na destruição os observadores do objeto recebem
/// `gmLiberado`.
class TAVRU_GIS_EXPORT TGISObjeto
{
public:
    TGISObjeto();
    /// Desliga todos os dependentes e depois todos os pais.
    virtual ~TGISObjeto();
    TGISObjeto(const TGISObjeto &) = delete;
    TGISObjeto &operator=(const TGISObjeto &) = delete;

    // Operações virtuais. A ordem das declarações é a da tabela virtual, que as subclasses e os
    // hospedeiros compilados contra esta versão seguem: não reordenar.

    /// Guarda a posição e leva os dependentes para ela (`AtualizarDependentes`).
    virtual void AtribuirPosicao(const TGISPosicao &p);
    /// Guarda a orientação, em radianos, no sentido anti-horário.
    virtual void AtribuirOrientacao(double orientacao);
    /// O construtor virtual: o descritor da classe concreta (ver `TClasseObjeto`). Toda classe
    /// concreta devolve o seu.
    virtual const TClasseObjeto &Classe() const = 0;
    /// Se o objeto tem uma extensão válida; a base responde `Valida(Area())`.
    virtual bool ObterValido() const;
    virtual void AtribuirCor(TColor cor) = 0;
    virtual TColor ObterCor() const = 0;
    /// Aplica a cor da tabela no `IndiceCor` do objeto, ou a cor padrão da tabela quando o índice
    /// está fora dela.
    virtual void AtualizarCores(const TTabelaDeCores &tabela);
    /// Dá ao objeto uma forma padrão no ponto de tela (quando o usuário o inclui com o mouse).
    /// Responde falso quando o usuário desiste.
    virtual bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) = 0;
    /// Desenha o objeto pela projeção; `selecionado` indica o desenho por cima da seleção (a
    /// caneta e o pincel já vêm de quem chama).
    virtual void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) = 0;
    /// Se o ponto de tela toca o objeto, com as tolerâncias da projeção.
    virtual bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) = 0;
    /// Extensão do objeto no mundo.
    virtual TGISRet Area() const = 0;

    // Campos.

    TPen &Caneta() { return FCaneta; }
    const TPen &Caneta() const { return FCaneta; }
    void AtribuirCaneta(const TPen &caneta) { FCaneta.Assign(caneta); Mudou(); }
    /// Índice na tabela de cores; -1 quando não há.
    std::int32_t IndiceCor() const { return FIndiceCor; }
    void AtribuirIndiceCor(std::int32_t indice) { FIndiceCor = indice; Mudou(); }
    TInformacoes &Informacoes() { return FInformacoes; }
    const TInformacoes &Informacoes() const { return FInformacoes; }
    void AtribuirInformacoes(const TInformacoes &informacoes) { FInformacoes.Assign(informacoes); Mudou(); }
    /// Referência reservada: nula por padrão; o núcleo não a usa nem a libera.
    void *Referencia() const { return FReferencia; }
    void AtribuirReferencia(void *referencia) { FReferencia = referencia; }
    std::uint32_t Codigo() const { return FCodigo; }
    void AtribuirCodigo(std::uint32_t codigo) { FCodigo = codigo; }
    bool Visivel() const { return FVisivel; }
    void AtribuirVisivel(bool visivel) { FVisivel = visivel; Mudou(); }
    bool RotuloVisivel() const { return FRotuloVisivel; }
    void AtribuirRotuloVisivel(bool visivel) { FRotuloVisivel = visivel; Mudou(); }
    TGISPosicao Posicao() const { return FPosicao; }
    double Orientacao() const { return FOrientacao; }
    /// Objetos que seguem a posição deste, na ordem em que foram incluídos (não possuídos).
    const TObjectList<TGISObjeto> &Dependentes() const { return FDependentes; }
    /// Objetos que este segue (não possuídos).
    const TObjectList<TGISObjeto> &Pais() const { return FPais; }

    // Dependência.

    /// Inclui `o` nos dependentes (uma vez só; este objeto entra nos pais dele) e, em todo caso,
    /// leva `o` para a posição deste objeto.
    void IncluirDependente(TGISObjeto *o);
    /// Leva cada dependente, em ordem, para a posição deste objeto. Uma dependência em ciclo não
    /// recursa: um objeto já em atualização não se atualiza de novo.
    void AtualizarDependentes();
    /// Desfaz a ligação com `o` dos dois lados; nada é liberado. Sem efeito se `o` não é dependente.
    void RemoverDependente(TGISObjeto *o);
    /// Desfaz as ligações com todos os dependentes, do último ao primeiro.
    void LimparDependentes();
    /// Pede a cada pai, do último ao primeiro, que desfaça a ligação com este objeto.
    void LimparPais();

    // Avisos.

    /// A lista que possui o objeto, ou nula (solto, ou extraído).
    TGISObjetoList *Lista() const { return FLista; }
    /// "Mudou": avisa `gmAlterado` aos observadores do objeto e aos da lista dele. É o que o
    /// hospedeiro chama depois de mudar o objeto por uma referência (`Caneta()`, `Pontos()`, ...).
    /// Dentro de uma operação que avisa, junta-se ao aviso único dela.
    void Mudou();
    /// Acrescenta um observador do objeto (não possuído; uma vez só).
    void AdicionarObservador(IGISObservador *observador);
    void RemoverObservador(IGISObservador *observador);

    // Tabela de símbolos da classe.

    /// A tabela de símbolos compartilhada por todos os objetos, ou nula.
    static TTabelaDeSimbolos *ObterTabelaSimbolos();
    /// Troca a tabela compartilhada (não possuída; esquecida sozinha quando destruída).
    static void AtribuirTabelaSimbolos(TTabelaDeSimbolos *tabela);
    /// A tabela do desenho em `canvas`: a dada ao canvas, se foi dada uma (mesmo nula), senão a da
    /// classe.
    static TTabelaDeSimbolos *ObterTabelaSimbolos(TCanvas &canvas);
    /// Dá ao canvas a sua tabela (não possuída; esquecida quando destruída). Extensão.
    static void AtribuirTabelaSimbolos(TCanvas &canvas, TTabelaDeSimbolos *tabela);

protected:
    /// Junta os avisos de uma operação num só: enquanto houver uma `TAlteracao` viva no objeto,
    /// `Mudou` só anota; a última a terminar avisa uma vez, se algo foi anotado.
    class TAVRU_GIS_EXPORT TAlteracao
    {
    public:
        explicit TAlteracao(TGISObjeto &objeto) : FObjeto(objeto) { ++FObjeto.FAlterando; }
        ~TAlteracao();
        TAlteracao(const TAlteracao &) = delete;
        TAlteracao &operator=(const TAlteracao &) = delete;

    private:
        TGISObjeto &FObjeto;
    };

private:
    friend class TGISObjetoList;

    TPen FCaneta;
    std::int32_t FIndiceCor = -1;
    TInformacoes FInformacoes;
    void *FReferencia = nullptr;
    std::uint32_t FCodigo = 0;
    bool FVisivel = true;
    bool FRotuloVisivel = false;
    TGISPosicao FPosicao;
    TObjectList<TGISObjeto> FDependentes{false};
    TObjectList<TGISObjeto> FPais{false};
    double FOrientacao = 0.0;
    TGISObjetoList *FLista = nullptr;
    std::unique_ptr<TGISObservadores> FObservadores;
    int FAlterando = 0;
    bool FAtualizando = false;
    bool FMudouPendente = false;
};

} // namespace tavru
