#include "access/contrastgridwindow.h"

#include "access/contrastgridmodel.h"
#include "common/appcontext.h"

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

CContrastGridWindow::CContrastGridWindow(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setWindowTitle(AppContext::productName() + tr(" - Contrast Grid"));
    auto *layout = new QVBoxLayout(this);
    auto *note = new QLabel(tr("Each cell: the column's colour as text on the row's colour. "
                               "AAA 7:1, AA 4.5:1, large only 3:1 (large text and non-text)."),
                            this);
    note->setWordWrap(true);
    layout->addWidget(note);
    m_model = new CContrastGridModel(this);
    m_view = new QTableView(this);
    m_view->setModel(m_model);
    // Fixed sections: the view never measures 40,000 cells to lay them out.
    const QFontMetrics metrics(m_view->font());
    for (QHeaderView *header : {m_view->horizontalHeader(), m_view->verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setDefaultAlignment(Qt::AlignCenter);
    }
    m_view->horizontalHeader()->setDefaultSectionSize(metrics.horizontalAdvance(QStringLiteral("large only__")));
    m_view->verticalHeader()->setDefaultSectionSize(3 * metrics.height());
    m_view->setWordWrap(true);
    layout->addWidget(m_view, 1);
    auto *row = new QHBoxLayout;
    row->addStretch();
    m_copy = new QPushButton(tr("&Copy as Text"), this);
    connect(m_copy, &QPushButton::clicked, this, &CContrastGridWindow::copyText);
    row->addWidget(m_copy);
    layout->addLayout(row);
    resize(720, 520);
}

void CContrastGridWindow::setColours(const QVector<PaletteColour> &colours)
{
    m_model->setColours(colours);
}

QString CContrastGridWindow::text() const
{
    return m_model->grid().tsv(true);
}

void CContrastGridWindow::copyText() const
{
    QApplication::clipboard()->setText(text());
}
