#pragma once
/// \file
/// O tratador de figuras georreferenciadas: uma figura vira uma `TGISImagem`, com o ".geo".

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

class TGISImagem;
class TGISObjetoList;

/// Lê uma figura como uma `TGISImagem` e grava as imagens de uma lista como figuras. Registrado,
/// enquanto a biblioteca está carregada, sob seis tipos, nesta ordem: "jpeg", "png", "gif",
/// "Bitmap", "windows meta file" e "e meta file" (filtros em `ReconheceArquivosRaster.h`).
///
/// O retângulo do mundo de cada figura vai num ".geo" ao lado: uma linha com quatro inteiros em
/// segundos de arco (latitude 1, longitude 1, latitude 2, longitude 2).
class TAVRU_GIS_EXPORT TTratadorArquivosRasters : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (o construtor virtual), com que ela se registra.
    static const TClasseTratador Classe;

    /// Tratador sobre `lista` (não possuída).
    explicit TTratadorArquivosRasters(TGISObjetoList &lista);

    /// Cria uma `TGISImagem` e a lê com `TGISImagem::LerArquivo` (a figura, o ".geo" ou o arquivo
    /// de mundo). Qualquer erro vira a mensagem "Arquivo em formato desconhecido!" (pelo provedor
    /// de diálogos, com o botão OK), a imagem é liberada e a lista fica como estava. Senão a
    /// imagem vai para o fim da lista e os limites da lista são recalculados.
    void Ler(const QString &nomeArquivo) override;
    /// Grava as imagens da lista:
    /// 1. a extensão de `nomeArquivo` (sem o ponto), ou "jpg" quando não há, que passa a ser a
    ///    extensão do nome ("mapa" vira "mapa.jpg");
    /// 2. o formato dela na lista de formatos de figura (`TFileFormatList::GraphicFromExtension`);
    /// 3. cada objeto da lista que é uma `TGISImagem`, em ordem, grava a sua figura no nome e o seu
    ///    retângulo no ".geo" do nome (`GravarGeoReferencia`).
    /// Mantido de propósito: um contador que numeraria as figuras da segunda em diante nunca
    /// avança, então todas vão para o mesmo nome e vale a última. Uma lista sem imagens não grava
    /// nada. Erros do disco e do formato (extensão desconhecida, formato que só se lê, falha na
    /// gravação) seguem para quem chama como `EInOutError`.
    void Gravar(const QString &nomeArquivo) override;
    /// Verdadeiro para qualquer fluxo.
    bool Reconhece(QIODevice &fluxo) override;

    /// O retângulo do ".geo" `nomeArquivo`: os quatro inteiros da primeira linha (quaisquer
    /// espaços entre eles; o resto da linha é ignorado), em `GISRet`. Quando o arquivo não existe,
    /// devolve `atual` intocado. Um ".geo" ilegível levanta `EInOutError`.
    static TGISRet LerGeoreferencia(const QString &nomeArquivo, const TGISRet &atual = TGISRet{});
    /// Cria (ou troca) o arquivo `nomeArquivo` com a `Area` da imagem numa linha: os quatro
    /// inteiros separados por um espaço só, e o fim de linha CR LF. Diferente de
    /// `TGISImagem::GravarArquivoGEO`, que os escreve grudados (os dois ficam como são). Uma
    /// falha levanta `EInOutError`.
    static void GravarGeoReferencia(const TGISImagem &imagem, const QString &nomeArquivo);
};

} // namespace tavru
