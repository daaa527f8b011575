#include <tavru/companions/components/TVisualizadorInformacoes.h>

#include <tavru/companions/components/TInformacoes.h>

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavru {

TVisualizadorInformacoes::TVisualizadorInformacoes(QWidget *parent)
    : QWidget(parent), FTabela(new QTableWidget(0, 2, this))
{
    FTabela->setHorizontalHeaderLabels({QStringLiteral("Campo"), QStringLiteral("Valor")});
    FTabela->verticalHeader()->setVisible(false);
    FTabela->horizontalHeader()->setStretchLastSection(true);
    FTabela->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FTabela->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto *leiaute = new QVBoxLayout(this);
    leiaute->setContentsMargins(0, 0, 0, 0);
    leiaute->addWidget(FTabela);
}

TVisualizadorInformacoes::~TVisualizadorInformacoes() = default;

void TVisualizadorInformacoes::AtribuirInformacoes(const QStringList &linhas)
{
    FLinhas = linhas;
    const TInformacoes registro(linhas);
    const int total = registro.ObterTotal();
    FTabela->setRowCount(total);
    for (int i = 0; i < total; ++i) {
        FTabela->setItem(i, 0, new QTableWidgetItem(registro.ObterNomeCampo(i)));
        FTabela->setItem(i, 1, new QTableWidgetItem(registro.ObterValorCampo(i)));
    }
    FTabela->resizeColumnToContents(0);
}

void TVisualizadorInformacoes::Limpar()
{
    FLinhas.clear();
    FTabela->setRowCount(0);
}

int TVisualizadorInformacoes::ObterTotal() const
{
    return FTabela->rowCount();
}

QString TVisualizadorInformacoes::ObterCelula(int linha, int coluna) const
{
    const QTableWidgetItem *item = FTabela->item(linha, coluna);
    return item ? item->text() : QString();
}

} // namespace tavru
