#pragma once
/// \file
/// A lista dona de objetos do mapa, e o registro de tratadores de arquivo.

#include <tavru/core/TClasseTratador.h>
#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISObservadores.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/core/TRegistro.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TObjectList.h>

#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <atomic>
#include <cstdint>
#include <vector>

namespace tavru {


/// Lista de objetos do mapa que os possui (`Remove`, `Delete`, `Clear` e a destruição liberam;
/// `Extract` devolve sem liberar), com a extensão calculada, a busca por campo de informação e a
/// leitura e gravação pelos tratadores de arquivo registrados.
///
/// O registro de tratadores é do processo: uma lista de entradas (`TRegistro`) na ordem de
/// registro, com nomes de tipo únicos, criada na primeira vez que é usada e desfeita na descarga
/// da biblioteca. Os tratadores se registram na carga da biblioteca deles (`TRegistraTratador`).
/// Tudo roda na linha de execução da interface; não há travas.
///
/// **Avisos.** A lista avisa os seus observadores (`AdicionarObservador`), uma vez por chamada e
/// com o objeto: `gmIncluido` em `Add`, `Insert` e `AtribuirGISObjeto`; `gmExtraido` em
/// `Extract`; `gmLiberado` em `Remove`, `Delete` e `AtribuirGISObjeto` (o objeto que sai, antes
/// de ser liberado); `gmMovido` em `Move` e `Exchange`; e `gmAlterado` quando um objeto dela muda
/// pela API (ver `TGISObjeto`). `AtribuirGISObjeto` que troca um objeto avisa a saída e a
/// entrada. `Ler` e `Clear` mandam um único `gmLote` no fim (nenhum, se nada mudou), e
/// `IniciarLote`/`TerminarLote` fazem o mesmo para um hospedeiro. Cada aviso soma um em `ContadorDeMudancas`. A lista de
/// membros de um composto também leva cada aviso ao composto (`Mudou` dele), e assim à camada.
/// O dono de cada objeto (`TGISObjeto::Lista`) é posto na entrada e tirado na saída, antes de o
/// objeto ser liberado, inclusive na destruição da lista (que não avisa ninguém).
class TAVRU_GIS_EXPORT TGISObjetoList : public TObjectList<TGISObjeto>
{
public:
    TGISObjetoList() : TObjectList<TGISObjeto>(true) {}
    /// Libera os objetos sem avisar ninguém (os donos deles são tirados antes).
    ~TGISObjetoList() override;

    /// Esvazia a lista, liberando os objetos, com um só aviso `gmLote` no fim.
    void Clear() override;

    // Avisos.

    void AdicionarObservador(IGISObservador *observador) { FObservadores.Adicionar(observador); }
    void RemoverObservador(IGISObservador *observador) { FObservadores.Remover(observador); }
    /// Quantos avisos a lista já deu (um lote conta um); só cresce. Pode ser lido de outra linha
    /// de execução.
    std::uint64_t ContadorDeMudancas() const { return FContador.load(std::memory_order_relaxed); }
    /// Começa um lote: até o `TerminarLote` correspondente (aninhável), nada é avisado; no fim,
    /// um `gmLote` só.
    void IniciarLote();
    void TerminarLote();
    /// O objeto cujos membros esta lista guarda (um composto), avisado de cada mudança dela; nulo
    /// numa lista de camada.
    TGISObjeto *ObjetoDono() const { return FObjetoDono; }
    void AtribuirObjetoDono(TGISObjeto *objeto) { FObjetoDono = objeto; }
    /// O aviso `gmAlterado` de um objeto desta lista (chamado por `TGISObjeto::Mudou`).
    void AvisarAlteracao(TGISObjeto *objeto);

    /// O objeto do índice (continua da lista).
    TGISObjeto *ObterGISObjeto(int indice) const { return Items(indice); }
    /// Põe `objeto` no índice; o objeto que estava lá é liberado.
    void AtribuirGISObjeto(int indice, TGISObjeto *objeto) { SetItems(indice, objeto); }

