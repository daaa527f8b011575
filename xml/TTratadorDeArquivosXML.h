#pragma once
/// \file
/// O tratador de arquivos dos documentos XML do mapa.

#include <tavru/core/TClasseObjeto.h>
#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exportacao.h>

#include <QString>
#include <QStringList>
#include <tavru/xml/TNoXML.h>

#include <memory>

namespace tavru {

class TGISArea;
class TGISAreaCircular;
class TGISComposto;
class TGISCorredor;
class TGISElipse;
class TGISImagem;
class TGISLinha;
class TGISObjetoList;
class TGISPonto;
class TGISPontosTrajeto;
class TGISPosicaoListList;
class TGISTexto;
class TGISTrajeto;

/// Lê e grava uma lista de objetos do mapa como documento XML: a linha de `CABECALHO`, a raiz
/// `<TAG_RAIZ>`, um bloco por objeto, na ordem da lista, e `</TAG_RAIZ>` (ver ConfiguracaoXML.h).
/// Registrado sob o tipo "XML" com o filtro "Arquivos XML (*.xml)|*.xml", para abrir e para
/// gravar, enquanto a biblioteca está carregada.
///
/// O leitor e o gravador são dois códigos separados que não concordam em tudo, de propósito, e
/// os documentos gravados por versões anteriores dependem disso. O que o leitor não lê (ou lê com
/// outro nome) volta com o valor de um objeto novo:
/// - ponto: volta com `TamanhoMaximo` (8, 8) e `TamanhoMinimo` (2, 2) (o leitor só conhece os
///   nomes `TamanhoMaximoNaTelaX`...), e com `Forma`, `Letra`, orientação e fonte de um ponto novo
///   (só a cor da fonte é lida: o `Cor` gravado é o da caneta); sem `TamanhoNoMundo...`, o tamanho
///   no mundo é (1000, 1000). O tamanho no mundo volta igual: o inteiro que o gravador escreve é
///   lido em segundos de arco, e só um texto que não é inteiro passa por `GrauToInt` (graus), pois
///   o `GrauToInt` desta casa lê um número sem letra como graus decimais e o 10000 gravado
///   voltaria 10000 × 3600;
/// - texto: a posição e a orientação não são lidas (o texto volta em (0, 0));
/// - corredor: o preenchimento não é lido;
/// - trajeto: as posições dos pontos são os deslocamentos guardados, e a posição do trajeto não é
///   gravada.
/// Com `USAR_TABELA_DE_SIMBOLOS` as cores viram códigos de cor da tabela (`IndiceCor`,
/// `IndicePincel`).
///
/// Posições: a latitude de um atributo com "S" ou "N" (a longitude com "E" ou "W") é texto em
/// graus (`GrauToInt`); sem a letra, um inteiro em segundos de arco. Um número inválido (estilo,
/// tamanho, coordenada, cor) levanta `EConvertError`, que termina a leitura inteira: os objetos
/// já acrescentados à lista ficam nela; o objeto que estava sendo lido é descartado.
///
/// O documento é lido na codificação que declara (ISO-8859-1 ou UTF-8); os nós são percorridos em
/// ordem, os atributos buscados pelo nome, com maiúsculas distinguidas. Os métodos de leitura e de
/// gravação de um objeto são estáticos, para que quem hospeda troque objetos soltos como texto XML
/// sem um tratador; os de leitura recebem um `TNoXML` (de um `TDocumentoXML`, por exemplo). Cada
/// leitura guarda o seu estado (a pasta do documento, a profundidade de compostos) nela mesma:
/// leituras em linhas de execução diferentes não se misturam.
class TAVRU_GIS_EXPORT TTratadorDeArquivosXML : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (o construtor virtual), com que ela se registra.
    static const TClasseTratador Classe;

    /// Tratador sobre `lista` (não possuída).
    explicit TTratadorDeArquivosXML(TGISObjetoList &lista);

