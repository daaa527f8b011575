#pragma once
/// \file
/// O símbolo gráfico: uma figura lida de um arquivo.

#include <tavru/companions/symbology/ISimbolo.h>

#include <QImage>

namespace tavru {

/// Símbolo que é uma figura lida de arquivo (PNG, JPEG, GIF, BMP e o que os leitores de imagem
/// do Qt instalados lerem), guardando o nome do arquivo.
///
/// Desenho: a figura esticada no maior retângulo de mesma proporção que cabe no pedido, centrado
/// nele, com a transparência dela. A figura não gira: o ângulo é ignorado.
class TAVRU_SIMBOLOGIA_EXPORT TSimboloGrafico : public ISimbolo
{
public:
    explicit TSimboloGrafico(const QString &nome = QString()) : ISimbolo(nome) {}

    /// Lê a figura do arquivo `nome` (o formato vem do conteúdo). `NomeArquivo` passa a ser
    /// `nome` mesmo que a leitura falhe. Um arquivo que não existe levanta `EInOutError` com "O
    /// arquivo especificado não existe ou não está disponível!"; uma figura ilegível levanta
    /// `EInOutError` com "Formato de imagem desconhecido ou arquivo corrompido: <nome> (<motivo>)";
    /// nesses casos a figura anterior fica. Figuras enormes são recusadas pelo limite de memória
    /// do leitor de imagens do Qt.
    void LerArquivo(const QString &nome);
    QString NomeArquivo() const { return FNomeArquivo; }
    const QImage &Imagem() const { return FImagem; }

    void DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const override;

private:
    QString FNomeArquivo;
    QImage FImagem;
};

} // namespace tavru
