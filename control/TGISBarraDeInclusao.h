#pragma once
/// \file
/// A barra de inclusão de objetos no mapa e o registro de classes que dá os botões dela.

#include <tavru/core/TClasseObjeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>
#include <tavru/platform/TStringList.h>

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

namespace tavru {

class TBotaoRapido;
class TGis;
class TLigacaoAoGis;
class TGISCamada;
class TGISObjeto;

/// Barra de botões de inclusão de um `TGis`: um botão por entrada do registro de classes de
/// objetos, que é um só para o programa inteiro (não por barra).
///
/// **Registro.** Começa com cinco entradas, nesta ordem: `TGISPonto` "Incluir Ponto"
/// (`BMP_PONTO`), `TGISLinha` "Incluir Linha" (`BMP_LINHA`), `TGISArea` "Incluir Área"
/// (`BMP_AREA`), `TGISAreaCircular` "Incluir Área Circular" (`BMP_AREA_CIRCULAR`) e `TGISImagem`
/// "Incluir Imagem" (`BMP_IMAGEM`). Ele é criado no primeiro uso (antes de qualquer outra
/// entrada, de modo que as cinco vêm sempre primeiro) e liberado no fim do programa. De propósito,
/// uma classe pode ser registrada mais de uma vez (dá dois botões), e tirar o registro tira só a
/// primeira entrada dela.
///
/// **Botões.** Refletem o registro como estava no último `CriarComponentes` (que o construtor
/// chama). O botão i tem a dica e uma cópia do bitmap da entrada i, o grupo próprio i + 1 (cada um
/// abaixa e levanta sozinho) e `AllowAllUp`. De propósito, com um mapa atribuído um botão clicado
/// volta para cima na hora (`AoClicar` chama `Atualizar`); sem mapa, fica abaixado. A barra não
/// inclui nada sozinha: o hospedeiro observa os cliques (`OnClicar`) e inclui com
/// `IncluirObjeto`. Ela não é ferramenta do mapa (não se registra nele).
///
/// **Tamanho.** Os botões visíveis dividem a largura do cliente em partes inteiras iguais, com a
/// altura do cliente, da esquerda para a direita; a largura do cliente encolhe para a soma deles
/// (500 pixels e cinco botões: 100 cada; 503 pixels: ainda 100 cada, e o cliente fica com 500).
///
/// Posse: o mapa não é possuído (a barra o esquece quando ele é destruído); os botões são filhos
/// da barra; cada entrada do registro possui a sua cópia do bitmap.
class TAVRU_GIS_EXPORT TGISBarraDeInclusao : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
    Q_PROPERTY(bool Flat READ ObterFlat WRITE AtribuirFlat)
    Q_PROPERTY(QStringList Hints READ TextosHints WRITE AtribuirTextosHints)
public:
    /// Uma entrada do registro: a dica, o bitmap (cópia possuída) e a classe do objeto.
    struct TRegistro
    {
        QString Hint;
        QImage Bitmap;
        const TClasseObjeto *Classe = nullptr;
    };
    /// Extensão: o evento de clique num botão, com o índice dele (o botão já está no estado novo).
    using TAoClicarBotao = std::function<void(TGISBarraDeInclusao &barra, int indice)>;

    explicit TGISBarraDeInclusao(QWidget *parent = nullptr);
    ~TGISBarraDeInclusao() override;

    // O registro do programa.

    /// Acrescenta uma entrada no fim, com uma cópia de `bitmap`; não recusa uma classe repetida.
    static void RegistrarBotao(const TClasseObjeto &classe, const QString &hint, const QImage &bitmap);
    /// Tira a primeira entrada da classe (liberando o bitmap dela); sem entrada, nada.
    static void RemoverRegistroBotao(const TClasseObjeto &classe);
    /// Cópia das entradas, na ordem (para testes guardarem e restaurarem o registro).
    static std::vector<TRegistro> ObterRegistro();
    /// Troca as entradas pelas dadas.
    static void RestaurarRegistro(const std::vector<TRegistro> &entradas);

