#include <tavru/views/TGisPopUpListBox.h>

#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/core/TGISCamadaList.h>

namespace tavru {

TGisPopUpListBox::TGisPopUpListBox(QWidget *parent) : TPopUpListBox(parent) {}

TGisPopUpListBox::~TGisPopUpListBox()
{
    AtribuirGis(nullptr);
}

void TGisPopUpListBox::AtribuirGis(TGis *gis)
{
    // O mesmo mapa: nada muda, nem a ordem das ferramentas registradas nele.
    if (FGis == gis)
        return;
    if (FGis) {
        FGis->RemoverRegistroMouseEvent(this);
        disconnect(FGis, &TGis::Destruindo, this, &TGisPopUpListBox::Notification);
    }
    FGis = gis;
    if (FGis) {
        FGis->RegistrarMouseEvent(this);
        connect(FGis, &TGis::Destruindo, this, &TGisPopUpListBox::Notification, Qt::UniqueConnection);
    }
}

void TGisPopUpListBox::Notification()
{
    FGis = nullptr;
}

void TGisPopUpListBox::GISMouseClick(const TPoint &ponto)
{
    if (!FGis)
        return;
    FGis->ObterListaDeObjetos(ponto, Items());
    if (Items().Count() >= 1)
        Executar(FGis->mapToGlobal(QPoint(ponto.X, ponto.Y)));
    else
        hide();
}

void TGisPopUpListBox::DoEscolher()
{
    TPopUpListBox::DoEscolher();
    if (ItemIndex() < 0)
        return;
    auto *objeto = Items().Objeto<TGISObjeto>(ItemIndex());
    if (!objeto || !FGis || !FGis->Camadas().ObterCamadaPeloObjeto(objeto))
        return;
    FGis->SelecionarObjeto(objeto);
    DoClickObjeto(objeto);
}

void TGisPopUpListBox::DoClickObjeto(TGISObjeto *objeto)
{
    if (OnClickObjeto)
        OnClickObjeto(this, objeto);
}

QString TGisPopUpListBox::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGisPopUpListBox::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
