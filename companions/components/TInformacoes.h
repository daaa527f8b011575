#pragma once
/// \file
/// O registro de informações de um objeto do mapa: campos com nome e valor, ambos texto.

#include <tavru/platform/Exportacao.h>

#include <QString>
#include <QStringList>

namespace tavru {

/// Registro de campos nomeados de um objeto ("Nome", "Tipo", ...), na ordem em que entraram.
///
/// Os campos ficam numa lista de linhas "Nome=Valor", a mesma que o controle do mapa entrega ao
/// visualizador de informações (`Linhas`). O nome é o texto antes do primeiro "=", o valor o resto
/// da linha (que pode conter "="); por isso um nome não pode conter "=". Uma linha sem "=" é um
/// campo com esse nome e valor vazio.
///
/// Buscas por nome são exatas e diferenciam maiúsculas; nomes repetidos são permitidos
/// (`AdicionarCampo`) e as buscas acham o primeiro. Índices fora de `0..ObterTotal()-1` levantam
/// `EListError`. É um valor simples: cópia e atribuição copiam os campos.
class TAVRU_COMPONENTES_EXPORT TInformacoes
{
public:
    TInformacoes() = default;
    /// Registro com as linhas "Nome=Valor" dadas, na ordem.
    explicit TInformacoes(const QStringList &linhas) : FLinhas(linhas) {}

    /// Número de campos.
    int ObterTotal() const { return static_cast<int>(FLinhas.size()); }
    /// Nome do campo `i`.
    QString ObterNomeCampo(int i) const;
    /// Valor do campo `i`.
    QString ObterValorCampo(int i) const;
    /// Índice do primeiro campo chamado exatamente `nome`, ou -1.
    int ObterIndiceCampo(const QString &nome) const;
    /// Valor do primeiro campo chamado `nome`, ou o texto vazio quando não há.
    QString ObterValor(const QString &nome) const;

    /// Troca o valor do primeiro campo chamado `nome`, ou acrescenta o campo no fim quando não há.
    /// Devolve o índice do campo.
    int AtribuirCampo(const QString &nome, const QString &valor);
    /// Acrescenta um campo no fim, mesmo que já exista outro com o nome. Devolve o índice.
    int AdicionarCampo(const QString &nome, const QString &valor);
    /// Troca o valor do campo `i`, mantendo o nome.
    void AtribuirValorCampo(int i, const QString &valor);
    /// Tira o campo `i`.
    void RemoverCampo(int i);
    /// Tira todos os campos.
    void Limpar() { FLinhas.clear(); }

    /// As linhas "Nome=Valor", na ordem dos campos.
    const QStringList &Linhas() const { return FLinhas; }
    /// Substitui todos os campos pelas linhas dadas.
    void AtribuirLinhas(const QStringList &linhas) { FLinhas = linhas; }
    void Assign(const TInformacoes &outras) { FLinhas = outras.FLinhas; }

    friend bool operator==(const TInformacoes &a, const TInformacoes &b) { return a.FLinhas == b.FLinhas; }
    friend bool operator!=(const TInformacoes &a, const TInformacoes &b) { return !(a == b); }

private:
    void Verificar(int i) const;
    static QString Linha(const QString &nome, const QString &valor);

    QStringList FLinhas;
};

} // namespace tavru
