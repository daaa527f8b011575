#include <tavru/xml/TNoXML.h>

#include <tavru/xml/NoXML_p.h>

namespace tavru {

namespace {
TNoXML Mesmo(const TNoXML &base, const pugi::xml_node &no)
{
    return xmlp::Na(base, no);
}
} // namespace

bool TNoXML::Elemento() const
{
    return xmlp::Dom(*this).type() == pugi::node_element;
}

QString TNoXML::Nome() const
{
    return Elemento() ? QString::fromUtf8(xmlp::Dom(*this).name()) : QString();
}

bool TNoXML::TemAtributo(const char *nome) const
{
    return static_cast<bool>(xmlp::Dom(*this).attribute(nome));
}

QString TNoXML::Atributo(const char *nome) const
{
    return QString::fromUtf8(xmlp::Dom(*this).attribute(nome).value());
}

TNoXML TNoXML::PrimeiroFilho() const
{
    return Mesmo(*this, xmlp::Dom(*this).first_child());
}

TNoXML TNoXML::Filho(const char *nome) const
{
    return Mesmo(*this, xmlp::Dom(*this).child(nome));
}

TNoXML TNoXML::Proximo() const
{
    return Mesmo(*this, xmlp::Dom(*this).next_sibling());
}

} // namespace tavru
