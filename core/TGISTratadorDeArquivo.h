#pragma once
/// \file
/// A base dos tratadores de arquivo, que leem e gravam listas de objetos num formato.

#include <tavru/platform/Exception.h>
#include <tavru/platform/Exportacao.h>

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <functional>

class QIODevice;

namespace tavru {

class TGISObjetoList;

/// Extensão: a leitura foi parada por quem acompanhava o progresso (ver
/// `TGISTratadorDeArquivo::AvisarProgresso`). Não é um erro do arquivo: quem pediu não precisa
/// mostrar a mensagem.
class TAVRU_GIS_EXPORT ELeituraCancelada : public Exception
{
public:
    using Exception::Exception;
};

/// Extensão: o acompanhamento de uma leitura longa. Recebe a fração feita (0 a 1, nunca
/// decrescente) e o número de objetos lidos até ali; responde falso para pedir que a leitura pare.
/// Chamado na linha de execução da leitura.
using TProgressoDeLeitura = std::function<bool(double fracao, int objetos)>;

/// Tratador de um formato de arquivo. Cada subclasse concreta se registra com
/// `TGISObjetoList::RegistrarTratadorDeArquivo` sob um nome de tipo, pelo seu descritor de classe
/// (`TClasseTratador`, o construtor virtual do tratador). Um tratador vive só durante um `Ler` ou
/// um `Gravar` de `TGISObjetoList`.
///
/// O tratador trabalha sobre a lista dada ao construtor, que não possui. As duas listas de
/// filtros (leitura e gravação) são dele; os `Atribuir...` copiam os textos dados.
class TAVRU_GIS_EXPORT TGISTratadorDeArquivo
{
public:
    explicit TGISTratadorDeArquivo(TGISObjetoList &lista) : FLista(lista) {}
    virtual ~TGISTratadorDeArquivo();
    TGISTratadorDeArquivo(const TGISTratadorDeArquivo &) = delete;
    TGISTratadorDeArquivo &operator=(const TGISTratadorDeArquivo &) = delete;

    // Operações virtuais, na ordem da tabela virtual (que os tratadores de outras bibliotecas
    // seguem: não reordenar). A criação pelo tipo é o descritor `TClasseTratador`.

    /// Lê o arquivo e acrescenta os objetos à lista.
    virtual void Ler(const QString &nomeArquivo) = 0;
    /// Grava os objetos da lista no arquivo.
    virtual void Gravar(const QString &nomeArquivo) = 0;
    /// Se o fluxo traz o formato deste tratador.
    virtual bool Reconhece(QIODevice &fluxo) = 0;

    /// Opções desta leitura (extensão), dadas por `TGISObjetoList::Ler` antes de `Ler`: cada
    /// tratador documenta as chaves que entende e ignora as outras. Vazias por padrão.
    const QVariantMap &Opcoes() const { return FOpcoes; }
    void AtribuirOpcoes(const QVariantMap &opcoes) { FOpcoes = opcoes; }

    /// Extensão: quem acompanha a leitura (vazio: ninguém), dado por `TGISObjetoList::Ler` antes
    /// de `Ler`, e o intervalo mínimo entre dois avisos em milissegundos (padrão 50; 0 avisa a cada
    /// chamada, para testes).
    void AtribuirProgresso(const TProgressoDeLeitura &progresso, int intervaloMs = 50);
    /// Chamado pelos leitores dentro dos seus laços (pelo menos a cada poucos milissegundos de
    /// trabalho): passa `fracao` (limitada a 0..1 e ao maior valor já avisado) e `objetos` a quem
    /// acompanha, no máximo uma vez por intervalo, e sempre quando `fracao` é 1. Quando quem
    /// acompanha responde falso, levanta `ELeituraCancelada` ("Leitura cancelada").
    void AvisarProgresso(double fracao, int objetos);

    /// A lista sobre a qual o tratador trabalha.
    TGISObjetoList &Lista() const { return FLista; }

    const QStringList &ObterFiltroLeitura() const { return FFiltroLeitura; }
    void AtribuirFiltroLeitura(const QStringList &filtros) { FFiltroLeitura = filtros; }
    const QStringList &ObterFiltroGravacao() const { return FFiltroGravacao; }
    void AtribuirFiltroGravacao(const QStringList &filtros) { FFiltroGravacao = filtros; }

private:
    TGISObjetoList &FLista;
    QStringList FFiltroLeitura;
    QStringList FFiltroGravacao;
    QVariantMap FOpcoes;
    TProgressoDeLeitura FProgresso;
    QElapsedTimer FDesdeOAviso;
    int FIntervaloMs = 50;
    double FFracao = 0.0;
};

} // namespace tavru
