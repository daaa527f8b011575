#pragma once
/// \file
/// A ligação de um componente ao mapa pelo nome do mapa, como um formulário a guarda.

#include <tavru/platform/Exportacao.h>

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

class QWidget;

namespace tavru {

class TGis;

/// Extensão: guarda o nome (`objectName`) do `TGis` a que um componente (barra ou visão) se liga
/// e o procura entre os widgets da mesma janela quando o componente aparece e, de novo, logo que o
/// laço de eventos volta (depois de o formulário inteiro ser montado, para o mapa criado depois da
/// barra e para a lista instantânea, que fica escondida até aparecer). Achado um mapa de nome
/// diferente do ligado, chama `Ligar` com ele. A procura começa no ancestral mais alto do
/// componente (por cima das janelas instantâneas) e desce por todos os filhos.
///
/// Um nome vazio não desliga nada: a ligação feita em código (`AtribuirGis`) fica como está.
///
/// Posse: filha do componente; não possui o mapa.
class TAVRU_GIS_EXPORT TLigacaoAoGis : public QObject
{
    Q_OBJECT
public:
    /// `ligar` recebe o mapa achado (o `AtribuirGis` do componente).
    TLigacaoAoGis(QWidget &componente, std::function<void(TGis *)> ligar);

    const QString &Nome() const { return FNome; }
    /// Guarda o nome e agenda a procura.
    void AtribuirNome(const QString &nome);
    /// Procura agora o mapa de nome `Nome` e, achado um diferente do último ligado, liga-o.
    /// Devolve se há um mapa desse nome.
    bool Resolver();

    /// O `TGis` de nome `nome` entre os widgets do ancestral mais alto de `componente`, ou nulo.
    static TGis *AcharGis(const QWidget &componente, const QString &nome);

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    QWidget &FComponente;
    std::function<void(TGis *)> FLigar;
    QString FNome;
    QPointer<TGis> FLigado;
};

} // namespace tavru
