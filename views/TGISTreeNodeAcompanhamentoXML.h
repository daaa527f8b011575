#pragma once
/// \file
/// A situação de acompanhamento: a raiz da árvore lida de um documento `<ACOMPANHAMENTO>`.

#include <tavru/companions/symbology/TGisTreeNodeXML.h>
#include <tavru/platform/Exportacao.h>

#include <memory>
#include <vector>

namespace tavru {

class TGis;
class TGISTreeNodeXMLEntidade;

/// A raiz de uma situação de acompanhamento, lida de um documento XML:
///
/// ```xml
/// <ACOMPANHAMENTO Nome="...">
///   <Entidade Identificador="F-01" Nome="Fragata Um" Tipo="Navio">
///     <Informacoes><Informacao><Rotulo>Rumo</Rotulo><Valor>045</Valor></Informacao></Informacoes>
///   </Entidade>
///   ...
/// </ACOMPANHAMENTO>
/// ```
///
/// Cada `<Entidade>` filha da raiz vira um `TGISTreeNodeXMLEntidade` (o bloco de informações
/// dela, nós XML comuns abaixo); outros elementos viram nós XML comuns. Uma raiz com outra marca
/// levanta `EConvertError`; os demais erros são os de `TGisTreeNodeXML::LerArquivo`. Extensão.
class TAVRU_GIS_EXPORT TGISTreeNodeAcompanhamentoXML : public TGisTreeNodeXML
{
public:
    /// A marca da raiz e a das entidades.
    static constexpr char MarcaRaiz[] = "ACOMPANHAMENTO";
    static constexpr char MarcaEntidade[] = "Entidade";

    using TGisTreeNodeXML::TGisTreeNodeXML;

    /// Lê o documento e liga cada entidade ao objeto dela em `gis` (pode ser nulo).
    static std::unique_ptr<TGISTreeNodeAcompanhamentoXML> Ler(const QString &arquivo, TGis *gis);
    /// O mesmo, de um texto.
    static std::unique_ptr<TGISTreeNodeAcompanhamentoXML> LerTexto(const QByteArray &xml, TGis *gis);

    /// As entidades, na ordem do documento.
    std::vector<TGISTreeNodeXMLEntidade *> Entidades() const;
    /// A entidade com esse identificador, ou nula.
    TGISTreeNodeXMLEntidade *Entidade(const QString &identificador) const;
    /// Liga de novo cada entidade (depois de o mapa mudar de camadas).
    void Vincular(TGis *gis);

private:
    static std::unique_ptr<TGISTreeNodeAcompanhamentoXML> Montar(std::unique_ptr<TGisTreeNodeXML> raiz, TGis *gis);
    static TFabrica Fabrica();
};

} // namespace tavru
