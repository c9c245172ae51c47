#include "sample/colourimagewindow.h"

#include "app/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "app/tablemessages.h"
#include "colour/colouraverage.h"
#include "colour/colourformat.h"
#include "colour/imageregionaverage.h"
#include "colour/matchscore.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/multipleselect.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QSignalMapper>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int kFirstCommand = CmdMaintainLibrary;
const int kLastCommand = CmdClearMultiple;
const int kSectionSpacing = 17;
const int kSwatchWidth = 34;
const int kSwatchHeight = 51;
const int kResultSwatchWidth = 34;
const int kDecimals = 2;

const QColor kWhite(255, 255, 255);

QLabel *centredCaption(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    return label;
}

void keepSpaceWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QHBoxLayout *bareRow(QWidget *owner)
{
    auto *row = new QHBoxLayout(owner);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

QVBoxLayout *bareColumn(QWidget *owner)
{
    auto *column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    return column;
}

} // namespace

CColourImageWindow::CColourImageWindow(CMainWindow *mainWindow, QWidget *parent)
    : CMainTabbedWindow(parent), m_mainWindow(mainWindow)
{
    m_clearItemMapper = new QSignalMapper(this);
    connect(m_clearItemMapper, SIGNAL(mapped(int)), this, SLOT(multiSelectClearItem(int)));
    m_buttons.fill(nullptr, kLastCommand - kFirstCommand + 1);
    m_view = new CColourImageWindowView(this);
    m_mapper = new QSignalMapper(this);
    connect(m_mapper, SIGNAL(mapped(int)), this, SLOT(processCommand(int)));

    QToolBar *panel = buildPanel();
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(panel);
    layout->addWidget(m_view);
    fillLibraryCombo();
    resetPage(true);
}

CColourImageWindow::~CColourImageWindow() = default;

// ---- Panel -----------------------------------------------------------------

QToolButton *CColourImageWindow::addCommandButton(int command, const QString &text,
                                                  const QString &icon, bool checkable,
                                                  QWidget *parent)
{
    auto *action = new QAction(AppContext::widgetIcon(icon), text, parent);
    QToolButton *button = createToolButton(action, m_mapper, command, checkable, parent);
    m_buttons[command - kFirstCommand] = button;
    return button;
}

QToolButton *CColourImageWindow::commandButton(int command) const
{
    if (command < kFirstCommand || command > kLastCommand)
        return nullptr;
    return m_buttons.at(command - kFirstCommand);
}

QToolBar *CColourImageWindow::buildPanel()
{
    auto *panel = new QToolBar(this);
    panel->setOrientation(Qt::Vertical);
    panel->setAllowedAreas(Qt::LeftToolBarArea);
    panel->setMovable(false);
    panel->setFloatable(false);

    auto *box = new QGroupBox(panel);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(centredCaption(tr("Select Colour"), box));

    auto *columns = new QWidget(box);
    QHBoxLayout *columnsLayout = bareRow(columns);
    columnsLayout->addWidget(buildPickingSection(columns));
    columnsLayout->addWidget(createVerticalRule(columns));
    columnsLayout->addWidget(buildMultipleSection(columns));
    layout->addWidget(columns);
    layout->addWidget(createHorizontalRule(box));
    buildMatchSection(box, layout);
    panel->addWidget(box);
    return panel;
}

QWidget *CColourImageWindow::buildPickingSection(QWidget *parent)
{
    auto *section = new QWidget(parent);
    QVBoxLayout *layout = bareColumn(section);
    layout->addWidget(buildPickModeRow(section));
    layout->addWidget(buildPickSizeRow(section));
    m_rgbCaption = centredCaption(tr("RGB=Red,Green,Blue"), section);
    keepSpaceWhenHidden(m_rgbCaption);
    layout->addWidget(m_rgbCaption);
    layout->addWidget(buildSamplePanel(section));
    layout->addSpacing(kSectionSpacing);
    return section;
}

