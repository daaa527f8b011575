#include "TGISTreeNodeXMLEntidade.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjeto.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>

#include <QBrush>
#include <QPalette>
#include <algorithm>

namespace tavru {

TGISTreeNodeXMLEntidade::TGISTreeNodeXMLEntidade(const QString &tag, const TAtributos &atributos, const QString &texto)
    : TGisTreeNodeXML(tag, atributos, texto)
{
    AtualizarNo();
}

TGISTreeNodeXMLEntidade::~TGISTreeNodeXMLEntidade()
{
    Soltar();
}

void TGISTreeNodeXMLEntidade::Soltar()
{
    if (FObjeto)
        FObjeto->RemoverObservador(this);
    FObjeto = nullptr;
}

void TGISTreeNodeXMLEntidade::Vincular(TGis *gis)
{
    Soltar();
    FGis = gis;
    const QString id = Identificador();
    if (gis && !id.isEmpty()) {
        const TGISCamadaList &camadas = gis->Camadas();
        for (int c = 0; c < camadas.Count() && !FObjeto; ++c)
            FObjeto = camadas.Items(c)->Objetos().ObterObjeto(QStringLiteral("Identificador"), id);
    }
    if (FObjeto)
        FObjeto->AdicionarObservador(this);
    AtualizarNo();
}

TEstadoEntidade TGISTreeNodeXMLEntidade::Estado() const
{
    if (!FObjeto)
        return eeAusente;
    return FObjeto->Visivel() ? eeMostrada : eeEscondida;
}

void TGISTreeNodeXMLEntidade::AtualizarNo()
{
    // A caixa primeiro: cada mudança do item avisa a árvore, que compara a caixa com o objeto;
    // com a caixa já certa, nenhum aviso intermediário desfaz a mudança.
    if (FObjeto) {
        setCheckState(0, FObjeto->Visivel() ? Qt::Checked : Qt::Unchecked);
        setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        setForeground(0, QBrush());
        setForeground(1, QBrush());
    } else {
        // Sem objeto: cinza, sem caixa que prometa alguma coisa.
        setData(0, Qt::CheckStateRole, QVariant());
        setFlags(Qt::ItemIsSelectable);
        setForeground(0, QBrush(Qt::gray));
        setForeground(1, QBrush(Qt::gray));
    }
    static const char *const estados[] = {"mostrada", "escondida", "ausente"};
    QString rotulo = FObjeto && FGis ? FGis->ObterRotulo(*FObjeto) : QString();
    if (rotulo.isEmpty())
        rotulo = Nome().isEmpty() ? Identificador() : Nome();
    setText(0, rotulo);
    const QString tipo = TipoDaEntidade();
    const QString estado = QString::fromUtf8(estados[Estado()]);
    setText(1, tipo.isEmpty() ? estado : QStringLiteral("%1 (%2)").arg(tipo, estado));
}

bool TGISTreeNodeXMLEntidade::AtribuirVisivel(bool visivel)
{
    if (!FObjeto)
        return false;
    if (FObjeto->Visivel() != visivel)
        FObjeto->AtribuirVisivel(visivel); // o aviso de volta atualiza o nó
    if (FGis)
        FGis->Desenhar();
    return true;
}

bool TGISTreeNodeXMLEntidade::Mostrar()
{
    return AtribuirVisivel(true);
}

bool TGISTreeNodeXMLEntidade::Esconder()
{
    return AtribuirVisivel(false);
}

bool TGISTreeNodeXMLEntidade::Ajustar()
{
    if (!FObjeto || !FGis || !FGis->Projecao())
        return false;
    if (!FObjeto->Visivel())
        FObjeto->AtribuirVisivel(true);
    TGISRet area = ConcertaRect(FObjeto->Area());
    const std::int32_t minimo = 180; // 0,05° em segundos de arco
    const std::int32_t dLat = std::max((area.Pos2.Latitude - area.Pos1.Latitude) / 4, minimo);
    const std::int32_t dLon = std::max((area.Pos2.Longitude - area.Pos1.Longitude) / 4, minimo);
    area = GISRet(area.Pos1.Latitude - dLat, area.Pos1.Longitude - dLon, area.Pos2.Latitude + dLat,
                  area.Pos2.Longitude + dLon);
    FGis->Projecao()->FitToRect(area);
    FGis->Desenhar();
    return true;
}

void TGISTreeNodeXMLEntidade::GISMudou(const TGISAviso &aviso)
{
    if (aviso.Mudanca == gmLiberado && aviso.Objeto == FObjeto) {
        // O objeto vai ser liberado: esquecê-lo sem tirar o observador (a lista dele já some).
        FObjeto = nullptr;
        AtualizarNo();
    } else if (aviso.Mudanca == gmAlterado) {
        AtualizarNo();
    }
}

} // namespace tavru
