#pragma once
/// \file
/// A tabela de símbolos: uma lista indexada de símbolos, dona deles.

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

#include <QByteArray>
#include <QObject>
#include <memory>
#include <vector>

namespace tavru {

class TCanvas;

/// Tabela de símbolos que os pontos do mapa desenham pelo índice (`gisSimbolo`).
///
/// É um componente (`QObject`): quem a referencia (o controle do mapa, a tabela de classe dos
/// objetos) a esquece quando ela é destruída. A tabela possui os símbolos: `Remover`, `Limpar` e
/// a destruição os liberam. Um índice fora de `0..ObterTotal()-1` não é erro: `ObterSimbolo`
/// devolve nulo e `DesenharRotacionado` não desenha nada e responde falso, para que quem chama
/// desenhe outra figura no lugar.
class TAVRU_SIMBOLOGIA_EXPORT TTabelaDeSimbolos : public QObject
{
    Q_OBJECT

public:
    explicit TTabelaDeSimbolos(QObject *parent = nullptr);
    ~TTabelaDeSimbolos() override;

    /// Número de símbolos.
    int ObterTotal() const { return static_cast<int>(FSimbolos.size()); }
    /// O símbolo do índice (continua da tabela), ou nulo fora dela.
    ISimbolo *ObterSimbolo(int indice) const;
    /// Índice do primeiro símbolo com esse nome exato, ou -1.
    int IndiceDoNome(const QString &nome) const;

    /// Acrescenta um símbolo (a tabela passa a possuí-lo) e devolve o seu índice; um ponteiro
    /// nulo não entra e dá -1.
    int Adicionar(std::unique_ptr<ISimbolo> simbolo);
    /// Tira e libera o símbolo do índice (fora da tabela levanta `EListError`).
    void Remover(int indice);
    /// Tira e libera todos os símbolos.
    void Limpar() { FSimbolos.clear(); }

    /// Desenha o símbolo `indice` ajustado ao retângulo `r` (pixels) e girado de `angulo`
    /// radianos no sentido anti-horário em torno do centro de `r`. Responde se desenhou: falso
    /// (sem tocar o canvas) quando o índice está fora da tabela.
    bool DesenharRotacionado(int indice, TCanvas &canvas, const TRect &r, double angulo) const;

    // Forma XML da tabela, para que ela sobreviva ao programa.

    /// Grava a tabela em `nomeArquivo` (UTF-8, na forma de `ObterXML`). Escreve ao lado e
    /// renomeia: uma gravação que falha levanta `EInOutError` e deixa o arquivo anterior como
    /// estava.
    void Gravar(const QString &nomeArquivo) const;
    /// Troca o conteúdo da tabela pelo de `nomeArquivo` (ver `AtribuirXML`); nomes relativos de
    /// figuras são procurados primeiro na pasta do arquivo. Um arquivo que não existe, não abre
    /// ou passa de 32 MiB levanta `EInOutError`, e a tabela fica como estava.
    void Ler(const QString &nomeArquivo);
    /// A tabela como documento XML (UTF-8):
    /// \code
    /// <?xml version="1.0" encoding="UTF-8"?>
    /// <TabelaDeSimbolos Versao="1">
    ///   <SimboloVetorial Nome="Farol">
    ///     <Ponto X="0" Y="0" Cor="255"/>
    ///     <Texto X="0" Y="-40" Texto="F" AlinhamentoHorizontal="2" AlinhamentoVertical="2"
    ///            GiroAdicional="0" FonteNome="DejaVu Sans" FonteAltura="-11" FonteCor="0"
    ///            FonteConjunto="1" FonteEstilo="0" FonteEscapamento="0"/>
    ///     <Setor X="0" Y="0" RaioExterno="30" RaioInterno="0" AnguloInicial="0" AnguloFinal="0"
    ///            CorCaneta="0" EstiloCaneta="0" LarguraCaneta="1" CorPincel="65535" EstiloPincel="0"/>
    ///     <Elipse ... os atributos do setor ... RaioExternoY="20" RaioInternoY="0"/>
    ///     <Poligono Preenchido="1" CorCaneta="0" EstiloCaneta="0" LarguraCaneta="1"
    ///               CorPincel="255" EstiloPincel="0" Posicoes="0,0 10,0 10,10"/>
    ///   </SimboloVetorial>
    ///   <SimboloFonte Nome="Âncora" Letra="65" FonteNome="DejaVu Sans" FonteAltura="-11" .../>
    ///   <SimboloGrafico Nome="Brasão" Arquivo="brasao.png"/>
    /// </TabelaDeSimbolos>
    /// \endcode
    /// Inteiros em decimal: coordenadas em unidades do símbolo, cores `0x00BBGGRR` com sinal
    /// (-1 = sem cor), estilos pelos ordinais da plataforma, `Letra` pelo código UTF-16. Raios e
    /// ângulos (radianos) em decimal com 17 algarismos, para voltarem exatos. `Posicoes` são pares
    /// "x,y" separados por espaços. A ordem dos símbolos e dos elementos é a da tabela. Símbolos
    /// e elementos de outras classes (derivadas fora deste pacote) não são gravados.
    QByteArray ObterXML() const;
    /// Troca o conteúdo da tabela pelo documento `xml` (a forma de `ObterXML`).
    ///
    /// Atributos que faltam ficam no padrão do elemento; elementos desconhecidos são ignorados.
    /// Um documento mal formado, outra raiz, um número ilegível ou fora da faixa do campo, ou um
    /// raio ou ângulo não finito levantam `EFilerError` ou `EConvertError` com a mensagem em
    /// português, e a tabela fica como estava. A figura de um `SimboloGrafico` que não se deixa
    /// ler não é erro: o símbolo entra com o nome do arquivo e sem figura (não desenha nada), e
    /// volta a ser gravado igual. Um nome relativo achado em `pasta` passa a ser o caminho
    /// completo.
    /// \param pasta onde procurar primeiro os nomes relativos de figuras (vazia: só o nome dado)
    void AtribuirXML(const QByteArray &xml, const QString &pasta = QString());

private:
    std::vector<std::unique_ptr<ISimbolo>> FSimbolos;
};

} // namespace tavru
