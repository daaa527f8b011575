#pragma once
/// \file
/// O provedor substituível de diálogos: caixa de entrada, abrir e salvar arquivo, fonte e
/// mensagem. Todo diálogo da casa passa por `Dialogos()`. O padrão usa os diálogos do Qt; testes e
/// execuções sem tela instalam um `TDialogosRoteirizados`, que responde de uma fila e nunca
/// bloqueia.
///
/// Filtros de arquivo vêm no formato da casa: pares "descrição|padrões" separados por "|", com
/// padrões separados por ";" (por exemplo "Arquivos XML (*.xml)|*.xml|Todos os Arquivos (*.*)|*.*").
/// O índice de filtro é contado a partir de 1, como na plataforma.

#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TFont.h>

#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

class QDialog;

namespace tavru {

/// Tipo de uma caixa de mensagem.
enum TTipoMensagem { mtInformacao, mtAviso, mtErro, mtConfirmacao };

class TAVRU_PLATAFORMA_EXPORT TProvedorDeDialogos
{
public:
    virtual ~TProvedorDeDialogos() = default;

    /// Pede um texto; `valor` entra com o padrão e sai com a resposta. Falso se cancelado.
    virtual bool InputQuery(const QString &titulo, const QString &pergunta, QString &valor) = 0;
    /// Pede um arquivo para abrir. `nome` entra com a sugestão; `indiceFiltro` (base 1) entra com
    /// o filtro inicial e sai com o escolhido. Falso se cancelado.
    virtual bool AbrirArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) = 0;
    /// Pede um arquivo para salvar, como `AbrirArquivo`.
    virtual bool SalvarArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) = 0;
    /// Pede uma fonte; `fonte` entra com a atual e sai com a escolhida. Falso se cancelado.
    virtual bool EscolherFonte(TFont &fonte) = 0;
    /// Mostra uma mensagem; para `mtConfirmacao` devolve se o usuário confirmou, senão verdadeiro.
    virtual bool Mensagem(const QString &texto, const QString &titulo, TTipoMensagem tipo) = 0;
    /// Mostra um diálogo da casa (montado por quem chama, que continua dono dele) de modo modal e
    /// responde se foi confirmado. O padrão é `exec()` e "aceito".
    virtual bool ExecutarDialogo(QDialog &dialogo);

    /// A caixa de entrada da plataforma: a resposta, ou `padrao` se cancelado.
    QString InputBox(const QString &titulo, const QString &pergunta, const QString &padrao);

    /// O par "descrição|padrões" de número `indice` (base 1) do filtro, ou vazio.
    static QString ParDoFiltro(const QString &filtro, int indice);
};

/// O provedor corrente (o do Qt enquanto nenhum outro for instalado).
TAVRU_PLATAFORMA_EXPORT TProvedorDeDialogos &Dialogos();
/// Instala outro provedor e devolve o anterior (para restaurá-lo depois). Nulo volta ao do Qt.
TAVRU_PLATAFORMA_EXPORT std::unique_ptr<TProvedorDeDialogos> TrocarDialogos(std::unique_ptr<TProvedorDeDialogos> novo);

/// Diálogos do Qt.
class TAVRU_PLATAFORMA_EXPORT TDialogosQt : public TProvedorDeDialogos
{
public:
    bool InputQuery(const QString &titulo, const QString &pergunta, QString &valor) override;
    bool AbrirArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) override;
    bool SalvarArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) override;
    bool EscolherFonte(TFont &fonte) override;
    bool Mensagem(const QString &texto, const QString &titulo, TTipoMensagem tipo) override;

    /// O filtro da casa no formato do `QFileDialog` ("desc (*.a *.b);;..."): os padrões de cada
    /// par, separados por espaço, tomam o lugar de um parêntese no fim da descrição.
    static QString FiltroQt(const QString &filtro);
};

/// Diálogos roteirizados: cada pergunta tira a próxima resposta da fila do seu tipo; fila vazia
/// (ou resposta `std::nullopt`) é cancelamento. Toda pergunta fica anotada em `Perguntas`.
class TAVRU_PLATAFORMA_EXPORT TDialogosRoteirizados : public TProvedorDeDialogos
{
public:
    std::deque<std::optional<QString>> Textos;
    /// Arquivos: o nome e o índice de filtro (base 1) escolhidos.
    std::deque<std::optional<std::pair<QString, int>>> Arquivos;
    std::deque<std::optional<TFont>> Fontes;
    std::deque<bool> Confirmacoes;
    /// Uma linha por pergunta feita: "<tipo>: <título>: <texto>".
    QStringList Perguntas;
    /// Os textos das mensagens mostradas, na ordem.
    QStringList Mensagens;

    bool InputQuery(const QString &titulo, const QString &pergunta, QString &valor) override;
    bool AbrirArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) override;
    bool SalvarArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro) override;
    bool EscolherFonte(TFont &fonte) override;
    bool Mensagem(const QString &texto, const QString &titulo, TTipoMensagem tipo) override;

    /// Diálogos da casa: cada um tira o próximo roteiro, que recebe o diálogo (pode mexer nos
    /// controles dele) e responde se foi confirmado; fila vazia é cancelamento. O diálogo nunca
    /// aparece.
    std::deque<std::function<bool(QDialog &)>> Roteiros;
    bool ExecutarDialogo(QDialog &dialogo) override;

private:
    bool Arquivo(const QString &tipo, const QString &titulo, QString &nome, int &indiceFiltro);
};

} // namespace tavru
