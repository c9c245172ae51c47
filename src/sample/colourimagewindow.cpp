#include "sample/colourimagewindow.h"

#include "app/appcontext.h"
#include "app/appsettings.h"
#include "app/tablemessages.h"
#include "colour/colourprofile.h"
#include "colour/pickspread.h"
#include "library/dlglibcolourtableadd.h"
#include "library/libcolourtabledlg.h"
#include "palette/colourcopytext.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourimagewindowview.h"
#include "sample/dlgexplainmatch.h"
#include "sample/imagewidget.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/multipleselect.h"
#include "sample/picknotes.h"
#include "sample/samplepanel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QSignalMapper>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int kFirstCommand = CmdMaintainLibrary;
const int kLastCommand = CmdClearMultiple;
const int kSectionSpacing = 17;

QLabel *centredCaption(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    return label;
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

CColourImageWindow::CColourImageWindow(CAppSettings *settings, QWidget *parent)
    : CMainTabbedWindow(parent), m_settings(settings)
{
    m_clearItemMapper = new QSignalMapper(this);
    connect(m_clearItemMapper, &QSignalMapper::mappedInt, this,
            &CColourImageWindow::multiSelectClearItem);
    m_buttons.fill(nullptr, kLastCommand - kFirstCommand + 1);
    m_view = new CColourImageWindowView(this);
    connectView();
    m_mapper = new QSignalMapper(this);
    connect(m_mapper, &QSignalMapper::mappedInt, this, &CColourImageWindow::processCommand);

    QToolBar *panel = buildPanel();
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(panel);
    layout->addWidget(m_view);
    fillLibraryCombo();
    resetPage(true);
    addClipboardShortcuts();
}

CColourImageWindow::~CColourImageWindow() = default;

void CColourImageWindow::connectView()
{
    connect(m_view, &CColourImageWindowView::zoomChanged, this,
            &CColourImageWindow::setZoomIndex);
    // A new picture starts with an empty sample, keeping the pick modes.
    connect(m_view, &CColourImageWindowView::imageChanged, this, [this]() { resetPage(false); });
    connect(imageWidget(), &CImageWidget::picked, this, &CColourImageWindow::pickImageRegion);
    connect(imageWidget(), &CImageWidget::statusMessage, this,
            &CColourImageWindow::statusMessage);
}

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
    m_samplePanel = new CSamplePanel(section);
    layout->addWidget(m_samplePanel);
    m_notes = new CPickNotes(section);
    layout->addWidget(m_notes);
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
    connect(m_pickSizeCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CColourImageWindow::colourPickSizeChanged);
    layout->addWidget(m_pickSizeCombo);
    return row;
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
    m_library = new CLibrarySelector(m_settings, parent);
    connect(m_library, &CLibrarySelector::tableSelected, this,
            &CColourImageWindow::colourTableComboListChanged);
    libraryRow->addWidget(m_library);
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
    m_results = new CMatchResultsView(m_settings, parent);
    connect(m_results, &CMatchResultsView::rowMenuAboutToShow, this,
            &CColourImageWindow::addExplainAction);
    layout->addWidget(m_results, 1);
    layout->addStretch();
}

// ---- Parts seen from outside -------------------------------------------------

CImageWidget *CColourImageWindow::imageWidget() const { return m_view->imageWidget(); }

const CLibColourTable &CColourImageWindow::libraryTable() const { return m_library->table(); }

QComboBox *CColourImageWindow::libraryCombo() const { return m_library; }

QTableWidget *CColourImageWindow::resultsTable() const { return m_results; }

QLabel *CColourImageWindow::swatch() const { return m_samplePanel->swatch(); }

QWidget *CColourImageWindow::swatchFrame() const { return m_samplePanel->swatchFrame(); }

QLabel *CColourImageWindow::sampleCaption() const { return m_samplePanel->caption(); }

QLabel *CColourImageWindow::sampleValue(int index) const { return m_samplePanel->value(index); }

QLabel *CColourImageWindow::sampleValueCaption(int index) const
{
    return m_samplePanel->valueCaption(index);
}

// ---- Page interface ----------------------------------------------------------

QString CColourImageWindow::title() const
{
    if (m_pasted)
        return (m_captured ? tr("Screen capture") : tr("Pasted image")) + QStringLiteral(" - ");
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
    m_pasted = false;
    m_captured = false;
    showConverted(image);
}