    /// Acrescenta à lista os objetos do documento e recalcula os limites da lista.
    ///
    /// Sem arquivo com esse nome, levanta `EFilerError` com "O arquivo especificado não existe ou
    /// não está disponível!" e nada mais acontece. O nome pode ser de um recurso do Qt
    /// (":/mapa/paises.xml"). A raiz é aceita quando o nome dela é
    /// `TAG_RAIZ` sem distinguir maiúsculas; outra raiz não lê nada nem levanta nada (e os
    /// limites ainda são recalculados). A lista não é esvaziada antes: ler duas vezes dobra a
    /// lista. O `Arquivo` relativo de uma imagem é procurado primeiro na pasta do documento e
    /// depois na pasta de trabalho. Os bytes são conferidos na codificação declarada antes de
    /// tudo (UTF-8, ISO-8859-1, US-ASCII; UTF-16 com marca de ordem de bytes): bytes inválidos
    /// nela e caracteres que o XML 1.0 proíbe, também como referência (`&#0;`), são erro com o
    /// arquivo, a linha e a coluna.
    /// \throws EFilerError arquivo que não se lê, bytes ou caracteres inválidos, codificação não
    /// suportada, ou documento mal formado (nada é lido, e a mensagem diz o motivo, a linha e a
    /// coluna); EInOutError um nome que existe mas não é de um arquivo comum (pasta, FIFO,
    /// dispositivo; o FIFO não trava a leitura), ou uma figura que não se lê; EConvertError número
    /// inválido (o que já foi lido fica).
    void Ler(const QString &nomeArquivo) override;
    /// Grava a lista como documento, na codificação que `CABECALHO` declara, com fins de linha
    /// CR LF. O documento é montado inteiro antes e gravado num arquivo ao lado, que só então
    /// toma o nome do destino: uma gravação que falha nunca destrói o documento anterior.
    /// \throws EConvertError caractere que a codificação não tem (nada é gravado);
    ///         EInOutError falha ao gravar o arquivo, com o motivo do sistema em português ("sem
    ///         espaço no disco", "permissão negada"...; ver `MotivoDoSistema`).
    void Gravar(const QString &nomeArquivo) override;
    /// Sempre verdadeiro, sem ler o fluxo: o tratador XML aceita qualquer arquivo que o registro
    /// lhe ofereça.
    bool Reconhece(QIODevice &fluxo) override;

    // Leitura.

    /// O objeto de um elemento: a classe pelo nome (`ObterRefClassObjetoGis`), criada com os
    /// padrões, os atributos lidos pela classe (na ordem Imagem, Ponto, Elipse, AreaCircular,
    /// Area, Corredor, Trajeto, Linha, Texto, Composto: a primeira que o objeto é), e o bloco de
    /// informações. Nulo para um nome desconhecido (e para nós que não são elementos). Quem chama
    /// possui o objeto.
    static std::unique_ptr<TGISObjeto> ObterXMLObjeto(const TNoXML &no);
    /// O objeto de um texto com um elemento: o texto é posto dentro de `<TAG_RAIZ>` e o primeiro
    /// filho da raiz vai para `ObterXMLObjeto`. \throws EListError (índice 0) texto sem nó dentro
    /// da raiz, como `ObterObjeto("")`; EFilerError texto mal formado ou com um caractere que o
    /// XML 1.0 proíbe (`&#0;`), com a linha e a coluna contadas no texto dado.
    static std::unique_ptr<TGISObjeto> ObterObjeto(const QString &texto);
    /// Acrescenta a `lista`, em ordem, o objeto de cada filho de `node` que tenha um.
    static void AtribuirXMLLista(TGISObjetoList &lista, const TNoXML &no);
    static void AtribuirXMLImagem(TGISImagem &imagem, const TNoXML &no);
    static void AtribuirXMLPonto(TGISPonto &ponto, const TNoXML &no);
    static void AtribuirXMLTexto(TGISTexto &texto, const TNoXML &no);
    /// `Estilo`, `Cor` e o filho `Pontos`, depois `CalcularLimites`.
    static void AtribuirXMLLinha(TGISLinha &linha, const TNoXML &no);
    /// A linha e mais `EstiloPreenchimento` e `CorPreenchimento`.
    static void AtribuirXMLArea(TGISArea &area, const TNoXML &no);
    /// `Esq` e `Dir`, depois lido como linha (o preenchimento não é lido).
    static void AtribuirXMLCorredor(TGISCorredor &corredor, const TNoXML &no);
    static void AtribuirXMLTrajeto(TGISTrajeto &trajeto, const TNoXML &no);
    static void AtribuirXMLAreaCircular(TGISAreaCircular &area, const TNoXML &no);
    /// A área circular e mais `RaioMaiorY` e `RaioMenorY`.
    static void AtribuirXMLElipse(TGISElipse &elipse, const TNoXML &no);
    /// `AtribuirXMLLista` sobre a lista do próprio composto.
    static void AtribuirXMLComposto(TGISComposto &composto, const TNoXML &no);
    /// Os vértices de um elemento `Pontos` acrescentados a `partes`.
    ///
    /// Os filhos são vistos em ordem; um filho sem `Latitude` e sem `Longitude` é pulado. Uma
    /// posição só é guardada para a lista toda, zerada antes do primeiro filho: o componente que
    /// falta num filho repete o do vértice anterior (zero no primeiro). Uma parte nova começa no
    /// filho de índice 0, em todo filho com `Tipo="Inicio"` (exato) e no primeiro filho aceito
    /// quando ainda não há parte. Os nomes dos filhos não são olhados.
    static void AtribuirXMLPontos(TGISPosicaoListList &partes, const TNoXML &no);
    /// Os pontos de um trajeto: um `TGISPontoTrajeto` por filho com `Latitude` e `Longitude`, com
    /// a posição (o deslocamento guardado) e o bloco de informações do filho. Um ponto com o campo
    /// "Identificador" fica `Fixo`, com o `Rotulo` do campo "Objeto Acompanhado" ou, sem ele,
    /// "Ponto Fixo".
    static void AtribuirXMLPontosTrajeto(TGISPontosTrajeto &pontos, const TNoXML &no);

