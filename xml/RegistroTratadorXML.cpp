// O registro do tratador XML pela vida da biblioteca: o objeto estático registra o tipo "XML" na
// carga e o remove na descarga.

#include <tavru/core/TRegistraTratador.h>
#include <tavru/xml/TTratadorDeArquivosXML.h>

namespace tavru {
namespace {

const TRegistraTratador RegistroXML(QStringLiteral("XML"), TTratadorDeArquivosXML::Classe,
                                    QStringLiteral("Arquivos XML (*.xml)|*.xml"),
                                    QStringLiteral("Arquivos XML (*.xml)|*.xml"));

} // namespace
} // namespace tavru