void CColourImageWindow::showPastedImage(const QImage &image)
{
    m_imagePath.clear();
    m_pasted = true;
    m_captured = false;
    showConverted(image);
}

void CColourImageWindow::showScreenCapture(const QImage &image)
{
    showPastedImage(image);
    m_captured = true;
}

void CColourImageWindow::showConverted(const QImage &image)
{
    if (m_settings == nullptr || !m_settings->convertToSrgb) {
        m_notes->showProfile(QString());
        m_view->setImage(image);
        return;
    }
    // Converted once here, so every pick reads the colours the picture shows.
    QImage converted = image;
    m_notes->showProfile(CColourProfile::convertToSrgb(&converted));
    m_view->setImage(converted);
}

// Two keys the page's own commands leave free, active wherever the focus
// is on the page.
void CColourImageWindow::addClipboardShortcuts()
{
    auto *copy = new QAction(this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QAction::triggered, this, &CColourImageWindow::copySample);
    auto *paste = new QAction(this);
    paste->setShortcut(QKeySequence::Paste);
    paste->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(paste, &QAction::triggered, this, &CColourImageWindow::pasteImage);
    addActions({copy, paste});
}

void CColourImageWindow::copySample()
{
    if (m_samplePresent)
        QApplication::clipboard()->setText(CColourCopyText::hex(m_sample));
}

void CColourImageWindow::pasteImage()
{
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) {
        emit statusMessage(tr("The clipboard holds no picture."));
        return;
    }
    emit imagePasted(image);
}

void CColourImageWindow::zoomStep(int command) { m_view->zoomStep(command); }

int CColourImageWindow::zoomIndex() const { return m_zoomIndex; }

void CColourImageWindow::setZoomIndex(int index)
{
    m_zoomIndex = index;
    emit zoomChanged(index);
}

void CColourImageWindow::showStatusMessage(const QString &text) { emit statusMessage(text); }

bool CColourImageWindow::rgbAverage() const
{
    return m_settings ? m_settings->rgbAverage : true;
}

int CColourImageWindow::rgbFormat() const { return CAppSettings::rgbFormatOf(m_settings); }

void CColourImageWindow::refreshAfterSettingsChange()
{
    showSelectionSlots(0);
    // The averaging rule may have changed: the kept picks are averaged anew.
    if (!m_selection.isEmpty())
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
        emit addToDataSetRequested(m_sample.red, m_sample.green, m_sample.blue);
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
    PickSpread spread;
    if (!averageWithSpread(m_view->sourceImage(), imageRect, rgbAverage(), &average, &spread))
        return;
    m_notes->showSpread(spread);
    if (m_selectionMode == CmdSelectSingle)
        setSample(average, false);
    else
        addToMultipleSelection(average, imageRect);
}

void CColourImageWindow::setSample(const RgbColour &colour, bool clear)
{
    m_sample = colour;
    m_samplePresent = !clear;
    if (clear) {
        m_samplePanel->showEmpty();
        m_notes->clearSpread();
        return;
    }
    enableSampleCommands(true);
    m_samplePanel->showColour(colour, rgbFormat());
}

void CColourImageWindow::refreshSampleText()
{
    if (m_samplePresent)
        m_samplePanel->refreshRgb(m_sample, rgbFormat());
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
    if (!m_selection.add(colour, rect)) {
        m_maximumNotice->show();
        redrawSelectionMarks();
        return;
    }
    showSelectionSlots(m_selection.count() - 1);
    commandButton(CmdClearMultiple)->setEnabled(true);
    installMultipleAverage();
    redrawSelectionMarks();
}

// The rows from `from` on show the entries at their positions; the rest hide.
void CColourImageWindow::showSelectionSlots(int from)
{
    for (int position = from; position < m_slots.size(); ++position) {
        CMultipleSelect *slot = m_slots.at(position);
        const bool used = position < m_selection.count();
        if (used) {
            slot->setRect(m_selection.at(position).rect);
            slot->setColour(m_selection.at(position).colour, rgbFormat());
        }
        slot->setInUse(used);
    }
}

void CColourImageWindow::installMultipleAverage()
{
    setSample(m_selection.average(rgbAverage()), false);
}

void CColourImageWindow::multiSelectClearItem(int position)
{
    if (!m_selection.removeAt(position))
        return;
    showSelectionSlots(position);
    if (m_selection.isEmpty())
        commandButton(CmdClearMultiple)->setEnabled(false);
    m_maximumNotice->hide();
    if (!m_selection.isEmpty())
        installMultipleAverage();
    redrawSelectionMarks();
}

