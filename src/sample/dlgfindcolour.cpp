#include "sample/dlgfindcolour.h"

#include "common/appcontext.h"
#include "library/libdialogrows.h"
#include "sample/colournamemodel.h"
#include "tables/colourtable.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

namespace {
const char *const kHelpAnchor = "sample.html#findColour";
const int kSwatchWidth = 34;
} // namespace

CDlgFindColour::CDlgFindColour(const QString &tableName, const CColourTable &table,
                               int rgbFormat, QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setWindowTitle(AppContext::productName() + tr(" - Find Colour"));
    m_model = new CColourNameModel(rgbFormat, this);
    auto *layout = new QVBoxLayout(this);
    m_tableLabel = new QLabel(this);
    layout->addWidget(m_tableLabel);
    auto *searchRow = new QHBoxLayout;
    auto *caption = new QLabel(tr("&Name contains:"), this);
    // No clear button: Qt 5.15 leaves its fade animation behind when the
    // window closes, which the leak-checked test run reports.
    m_search = new QLineEdit(this);
    caption->setBuddy(m_search);
    searchRow->addWidget(caption);
    searchRow->addWidget(m_search, 1);
    layout->addLayout(searchRow);
    buildResultsView();
    layout->addWidget(m_view, 1);
    m_countLabel = new QLabel(this);
    layout->addWidget(m_countLabel);
    layout->addWidget(CLibDialogRows::horizontalRule(this));
    layout->addLayout(buildButtonRow());
    connect(m_search, &QLineEdit::textChanged, this, &CDlgFindColour::search);
    // Enter in the field takes the row the arrow keys or the list chose.
    connect(m_search, &QLineEdit::returnPressed, this, [this]() { choose(); });
    m_search->installEventFilter(this);
    resize(kSwatchWidth + m_view->horizontalHeader()->length() + 60, 480);
    setTable(tableName, table);
}

void CDlgFindColour::buildResultsView()
{
    m_view = new QTableView(this);
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    // Fixed row heights keep a list of 31,000 rows as quick as one of ten.
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const int rowHeight = fontMetrics().height() + 8;
    m_view->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_view->setIconSize(QSize(kSwatchWidth - 12, rowHeight - 10));
    QHeaderView *header = m_view->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(CColourNameModel::SwatchColumn, QHeaderView::Fixed);
    header->resizeSection(CColourNameModel::SwatchColumn, kSwatchWidth);
    // Wide enough for the longest value texts, so they are never cut short.
    const auto width = [this](const char *text) {
        return fontMetrics().horizontalAdvance(QLatin1String(text)) + 24;
    };
    header->resizeSection(CColourNameModel::NameColumn, fontMetrics().averageCharWidth() * 26);
    header->resizeSection(CColourNameModel::HexColumn, width("#dddddd"));
    header->resizeSection(CColourNameModel::RgbColumn, width("R:0.00, G:0.00, B:0.00"));
    header->resizeSection(CColourNameModel::LabColumn, width("L:100.00, a:-99.99, b:-99.99"));
    header->setStretchLastSection(true);
    connect(m_view, &QTableView::activated, this,
            [this](const QModelIndex &index) { choose(index.row()); });
}

QLayout *CDlgFindColour::buildButtonRow()
{
    QPushButton *help = CLibDialogRows::button(tr("&Help"), this);
    m_useButton = CLibDialogRows::button(tr("Use as &Sample"), this);
    QPushButton *close = CLibDialogRows::button(tr("&Close"), this);
    connect(help, &QPushButton::clicked, this,
            [this]() { emit displayHelpSignal(QLatin1String(kHelpAnchor)); });
    auto *helpKey = new QShortcut(QKeySequence(QKeySequence::HelpContents), this);
    connect(helpKey, &QShortcut::activated, help, &QPushButton::click);
    connect(m_useButton, &QPushButton::clicked, this, [this]() { choose(); });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return CLibDialogRows::buttonRow(help, {m_useButton, close});
}

void CDlgFindColour::setTable(const QString &tableName, const CColourTable &table)
{
    m_tableLabel->setText(tr("Table: %1 (%2 colours)").arg(tableName).arg(table.count()));
    m_names.setTable(table);
    m_model->setTable(table);
    search();
}

void CDlgFindColour::search()
{
    const QVector<int> hits = m_names.find(m_search->text());
    m_model->setHits(hits);
    if (!hits.isEmpty())
        m_view->setCurrentIndex(m_model->index(0, CColourNameModel::NameColumn));
    m_useButton->setEnabled(!hits.isEmpty());
    showCount(hits.size());
}

void CDlgFindColour::showCount(int hits)
{
    const QString text = m_search->text().trimmed();
    if (m_names.count() == 0)
        m_countLabel->setText(tr("The table holds no colours."));
    else if (hits == 0)
        m_countLabel->setText(tr("No colour name contains \"%1\".").arg(text));
    else
        m_countLabel->setText(tr("%1 of %2 colours").arg(hits).arg(m_names.count()));
}

bool CDlgFindColour::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown) {
            QApplication::sendEvent(m_view, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void CDlgFindColour::choose(int row)
{
    if (row < 0)
        row = m_view->currentIndex().row();
    if (row < 0 || row >= m_model->rowCount())
        return;
    emit colourChosen(m_model->name(row), m_model->colour(row));
}
