#include <tavru/xml/ConfiguracaoXML.h>

namespace tavru {

QString TAG_RAIZ = QStringLiteral("CAMADA");
QString CABECALHO = QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>");
bool USAR_TABELA_DE_SIMBOLOS = false;
bool ESCAPAR_TEXTOS = false;

} // namespace tavru
