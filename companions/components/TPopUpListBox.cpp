#include <tavru/companions/components/TPopUpListBox.h>

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace tavru {

TPopUpListBox::TPopUpListBox(QWidget *parent) : QListWidget(parent)
{
    setWindowFlags(Qt::Popup);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { Escolher(row(item)); });
}

TPopUpListBox::~TPopUpListBox() = default;

void TPopUpListBox::Executar()
{
    Executar(QCursor::pos());
}

void TPopUpListBox::Executar(const QPoint &posicaoGlobal)
{
    clear();
    FItemIndex = -1;
    if (FItems.Count() == 0) {
        hide();
        return;
    }
    addItems(FItems.Textos());
    setCurrentRow(-1);
    const int linhas = std::min(FItems.Count(), LinhasVisiveis);
    const int largura = std::max(sizeHintForColumn(0) + 2 * frameWidth() + 8
                                     + (FItems.Count() > linhas ? verticalScrollBar()->sizeHint().width() : 0),
                                 80);
    const int altura = sizeHintForRow(0) * linhas + 2 * frameWidth();
    QRect r(posicaoGlobal, QSize(largura, altura));
    if (const QScreen *tela = QGuiApplication::screenAt(posicaoGlobal)) {
        const QRect disponivel = tela->availableGeometry();
        if (r.right() > disponivel.right())
            r.moveRight(disponivel.right());
        if (r.bottom() > disponivel.bottom())
            r.moveBottom(posicaoGlobal.y() - 1);
        r.moveTopLeft(QPoint(std::max(r.left(), disponivel.left()), std::max(r.top(), disponivel.top())));
    }
    setGeometry(r);
    show();
    setFocus();
}

void TPopUpListBox::Escolher(int indice)
{
    FItems.Strings(indice); // verifica o índice (EListError)
    hide();
    FItemIndex = indice;
    DoEscolher();
}

void TPopUpListBox::DoEscolher()
{
    if (OnEscolher)
        OnEscolher(*this);
}

void TPopUpListBox::keyPressEvent(QKeyEvent *evento)
{
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentRow() >= 0)
            Escolher(currentRow());
        return;
    case Qt::Key_Escape:
        hide();
        return;
    default:
        QListWidget::keyPressEvent(evento);
    }
}

} // namespace tavru
