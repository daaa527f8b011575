#pragma once
/// \file
/// A tabela de símbolos: uma lista indexada de símbolos, dona deles.

#include <tavru/companions/symbology/ISimbolo.h>
#include <tavru/platform/Exportacao.h>
#include <tavru/platform/TPoint.h>

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

private:
    std::vector<std::unique_ptr<ISimbolo>> FSimbolos;
};

} // namespace tavru
