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

/// As linhas do documento em bytes, na codificação que `cabecalho` declara, cada linha seguida de
/// CR LF. \throws EConvertError codificação não suportada, ou um caractere que ela não tem (a
/// mensagem diz qual); nada é gravado nesse caso porque nada foi escrito ainda.
QByteArray CodificarDocumento(const QStringList &linhas, const QString &cabecalho);

} // namespace tavru::xmlp