QWidget *CColourImageWindow::buildPickModeRow(QWidget *parent)
{
    auto *row = new QWidget(parent);
    QHBoxLayout *layout = bareRow(row);
    layout->addWidget(addCommandButton(CmdPickClick, tr("Click Select Colour"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick.png"), true,
                                       row));
    layout->addWidget(addCommandButton(CmdPickRubberBand, tr("Rubber Band Select Colour"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick_drag.png"),
                                       true, row));
    layout->addStretch();
    layout->addWidget(addCommandButton(CmdSelectSingle, tr("Single Selection"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick_single.png"),
                                       true, row));
    return row;
}

QWidget *CColourImageWindow::buildPickSizeRow(QWidget *parent)
{
    auto *row = new QWidget(parent);
    QHBoxLayout *layout = bareRow(row);
    layout->addWidget(new QLabel(tr("Pick Size:"), row));
    m_pickSizeCombo = new QComboBox(row);
    for (int size : {1, 3, 5, 7, 9})
        m_pickSizeCombo->addItem(QStringLiteral("%1x%1").arg(size), size);
    connect(m_pickSizeCombo, SIGNAL(currentIndexChanged(int)), this,
            SLOT(colourPickSizeChanged(int)));
    layout->addWidget(m_pickSizeCombo);
    return row;
}

QWidget *CColourImageWindow::buildSamplePanel(QWidget *parent)
{
    auto *panel = new QWidget(parent);
    QVBoxLayout *layout = bareColumn(panel);

    auto *swatchRow = new QHBoxLayout;
    m_swatchFrame = new QWidget(panel);
    m_swatchFrame->setFixedSize(kSwatchWidth, kSwatchHeight);
    QHBoxLayout *frameLayout = bareRow(m_swatchFrame);
    m_swatch = new QLabel(m_swatchFrame);
    frameLayout->addWidget(m_swatch);
    swatchRow->addStretch();
    swatchRow->addWidget(m_swatchFrame);
    swatchRow->addStretch();
    layout->addLayout(swatchRow);
    layout->addWidget(buildSampleGrid(panel));
    return panel;
}

QWidget *CColourImageWindow::buildSampleGrid(QWidget *parent)
{
    static const char *const captions[] = {QT_TR_NOOP("R:"),  QT_TR_NOOP("G:"),
                                           QT_TR_NOOP("B:"),  QT_TR_NOOP("L*:"),
                                           QT_TR_NOOP("a*:"), QT_TR_NOOP("b*:")};
    auto *grid = new QWidget(parent);
    auto *layout = new QGridLayout(grid);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 6; ++i) {
        QLabel *caption = createCaptionLabel(tr(captions[i]), grid);
        QLabel *value = createValueLabel(grid);
        const int column = i < 3 ? 0 : 2;
        layout->addWidget(caption, i % 3, column);
        layout->addWidget(value, i % 3, column + 1);
        m_captions.append(caption);
        m_values.append(value);
    }
    return grid;
}

QWidget *CColourImageWindow::buildMultipleSection(QWidget *parent)
{
    auto *section = new QWidget(parent);
    QVBoxLayout *layout = bareColumn(section);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(addCommandButton(CmdSelectMultiple, tr("Multiple Selection"),
                                        QStringLiteral("sm_toolbar/btn_toolbar_multi_done.png"),
                                        true, section));
    buttons->addWidget(addCommandButton(CmdClearMultiple, tr("Clear Multiple Selection"),
                                        QStringLiteral("sm_toolbar/btn_toolbar_multi_clear.png"),
                                        false, section));
    commandButton(CmdClearMultiple)->setEnabled(false);
    layout->addLayout(buttons);

    auto *grid = new QGridLayout;
    for (int slot = 0; slot < kMultipleSlots; ++slot) {
        auto *entry = new CMultipleSelect(slot, section, m_clearItemMapper);
        m_slots.append(entry);
        grid->addWidget(entry->row(), slot / 2, slot % 2);
    }
    layout->addLayout(grid);
    m_maximumNotice =
        new QLabel(tr("<font color='Crimson'>Maximum %1 Items</font>").arg(kMultipleSlots), section);
    m_maximumNotice->hide();
    layout->addWidget(m_maximumNotice);
    layout->addStretch();
    return section;
}

void CColourImageWindow::buildMatchSection(QWidget *parent, QVBoxLayout *layout)
{
    layout->addWidget(new QLabel(tr("Colour Match Library"), parent));
    auto *libraryRow = new QHBoxLayout;
    libraryRow->addWidget(addCommandButton(CmdAddToLibrary, tr("Add Colour to Colour Library"),
                                           QStringLiteral("sm_toolbar/btn_toolbar_add_lib.png"),
                                           false, parent));
    libraryRow->addStretch();
    m_libraryCombo = new QComboBox(parent);
    connect(m_libraryCombo, SIGNAL(currentIndexChanged(int)), this,
            SLOT(colourTableComboListChanged(int)));
    libraryRow->addWidget(m_libraryCombo);
    libraryRow->addSpacing(8);
    libraryRow->addWidget(addCommandButton(CmdMaintainLibrary, tr("Maintain Colour Library"),
                                           QStringLiteral("sm_toolbar/btn_toolbar_maintain.png"),
                                           false, parent));
    libraryRow->addStretch();
    layout->addLayout(libraryRow);

    auto *matchRow = new QHBoxLayout;
    matchRow->addWidget(addCommandButton(CmdMatchColour, tr("Match Library Colour"),
                                         QStringLiteral("sm_toolbar/btn_toolbar_match.png"),
                                         false, parent));
    matchRow->addWidget(addCommandButton(CmdAddToDataSet, tr("Add Colour to DataSet"),
                                         QStringLiteral("sm_toolbar/btn_toolbar_add_data.png"),
                                         false, parent));
    layout->addLayout(matchRow);
    layout->addSpacing(kSectionSpacing);
    buildResultsTable(parent);
    layout->addWidget(m_resultsTable, 1);
    layout->addStretch();
}

void CColourImageWindow::buildResultsTable(QWidget *parent)
{
    m_resultsTable = new QTableWidget(parent);
    m_resultsTable->setToolTip(QString());
    m_resultsTable->setStyleSheet(
        QStringLiteral("QTableView::item {padding-left:5px; padding-right:5px; "
                       "padding-top:3px; padding-bottom:3px; border:0px;}"));
    m_resultsTable->setColumnCount(3);
    QHeaderView *header = m_resultsTable->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(0, QHeaderView::Fixed);
    // The style's minimum would widen the swatch column.
    header->setMinimumSectionSize(kResultSwatchWidth);
    m_resultsTable->setColumnWidth(0, kResultSwatchWidth);
    m_resultsTable->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->hide();
    m_resultsTable->verticalHeader()->hide();
    m_resultsTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_resultsTable->setFocusPolicy(Qt::NoFocus);
}

// ---- Page interface ----------------------------------------------------------

QString CColourImageWindow::title() const
{
    if (m_imagePath.isEmpty())
        return QString();
    const QFileInfo info(m_imagePath);
    QString text = info.fileName();
    const QString folder = info.canonicalPath();
    if (!text.isEmpty() && !folder.isEmpty())
        text += QStringLiteral(" - ") + QDir::toNativeSeparators(folder);
    if (!text.isEmpty())
        text += QStringLiteral(" - ");
    return text;
}

void CColourImageWindow::showImage(const QString &path, const QImage &image)
{
    m_imagePath = path;
    m_view->setImage(image);
}

void CColourImageWindow::zoomStep(int command)
{
    m_view->zoomStep(command);
}

int CColourImageWindow::zoomIndex() const
{
    return m_zoomIndex;
}

void CColourImageWindow::setZoomIndex(int index)
{
    m_zoomIndex = index;
    // The first reset runs before the main window has built its toolbar.
    if (m_mainWindow && m_mainWindow->mainToolBar())
        m_mainWindow->enableZoomCommands(index);
}

CImageWidget *CColourImageWindow::imageWidget() const
{
    return m_view->imageWidget();
}

void CColourImageWindow::showStatusMessage(const QString &text)
{
    if (m_mainWindow)
        m_mainWindow->statusBar()->showMessage(text, 0);
}

bool CColourImageWindow::rgbAverage() const
{
    const CAppSettings *settings = AppContext::settings();
    return settings ? settings->rgbAverage : true;
}

int CColourImageWindow::rgbFormat() const
{
    const CAppSettings *settings = AppContext::settings();
    return settings ? settings->rgbFormat : 0;
}

void CColourImageWindow::refreshAfterSettingsChange()
{
    for (CMultipleSelect *entry : qAsConst(m_slots)) {
        if (entry->inUse())
            entry->setColour(entry->colour(), rgbFormat());
    }
    // The averaging rule may have changed: the kept picks are averaged anew.
    if (m_multipleCount > 0)
        installMultipleAverage();
    refreshSampleText();
    runMatch(true);
}

// ---- Commands ----------------------------------------------------------------

void CColourImageWindow::processCommand(int action)
{
    switch (action) {
    case CmdMaintainLibrary:
        maintainLibrary();
        break;
    case CmdMatchColour:
        runMatch(false);
        break;
    case CmdAddToDataSet:
        addSampleToDataSet();
        break;
    case CmdAddToLibrary:
        addSampleToLibrary();
        break;
    case CmdPickClick:
    case CmdPickRubberBand:
        setPickMode(action);
        break;
    case CmdSelectSingle:
    case CmdSelectMultiple:
        setSelectionMode(action);
        break;
    case CmdClearMultiple:
        multiSelectClearAll();
        redrawSelectionMarks();
        break;
    default:
        break;
    }
}

void CColourImageWindow::setPickMode(int command)
{
    m_pickMode = command;
    commandButton(CmdPickClick)->setChecked(false);
    commandButton(CmdPickRubberBand)->setChecked(false);
    // Through the combo's signal the pick size follows.
    m_pickSizeCombo->setCurrentIndex(0);
    commandButton(command)->setChecked(true);
    m_view->setRubberBandMode(command == CmdPickRubberBand);
}

void CColourImageWindow::setSelectionMode(int command)
{
    m_selectionMode = command;
    commandButton(CmdSelectSingle)->setChecked(false);
    commandButton(CmdSelectMultiple)->setChecked(false);
    emptyMultipleSelection();
    commandButton(command)->setChecked(true);
}

void CColourImageWindow::colourPickSizeChanged(int index)
{
    imageWidget()->setPickSize(m_pickSizeCombo->itemData(index).toInt());
}

// ---- Picking and the sample --------------------------------------------------

void CColourImageWindow::pickImageRegion(const QRect &imageRect)
{
    RgbColour average;
    if (!averageImageRegion(m_view->sourceImage(), imageRect, rgbAverage(), &average))
        return;
    if (m_selectionMode == CmdSelectSingle)
        setSample(average, false);
    else
        addToMultipleSelection(average, imageRect);
}

void CColourImageWindow::setSample(const RgbColour &colour, bool clear)
{
    m_sample = colour;
    const QStringList rgb =
        formatRgb(colour.red, colour.green, colour.blue, kDecimals, false, rgbFormat());
    const QStringList lab = formatLab(colour.red, colour.green, colour.blue, kDecimals);
    QString swatchStyle;
    if (clear) {
        m_samplePresent = false;
        m_swatchFrame->setStyleSheet(QStringLiteral("border:1px transparent"));
        swatchStyle = QStringLiteral("background:transparent;");
    } else {
        m_samplePresent = true;
        enableSampleCommands(true);
        m_swatchFrame->setStyleSheet(QStringLiteral("border:1px solid black"));
        swatchStyle = QStringLiteral("background-color:%1;")
                          .arg(colourName(colour.red, colour.green, colour.blue));
        for (int i = 0; i < 3; ++i) {
            m_values.at(i)->setText(rgb.at(i));
            m_values.at(i + 3)->setText(lab.at(i));
        }
    }
    m_rgbCaption->setVisible(!clear);
    for (int i = 0; i < m_values.size(); ++i) {
        m_captions.at(i)->setVisible(!clear);
        m_values.at(i)->setVisible(!clear);
    }
    m_swatch->setStyleSheet(swatchStyle);
}

void CColourImageWindow::refreshSampleText()
{
    if (!m_samplePresent)
        return;
    const QStringList rgb =
        formatRgb(m_sample.red, m_sample.green, m_sample.blue, kDecimals, false, rgbFormat());
    for (int i = 0; i < 3; ++i)
        m_values.at(i)->setText(rgb.at(i));
}

void CColourImageWindow::enableSampleCommands(bool enable)
{
    commandButton(CmdMatchColour)->setEnabled(enable);
    commandButton(CmdAddToDataSet)->setEnabled(enable);
    commandButton(CmdAddToLibrary)->setEnabled(enable);
}

// ---- Multiple selection ------------------------------------------------------

void CColourImageWindow::addToMultipleSelection(const RgbColour &colour, const QRect &rect)
{
    if (m_multipleCount >= kMultipleSlots) {
        m_maximumNotice->show();
        redrawSelectionMarks();
        return;
    }
    CMultipleSelect *entry = m_slots.at(m_multipleCount);
    entry->setInUse(true);
    entry->setRect(rect);
    entry->setColour(colour, rgbFormat());
    ++m_multipleCount;
    commandButton(CmdClearMultiple)->setEnabled(true);
    installMultipleAverage();
    redrawSelectionMarks();
}

void CColourImageWindow::installMultipleAverage()
{
    QVector<RgbColour> colours;
    for (const CMultipleSelect *entry : qAsConst(m_slots)) {
        if (entry->inUse())
            colours.append(entry->colour());
    }
    setSample(averageColours(colours, rgbAverage()), false);
}

// Later entries move up one place, so the numbers stay the positions.
void CColourImageWindow::multiSelectClearItem(int position)
{
    if (position < 0 || position >= kMultipleSlots)
        return;
    m_slots.at(position)->setInUse(false);
    for (int k = position; k < kMultipleSlots - 1; ++k) {
        const CMultipleSelect *next = m_slots.at(k + 1);
        if (next->inUse())
            m_slots.at(k)->copyFrom(*next, rgbFormat());
        m_slots.at(k)->setInUse(next->inUse());
    }
    m_slots.last()->setInUse(false);
    if (m_multipleCount < 2)
        commandButton(CmdClearMultiple)->setEnabled(false);
    m_multipleCount = std::max(m_multipleCount - 1, 0);
    m_maximumNotice->hide();
    if (m_slots.first()->inUse())
        installMultipleAverage();
    redrawSelectionMarks();
}

void CColourImageWindow::multiSelectClearAll()
{
    for (CMultipleSelect *entry : qAsConst(m_slots))
        entry->setInUse(false);
    commandButton(CmdClearMultiple)->setEnabled(false);
    m_maximumNotice->hide();
    m_multipleCount = 0;
}

void CColourImageWindow::emptyMultipleSelection()
{
    multiSelectClearAll();
    redrawSelectionMarks();
}

void CColourImageWindow::redrawSelectionMarks()
{
    imageWidget()->drawSelectionMarks(m_slots);
}

// ---- Library and matching ----------------------------------------------------

void CColourImageWindow::fillLibraryCombo()
{
    const CAppSettings *settings = AppContext::settings();
    if (!settings)
        return;
    m_filling = true;
    CTableMessages::fillLibraryCombo(settings->libraryDir, m_libraryCombo);
    m_filling = false;
    CTableMessages::selectLibraryTable(m_libraryCombo, settings->selectedTable);
}

void CColourImageWindow::colourTableComboListChanged(int index)
{
    if (index < 0 || m_filling)
        return;
    m_matched = false;
    const QString path = m_libraryCombo->itemData(index).toString();
    const bool loaded = CTableMessages::loadWithMessages(this, m_libraryTable,
                                                         m_libraryCombo->itemText(index), path);
    CAppSettings *settings = AppContext::settings();
    if (loaded && settings && path != settings->selectedTable)
        settings->selectedTable = path;
}

QString CColourImageWindow::selectedTableBaseName() const
{
    const CAppSettings *settings = AppContext::settings();
    const QString selected = settings ? settings->selectedTable : QString();
    if (selected.isEmpty())
        return tr("selected");
    return QFileInfo(selected).baseName();
}

void CColourImageWindow::runMatch(bool quiet)
{
    if (quiet && !(m_matched && m_samplePresent))
        return;
    if (!quiet && !m_samplePresent) {
        QMessageBox::warning(this, tr("Vellora"), tr("No Colour has been selected for matching."),
                             QMessageBox::Ok);
        return;
    }
    m_matched = true;
    m_results.clear();
    if (m_libraryTable.count() == 0) {
        if (!quiet) {
            clearResults();
            QMessageBox::warning(
                this, tr("Vellora"),
                tr("The %1 Colour Match Library is empty, so a match cannot be attempted.")
                    .arg(selectedTableBaseName()),
                QMessageBox::Ok);
        }
        return;
    }
    const CAppSettings *settings = AppContext::settings();
    const int maxRecords = settings ? settings->maxRecordsDisplay : 4;
    m_results = CColourMatcher(m_libraryTable).bestRows(m_sample, maxRecords);
    const int rows = CColourMatcher::rowsToShow(m_results, maxRecords);
    m_resultsTable->setUpdatesEnabled(false);
    m_resultsTable->setRowCount(0);
    for (int i = 0; i < rows; ++i)
        showResultRow(m_results.at(i));
    setResultsToolTip();
    m_resultsTable->setUpdatesEnabled(true);
    commandButton(CmdAddToLibrary)->setEnabled(true);
}

void CColourImageWindow::showResultRow(const CMatchResult &record)
{
    const QStringList rgb =
        formatRgb(record.red, record.green, record.blue, kDecimals, false, rgbFormat());
    const QStringList lab = formatLab(record.red, record.green, record.blue, kDecimals);
    const int row = m_resultsTable->rowCount();
    m_resultsTable->insertRow(row);

    auto *swatch = new QLabel;
    swatch->setStyleSheet(QStringLiteral("background-color:%1;")
                              .arg(colourName(record.red, record.green, record.blue)));
    m_resultsTable->setCellWidget(row, 0, swatch);

    auto *details = new QWidget;
    auto *layout = new QVBoxLayout(details);
    layout->addWidget(new QLabel(QStringLiteral("%1").arg(record.name)));
    const QString rgbLine = tr("R:%1, G:%2, B:%3").arg(rgb.at(0), rgb.at(1), rgb.at(2));
    const QString labLine = tr("L:%1, a:%2, b:%3").arg(lab.at(0), lab.at(1), lab.at(2));
    layout->addWidget(new QLabel(QStringLiteral("%1<br />%2<br />").arg(rgbLine, labLine)));
    m_resultsTable->setCellWidget(row, 1, details);

    const CAppSettings *settings = AppContext::settings();
    const bool asPercent = settings ? settings->rgbDifference : true;
    m_resultsTable->setCellWidget(row, 2, new QLabel(matchText(record.deltaE, asPercent)));
}

void CColourImageWindow::setResultsToolTip()
{
    const QString item = QStringLiteral("<li style='margin-bottom:5px;'>%1</li>");
    QString text = tr("Interpretation of results:") + QStringLiteral("<ul>");
    for (int verdictIndex = 0; verdictIndex < 4; ++verdictIndex)
        text += item.arg(verdictLongText(verdictIndex));
    m_resultsTable->setToolTip(text + QStringLiteral("</ul>"));
}

void CColourImageWindow::clearResults()
{
    m_results.clear();
    m_resultsTable->clearContents();
    m_resultsTable->setRowCount(0);
}

void CColourImageWindow::maintainLibrary()
{
    if (execLibraryMaintenance())
        libraryMaintenanceChanged();
}

bool CColourImageWindow::execLibraryMaintenance()
{
    // The library maintenance dialog is not in this release yet: it will run
    // here modally and report whether it was accepted with a change. Until
    // then the library is left as it is, as if it had been closed unchanged.
    return false;
}

void CColourImageWindow::libraryMaintenanceChanged()
{
    m_resultsTable->setRowCount(0);
    fillLibraryCombo();
}

void CColourImageWindow::addSampleToDataSet()
{
    if (m_mainWindow)
        m_mainWindow->addColourToDataSet(m_sample.red, m_sample.green, m_sample.blue);
}

void CColourImageWindow::addSampleToLibrary()
{
    if (!m_samplePresent) {
        QMessageBox::critical(this, tr("Vellora"), tr("Please  first match the colour ...."),
                              QMessageBox::Ok);
        return;
    }
    // The dialog that names the new library entry is not in this release
    // yet: the loaded table will ask for the name here and write itself back.
}

// ---- Reset -------------------------------------------------------------------

void CColourImageWindow::resetPage(bool resetModes)
{
    if (resetModes) {
        setPickMode(CmdPickClick);
        setSelectionMode(CmdSelectSingle);
    }
    m_view->zoomStep(CmdZoomActual);
    multiSelectClearAll();
    m_samplePresent = false;
    enableSampleCommands(false);
    setSample(RgbColour{1.0, 1.0, 1.0}, true);
    m_matched = false;
    clearResults();
}
