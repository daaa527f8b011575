#include "TColecaoGis.h"

#include "TComponenteGis.h"
#include "TMapaDeAmostra.h"

#include <tavru/control/TGISBarraDeFerramenta.h>
#include <tavru/control/TGISBarraDeInclusao.h>
#include <tavru/control/TGISBarraDeManipulacao.h>
#include <tavru/control/TGis.h>
#include <tavru/views/TGISConfigurarCamadas.h>
#include <tavru/views/TGISMiniatura.h>
#include <tavru/views/TGisPopUpListBox.h>

namespace tavru {

namespace {

/// O XML com que o componente cai no formulário: o nome, o tamanho e, para quem se liga a um
/// mapa, a propriedade `GIS` com o nome do mapa ("gis").
QString DomXml(const QString &classe, const QString &nome, int largura, int altura, bool ligaAoMapa)
{
    const QString ligacao = ligaAoMapa ? QStringLiteral("<property name=\"GIS\"><string>gis</string></property>")
                                       : QString();
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>%3</width>"
                          "<height>%4</height></rect></property>%5</widget></ui>")
        .arg(classe, nome)
        .arg(largura)
        .arg(altura)
        .arg(ligacao);
}

/// Os campos comuns de uma descrição; a fábrica padrão só cria o widget.
template <class T>
TDescricaoComponente DescricaoDe(const char *classe, const char *cabecalho, const char *icone, const QString &dica,
                               const QString &oQueE, const char *nome, int largura, int altura, bool ligaAoMapa)
{
    TDescricaoComponente d;
    d.Classe = QStringLiteral("tavru::") + QLatin1String(classe);
    d.Cabecalho = QStringLiteral("<tavru/%1>").arg(QLatin1String(cabecalho));
    d.Icone = QStringLiteral(":/") + QLatin1String(icone);
    d.Dica = dica;
    d.OQueE = oQueE;
    d.DomXml = DomXml(d.Classe, QLatin1String(nome), largura, altura, ligaAoMapa);
    d.Criar = [](QWidget *parent, bool) -> QWidget * { return new T(parent); };
    return d;
}

} // namespace

TColecaoGis::TColecaoGis(QObject *parent) : QObject(parent)
{
    auto mapa = DescricaoDe<TGis>("TGis", "control/TGis.h", "BMP_AJUSTARZOOM", QStringLiteral("Mapa"),
                                QStringLiteral("O controle de mapa: camadas de objetos sobre o mundo em latitude e "
                                               "longitude, com rótulos, seleção e ferramentas."),
                                "gis", 400, 300, false);
    mapa.Criar = [](QWidget *parent, bool projeto) -> QWidget * {
        auto *gis = new TGis(parent);
        if (projeto)
            MontarMapaDeAmostra(*gis);
        return gis;
    };

    auto lista = DescricaoDe<TGisPopUpListBox>(
        "TGisPopUpListBox", "views/TGisPopUpListBox.h", "BMP_VISUALIZAR", QStringLiteral("Lista de objetos sob o clique"),
        QStringLiteral("Lista instantânea: a cada clique no mapa mostra os objetos rotulados sob o ponto, e "
                       "escolher um o seleciona. Escondida até aparecer."),
        "listaDeObjetos", 160, 100, true);
    lista.Criar = [](QWidget *parent, bool projeto) -> QWidget * {
        auto *l = new TGisPopUpListBox(parent);
        if (projeto) {
            // No formulário, uma lista comum que se vê e se arrasta; no programa, a janela
            // instantânea escondida até o clique.
            l->setWindowFlags(Qt::Widget);
            l->addItems({QStringLiteral("Objeto sob o clique"), QStringLiteral("Outro objeto")});
        }
        return l;
    };

    const TDescricaoComponente descricoes[] = {
        mapa,
        DescricaoDe<TGISBarraDeFerramenta>(
            "TGISBarraDeFerramenta", "control/TGISBarraDeFerramenta.h", "BMP_INTERROGAR",
            QStringLiteral("Barra geral do mapa"),
            QStringLiteral("Interrogar, editar, visualizar, ajustar, ampliar, reduzir, cor de fundo e fonte dos "
                           "rótulos do mapa nomeado em GIS."),
            "barraDeFerramenta", 250, 26, true),
        DescricaoDe<TGISBarraDeInclusao>(
            "TGISBarraDeInclusao", "control/TGISBarraDeInclusao.h", "BMP_PONTO",
            QStringLiteral("Barra de inclusão de objetos"),
            QStringLiteral("Um botão por classe de objeto registrada (ponto, linha, área, área circular, imagem)."),
            "barraDeInclusao", 125, 26, true),
        DescricaoDe<TGISBarraDeManipulacao>(
            "TGISBarraDeManipulacao", "control/TGISBarraDeManipulacao.h", "BMP_MOVER",
            QStringLiteral("Barra de manipulação do mapa"),
            QStringLiteral("Ajustar à janela, mover, ampliar uma área, ampliar e reduzir o mapa nomeado em GIS."),
            "barraDeManipulacao", 125, 26, true),
        lista,
        DescricaoDe<TGISConfigurarCamadas>(
            "TGISConfigurarCamadas", "views/TGISConfigurarCamadas.h", "BMP_COR",
            QStringLiteral("Painel de camadas"),
            QStringLiteral("As camadas do mapa nomeado em GIS: visibilidade, rótulos, ordem e exportação."),
            "configurarCamadas", 220, 260, true),
        DescricaoDe<TGISMiniatura>(
            "TGISMiniatura", "views/TGISMiniatura.h", "BMP_ZOOMRET", QStringLiteral("Mapa de situação"),
            QStringLiteral("O mapa inteiro em miniatura com o retângulo da visão do mapa nomeado em GIS; um "
                           "clique centra o mapa ali."),
            "miniatura", 160, 120, true),
    };
    for (const auto &d : descricoes)
        FComponentes.append(new TComponenteGis(d, this));
}

QString TColecaoGis::Descricao()
{
    return QStringLiteral("Tavru - Componentes GIS");
}

QString TColecaoGis::Grupo()
{
    return QStringLiteral("GIS");
}

} // namespace tavru
