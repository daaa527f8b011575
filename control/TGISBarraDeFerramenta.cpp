#include <tavru/control/TGISBarraDeFerramenta.h>

#include "BitmapDoRecurso_p.h"

#include <tavru/control/TGis.h>
#include <tavru/control/TLigacaoAoGis.h>
#include <tavru/platform/TProvedorDeDialogos.h>

namespace tavru {

TGISBarraDeFerramenta::TGISBarraDeFerramenta(QWidget *parent) : TCustomBarraDeFerramentas(parent)
{
    CriarComponentes();
}

TGISBarraDeFerramenta::~TGISBarraDeFerramenta() = default;

void TGISBarraDeFerramenta::AtribuirGis(TGis *gis)
{
    if (FGis)
        disconnect(FGis, &TGis::Destruindo, this, &TGISBarraDeFerramenta::Notification);
    FGis = gis;
    if (FGis)
        connect(FGis, &TGis::Destruindo, this, &TGISBarraDeFerramenta::Notification, Qt::UniqueConnection);
}

void TGISBarraDeFerramenta::Notification()
{
    FGis = nullptr;
}

void TGISBarraDeFerramenta::CriarComponentes()
{
    // As duas tabelas paralelas de dez lugares; a dica vazia faz um lugar vazio.
    static const char *const dicas[10] = {"Interrogar", "Editar", "", "Visualizar", "Ajustar a Janela",
                                          "Ampliar uma Área", "Ampliar", "Reduzir", "Altera Cor de Fundo",
                                          "Alterar a Fonte"};
    static const char *const recursos[10] = {"BMP_INTERROGAR", "BMP_EDITAR", "", "BMP_VISUALIZAR",
                                             "BMP_AJUSTARZOOM", "BMP_ZOOMRET", "BMP_AMPLIAR", "BMP_REDUZIR",
                                             "BMP_COR", "BMP_FONTE"};
    for (int i = 0; i < 10; ++i)
        Botoes().Add(QString::fromUtf8(dicas[i]), *recursos[i] ? BitmapDoRecurso(recursos[i]) : QImage());
    for (int i : {bfInterrogar, bfEditar})
        ObterBotao(i)->SetGroupIndex(1);
    for (int i : {bfAjustar, bfFonte, bfCorDeFundo})
        ObterBotao(i)->SetGroupIndex(0);
}

void TGISBarraDeFerramenta::DoClicar(int indice)
{
    TCustomBarraDeFerramentas::DoClicar(indice);
    if (indice != bfFonte || !FGis)
        return;
    TFont fonte = FGis->FonteRotulo();
    if (Dialogos().EscolherFonte(fonte)) {
        FGis->FonteRotulo().Assign(fonte);
        FGis->Desenhar();
    }
    Atualizar();
}

QString TGISBarraDeFerramenta::NomeDoGis() const
{
    return FLigacao ? FLigacao->Nome() : QString();
}

void TGISBarraDeFerramenta::AtribuirNomeDoGis(const QString &nome)
{
    if (!FLigacao)
        FLigacao = new TLigacaoAoGis(*this, [this](TGis *gis) { AtribuirGis(gis); });
    FLigacao->AtribuirNome(nome);
}

} // namespace tavru
