#pragma once
/// \file
/// O tratador de Shapefiles (".shp", ".shx", ".dbf", ".prj", ".cpg" e o arquivo de cores ".cor").

#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/formats/TOpcoesLeituraShapeFile.h>
#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

class TGISObjetoList;

/// Lê e grava uma lista de objetos do mapa como Shapefile. Registrado sob o tipo "ShapeFile", com
/// o filtro "Arquivo ShapeFile (*.shp)|*.shp" para abrir e para gravar, enquanto a biblioteca
/// está carregada.
///
/// Leitura (`Ler`), registro a registro, na ordem do arquivo:
/// - ponto: um `TGISPonto`; multiponto: um `TGISPonto` por vértice, cada um com os atributos do
///   registro (pontos soltos são o que o mapa seleciona, rotula e grava de volta; um composto não
///   se grava em Shapefile);
/// - linha: uma `TGISLinha`, uma parte por parte do registro;
/// - polígono: uma `TGISAreaComFuros`, cada anel uma parte (furos e ilhas pela regra par-ímpar,
///   qualquer que seja o sentido dos anéis);
/// - as variantes Z e M são lidas em 2D; formas nulas e sem vértices são puladas; multipatch não é
///   lido (erro antes de tudo).
///
/// Os pontos ficam em segundos de arco, arredondados, com a posição do objeto em (0, 0); um
/// vértice fora de ±180/±90 graus (depois da projeção) faz o registro ser tido como corrompido.
/// Coordenadas: ver o ".prj" abaixo.
///
/// Atributos: cada campo do ".dbf" vira uma informação do objeto (rótulo = nome do campo, valor =
/// o texto do campo, aparado nas pontas; um valor nulo vira texto vazio), na ordem dos campos. A
/// codificação vem do ".cpg" (UTF-8, ISO-8859-1, Windows-1252, CP850), senão do byte do "language
/// driver" do ".dbf" (Windows-1252 ou CP850), senão ISO-8859-1. Sem ".dbf", os objetos não têm
/// informações.
///
/// ".prj": sistema geográfico (WGS 84, SIRGAS 2000, SAD69...) é lido como graus; sistema projetado
/// (UTM ou outro que o PROJ conheça) é convertido para a latitude e a longitude do seu próprio
/// sistema geográfico, sem troca de datum. Sem ".prj", as coordenadas são graus quando a
/// extensão do arquivo cabe em ±180/±90; senão, erro.
///
/// ".shx" que falta, ou que o shapelib não aceita (cortado, de outro ".shp"), é refeito do ".shp"
/// em memória (nada é escrito ao lado dos arquivos). ".cor"
/// (cores de caneta e de pincel, ver o README): aplicado a cada objeto lido.
///
/// Erros: arquivo que não existe levanta `EFilerError` com "O arquivo especificado não existe ou
/// não está disponível!"; ".shp", ".dbf" ou ".prj" ilegíveis levantam `EFilerError` nomeando o
/// arquivo antes de qualquer objeto entrar. Um registro corrompido não para a leitura: os bons,
/// antes e depois dele, entram na lista, e no fim um só `EFilerError` lista os números dos
/// registros ruins (como o leitor XML, que deixa na lista o que já foi acrescentado). A lista
/// não é esvaziada antes, e os limites dela são recalculados no fim.
///
/// Gravação (`Gravar`): ver o método.
class TAVRU_GIS_EXPORT TTratadorDeShapeFile : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (o construtor virtual), com que ela se registra.
    static const TClasseTratador Classe;

    /// Tratador sobre `lista` (não possuída), com as opções de leitura padrão.
    explicit TTratadorDeShapeFile(TGISObjetoList &lista);

    /// Acrescenta à lista os objetos do Shapefile `nomeArquivo` (o ".shp"; os outros arquivos
    /// são procurados ao lado, com o mesmo nome), com as opções atuais. Ver a classe.
    void Ler(const QString &nomeArquivo) override;
    /// Grava a lista como Shapefile: ".shp", ".shx", ".dbf" (UTF-8), ".prj" (WGS 84 geográfico),
    /// ".cpg" ("UTF-8") e ".cor".
    ///
    /// Pontos (e meios acompanhados) como pontos; linhas, derrotas, corredores (pela linha do
    /// centro) e trajetos (pelos vértices) como linhas; áreas, áreas com furos, áreas circulares e
    /// elipses (pelo contorno) como polígonos. Um Shapefile tem um só tipo de forma: uma lista
    /// de um tipo grava o nome dado; uma lista misturada grava um conjunto por tipo, com os
    /// sufixos "_pontos", "_linhas" e "_areas" no nome ("mapa.shp" vira "mapa_pontos.shp" e
    /// "mapa_areas.shp"). Uma lista vazia grava um conjunto de pontos sem registros.
    ///
    /// Os campos do ".dbf" são os rótulos das informações, na ordem em que aparecem, como texto
    /// (sem nenhuma informação, um campo "FID" com o número do registro, 0 o primeiro, pois um
    /// ".dbf" sem campos não guarda registros);
    /// nomes com mais de 10 bytes são cortados (e repetidos ganham um número), e valores passam
    /// de 254 bytes cortados, como o formato exige. Os anéis de uma área com furos são gravados
    /// no sentido que o formato pede (fora horário, furo anti-horário, pela profundidade); cada
    /// parte de uma área comum é um anel externo. Os anéis são fechados.
    ///
    /// Nada é meio gravado: tudo é montado em memória e cada arquivo é escrito ao lado e renomeado.
    /// \throws EInvalidOperation objetos que não se gravam (textos, imagens, compostos): a
    ///         mensagem lista os índices e as classes deles, e nada é gravado;
    ///         EInOutError falha ao gravar um arquivo (os anteriores ficam como estavam).
    void Gravar(const QString &nomeArquivo) override;
    /// Verdadeiro quando o fluxo começa com o código de arquivo do Shapefile (9994, big-endian).
    bool Reconhece(QIODevice &fluxo) override;

    /// As opções das próximas leituras deste tratador.
    const TOpcoesLeituraShapeFile &Opcoes() const { return FOpcoes; }
    void AtribuirOpcoes(const TOpcoesLeituraShapeFile &opcoes) { FOpcoes = opcoes; }

private:
    TOpcoesLeituraShapeFile FOpcoes;
};

} // namespace tavru
