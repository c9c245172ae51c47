#include "library/dlgedittable.h"

#include "common/appcontext.h"
#include "common/tablemessages.h"
#include "library/librarywritemessages.h"
#include "colour/colourformat.h"
#include "help/textinputdlg.h"
#include "library/libdialogrows.h"
#include "tables/libcolourtable.h"
#include "common/waitcursor.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTableWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

const int kSectionSpacing = 8;
const int kNoteLines = 5;
const int kNoteMinChars = 40;
const int kSwatchWidth = 34;
const int kNameChars = 24;

// Any of the three line ends.
QRegularExpression lineBreaks()
{
    return QRegularExpression(QStringLiteral("\\r\\n|\\n|\\r"));
}

} // namespace

CDlgEditTable::CDlgEditTable(QWidget *parent, const QString &tableName, const QString &tablePath,
                             CLibColourTable *table)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint), m_table(table), m_tableName(tableName),
      m_tablePath(tablePath)
{
    setWindowTitle(AppContext::productName() + tr(" - Edit Colour Table"));
    setWindowModality(Qt::WindowModal);
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(tr("Editing:%1").arg(tableName), this);
    layout->addWidget(title, 0, Qt::AlignHCenter);
    layout->addSpacing(kSectionSpacing);
    layout->addLayout(buildNoteRow());
    layout->addSpacing(kSectionSpacing);
    buildGrid();
    layout->addWidget(m_grid, 1);
    layout->addWidget(CLibDialogRows::horizontalRule(this));
    layout->addLayout(buildButtonRow());
    loadNote();
    fillGrid();
}

QLayout *CDlgEditTable::buildNoteRow()
{
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Note:"), this));
    m_noteEdit = new QTextEdit(this);
    m_noteEdit->setAcceptRichText(false);
    m_noteEdit->setLineWrapMode(QTextEdit::NoWrap);
    m_noteEdit->setFixedHeight(kNoteLines * fontMetrics().lineSpacing() + 1);
    m_noteEdit->setMinimumWidth(kNoteMinChars * fontMetrics().averageCharWidth());
    row->addWidget(m_noteEdit);
    return row;
}

