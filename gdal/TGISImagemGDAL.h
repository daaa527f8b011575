#pragma once
/// \file
/// A imagem de uma figura georreferenciada lida pelo GDAL (GeoTIFF e outras), em cores plenas.
/// Extensão da biblioteca opcional `tavru_gdal`.

#include <tavru/elements/GISImagem.h>
#include <tavru/gdal/ExportacaoGdal.h>

#include <QString>
#include <memory>

namespace tavru {

namespace gdal {
class TFonteGDAL;
}

/// Uma `TGISImagem` cuja figura fica no arquivo e é lida pelo GDAL só na parte que se desenha.
///
/// Diferente da imagem comum, que guarda a figura inteira com 8 bits por pixel, esta guarda só o
/// arquivo aberto e uma prévia pequena (`Imagem()`, no máximo `LadoDaPrevia` pixels no lado maior,
/// para canvas sem imagem e para quem pede a figura). Cada desenho lê do arquivo só a parte que cai
/// na tela, na resolução da tela, em cores plenas (8 bits por canal, com transparência): o GDAL
/// usa as visões reduzidas (overviews) da figura quando ela as tem, de modo que uma figura
/// grande vista de longe não é lida inteira. A parte lida fica no contexto de desenho do canvas
/// para o quadro seguinte na mesma visão (as últimas partes, de todas as imagens deste tipo, até
/// duas telas em bytes).
///
/// Uma figura num sistema projetado (UTM, por exemplo) ou girada é reprojetada pelo GDAL para o
/// WGS 84 geográfico (vizinho mais próximo); `AreaImagem` é o retângulo em latitude e longitude
/// da figura reprojetada, e o que fica fora da figura original é transparente.
///
/// No documento XML ela é um `Imagem` cujo arquivo é a figura (`NomeArquivoImagem`), com a área.
///
/// Duas linhas de execução podem desenhá-la ao mesmo tempo em dois canvas: as leituras do GDAL
/// passam por uma trava do objeto.
class TAVRU_GDAL_EXPORT TGISImagemGDAL : public TGISImagem
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;
    /// O lado maior da prévia guardada em `Imagem()`, em pixels.
    static constexpr int LadoDaPrevia = 512;

    /// Uma imagem sem arquivo, como a `TGISImagem` padrão.
    TGISImagemGDAL();
    ~TGISImagemGDAL() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Desenha a parte visível da figura como descrito na classe, só quando
    /// `ZoomMinimoImagem <= zoom <= ZoomMaximoImagem` e `selecionado` é falso. Sem arquivo aberto,
    /// ou num canvas sem imagem, desenha como a `TGISImagem` (a prévia esticada).
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;

    /// Abre a figura `nome` pelo GDAL: a georreferência dela (geotransformação ou pontos de
    /// controle, e o sistema de coordenadas; sem sistema, graus de longitude e latitude) dá
    /// `AreaImagem` (arredondada ao segundo de arco), e `NomeArquivoImagem` passa a ser `nome`.
    /// A posição vai para o centro da área.
    /// \throws EInOutError arquivo que não existe ("O arquivo especificado não existe ou não está
    ///         disponível!"), que não é um arquivo comum, que o GDAL não abre, sem georreferência,
    ///         que não se converte para latitude e longitude ou fora do mundo. A imagem fica como
    ///         estava.
    void Abrir(const QString &nome);

    /// Se há um arquivo aberto.
    bool Aberta() const { return FFonte != nullptr; }
    /// Largura e altura da figura em latitude e longitude (depois da reprojeção), em pixels; 0 sem
    /// arquivo.
    int Largura() const;
    int Altura() const;
    /// Se a figura foi reprojetada para latitude e longitude.
    bool Reprojetada() const;

private:
    std::shared_ptr<const gdal::TFonteGDAL> FFonte;
    std::uint64_t FSerie = 0; ///< muda a cada `Abrir`: a chave das partes guardadas no canvas
};

} // namespace tavru
