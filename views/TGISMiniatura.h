#pragma once
/// \file
/// O mapa de situação: o mapa inteiro em pequeno, com o retângulo da visão principal.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TColor.h>

#include <QImage>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavru {

class TGis;
class TLigacaoAoGis;
class TGISCamada;
class TGISProjecaoMercator;

/// Mapa de situação ligado a um `TGis`: desenha as camadas do mapa (todas, ou as de `Camadas`)
/// ajustadas à extensão dos objetos delas, e por cima o retângulo da visão principal (a área da
/// tela do mapa levada ao mundo) na cor `CorDoRetangulo`. Clicar ou arrastar com o botão esquerdo
/// centra a visão principal no ponto (`TGis::Visao`, com o zoom de antes).
///
/// **O que é desenhado.** Só as camadas visíveis e só os objetos visíveis, sem rótulos; a faixa de
/// zoom das camadas é ignorada de propósito (a miniatura mostra tudo). Os objetos são desenhados
/// com a caneta e o pincel padrão do mapa.
///
/// **Custo.** As camadas são desenhadas numa imagem guardada, refeita só quando muda o tamanho, o
/// conjunto de camadas mostradas ou o contador de mudanças (`TGISCamada::ContadorDeMudancas`) ou a
/// visibilidade de uma delas. Seguir a visão principal (o sinal `VisaoMudou`) só pinta a imagem
/// guardada e o retângulo.
///
/// **Posse.** O mapa não é possuído; a miniatura o esquece quando ele é destruído. Extensão (o
/// mapa de situação não tem contrato de referência).
class TAVRU_GIS_EXPORT TGISMiniatura : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString GIS READ NomeDoGis WRITE AtribuirNomeDoGis)
    Q_PROPERTY(QStringList Camadas READ Camadas WRITE AtribuirCamadas)
public:
    explicit TGISMiniatura(QWidget *parent = nullptr);
    ~TGISMiniatura() override;

    TGis *GIS() const;
    /// Liga a miniatura a `gis` (nulo: nenhum).
    void AtribuirGis(TGis *gis);
    /// Extensão: o nome (`objectName`) do mapa a que um formulário liga este componente,
    /// procurado na janela quando ele aparece (ver `TLigacaoAoGis`); vazio: nenhum.
    QString NomeDoGis() const;
    void AtribuirNomeDoGis(const QString &nome);
    /// O nome que o código gerado pelo uic chama para `GIS`.
    void setGIS(const QString &nome) { AtribuirNomeDoGis(nome); }

    /// Os nomes das camadas mostradas (sem diferenciar maiúsculas); vazio: todas.
    QStringList Camadas() const { return FNomes; }
    void AtribuirCamadas(const QStringList &nomes);
    /// O nome que o código gerado pelo uic chama para `Camadas`.
    void setCamadas(const QStringList &nomes) { AtribuirCamadas(nomes); }

    /// Cor do retângulo da visão principal. Padrão: vermelho.
    TColor CorDoRetangulo() const { return FCorDoRetangulo; }
    void AtribuirCorDoRetangulo(TColor cor);

    /// O retângulo da visão principal, em pixels da miniatura (em ordem: `Left` <= `Right`,
    /// `Top` <= `Bottom`), ou vazio (0, 0, 0, 0) sem mapa.
    QRect RetanguloDaVisao();
    /// A posição do mundo sob um pixel da miniatura.
    TGISPosicao PosicaoDoPixel(const QPoint &pixel);
    /// A imagem das camadas (refeita se preciso), sem o retângulo.
    const QImage &Imagem();
    /// Quantas vezes as camadas foram desenhadas na imagem guardada (para medir e testar o cache).
    std::uint64_t Redesenhos() const { return FRedesenhos; }

protected:
    void paintEvent(QPaintEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    QSize sizeHint() const override { return {220, 180}; }

private:
    TLigacaoAoGis *FLigacao = nullptr; ///< criada com o primeiro nome; filha do componente
    struct TMarca
    {
        const TGISCamada *Camada;
        std::uint64_t Contador;
        bool Visivel;
        bool operator==(const TMarca &o) const
        {
            return Camada == o.Camada && Contador == o.Contador && Visivel == o.Visivel;
        }
    };

    QPointer<TGis> FGis;
    QStringList FNomes;
    TColor FCorDoRetangulo;
    std::unique_ptr<TGISProjecaoMercator> FProjecao;
    QImage FImagem;
    std::vector<TMarca> FMarcas;
    std::uint64_t FRedesenhos = 0;

    std::vector<TGISCamada *> CamadasMostradas() const;
    std::vector<TMarca> MarcasAtuais() const;
    void GarantirImagem();
    void Centrar(const QPoint &pixel);
};

} // namespace tavru
