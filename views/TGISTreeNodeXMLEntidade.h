#pragma once
/// \file
/// O nó de uma entidade acompanhada: liga um elemento `<Entidade>` ao objeto do mapa dela.

#include <tavru/companions/symbology/TGisTreeNodeXML.h>
#include <tavru/core/IGISObservador.h>
#include <tavru/platform/Exportacao.h>

#include <QPointer>

namespace tavru {

class TGis;
class TGISObjeto;

/// O estado de uma entidade acompanhada.
enum TEstadoEntidade {
    eeMostrada,  ///< o objeto existe e está visível
    eeEscondida, ///< o objeto existe com `Visivel` falso (fica na camada, não é desenhado nem achado)
    eeAusente    ///< nenhum objeto do mapa tem o identificador (ou ele foi liberado)
};

/// Nó de uma entidade de um documento de acompanhamento (`<Entidade Identificador="..."
/// Nome="..." Tipo="...">`, com o bloco de informações dela como nós filhos). `Vincular` procura,
/// nas camadas do mapa, o primeiro objeto cujo campo de informação "Identificador" tem o mesmo
/// valor (exato); a coluna 0 mostra o rótulo do objeto no mapa (ou o `Nome` da entidade, quando o
/// objeto não tem rótulo ou falta), com uma caixa marcada quando ele está visível, e a coluna 1 o
/// tipo e o estado ("mostrada", "escondida", "ausente").
///
/// `Mostrar` e `Esconder` mudam o `Visivel` do objeto (que continua na camada) e redesenham o
/// mapa; `Ajustar` mostra o objeto e leva a visão a ele (centro e zoom na extensão dele, crescida
/// de um quarto de cada lado e de pelo menos 0,05°) e redesenha.
///
/// **Vida.** O nó observa o objeto: quando ele é liberado, o nó o esquece, fica cinza e
/// desabilitado, e o estado passa a "ausente"; nunca guarda um ponteiro pendurado. O mapa é
/// guardado por `QPointer`. Extensão.
class TAVRU_GIS_EXPORT TGISTreeNodeXMLEntidade : public TGisTreeNodeXML, private IGISObservador
{
public:
    TGISTreeNodeXMLEntidade(const QString &tag, const TAtributos &atributos, const QString &texto);
    ~TGISTreeNodeXMLEntidade() override;

    QString Identificador() const { return Atributo(QStringLiteral("Identificador")); }
    QString Nome() const { return Atributo(QStringLiteral("Nome")); }
    QString TipoDaEntidade() const { return Atributo(QStringLiteral("Tipo")); }

    /// Procura o objeto da entidade no mapa (nulo: nenhum) e atualiza o nó.
    void Vincular(TGis *gis);
    /// O objeto ligado, ou nulo.
    TGISObjeto *Objeto() const { return FObjeto; }
    TEstadoEntidade Estado() const;

    /// Põe `Visivel` do objeto e redesenha; falso se não há objeto.
    bool Mostrar();
    bool Esconder();
    /// Mostra o objeto e leva a visão a ele; falso se não há objeto.
    bool Ajustar();
    /// Refaz os textos, a caixa e a cor do nó a partir do objeto.
    void AtualizarNo();

private:
    QPointer<TGis> FGis;
    TGISObjeto *FObjeto = nullptr;

    void Soltar();
    bool AtribuirVisivel(bool visivel);
    void GISMudou(const TGISAviso &aviso) override;
};

} // namespace tavru
