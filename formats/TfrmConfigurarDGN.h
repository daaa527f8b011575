#pragma once
/// \file
/// O diálogo da grade UTM de um desenho DGN e o arquivo ".geo" que guarda as respostas.

#include <tavru/platform/Exportacao.h>

#include <QDialog>
#include <QString>
#include <cstdint>

class QButtonGroup;
class QComboBox;
class QRadioButton;
class QSpinBox;

namespace tavru {

/// "Configuração da carta DGN": o elipsoide de referência (as 30 entradas de `NomesElipsoides`,
/// com o espaço à frente dos números abaixo de 10), a zona (letras X a C, padrão K), o fuso (sem
/// limites, padrão 33) e a unidade (Kilômetros ou Metros, padrão Metros), com OK e "Cancelar".
///
/// O arquivo ".geo" do desenho (o nome dele com a extensão trocada, `TGISImagem::NomeArquivoGEO`)
/// guarda as respostas em linhas "chave=valor", nesta ordem: "Fuso=" + número, "Zona=" + letra,
/// "Elipsoide=" + o texto inteiro da entrada, "Unidade=" + "kilometros" ou "metros". É gravado
/// em ISO-8859-1 com CR LF, como as cartas que já existem; a leitura aceita também UTF-8.
class TAVRU_GIS_EXPORT TfrmConfigurarDGN : public QDialog
{
    Q_OBJECT
public:
    explicit TfrmConfigurarDGN(QWidget *parent = nullptr);

    /// Pergunta a grade de `arquivo`, uma vez por desenho:
    /// 1. os controles partem de `zona` (o fuso é o texto sem o último caractere, a letra é o
    ///    último), de `elipsoide` e de `fator` (1.0 = metros, outro = quilômetros);
    /// 2. com o ".geo" presente, os valores dele valem e o diálogo não aparece; sem ele, o
    ///    diálogo aparece pelo provedor de diálogos, e tudo menos OK responde falso (nada muda);
    /// 3. `fator` = 1000.0 com quilômetros, senão 1.0; `zona` = fuso em decimal + letra (só o
    ///    fuso quando nenhuma letra está escolhida); `elipsoide` = o índice escolhido (-1 quando
    ///    nenhum); depois de um OK o ".geo" é gravado.
    /// \throws EConvertError um fuso que não é número (em `zona` ou no ".geo").
    /// \throws EInOutError ".geo" que existe mas não abre, ou que não se grava.
    static bool Executar(const QString &arquivo, QString &zona, std::int32_t &elipsoide, double &fator);

    /// Lê o ".geo" de `Arquivo()` para os controles e responde se ele existe. Um valor de
    /// "Zona" ou "Elipsoide" que não está na lista deixa o controle sem escolha; "Unidade" igual
    /// a "kilometros" (sem olhar maiúsculas) escolhe quilômetros, qualquer outro valor metros. Só
    /// os primeiros 64 KiB são lidos; de cada chave vale a primeira linha (chaves sem olhar
    /// maiúsculas, como nas listas "nome=valor" da plataforma).
    /// \throws EConvertError "Fuso" ausente ou que não é um número inteiro.
    bool Ler();
    /// Grava o ".geo" de `Arquivo()` com os valores dos controles (ao lado e depois renomeando).
    void Gravar();
    /// O nome do ".geo" de `Arquivo()`.
    QString ArquivoGeo() const;

    /// O desenho de que o diálogo trata.
    const QString &Arquivo() const { return FArquivo; }
    void AtribuirArquivo(const QString &arquivo) { FArquivo = arquivo; }

    QComboBox *Elipsoide() const { return FElipsoide; }
    QComboBox *Zona() const { return FZona; }
    QSpinBox *Fuso() const { return FFuso; }
    QRadioButton *Kilometros() const { return FKilometros; }
    QRadioButton *Metros() const { return FMetros; }

private:
    QString FArquivo;
    QComboBox *FElipsoide;
    QComboBox *FZona;
    QSpinBox *FFuso;
    QRadioButton *FKilometros;
    QRadioButton *FMetros;
};

} // namespace tavru
