#pragma once
/// \file
/// Um documento XML lido de um texto, para entregar nós aos leitores do tratador XML.

#include <tavru/platform/Exportacao.h>
#include <tavru/xml/TNoXML.h>

#include <QByteArray>
#include <memory>

namespace tavru {

/// Documento XML em memória (possui o DOM). Os nós que ele dá valem enquanto ele existir.
class TAVRU_GIS_EXPORT TDocumentoXML
{
public:
    TDocumentoXML();
    ~TDocumentoXML();
    TDocumentoXML(const TDocumentoXML &) = delete;
    TDocumentoXML &operator=(const TDocumentoXML &) = delete;

    /// Lê o texto (na codificação que ele declara; UTF-8 sem declaração), trocando o documento
    /// anterior. \throws EFilerError texto mal formado, com o motivo e a posição.
    void Carregar(const QByteArray &texto);
    /// O elemento raiz, ou vazio.
    TNoXML Raiz() const;

private:
    struct TDados;
    std::unique_ptr<TDados> FDados;
};

} // namespace tavru
