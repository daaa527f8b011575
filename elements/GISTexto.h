#pragma once
/// \file
/// O texto do mapa: uma cadeia escrita na sua posição, girada com a orientação do objeto.

#include <tavru/core/TGISObjeto.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TFont.h>

#include <QString>
#include <cstdint>

namespace tavru {

/// Texto do mapa escrito na sua posição do mundo, girado pela orientação do objeto mais
/// `GiroAdicional`.
///
/// O texto não tem tamanho no mundo: a extensão (`Area`) é medida em pixels e posta em segundos
/// de arco como está. A medida é a largura do texto com a `QFontMetrics` da fonte, que faz as
/// vezes do "canvas do formulário principal" e existe quando há uma aplicação gráfica
/// (`QGuiApplication`, e um `QApplication` é uma). Sem aplicação gráfica (só `QCoreApplication`, ou
/// nenhuma) não há formulário principal e vale a regra de 12 pixels por caractere (largura 12 ×
/// comprimento, altura 12).
///
/// A medida é função só do texto e da fonte: é feita quando um dos dois muda pela API
/// (`AtribuirTexto`, `AtribuirFonte`, e na construção) e guardada; extensão, teste de acerto e
/// desenho só a leem, e um texto longo não é medido de novo a cada quadro. Quem muda a fonte por
/// `Fonte()` (nome, tamanho, estilo) chama `MedirTexto()` depois; a cor e o giro não mudam a
/// medida.
///
/// Mantido de propósito, porque mapas guardados dependem da aparência:
/// - a altura da extensão medida é a largura do texto (nenhuma altura de texto é usada);
/// - o canvas de desenho fica com a fonte do texto depois de usado;
/// - `AlinhamentoVertical` 1 se comporta como 0 e o valor 2 centra na horizontal (ver
///   `BandeirasDeAlinhamento`);
/// - desenhar gira a própria `Fonte` (o escapamento dela fica com o último giro).
///
/// Padrões: fonte padrão da plataforma, texto vazio, alinhamentos 2 (centro), giro adicional 0.
class TAVRU_GIS_EXPORT TGISTexto : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    TGISTexto();
    /// Libera a fonte e segue com o destrutor da base.
    ~TGISTexto() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Verdadeiro quando a posição é uma posição válida do mundo (`Valida`).
    bool ObterValido() const override;
    /// A cor do texto é a cor de `Fonte`.
    void AtribuirCor(TColor cor) override;
    TColor ObterCor() const override;
    /// Converte o ponto com `TelaParaMundo` sem guardar o resultado e responde verdadeiro: a
    /// posição do texto é a que já tinha (quem inclui textos a atribui).
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Gira `Fonte` para round(graus(Orientacao) × 10 + GiroAdicional × 10) décimos de grau
    /// (`RotacionarFonte`), põe-na no canvas, alinha com `BandeirasDeAlinhamento`, pincel
    /// transparente e escreve o texto no pixel da posição. Com `selecionado` nada é escrito: só a
    /// cor da fonte do canvas passa a ser a da caneta. O canvas fica com a fonte do texto.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Verdadeiro quando o ponto está em `MundoParaTelaRet(Area())` (`PertenceRect`).
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Retângulo de largura W e altura H (pixels tomados como segundos de arco) em volta da posição
    /// conforme os alinhamentos; um alinhamento fora de 0..2 deixa aquele lado em zero.
    TGISRet Area() const override;

    /// As bandeiras de `TextOut`: a linha de base (24) com, para `AlinhamentoVertical` 0 nada,
    /// 1 a base (8) e 2 o centro horizontal (6); e para `AlinhamentoHorizontal` 0 nada, 1 a
    /// direita (2) e 2 o centro (6). Valores fora de 0..2 não acrescentam nada.
    unsigned BandeirasDeAlinhamento() const;
    /// Mede de novo o texto com a fonte atual, guarda a medida que `Area` usa e avisa (`Mudou`).
    /// Chamado por `AtribuirTexto` e `AtribuirFonte`; quem mudou a fonte por `Fonte()` o chama
    /// depois.
    void MedirTexto();
    /// A largura e a altura (pixels) guardadas pela última medida: a largura do texto nas duas,
    /// ou 12 × comprimento e 12 sem aplicação gráfica.
    void MedirTexto(int &largura, int &altura) const;

    /// Fonte do texto (possuída); a sua cor é a cor do texto. Mudar o nome, o tamanho ou o estilo
    /// por aqui não mede nem avisa: depois, `MedirTexto()` (que mede e avisa, como `Mudou()`).
    TFont &Fonte() { return FFonte; }
    const TFont &Fonte() const { return FFonte; }
    /// Troca a fonte, mede o texto de novo e avisa.
    void AtribuirFonte(const TFont &fonte);
    QString Texto() const { return FTexto; }
    /// Troca o texto, mede-o de novo e avisa.
    void AtribuirTexto(const QString &texto);
    /// 0 esquerda, 1 direita, 2 centro, em relação à posição.
    std::uint8_t AlinhamentoHorizontal() const { return FAlinhamentoHorizontal; }
    void AtribuirAlinhamentoHorizontal(std::uint8_t a) { FAlinhamentoHorizontal = a; Mudou(); }
    /// 0 a posição embaixo da extensão, 1 em cima, 2 no meio (e ver `BandeirasDeAlinhamento`).
    std::uint8_t AlinhamentoVertical() const { return FAlinhamentoVertical; }
    void AtribuirAlinhamentoVertical(std::uint8_t a) { FAlinhamentoVertical = a; Mudou(); }
    /// Graus inteiros somados à orientação ao desenhar.
    std::int32_t GiroAdicional() const { return FGiroAdicional; }
    void AtribuirGiroAdicional(std::int32_t graus) { FGiroAdicional = graus; Mudou(); }

private:
    /// A medida sem o aviso (a construção mede sem avisar ninguém).
    void Medir();

    TFont FFonte;
    QString FTexto;
    std::int32_t FGiroAdicional = 0;
    std::uint8_t FAlinhamentoHorizontal = 2;
    std::uint8_t FAlinhamentoVertical = 2;
    int FLargura = 0;
    int FAltura = 12;
};

} // namespace tavru