void CDlgEditTable::buildGrid()
{
    m_grid = new QTableWidget(0, 4, this);
    m_grid->horizontalHeader()->hide();
    m_grid->verticalHeader()->hide();
    m_grid->setSelectionMode(QAbstractItemView::NoSelection);
    m_grid->setFocusPolicy(Qt::NoFocus);
    m_grid->setStyleSheet(QStringLiteral(
        "QTableView::item {padding-left:5px; padding-right:5px; padding-top:3px; "
        "padding-bottom:3px; border:0px;}"));
    QHeaderView *columns = m_grid->horizontalHeader();
    // The style's default minimum would widen the swatch column.
    columns->setMinimumSectionSize(kSwatchWidth);
    columns->setSectionResizeMode(0, QHeaderView::Fixed);
    m_grid->setColumnWidth(0, kSwatchWidth);
    m_grid->setColumnWidth(1, kNameChars * fontMetrics().averageCharWidth());
    columns->setSectionResizeMode(1, QHeaderView::Stretch);
    columns->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    columns->setSectionResizeMode(3, QHeaderView::ResizeToContents);
    m_grid->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

QLayout *CDlgEditTable::buildButtonRow()
{
    m_helpButton = CLibDialogRows::button(tr("&Help"), this);
    m_okButton = CLibDialogRows::button(tr("&OK"), this, true);
    m_cancelButton = CLibDialogRows::button(tr("&Cancel"), this);
    connect(m_helpButton, &QPushButton::clicked, this, &CDlgEditTable::displayHelp);
    connect(m_okButton, &QPushButton::clicked, this, &CDlgEditTable::accept);
    connect(m_cancelButton, &QPushButton::clicked, this, &CDlgEditTable::reject);
    auto *helpKey = new QShortcut(QKeySequence(QKeySequence::HelpContents), this);
    connect(helpKey, &QShortcut::activated, this, &CDlgEditTable::displayHelp);
    return CLibDialogRows::buttonRow(m_helpButton, {m_okButton, m_cancelButton});
}

// Each comment line becomes a paragraph without its "#"; only that one
// character goes, so "# Hello" shows " Hello".
void CDlgEditTable::loadNote()
{
    const QStringList parts = m_table->header().split(lineBreaks(), Qt::SkipEmptyParts);
    QTextCursor cursor(m_noteEdit->document());
    for (int i = 0; i < parts.size(); ++i) {
        QString part = parts.at(i).trimmed();
        if (part.startsWith(QLatin1Char('#')))
            part.remove(0, 1);
        if (i > 0)
            cursor.insertBlock();
        cursor.insertText(part);
    }
    m_noteEdit->moveCursor(QTextCursor::Start);
    m_noteEdit->document()->setModified(false);
}

// One "#" line per editor line, blank lines included.
QString CDlgEditTable::noteFromEditor() const
{
    QString note;
    for (const QString &part : m_noteEdit->toPlainText().split(lineBreaks()))
        note += QLatin1Char('#') + part.trimmed() + QLatin1Char('\n');
    return note;
}

void CDlgEditTable::fillGrid()
{
    CWaitCursor waitCursor;
    m_grid->setRowCount(0);
    for (int row = 0; row < m_table->count(); ++row)
        addRow(row);
}

void CDlgEditTable::addRow(int row)
{
    const CColourTableEntry *entry = m_table->at(row);
    m_grid->insertRow(row);
    auto *swatch = new QLabel;
    swatch->setStyleSheet(QStringLiteral("background-color:%1;")
                              .arg(colourName(entry->red, entry->green, entry->blue)));
    m_grid->setCellWidget(row, 0, swatch);
    m_grid->setCellWidget(row, 1, new QLabel(entry->name));
    auto *renameButton = new QPushButton(AppContext::widgetIcon(QStringLiteral("other/gridEdit.png")),
                                         QString());
    renameButton->setToolTip(tr("Rename entry"));
    renameButton->setAutoDefault(false);
    connect(renameButton, &QPushButton::clicked, this, [this, row]() { renameEntry(row); });
    m_grid->setCellWidget(row, 2, renameButton);
    auto *deleteButton =
        new QPushButton(AppContext::widgetIcon(QStringLiteral("other/gridDelete.png")), QString());
    deleteButton->setToolTip(tr("Delete entry"));
    deleteButton->setAutoDefault(false);
    connect(deleteButton, &QPushButton::clicked, this, [this, row]() { deleteEntry(row); });
    m_grid->setCellWidget(row, 3, deleteButton);
}

void CDlgEditTable::renameEntry(int row)
{
    if (row < 0 || row >= m_table->count())
        return;
    CColourTableEntry *entry = m_table->at(row);
    CTextInputDlg input(AppContext::productName() + tr(" - Rename Item"),
                        tr("Rename colour table item:"), entry->name, tr("New Name:"),
                        tr("Please enter a new name."), this, QString(), true);
    if (input.exec() != QDialog::Accepted || input.text() == entry->name)
        return;
    // Trusted as typed: no duplicate check and commas kept.
    entry->name = input.text();
    m_changed = true;
    fillGrid();
}

void CDlgEditTable::deleteEntry(int row)
{
    if (row < 0 || row >= m_table->count())
        return;
    m_table->takeAt(row); // the entry is destroyed with the pointer handed back
    m_changed = true;
    fillGrid();
}

void CDlgEditTable::displayHelp()
{
    emit displayHelpSignal(QStringLiteral("library.html#libEditColourTable"));
}

void CDlgEditTable::accept()
{
    if (m_noteEdit->document()->isModified()) {
        m_changed = true;
        m_table->setHeader(noteFromEditor());
    }
    if (m_changed) {
        m_table->sort();
        // A failed write has been reported; the dialog closes all the same.
        // Only a "No" to overwriting another window's change keeps it open.
        if (CLibraryWriteMessages::saveEdited(this, *m_table, m_tablePath, m_tableName)
            == CLibraryWriteMessages::KeepOpen) {
            fillGrid();
            return;
        }
    }
    QDialog::accept();
}

void CDlgEditTable::reject()
{
    if (m_noteEdit->document()->isModified())
        m_changed = true;
    if (m_changed) {
        const QMessageBox::StandardButton answer = QMessageBox::question(
            this, AppContext::productName(),
            tr("You have made changes to the colour table.\nAre you sure that you want to  exit "
               "without saving?"),
            QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    QDialog::reject();
}
