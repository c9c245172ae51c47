#include "sample/matchresultsview.h"

#include "app/appsettings.h"
#include "colour/colourformat.h"
#include "colour/matchscore.h"
#include "sample/colourtexts.h"
#include "tables/colourmatcher.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace {

const int kSwatchColumnWidth = 34;
const int kDefaultRows = 4;

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
}

void CMatchResultsView::showMatches(const CColourTable &table, const RgbColour &sample)
{
    const int maxRecords = m_settings ? m_settings->maxRecordsDisplay : kDefaultRows;
    const QVector<CMatchResult> results = CColourMatcher(table).bestRows(sample, maxRecords);
    const int rows = CColourMatcher::rowsToShow(results, maxRecords);
    setUpdatesEnabled(false);
    setRowCount(0);
    for (int i = 0; i < rows; ++i)
        showRow(results.at(i));
    setInterpretationToolTip();
    setUpdatesEnabled(true);
}

void CMatchResultsView::showRow(const CMatchResult &record)
{
    const RgbColour colour{record.red, record.green, record.blue};
    const int row = rowCount();
    insertRow(row);

    auto *swatch = new QLabel;
    swatch->setStyleSheet(QStringLiteral("background-color:%1;")
                              .arg(colourName(record.red, record.green, record.blue)));
    setCellWidget(row, 0, swatch);

    auto *details = new QWidget;
    auto *layout = new QVBoxLayout(details);
    layout->addWidget(new QLabel(QStringLiteral("%1").arg(record.name)));
    const QString rgbLine = CColourTexts::rgbLine(colour, CAppSettings::rgbFormatOf(m_settings));
    const QString labLine = CColourTexts::labLine(colour);
    layout->addWidget(new QLabel(QStringLiteral("%1<br />%2<br />").arg(rgbLine, labLine)));
    setCellWidget(row, 1, details);

    const bool asPercent = m_settings ? m_settings->rgbDifference : true;
    setCellWidget(row, 2, new QLabel(matchText(record.deltaE, asPercent)));
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
    clearContents();
    setRowCount(0);
}