    /// Extensão guardada (segundos de arco). Padrão: o mundo inteiro.
    TGISRet Limites() const { return FLimites; }
    void AtribuirLimites(const TGISRet &r) { FLimites = r; }
    /// Último arquivo lido ou gravado com um tratador.
    QString NomeArquivo() const { return FNomeArquivo; }
    void AtribuirNomeArquivo(const QString &nome) { FNomeArquivo = nome; }
    /// Extensão: o tipo do tratador do último `Ler` ou `Gravar` que deu certo (vazio antes do
    /// primeiro). Com `NomeArquivo`, diz de onde a lista veio: o documento do mapa guarda a camada
    /// como uma referência a esse arquivo (ver `TDocumentoDoMapa`).
    QString TipoArquivo() const { return FTipoArquivo; }
    void AtribuirTipoArquivo(const QString &tipo) { FTipoArquivo = tipo; }
    /// Extensão: as opções de leitura do último `Ler` que deu certo (um `Gravar` as esvazia).
    const QVariantMap &OpcoesDeLeitura() const { return FOpcoesDeLeitura; }
    /// Extensão: nenhum objeto entrou, saiu ou mudou de lugar na lista desde o último `Ler` ou
    /// `Gravar` que deu certo (mudanças dentro dos objetos não contam). O documento do mapa só
    /// guarda a camada como referência ao arquivo enquanto isto vale.
    bool MesmosObjetosDaOrigem() const { return FEstrutura == FEstruturaDaOrigem; }

    /// Recalcula `Limites`: com a lista vazia, ficam como estavam; senão, a `Area` do item 0 unida
    /// com a de cada item, do 0 (de novo) ao último. Posições vazias (nulas) são puladas.
    void CalcularLimites();
    /// O primeiro objeto cujo campo de informação `campo` vale exatamente `valor`, ou nulo.
    TGISObjeto *ObterObjeto(const QString &campo, const QString &valor) const;

    /// Lê o arquivo com o tratador registrado sob `tipo` (criado sobre esta lista e liberado em
    /// seguida) e guarda o nome em `NomeArquivo`. Um tipo desconhecido não faz nada (e mantém
    /// `NomeArquivo`). Responde se havia tratador. Erros do tratador seguem para quem chama.
    bool Ler(const QString &nomeArquivo, const QString &tipo);
    /// `Ler` com opções de leitura entregues ao tratador (`TGISTratadorDeArquivo::Opcoes`), por
    /// exemplo qual camada de um arquivo de várias camadas. Extensão: as chaves são as que o
    /// tratador documenta; as que ele não conhece são ignoradas.
    bool Ler(const QString &nomeArquivo, const QString &tipo, const QVariantMap &opcoes);
    /// Extensão: `Ler` acompanhado por `progresso` (ver `TGISTratadorDeArquivo::AvisarProgresso`;
    /// `intervaloMs` é o intervalo mínimo entre dois avisos). O tratador lê numa lista de
    /// rascunho e só no fim os objetos passam para esta, num lote só: um erro ou um cancelamento
    /// (`ELeituraCancelada`, quando `progresso` responde falso) deixa a lista como estava, sem
    /// aviso. O último aviso de uma leitura que deu certo é (1, total lido).
    bool Ler(const QString &nomeArquivo, const QString &tipo, const QVariantMap &opcoes,
             const TProgressoDeLeitura &progresso, int intervaloMs = 50);
    /// Extensão: passa os objetos de `rascunho` para o fim desta lista, em ordem e num lote só (esta
    /// passa a possuí-los; `rascunho` fica vazia), com a origem dela (`NomeArquivo`, `TipoArquivo`,
    /// `OpcoesDeLeitura`); quando os limites de `rascunho` foram calculados, esta recalcula os seus.
    /// É o fim de uma leitura feita numa lista de rascunho (por exemplo, noutra linha de execução).
    void Transferir(TGISObjetoList &rascunho);
    /// Grava o arquivo do mesmo modo.
    bool Gravar(const QString &nomeArquivo, const QString &tipo);

    // Registro de tratadores de arquivo.

