#pragma once
// Privado (não instalado): a codificação dos textos de um ".dbf".

#include <QByteArray>
#include <QString>

namespace tavru::shp {

/// As codificações que os ".dbf" trazem na prática.
enum TCodificacaoDBF { cdUtf8, cdLatin1, cdWindows1252, cdCp850 };

/// A codificação pelo texto de um ".cpg" ("UTF-8", "65001", "1252", "ISO-8859-1", "850"...,
/// sem distinguir maiúsculas); falso quando o texto não é de nenhuma das quatro.
bool CodificacaoDoCpg(const QByteArray &cpg, TCodificacaoDBF &codificacao);
/// A codificação pelo byte do "language driver" (posição 29 do cabeçalho): 0x03 e 0x57 a 0x59
/// Windows-1252; os códigos de DOS internacional e português 0x02, 0x10, 0x12, 0x14, 0x16, 0x1A,
/// 0x1D, 0x24, 0x25 e 0x37 CP850; falso para os outros (0 inclusive).
bool CodificacaoDoByte(int byte, TCodificacaoDBF &codificacao);
/// O texto dos bytes na codificação. Bytes inválidos em UTF-8 viram o caractere de substituição.
QString Decodificar(const char *bytes, int tamanho, TCodificacaoDBF codificacao);

} // namespace tavru::shp