void CColourImageWindow::multiSelectClearAll()
{
    m_selection.clear();
    showSelectionSlots(0);
    commandButton(CmdClearMultiple)->setEnabled(false);
    m_maximumNotice->hide();
}

void CColourImageWindow::emptyMultipleSelection()
{
    multiSelectClearAll();
    redrawSelectionMarks();
}

void CColourImageWindow::redrawSelectionMarks() { imageWidget()->drawSelectionMarks(m_slots); }

// ---- Library and matching ----------------------------------------------------

void CColourImageWindow::fillLibraryCombo() { m_library->reload(); }

void CColourImageWindow::colourTableComboListChanged(int index)
{
    if (index < 0)
        return;
    m_matched = false;
    m_library->loadTable(index);
}

void CColourImageWindow::libraryChanged()
{
    m_results->setRowCount(0);
    fillLibraryCombo();
}

void CColourImageWindow::runMatch(bool quiet)
{
    if (quiet)
        repeatMatchQuietly();
    else
        matchSample();
}

void CColourImageWindow::matchSample()
{
    if (!m_samplePresent) {
        QMessageBox::warning(this, AppContext::productName(),
                             tr("No Colour has been selected for matching."), QMessageBox::Ok);
        return;
    }
    m_matched = true;
    if (libraryTable().count() == 0) {
        m_results->clearResults();
        QMessageBox::warning(
            this, AppContext::productName(),
            tr("The %1 Colour Match Library is empty, so a match cannot be attempted.")
                .arg(m_library->selectedTableBaseName()),
            QMessageBox::Ok);
        return;
    }
    m_results->showMatches(m_library->matcher(), m_sample);
    commandButton(CmdAddToLibrary)->setEnabled(true);
}

void CColourImageWindow::addExplainAction(QMenu *menu, int row)
{
    QAction *action = menu->addAction(tr("Explain this match\u2026"));
    connect(action, &QAction::triggered, this, [this, row]() { explainMatch(row); });
}

void CColourImageWindow::explainMatch(int row)
{
    const CMatchResult *entry = m_results->rowEntry(row);
    if (entry == nullptr)
        return;
    auto *dialog = new CDlgExplainMatch(m_results->matchedSample(), entry->name,
                                        {entry->red, entry->green, entry->blue}, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

// Nothing is said here: an empty table or no earlier match leaves the shown
// results as they are.
void CColourImageWindow::repeatMatchQuietly()
{
    if (!m_matched || !m_samplePresent || libraryTable().count() == 0)
        return;
    m_results->showMatches(m_library->matcher(), m_sample);
    commandButton(CmdAddToLibrary)->setEnabled(true);
}

void CColourImageWindow::maintainLibrary()
{
    if (execLibraryMaintenance())
        libraryChanged();
}

// Whatever way the dialog was closed, it reports whether any table was
// made, changed, copied, renamed, deleted or imported.
bool CColourImageWindow::execLibraryMaintenance()
{
    if (!m_settings)
        return false;
    CLibColourTableDlg dialog(m_settings, this);
    connect(&dialog, &CLibColourTableDlg::displayHelpSignal, this,
            &CColourImageWindow::helpRequested);
    dialog.exec();
    return dialog.libraryChanged();
}

void CColourImageWindow::addSampleToLibrary()
{
    if (!m_samplePresent) {
        QMessageBox::critical(this, AppContext::productName(),
                              tr("Please  first match the colour ...."), QMessageBox::Ok);
        return;
    }
    const CLibColourTable &table = libraryTable();
    CDlgLibColourTableAdd dialog(this, table.filePath(), &table, m_sample, m_settings);
    connect(&dialog, &CDlgLibColourTableAdd::displayHelpSignal, this,
            &CColourImageWindow::helpRequested);
    if (dialog.exec() == QDialog::Accepted)
        addEntryToLibraryTable(dialog.name());
}

// The table writes itself back to its file at once. When that fails the
// entry is taken out again, so that the table shown matches its file.
bool CColourImageWindow::addEntryToLibraryTable(const QString &name)
{
    CLibColourTable &table = m_library->table();
    auto *entry = new CColourTableEntry(name, m_sample.red, m_sample.green, m_sample.blue);
    table.add(entry);
    if (CTableMessages::save(this, table, table.filePath(), true))
        return true;
    table.removeAt(table.count() - 1);
    delete entry;
    return false;
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
    m_results->clearResults();
}
