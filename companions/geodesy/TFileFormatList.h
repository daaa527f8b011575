#pragma once
/// \file
/// A lista dos formatos de figura do pacote: extensão, descrição, leitor e gravador.

#include <tavru/platform/Exportacao.h>

#include <QImage>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QIODevice;

namespace tavru {

/// Um formato de figura: as extensões (minúsculas, sem ponto; a primeira é a principal), a
/// descrição do diálogo e as funções que leem e gravam.
///
/// `Ler` vazio quer dizer "o leitor de imagens da plataforma" (o do Qt, que reconhece o formato
/// pelo conteúdo e respeita o limite de alocação dele); quem lê a figura usa então o seu caminho
/// comum. Um `Ler` dado decodifica o fluxo inteiro e levanta `EInOutError` com o motivo em
/// português; o tamanho que ele devolve já passou por `conferir` (chamada com o tamanho em pixels
/// antes de alocar a figura, ela levanta quando o tamanho passa do limite de quem lê).
/// `Gravar` vazio: o formato só se lê. Um `Gravar` dado grava a figura inteira no arquivo e
/// levanta `EInOutError` quando não consegue.
struct TFormatoGrafico
{
    QStringList Extensoes;
    QString Descricao;
    std::function<QImage(QIODevice &fluxo, const std::function<void(QSize)> &conferir)> Ler;
    std::function<void(const QImage &figura, const QString &nomeArquivo)> Gravar;
};

/// A lista dos formatos de figura, uma para o processo. Cada formato é uma unidade pequena que se
/// registra nela quando a biblioteca carrega (e sai quando descarrega). `TGISImagem::LerArquivo`,
/// o filtro do diálogo das imagens e o tratador de figuras georreferenciadas a usam.
///
/// Protegida por um mutex; as funções devolvem cópias, nunca referências para dentro da lista.
class TAVRU_GEODESIA_EXPORT TFileFormatList
{
public:
    /// Acrescenta um formato no fim. Uma extensão que outro formato já tem fica com o primeiro.
    static void Registrar(const TFormatoGrafico &formato);
    /// Tira o formato cuja extensão principal é `extensao`.
    static void Remover(const QString &extensao);
    /// O formato de `extensao` (sem diferenciar maiúsculas, com ou sem o ponto) em `formato`;
    /// responde se achou.
    static bool GraphicFromExtension(const QString &extensao, TFormatoGrafico &formato);
    /// Os formatos, na ordem de registro.
    static std::vector<TFormatoGrafico> Formatos();
    /// O filtro do diálogo de abrir, no formato da casa: "All Images (*.jpg;*.png;...)|*.jpg;..."
    /// e um par por formato que se lê ("Arquivo do JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg", ...).
    static QString GetGraphicFilter();
};

} // namespace tavru
