#include <tavru/xml/TDocumentoXML.h>

#include <tavru/xml/NoXML_p.h>

namespace tavru {

struct TDocumentoXML::TDados
{
    pugi::xml_document Documento;
};

TDocumentoXML::TDocumentoXML() : FDados(std::make_unique<TDados>()) {}

TDocumentoXML::~TDocumentoXML() = default;

void TDocumentoXML::Carregar(const QByteArray &texto)
{
    FDados->Documento.reset();
    const pugi::xml_parse_result r = FDados->Documento.load_buffer(
        texto.constData(), static_cast<size_t>(texto.size()), xmlp::OpcoesDoDOM, pugi::encoding_auto);
    if (!r) {
        FDados->Documento.reset();
        xmlp::ErroDeDocumento(QStringLiteral("O texto"), r);
    }
}

TNoXML TDocumentoXML::Raiz() const
{
    return TAcessoNoXML::Criar(FDados->Documento.document_element(), nullptr);
}

} // namespace tavru
