#pragma once
/// \file
/// O tratador das fontes vetoriais que o OGR (GDAL) lê: GeoJSON, GeoPackage, KML, GPX e outras.
/// Extensão da biblioteca opcional `tavru_gdal`.

#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/gdal/ExportacaoGdal.h>

#include <QString>

namespace tavru {

class TGISObjetoList;

/// Lê fontes vetoriais pelo OGR e grava GeoJSON e GeoPackage. Registrado, enquanto a biblioteca
/// `tavru_gdal` está carregada, sob cinco tipos (filtros em `ReconheceArquivosGDAL.h`):
/// "GeoJSON" (ler e gravar), "GeoPackage" (ler e gravar), "KML", "GPX" e "Outros formatos
/// vetoriais" (`*.*`, qualquer fonte vetorial que o OGR abra); os três últimos só leem.
///
/// **Leitura** (`Ler`): todas as camadas da fonte, em ordem, ou só a camada chamada pela opção de
/// leitura "Camada" (texto; `TGISObjetoList::Ler(arquivo, tipo, {{"Camada", "rios"}})`). Cada
/// feição, na ordem da camada, vira:
/// - ponto: um `TGISPonto` na posição; multiponto: um `TGISPonto` por ponto;
/// - linha: uma `TGISLinha` de uma parte; multilinha: uma `TGISLinha`, uma parte por linha;
/// - polígono e multipolígono: uma `TGISAreaComFuros`, cada anel uma parte (furos e ilhas pela
///   regra par-ímpar);
/// - curvas (arcos, curvas compostas) são antes aproximadas por segmentos; coleções dão um objeto
///   por membro, cada um com os atributos da feição; Z e M são descartados; feições sem geometria
///   ou com geometria vazia são puladas.
///
/// Os pontos ficam em segundos de arco, arredondados (linhas e áreas com a posição em (0, 0)). As
/// coordenadas são levadas do sistema da camada ao WGS 84 geográfico; uma camada sem sistema é
/// tida como longitude e latitude em graus. Os atributos viram as informações do objeto: um campo
/// por campo da camada, na ordem, com o nome do campo e o valor como texto (nulo ou ausente: texto
/// vazio).
///
/// **Contrato**: tudo é lido numa lista de rascunho e só no fim passa para a lista, num lote. Em
/// qualquer erro a lista fica como estava e a mensagem diz o arquivo e o motivo, em português:
/// - arquivo que não existe: `EFilerError` "O arquivo especificado não existe ou não está
///   disponível!"; pasta, FIFO ou dispositivo: `EInOutError` com o nome (nada é aberto);
/// - o OGR não abre a fonte: `EFilerError` com o nome e o motivo do GDAL;
/// - a camada pedida não existe: `EFilerError` com as camadas que existem;
/// - um vértice cai fora de ±180/±90 graus depois da conversão (ou não é finito), ou o sistema da
///   camada não se converte: `EFilerError` com a camada e a feição;
/// - a fonte abre mas nada nela vira objeto: `EFilerError` "Nenhum objeto reconhecido em ...".
///
/// **Gravação** (`Gravar`): ver o método.
class TAVRU_GDAL_EXPORT TTratadorDeArquivosOGR : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (o construtor virtual), com que ela se registra.
    static const TClasseTratador Classe;

    /// Tratador sobre `lista` (não possuída).
    explicit TTratadorDeArquivosOGR(TGISObjetoList &lista);

    /// Acrescenta à lista os objetos da fonte `nomeArquivo`. Ver a classe.
    void Ler(const QString &nomeArquivo) override;
    /// Grava a lista como GeoJSON (extensões ".geojson" e ".json") ou GeoPackage (".gpkg"), pela
    /// extensão do nome, numa camada com o nome do arquivo (sem a extensão), em WGS 84 geográfico.
    ///
    /// Pontos (e meios acompanhados) como pontos; áreas com furos como polígono ou multipolígono
    /// (cada anel vai para o polígono que o contém, pela profundidade); outras áreas como
    /// multipolígono, cada parte um anel externo; linhas, derrotas e corredores (pela linha do
    /// centro) como linha ou multilinha. Os campos são os rótulos das informações, na ordem em que
    /// aparecem nos objetos, todos como texto.
    ///
    /// Tudo é montado em memória e o arquivo é escrito ao lado e renomeado: uma falha deixa o
    /// anterior como estava.
    /// \throws EInvalidOperation objetos que não se gravam (textos, imagens, compostos, áreas
    ///         circulares, trajetos): a mensagem lista os índices e as classes, e nada é gravado;
    ///         EInOutError extensão que não é de GeoJSON nem de GeoPackage, ou falha ao gravar.
    void Gravar(const QString &nomeArquivo) override;
    /// Verdadeiro quando o fluxo é um arquivo que algum driver vetorial do OGR identifica e que nenhum
    /// tratador de outra biblioteca pede por um padrão específico (um ".dgn" fica com o plug-in DGN).
    bool Reconhece(QIODevice &fluxo) override;
};

} // namespace tavru
