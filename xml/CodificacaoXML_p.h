#pragma once
/// \file
/// Uso interno do leitor e do gravador de documentos XML: a conversão dos valores de atributo nos
/// dois sentidos e a codificação do documento em bytes. Não é instalado.
///
/// Os textos lidos vêm do DOM em UTF-8 (o pugixml converte ISO-8859-1 ao carregar). As formas
/// canônicas que o próprio gravador escreve (coordenadas em graus) têm um caminho rápido que dá
/// exatamente o que as funções do pacote de geodésia dariam; todo o resto passa por elas.

#include <tavru/platform/TBrush.h>
#include <tavru/platform/TColor.h>
#include <tavru/platform/TPen.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace tavru::xmlp {

// Leitura. Todas levantam EConvertError com mensagem em português quando o texto não serve.

/// Inteiro decimal de 32 bits: sinal opcional e dígitos, com espaços em volta tolerados.
std::int32_t LerInteiro(const char *texto);
/// Cor hexadecimal: o texto é lido como `"$" + texto`, isto é, só dígitos hexadecimais (de
/// qualquer caixa), de valor até FFFFFFFF, guardado nos 32 bits da cor (`FFFFFFFF` é -1).
TColor LerCorHexadecimal(const char *texto);
/// Estilo de caneta (0..6) e de pincel (0..7), em decimal.
TPenStyle LerEstiloCaneta(const char *texto);
TBrushStyle LerEstiloPincel(const char *texto);
/// Coordenada em graus com a letra do hemisfério (`GrauToInt`), em segundos de arco.
std::int32_t LerGrau(const char *texto);
/// Tamanho no mundo de um ponto: um inteiro decimal são segundos de arco (o que o gravador
/// escreve, que assim volta igual); qualquer outro texto é lido por `GrauToInt` (graus).
std::int32_t LerTamanhoNoMundo(const char *texto);
/// Latitude de um atributo de posição: com "S" ou "N" (sem distinguir maiúsculas) é texto em
/// graus (`LerGrau`); senão, um inteiro em segundos de arco (`LerInteiro`).
std::int32_t LerLatitude(const char *texto);
/// Longitude: o mesmo com "E" ou "W".
std::int32_t LerLongitude(const char *texto);
/// O texto do DOM como `QString`.
inline QString Texto(const char *texto) { return QString::fromUtf8(texto); }

// Gravação.

/// Acrescenta a `destino` o texto que `IntToGrau(valor, ehLatitude)` dá, sem passar por ele.
void AcrescentarGrau(QString &destino, std::int32_t valor, bool ehLatitude);
/// O texto de `IntToGrau(valor, ehLatitude)`.
QString Grau(std::int32_t valor, bool ehLatitude);
/// Cor em hexadecimal com ao menos 6 dígitos maiúsculos, os 32 bits quando a cor é negativa
/// (-1 dá `FFFFFFFF`).
QString CorHexadecimal(TColor cor);
/// O texto livre (texto, nome de arquivo, de fonte) como vai para o documento: como está, ou com
/// as entidades do XML quando `ESCAPAR_TEXTOS` está ligado.
QString TextoLivre(const QString &texto);

/// O texto de um documento a caminho do DOM, num bloco do alocador do pugixml (possuído). O DOM o
/// analisa no lugar, então ele vive mais que o documento do pugixml que o usa.
class TTextoDoDocumento
{
public:
    TTextoDoDocumento() = default;
    ~TTextoDoDocumento();
    TTextoDoDocumento(const TTextoDoDocumento &) = delete;
    TTextoDoDocumento &operator=(const TTextoDoDocumento &) = delete;
    /// Um bloco novo de `tamanho` bytes no lugar do atual. \throws EFilerError sem memória.
    char *Alocar(size_t tamanho);
    char *Dados() const { return FBloco + FInicio; }
    size_t Tamanho() const { return FTamanho; }

private:
    friend void ConferirDocumento(TTextoDoDocumento &texto, const QString &origem, size_t descontar);
    char *FBloco = nullptr;
    size_t FInicio = 0;
    size_t FTamanho = 0;
};

/// Confere os bytes do documento e os deixa em UTF-8 para o DOM. A codificação vem da marca de
/// ordem de bytes (UTF-8 ou UTF-16) ou da declaração XML (ISO-8859-1, US-ASCII ou UTF-8; sem
/// declaração, UTF-8); ISO-8859-1 e UTF-16 são convertidos. Nada é trocado em silêncio: bytes
/// inválidos na codificação (um byte Latin-1 solto num documento UTF-8, UTF-8 longo demais ou de
/// substitutos, um substituto solto em UTF-16, um byte acima de 127 em US-ASCII), caracteres que o
/// XML 1.0 proíbe (controles fora tabulação, LF e CR; U+FFFE e U+FFFF), também escritos como
/// referência (`&#0;`, `&#xFFFF;`, `&#xD800;`, acima de U+10FFFF), e uma codificação declarada que
/// não é uma dessas são erros. Referências dentro de comentários, CDATA e instruções de
/// processamento são texto e não contam.
/// Os primeiros `descontar` bytes (um invólucro que quem chama pôs em volta do texto dele) não
/// contam nas posições.
/// \throws EFilerError "<origem>, linha L, coluna C: <o problema>." (linhas e colunas contadas de
///         1; colunas em caracteres).
void ConferirDocumento(TTextoDoDocumento &texto, const QString &origem, size_t descontar = 0);
/// A linha e a coluna (contadas de 1; colunas em caracteres) do byte `deslocamento` de um texto
/// UTF-8, como as mensagens as dão, sem contar os primeiros `descontar` bytes.
void LinhaEColuna(const char *texto, size_t deslocamento, qsizetype &linha, qsizetype &coluna, size_t descontar = 0);

/// As linhas do documento em bytes, na codificação que `cabecalho` declara, cada linha seguida de
/// CR LF. \throws EConvertError codificação não suportada, ou um caractere que ela não tem (a
/// mensagem diz qual); nada é gravado nesse caso porque nada foi escrito ainda.
QByteArray CodificarDocumento(const QStringList &linhas, const QString &cabecalho);

} // namespace tavru::xmlp
