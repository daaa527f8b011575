#pragma once
// Privado do XML: a ponte entre `TNoXML` e o DOM do pugixml, e o estado de uma leitura.

#include <tavru/xml/TNoXML.h>

#include <QString>
#include <pugixml.hpp>

namespace tavru {

class TGISTratadorDeArquivo;

/// O estado de uma leitura do documento, que vive na pilha de quem a começa: a pasta do
/// documento (onde figuras com nome relativo são procuradas primeiro) e a profundidade de
/// compostos dentro de compostos.
struct TLeituraXML
{
    QString Pasta;
    int Profundidade = 0;
    /// O tratador que lê o documento e a lista dele: só ela avisa o progresso.
    TGISTratadorDeArquivo *Tratador = nullptr;
};

struct TAcessoNoXML
{
    static pugi::xml_node Dom(const TNoXML &no)
    {
        return pugi::xml_node(static_cast<pugi::xml_node_struct *>(no.FNo));
    }
    static TLeituraXML *Leitura(const TNoXML &no) { return static_cast<TLeituraXML *>(no.FLeitura); }
    static TNoXML Criar(const pugi::xml_node &no, TLeituraXML *leitura)
    {
        return TNoXML(no.internal_object(), leitura);
    }
};

namespace xmlp {

/// Opções do DOM: as de sempre, e o texto só de espaços guardado quando é o único filho (o valor
/// "  " de um campo de informação volta igual).
constexpr unsigned OpcoesDoDOM = pugi::parse_default | pugi::parse_ws_pcdata_single;
/// O motivo de uma análise que falhou, em português.
QString DescricaoDoErro(pugi::xml_parse_status status);
/// Levanta `EFilerError`: "<origem> não é um documento XML bem formado: <motivo> (posição N)."
[[noreturn]] void ErroDeDocumento(const QString &origem, const pugi::xml_parse_result &r);

inline pugi::xml_node Dom(const TNoXML &no)
{
    return TAcessoNoXML::Dom(no);
}

/// Outro nó da mesma leitura.
inline TNoXML Na(const TNoXML &base, const pugi::xml_node &no)
{
    return TAcessoNoXML::Criar(no, TAcessoNoXML::Leitura(base));
}

/// O nó com uma leitura: a dele, ou `nova` quando ele não tem (uma leitura começa aqui).
inline TNoXML ComLeitura(const TNoXML &no, TLeituraXML &nova)
{
    TLeituraXML *leitura = TAcessoNoXML::Leitura(no);
    return TAcessoNoXML::Criar(Dom(no), leitura ? leitura : &nova);
}

} // namespace xmlp
} // namespace tavru
