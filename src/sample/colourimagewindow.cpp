#include "sample/colourimagewindow.h"

#include "app/appsettings.h"
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"
#include "sample/colourimagewindowview.h"
#include "sample/findcolourhook.h"
#include "sample/imagewidget.h"
#include "sample/libraryactions.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/matchrunner.h"
#include "sample/multipleselectionrows.h"
#include "sample/picknotes.h"
#include "sample/sampleclipboard.h"
#include "sample/samplepanel.h"
#include "sample/sampletoolpanel.h"
#include "sample/spreadworker.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QImage>
#include <QSignalMapper>
#include <QToolButton>

CColourImageWindow::CColourImageWindow(CAppSettings *settings, QWidget *parent)
    : CMainTabbedWindow(parent), m_settings(settings), m_shown(settings)
{
    m_clearItemMapper = new QSignalMapper(this);
    connect(m_clearItemMapper, &QSignalMapper::mappedInt, this,
            &CColourImageWindow::multiSelectClearItem);
    m_view = new CColourImageWindowView(this);
    m_spread = new CSpreadWorker(this);
    // The note is built with the panel, after this.
    connect(m_spread, &CSpreadWorker::spreadReady, this,
            [this](const PickSpread &spread) { m_notes->showSpread(spread); });
    connectView();
    m_mapper = new QSignalMapper(this);
    connect(m_mapper, &QSignalMapper::mappedInt, this, &CColourImageWindow::processCommand);

    m_panel = new CSampleToolPanel(m_settings, m_mapper, m_clearItemMapper, this);
    connectPanel();
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_panel);
    layout->addWidget(m_view);
    fillLibraryCombo();
    resetPage(true);
    connectHelpers();
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

void CColourImageWindow::connectPanel()
{
    m_samplePanel = m_panel->samplePanel();
    m_notes = m_panel->pickNotes();
    m_library = m_panel->librarySelector();
    m_results = m_panel->results();
    m_multiple = new CMultipleSelectionRows(m_settings, m_panel->selectionRows(),
                                            m_panel->maximumNotice(),
                                            commandButton(CmdClearMultiple), imageWidget(), this);
    connect(m_panel->pickSizeCombo(), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CColourImageWindow::colourPickSizeChanged);
    connect(m_library, &CLibrarySelector::tableSelected, this,
            &CColourImageWindow::colourTableComboListChanged);
    auto *findColour = new CFindColourHook(m_library, this, m_settings);
    connect(findColour, &CFindColourHook::colourChosen, this, &CColourImageWindow::showNamedColour);
    connect(findColour, &CFindColourHook::displayHelpSignal, this,
            &CColourImageWindow::displayHelpSignal);
    m_match = new CMatchRunner(m_library, m_results, this);
    connect(m_match, &CMatchRunner::matched, this,
            [this]() { commandButton(CmdAddToLibrary)->setEnabled(true); });
}

// The library commands and the clipboard keys: their dialogs and messages
// are theirs, what follows for the page is signalled.
void CColourImageWindow::connectHelpers()
{
    m_libraryActions = new CLibraryActions(m_settings, m_library, this);
    connect(m_libraryActions, &CLibraryActions::libraryChanged, this,
            &CColourImageWindow::libraryChanged);
    connect(m_libraryActions, &CLibraryActions::displayHelpSignal, this,
            &CColourImageWindow::displayHelpSignal);
    m_clipboard = new CSampleClipboard(this);
    connect(m_clipboard, &CSampleClipboard::copyRequested, this, &CColourImageWindow::copySample);
    connect(m_clipboard, &CSampleClipboard::imagePasted, this, &CColourImageWindow::imagePasted);
    connect(m_clipboard, &CSampleClipboard::statusMessage, this,
            &CColourImageWindow::statusMessage);
}

CImageWidget *CColourImageWindow::imageWidget() const { return m_view->imageWidget(); }

QToolButton *CColourImageWindow::commandButton(int command) const
{
    return m_panel->commandButton(command);
}

QComboBox *CColourImageWindow::pickSizeCombo() const { return m_panel->pickSizeCombo(); }
QLabel *CColourImageWindow::maximumNotice() const { return m_panel->maximumNotice(); }

const CMultipleSelectionModel &CColourImageWindow::multipleSelection() const
{
    return m_multiple->selection();
}

CMultipleSelect *CColourImageWindow::multipleRow(int position) const
{
    return m_multiple->rows().at(position);
}

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

void CColourImageWindow::showImage(const QString &path, const QImage &image)
{
    m_shown.setFile(path);
    showConverted(image);
}

