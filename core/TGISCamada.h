#pragma once
/// \file
/// A camada do mapa: um nome, uma lista de objetos possuída e as opções de desenho.

#include <tavru/core/GISEnumeracoes.h>
#include <tavru/core/TGISIndiceEspacial.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TColor.h>
#include <tavru/platform/TPen.h>

#include <QString>
#include <cstdint>

namespace tavru {

/// Camada nomeada do mapa. Possui a sua `TGISObjetoList` (e com ela os objetos), a caneta e o
/// pincel. O controle do mapa só desenha e consulta a camada quando ela está `Visivel` e o zoom da
/// projeção está em `ZoomMinimo..ZoomMaximo` (limites incluídos); consulta só as de tipo
/// `gtcInterrogavel` ou acima.
///
/// Padrões: tipo `gtcInterrogavel`, visível, zoom de 0.0 a 50000.0, sem cor (-1).
class TAVRU_GIS_EXPORT TGISCamada
{
public:
    explicit TGISCamada(const QString &nome);
    virtual ~TGISCamada();
    TGISCamada(const TGISCamada &) = delete;
    TGISCamada &operator=(const TGISCamada &) = delete;

    TGISTipoCamada Tipo() const { return FTipo; }
    void AtribuirTipo(TGISTipoCamada tipo) { FTipo = tipo; }
    /// Nome da camada (a lista de camadas o acha sem diferenciar maiúsculas).
    QString Nome() const { return FNome; }
    void AtribuirNome(const QString &nome) { FNome = nome; }
    TPen &Caneta() { return FCaneta; }
    const TPen &Caneta() const { return FCaneta; }
    TBrush &Pincel() { return FPincel; }
    const TBrush &Pincel() const { return FPincel; }
    /// Os objetos da camada, na ordem de desenho.
    TGISObjetoList &Objetos() { return FObjetos; }
    const TGISObjetoList &Objetos() const { return FObjetos; }
    /// O contador de mudanças da camada: cresce a cada aviso da lista de objetos dela (objetos que
    /// entram, saem, mudam de lugar ou mudam pela API; um lote conta um). Quem guarda algo
    /// derivado da camada compara o contador para saber se ainda vale.
    std::uint64_t ContadorDeMudancas() const { return FObjetos.ContadorDeMudancas(); }
    bool Visivel() const { return FVisivel; }
    void AtribuirVisivel(bool visivel) { FVisivel = visivel; }
    /// Extensão: uma camada volátil (a de meios acompanhados que se movem a cada instante, por
    /// exemplo) é desenhada de novo a cada quadro, enquanto as camadas não voláteis abaixo da
    /// primeira volátil vêm de uma imagem guardada pelo controle do mapa enquanto nada do que elas
    /// desenham mudou. Padrão falso: sem camada volátil, tudo é desenhado a cada quadro.
    bool Volatil() const { return FVolatil; }
    void AtribuirVolatil(bool volatil) { FVolatil = volatil; }
    double ZoomMinimo() const { return FZoomMinimo; }
    void AtribuirZoomMinimo(double zoom) { FZoomMinimo = zoom; }
    double ZoomMaximo() const { return FZoomMaximo; }
    void AtribuirZoomMaximo(double zoom) { FZoomMaximo = zoom; }

    /// Cor imposta aos objetos da camada; -1 (`clNone`) quando não há.
    TColor Cor() const { return FCor; }
    /// Se a camada tem cor (`Cor` diferente de -1).
    bool CorAtribuida() const { return FCorAtribuida; }
    /// Guarda a cor e, quando não é -1, a aplica a cada objeto, em ordem (`AtribuirCor`), num lote
    /// só. -1 tira a cor da camada sem mudar objeto algum.
    void AtribuirCor(TColor cor);

    /// Põe `Visivel` de cada objeto em `visivel` e `RotuloVisivel` em `rotuloVisivel`, num lote só.
    void Visibilidade(bool visivel, bool rotuloVisivel);
    /// O primeiro nome `prefixo` + n (n = 1, 2, ..., com três dígitos: "Ponto001") que nenhum
    /// objeto da camada tem no campo de informação "Nome".
    QString ObterProximoNome(const QString &prefixo) const;
    /// Índice do primeiro objeto cujo campo `campo` vale exatamente `valor`, ou -1.
    int ObterIndiceObjeto(const QString &campo, const QString &valor) const;
    /// Índice do primeiro objeto com esse `Codigo`, ou -1. (Com um literal, escreva `0u`.)
    int ObterIndiceObjeto(std::uint32_t codigo) const;
    /// Índice do objeto (pela identidade), ou -1.
    int ObterIndiceObjeto(const TGISObjeto *objeto) const;
    /// Para i de 0 até Count div 2, inclusive, troca os objetos i e Count - 1 - i (sem liberar).
    /// O limite é mantido assim de propósito: uma contagem ímpar é invertida toda, uma par deixa
    /// o par do meio na ordem de antes (o último passo o desfaz), e uma camada vazia levanta
    /// `EListError`. As trocas são avisadas num lote só.
    void InverterOrdem();

    /// O índice espacial da camada (extensão), guardado aqui e refeito por quem o consulta (o
    /// controle do mapa) quando `ContadorDeMudancas` andou. Muda dentro de um método const de
    /// propósito: é um cache do que os objetos já dizem.
    TGISIndiceEspacial &Indice() const { return FIndice; }

private:
    TGISTipoCamada FTipo = gtcInterrogavel;
    QString FNome;
    TPen FCaneta;
    TBrush FPincel;
    TGISObjetoList FObjetos;
    bool FVisivel = true;
    bool FVolatil = false;
    double FZoomMinimo = 0.0;
    double FZoomMaximo = 50000.0;
    TColor FCor = clNone;
    bool FCorAtribuida = false;
    mutable TGISIndiceEspacial FIndice;
};

} // namespace tavru
