#include "sample/matchresultsview.h"

#include "app/appsettings.h"
#include "colour/colourformat.h"
#include "colour/matchscore.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourtexts.h"
#include "sample/widesttexts.h"
#include "tables/colourmatcher.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const int kSwatchColumnWidth = 34;
const int kDefaultRows = 4;
// The results style sheet pads every item by 5 pixels left and right and 3
// above and below; a cell widget gets the cell less that padding (and the
// grid line), while the rows size themselves by the widgets' own hints.
const int kItemPadding = 10;
const int kItemVerticalPadding = 6 + 1;
// Names longer than about this many average characters wrap.
const int kNameWrapChars = 30;

QString detailsText(const QString &rgbLine, const QString &labLine)
{
    return QStringLiteral("%1<br />%2<br />").arg(rgbLine, labLine);
}

} // namespace

CMatchResultsView::CMatchResultsView(const CAppSettings *settings, QWidget *parent)
    : QTableWidget(parent), m_settings(settings)
{
    setToolTip(QString());
    setStyleSheet(QStringLiteral("QTableView::item {padding-left:5px; padding-right:5px; "
                                 "padding-top:3px; padding-bottom:3px; border:0px;}"));
    setColumnCount(3);
    QHeaderView *header = horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(0, QHeaderView::Fixed);
    // The style's minimum would widen the swatch column.
    header->setMinimumSectionSize(kSwatchColumnWidth);
    setColumnWidth(0, kSwatchColumnWidth);
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->hide();
    verticalHeader()->hide();
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &CMatchResultsView::showRowMenu);
    reserveWidestRow();
}

// A row of the widest texts any match can show, measured as the real rows
// are and taken out again: the view is that wide from the start, so that
// the first match does not widen the page's panel and move the picture.
void CMatchResultsView::reserveWidestRow()
{
    const QFontMetrics metrics = fontMetrics();
    // Longer names wrap at the name width limit, so this one is at it.
    const QString name(2 * kNameWrapChars, QLatin1Char('M'));
    addRow(QColor(Qt::black).name(), name,
           detailsText(CWidestTexts::rgbLine(metrics), CWidestTexts::labLine(metrics)),
           CWidestTexts::matchText(metrics));
    fitWidthToContents();
    clearResults();
}

void CMatchResultsView::showMatches(const CColourMatcher &matcher, const RgbColour &sample)
{
    const int maxRecords = m_settings ? m_settings->maxRecordsDisplay : kDefaultRows;
    const QVector<CMatchResult> results = matcher.bestRows(sample, maxRecords);
    const int rows = CColourMatcher::rowsToShow(results, maxRecords);
    setUpdatesEnabled(false);
    setRowCount(0);
    m_rows = results.mid(0, rows);
    m_sample = sample;
    for (int i = 0; i < rows; ++i)
        showRow(results.at(i));
    setInterpretationToolTip();
    fitWidthToContents();
    setUpdatesEnabled(true);
}

void CMatchResultsView::showRow(const CMatchResult &record)
{
    const RgbColour colour{record.red, record.green, record.blue};
    const QString rgbLine = CColourTexts::rgbLine(colour, CAppSettings::rgbFormatOf(m_settings));
    const bool asPercent = m_settings ? m_settings->rgbDifference : true;
    addRow(colourName(record.red, record.green, record.blue), record.name,
           detailsText(rgbLine, CColourTexts::labLine(colour)), matchText(record.deltaE, asPercent));
}

void CMatchResultsView::addRow(const QString &swatchColour, const QString &name,
                               const QString &details, const QString &verdict)
{
    const int row = rowCount();
    insertRow(row);

    auto *swatch = new QLabel;
    swatch->setStyleSheet(QStringLiteral("background-color:%1;").arg(swatchColour));
    setCellWidget(row, 0, swatch);

    auto *cell = new QWidget;
    auto *layout = new QVBoxLayout(cell);
    layout->addWidget(new QLabel(QStringLiteral("%1").arg(name)));
    layout->addWidget(new QLabel(details));
    setCellWidget(row, 1, cell);
    setCellWidget(row, 2, new QLabel(verdict));
}

void CMatchResultsView::setInterpretationToolTip()
{
    const QString item = QStringLiteral("<li style='margin-bottom:5px;'>%1</li>");
    QString text = tr("Interpretation of results:") + QStringLiteral("<ul>");
    for (int verdictIndex = 0; verdictIndex < 4; ++verdictIndex)
        text += item.arg(verdictLongText(verdictIndex));
    setToolTip(text + QStringLiteral("</ul>"));
}

void CMatchResultsView::clearResults()
{
    m_rows.clear();
    clearContents();
    setRowCount(0);
}

const CMatchResult *CMatchResultsView::rowEntry(int row) const
{
    if (row < 0 || row >= m_rows.size() || row >= rowCount())
        return nullptr;
    return &m_rows.at(row);
}

CColourContextMenu *CMatchResultsView::buildRowMenu(int row)
{
    const CMatchResult *shown = rowEntry(row);
    if (shown == nullptr)
        return nullptr;
    const CMatchResult &entry = *shown;
    auto *menu = new CColourContextMenu(this);
    menu->addEntryActions(entry.name, {entry.red, entry.green, entry.blue});
    emit rowMenuAboutToShow(menu, row);
    return menu;
}

void CMatchResultsView::showRowMenu(const QPoint &pos)
{
    CColourContextMenu *menu = buildRowMenu(rowAt(pos.y()));
    if (!menu)
        return;
    menu->exec(viewport()->mapToGlobal(pos));
    menu->deleteLater();
}

void CMatchResultsView::fitNameLabel(QLabel *label) const
{
    const int limit = label->fontMetrics().averageCharWidth() * kNameWrapChars;
    if (label->sizeHint().width() <= limit)
        return;
    label->setWordWrap(true);
    label->setFixedWidth(limit);
    label->setMinimumHeight(label->heightForWidth(limit));
}

void CMatchResultsView::fitWidthToContents()
{
    // Measured as shown: the table's style sheet reaches the labels only
    // once they are polished.
    int need = 0;
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 1; column <= 2; ++column) {
            QWidget *cell = cellWidget(row, column);
            if (cell == nullptr)
                continue;
            cell->ensurePolished();
            if (column == 1 && !cell->findChildren<QLabel *>().isEmpty())
                fitNameLabel(cell->findChildren<QLabel *>().first());
            // Columns 1 and 2 stretch to equal widths: both get the wider need.
            need = std::max(need, cell->sizeHint().width() + kItemPadding);
        }
    }
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const int width = kSwatchColumnWidth + 2 * need + 2 * frameWidth() + scrollBar;
    setMinimumWidth(std::max(width, minimumWidth()));
    for (int row = 0; row < rowCount(); ++row)
        reserveRowHeight(row);
    resizeRowsToContents();
}

// An empty item under the row's widgets asks for their height plus the
// padding, so that the widgets get all of their own height.
void CMatchResultsView::reserveRowHeight(int row)
{
    int height = 0;
    for (int column = 0; column < columnCount(); ++column) {
        if (const QWidget *cell = cellWidget(row, column))
            height = std::max(height, cell->sizeHint().height());
    }
    auto *spacer = new QTableWidgetItem;
    spacer->setFlags(Qt::NoItemFlags);
    spacer->setSizeHint(QSize(0, height + kItemVerticalPadding));
    setItem(row, 1, spacer);
}