    // A barra.

    TGis *GIS() const { return FGis; }
    /// Guarda o mapa (não possuído; nulo: nenhum).
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }
    /// Refaz os botões a partir do registro (os anteriores são liberados): limpa `Hints`, cria um
    /// botão por entrada e chama `RedimensionarBotoes`.
    void CriarComponentes();
    /// Divide a largura do cliente entre os botões visíveis (divisão inteira), com a altura do
    /// cliente, dando a cada botão a dica do seu índice em `Hints`; encolhe a largura do cliente
    /// para a soma das larguras. Depois `Atualizar`.
    void RedimensionarBotoes();
    /// Com um mapa e botões, levanta todos os botões.
    void Atualizar();
    /// O número de botões.
    int Count() const { return static_cast<int>(FBotoes.size()); }
    /// O botão `indice` (índice fora dos limites levanta `EListError`; nulo se foi liberado por
    /// fora da barra).
    TBotaoRapido *ObterBotao(int indice) const;
    /// A classe do botão `indice`, como estava no registro no último `CriarComponentes`.
    const TClasseObjeto &ObterClasse(int indice) const;

    bool ObterFlat() const { return FFlat; }
    /// Passa `Flat` aos botões (sem borda até o mouse passar); o mesmo valor não faz nada.
    void AtribuirFlat(bool flat);
    const TStringList &ObterHints() const { return FHints; }
    /// Se o texto de `hints` difere do de `Hints`, copia-o e chama `RedimensionarBotoes`, que
    /// entrega as dicas novas aos botões.
    void AtribuirHints(const TStringList &hints);
    /// `Hints` como lista de textos (a forma que um formulário edita).
    QStringList TextosHints() const { return FHints.Textos(); }
    void AtribuirTextosHints(const QStringList &hints);
    /// Os nomes que o código gerado pelo uic chama para `Flat` e `Hints`.
    void setFlat(bool flat) { AtribuirFlat(flat); }
    void setHints(const QStringList &hints) { AtribuirTextosHints(hints); }

    /// Extensão: inclui no mapa, em `camada`, um objeto novo de `classe`: cria-o, dá-lhe a forma
    /// padrão em `ponto` (pixels, `ConfiguracaoPadrao` pela projeção do mapa, que pode perguntar ao
    /// usuário: uma imagem pede o arquivo), põe-no no fim da camada e o seleciona
    /// (`SelecionarObjeto`, que redesenha). Um `nome` não vazio vira o campo "Nome" do objeto, com
    /// o rótulo visível, para que ele possa ser achado com o mouse. Devolve o objeto (possuído pela
    /// camada), ou nulo quando o usuário desistiu (nada é incluído). Um erro da forma padrão (um
    /// arquivo de imagem ilegível) segue para quem chama, sem nada incluído.
    static TGISObjeto *IncluirObjeto(const TClasseObjeto &classe, TGis &gis, TGISCamada &camada, const TPoint &ponto,
                                     const QString &nome = QString());

    /// Extensão: levantado depois de cada clique num botão (e depois de `AoClicar`).
    TAoClicarBotao OnClicar;

    QSize sizeHint() const override;

protected:
    /// O clique num botão: `Atualizar` (o botão volta para cima se há mapa) e `OnClicar`.
    void AoClicar(int indice);
    /// O mapa está sendo destruído: esquece-o.
    void Notification();
    /// O redimensionamento: a base e depois `RedimensionarBotoes`.
    void resizeEvent(QResizeEvent *evento) override;

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    /// Quantos botões estão visíveis (não escondidos).
    int Visiveis() const;

    TGis *FGis = nullptr;
    bool FFlat = false;
    bool FRedimensionando = false;
    TStringList FHints;
    std::vector<QPointer<TBotaoRapido>> FBotoes;
    std::vector<const TClasseObjeto *> FClasses;
};

} // namespace tavru