void CColourImageWindow::showPastedImage(const QImage &image)
{
    m_shown.setPasted();
    showConverted(image);
}

void CColourImageWindow::showScreenCapture(const QImage &image)
{
    m_shown.setScreenCapture();
    showConverted(image);
}

void CColourImageWindow::showConverted(const QImage &image)
{
    QString profile;
    const QImage shown = m_shown.prepared(image, &profile);
    m_notes->showProfile(profile);
    m_view->setImage(shown);
}

void CColourImageWindow::copySample()
{
    if (m_samplePresent)
        CSampleClipboard::copyColour(m_sample);
}

void CColourImageWindow::pasteImage() { m_clipboard->paste(); }
void CColourImageWindow::zoomStep(int command) { m_view->zoomStep(command); }
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
    m_multiple->refresh();
    // The averaging rule may have changed: the kept picks are averaged anew.
    if (!multipleSelection().isEmpty())
        installMultipleAverage();
    refreshSampleText();
    runMatch(true);
}

void CColourImageWindow::processCommand(int action)
{
    switch (action) {
    case CmdMaintainLibrary:
        m_libraryActions->maintain();
        break;
    case CmdMatchColour:
        runMatch(false);
        break;
    case CmdAddToDataSet:
        emit addToDataSetRequested(m_sample.red, m_sample.green, m_sample.blue);
        break;
    case CmdAddToLibrary:
        m_libraryActions->addSample(m_sample, m_samplePresent);
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
        emptyMultipleSelection();
        break;
    default:
        break;
    }
}

void CColourImageWindow::setPickMode(int command)
{
    m_pickMode = command;
    // Through the combo's signal the pick size follows.
    pickSizeCombo()->setCurrentIndex(0);
    m_panel->checkCommand(command, {CmdPickClick, CmdPickRubberBand});
    m_view->setRubberBandMode(command == CmdPickRubberBand);
}

void CColourImageWindow::setSelectionMode(int command)
{
    m_selectionMode = command;
    emptyMultipleSelection();
    m_panel->checkCommand(command, {CmdSelectSingle, CmdSelectMultiple});
}

void CColourImageWindow::colourPickSizeChanged(int index)
{
    imageWidget()->setPickSize(pickSizeCombo()->itemData(index).toInt());
}

void CColourImageWindow::pickImageRegion(const QRect &imageRect)
{
    RgbColour average;
    if (!averageImageRegion(m_view->sourceImage(), imageRect, rgbAverage(), &average))
        return;
    m_notes->clearSpread();
    m_spread->start(m_view->sourceImage(), imageRect, average);
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
        m_spread->cancel();
        m_notes->clearSpread();
        return;
    }
    m_panel->enableSampleCommands(true);
    m_samplePanel->showColour(colour, rgbFormat());
}

void CColourImageWindow::showNamedColour(const RgbColour &colour)
{
    m_spread->cancel();
    m_notes->clearSpread();
    setSample(colour, false);
}

void CColourImageWindow::refreshSampleText()
{
    if (m_samplePresent)
        m_samplePanel->refreshRgb(m_sample, rgbFormat());
}

void CColourImageWindow::addToMultipleSelection(const RgbColour &colour, const QRect &rect)
{
    if (m_multiple->add(colour, rect))
        installMultipleAverage();
}

void CColourImageWindow::installMultipleAverage()
{
    setSample(multipleSelection().average(rgbAverage()), false);
}

void CColourImageWindow::multiSelectClearItem(int position)
{
    if (m_multiple->removeAt(position) && !multipleSelection().isEmpty())
        installMultipleAverage();
}

void CColourImageWindow::multiSelectClearAll() { m_multiple->clear(); }

void CColourImageWindow::emptyMultipleSelection()
{
    multiSelectClearAll();
    m_multiple->redrawMarks();
}

void CColourImageWindow::fillLibraryCombo() { m_library->fillLibraryCombo(); }

void CColourImageWindow::colourTableComboListChanged(int index)
{
    if (index < 0)
        return;
    m_match->forget();
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
        m_match->repeat(m_sample, m_samplePresent);
    else
        m_match->match(m_sample, m_samplePresent);
}

void CColourImageWindow::resetPage(bool resetModes)
{
    if (resetModes) {
        setPickMode(CmdPickClick);
        setSelectionMode(CmdSelectSingle);
    }
    m_view->zoomStep(CmdZoomActual);
    multiSelectClearAll();
    m_samplePresent = false;
    m_panel->enableSampleCommands(false);
    setSample(RgbColour{1.0, 1.0, 1.0}, true);
    m_match->forget();
    m_results->clearResults();
}