    // Gravação: cada operação acrescenta linhas a `linhas` (um bloco de informações é uma entrada
    // só, com CR LF dentro).

    /// `GravarObjeto` de cada objeto da lista, do índice 0 em diante.
    static void GravarLista(QStringList &linhas, const TGISObjetoList &lista);
    /// O elemento do objeto pela classe, na ordem Imagem, Ponto, Elipse, AreaCircular, Area,
    /// Corredor, Trajeto, Linha, Texto, Composto; um objeto de outra classe não grava nada.
    /// (Um meio acompanhado grava como ponto, uma derrota como linha.)
    static void GravarObjeto(QStringList &linhas, const TGISObjeto &objeto);
    static void GravarImagem(QStringList &linhas, const TGISImagem &imagem);
    /// O ponto; uma `Letra` de código 0 é gravada como texto vazio (o XML não tem o caractere 0).
    static void GravarPonto(QStringList &linhas, const TGISPonto &ponto);
    static void GravarTexto(QStringList &linhas, const TGISTexto &texto);
    static void GravarLinha(QStringList &linhas, const TGISLinha &linha);
    static void GravarArea(QStringList &linhas, const TGISArea &area);
    static void GravarCorredor(QStringList &linhas, const TGISCorredor &corredor);
    static void GravarTrajeto(QStringList &linhas, const TGISTrajeto &trajeto);
    static void GravarAreaCircular(QStringList &linhas, const TGISAreaCircular &area);
    static void GravarElipse(QStringList &linhas, const TGISElipse &elipse);
    static void GravarComposto(QStringList &linhas, const TGISComposto &composto);
    /// O elemento `Pontos` de uma linha (ou de uma descendente): os pontos absolutos
    /// (`ObterPonto`) de cada parte, o primeiro de cada uma com `Tipo="Inicio"`.
    static void GravarPartes(QStringList &linhas, const TGISLinha &linha);
    /// O elemento `Pontos` de um trajeto: cada ponto com a sua posição guardada e o seu bloco de
    /// informações.
    static void GravarPontosTrajeto(QStringList &linhas, const TGISPontosTrajeto &pontos);
};

/// A classe de objeto do nome do elemento, por comparação exata: "Imagem", "Ponto", "Area",
/// "Trajeto", "Linha", "Corredor", "AreaCircular", "Elipse", "Texto", "Composto". Nulo para
/// qualquer outro nome. Extensão: um "Area" com `Regra="ParImpar"` (o que `GravarArea` escreve para
/// uma `TGISAreaComFuros`) dá a área com furos.
TAVRU_GIS_EXPORT const TClasseObjeto *ObterRefClassObjetoGis(const TNoXML &no);

} // namespace tavru