    /// Acrescenta uma entrada. Um tipo já registrado levanta `EInvalidOperation` com
    /// "O tratador para o tipo <Tipo> ja foi registrado!!" e não muda o registro.
    static void RegistrarTratadorDeArquivo(const QString &tipo, const TClasseTratador &classe,
                                           const QString &filtroLeitura, const QString &filtroEscrita);
    /// Tira todas as entradas da classe, da última à primeira.
    static void RemoverRegistroTratadorDeArquivo(const TClasseTratador &classe);
    /// Busca exata do tipo: põe a classe em `classe` (nula quando não há) e responde se achou.
    static bool ObterRefClassPeloTipo(const QString &tipo, const TClasseTratador *&classe);
    /// O filtro do diálogo de abrir: "Arquivos Compatíveis (<padrões>)|<padrões>|", o par de cada
    /// tratador que lê, e "Todos os Arquivos (*.*)|*.*". Os padrões são separados por ";" segundo o
    /// índice da entrada (uma primeira entrada sem filtro seguida de outra dá um ";" no início).
    static QString ObterFiltroCompletoDeLeitura();
    /// O mesmo com os filtros de gravação.
    static QString ObterFiltroCompletoDeEscrita();
    /// O tipo da primeira entrada cujo filtro de leitura (ou de gravação) é exatamente `filtro`,
    /// ou o texto vazio.
    static QString ObterTipoPeloFiltro(const QString &filtro, bool leitura);
    /// O tipo da primeira entrada cujo filtro, em minúsculas, contém a extensão em minúsculas
    /// (com "." na frente quando não tem ponto), ou o texto vazio. A busca é solta de propósito:
    /// ".tif" acha um filtro com ".tiff", e a descrição do filtro também conta.
    static QString ObterTipoPelaExtencao(const QString &extensao, bool leitura);
    /// A busca exata para diálogos e hospedeiros (extensão). Os candidatos são as entradas com
    /// filtro (de leitura ou de gravação) em que um padrão casa com o nome do arquivo inteiro, sem
    /// diferenciar maiúsculas (".tif" não casa com "*.tiff"; "*.*" casa com tudo). Um candidato
    /// só: o tipo dele. Vários: na ordem de registro, o primeiro cujo tratador `Reconhece` o
    /// arquivo (aberto para leitura, do início, para cada um); nenhum reconhece, ou o arquivo
    /// não se abre: o primeiro candidato. Sem candidato, o texto vazio.
    static QString ObterTipoPeloArquivo(const QString &nomeArquivo, bool leitura);
    /// As falhas de registro na carga das bibliotecas (um tipo repetido, ...), uma mensagem por
    /// falha, em ordem. O registro que falhou foi pulado e escrito com `qWarning` (extensão).
    static QStringList FalhasDeRegistro();
    /// Anota uma falha de registro (`TRegistraTratador` a chama).
    static void AnotarFalhaDeRegistro(const QString &mensagem);
    /// Esvazia o registro.
    static void LimparRegistro();
    /// Cópia das entradas, em ordem (para guardar e restaurar, por exemplo em testes).
    static std::vector<TRegistro> ObterRegistro();
    /// Substitui todas as entradas pelas dadas.
    static void RestaurarRegistro(const std::vector<TRegistro> &entradas);

protected:
    void Notificar(TGISObjeto *objeto, TAcaoDeLista acao) override;

private:
    void Avisar(TGISMudanca mudanca, TGISObjeto *objeto);

    TGISRet FLimites = MundoInteiro;
    QString FNomeArquivo;
    QString FTipoArquivo;
    QVariantMap FOpcoesDeLeitura;
    std::uint64_t FEstrutura = 0;         ///< entradas, saídas e movimentos, também dentro de lotes
    std::uint64_t FEstruturaDaOrigem = 0; ///< `FEstrutura` no fim do último `Ler` ou `Gravar`
    TGISObservadores FObservadores;
    std::atomic<std::uint64_t> FContador{0};
    TGISObjeto *FObjetoDono = nullptr;
    int FLote = 0;
    bool FLotePendente = false;
};

} // namespace tavru
