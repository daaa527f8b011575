#pragma once
/// \file
/// Um nó de elemento de um documento XML lido, sem expor a biblioteca de DOM.

#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

class TDocumentoXML;

/// Referência leve a um nó de um documento XML lido (`TDocumentoXML`, ou o documento de uma
/// leitura do tratador XML). Não possui nada: vale enquanto o documento existir. Copiar é barato.
/// Um nó vazio (o padrão, ou o filho que não existe) responde textos vazios e nós vazios.
///
/// Além do nó, carrega o estado da leitura em andamento (a pasta do documento, a profundidade de
/// compostos): os filhos herdam esse estado, de modo que duas leituras ao mesmo tempo não se
/// misturam. Um nó de um `TDocumentoXML` não tem leitura; o tratador começa uma nova.
class TAVRU_GIS_EXPORT TNoXML
{
public:
    TNoXML() = default;

    /// Se não há nó.
    bool Vazio() const { return FNo == nullptr; }
    explicit operator bool() const { return FNo != nullptr; }
    /// Se é um elemento (e não texto, comentário, ...).
    bool Elemento() const;
    /// O nome do elemento (vazio para outros nós).
    QString Nome() const;
    /// Se o elemento tem o atributo (nome com maiúsculas distinguidas).
    bool TemAtributo(const char *nome) const;
    /// O valor do atributo, ou vazio.
    QString Atributo(const char *nome) const;
    TNoXML PrimeiroFilho() const;
    /// O primeiro filho com esse nome, ou vazio.
    TNoXML Filho(const char *nome) const;
    /// O próximo irmão, ou vazio.
    TNoXML Proximo() const;

private:
    friend struct TAcessoNoXML;
    TNoXML(void *no, void *leitura) : FNo(no), FLeitura(leitura) {}

    void *FNo = nullptr;      // o nó do DOM
    void *FLeitura = nullptr; // o estado da leitura em andamento, ou nulo
};

} // namespace tavru
