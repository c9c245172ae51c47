#pragma once

#include "app/maintabbedwindow.h"
#include "colour/rgbcolour.h"
#include "tables/colourmatcher.h"
#include "tables/libcolourtable.h"

#include <QRect>
#include <QVector>

class CColourImageWindowView;
class CImageWidget;
class CMainWindow;
class CMultipleSelect;
class QComboBox;
class QGridLayout;
class QImage;
class QLabel;
class QSignalMapper;
class QTableWidget;
class QToolBar;
class QToolButton;
class QVBoxLayout;

// Commands of the sampling page, dispatched through its signal mapper.
enum SamplingCommand {
    CmdMaintainLibrary = 13,
    CmdMatchColour = 14,
    CmdAddToDataSet = 15,
    CmdAddToLibrary = 16,
    CmdPickClick = 17,
    CmdPickRubberBand = 18,
    CmdSelectSingle = 19,
    CmdSelectMultiple = 20,
    CmdClearMultiple = 21
};

// The "Sample && Match" page: the tool panel (pick modes, sample, multiple
// selection, library and results) on the left, the image view on the right.
class CColourImageWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    static const int kMultipleSlots = 8;

    CColourImageWindow(CMainWindow *mainWindow, QWidget *parent = nullptr);
    ~CColourImageWindow() override;

    QString title() const override;

    // Shows a newly opened image (path for the title, image for the view).
    void showImage(const QString &path, const QImage &image);
    // Main window zoom commands 6, 7, 8.
    void zoomStep(int command);
    int zoomIndex() const;
    // The view reports its level; the zoom commands follow it.
    void setZoomIndex(int index);
    // Re-reads the list of library tables.
    void fillLibraryCombo();
    // After a settings change: rebuild the multiple-selection list texts and
    // repeat the last match quietly.
    void refreshAfterSettingsChange();

    // Shows a message in the main window's status bar until replaced.
    void showStatusMessage(const QString &text);
    // Averages a picked rectangle of the source image (nothing happens for an
    // empty one) and installs it as the sample or a new selection entry.
    void pickImageRegion(const QRect &imageRect);
    // Installs a sample (clear false) or shows the empty sample panel.
    void setSample(const RgbColour &colour, bool clear);
    void addToMultipleSelection(const RgbColour &colour, const QRect &rect);
    void runMatch(bool quiet);
    void resetPage(bool resetModes);
    void refreshSampleText();

    CColourImageWindowView *view() const { return m_view; }
    CImageWidget *imageWidget() const;
    QString imagePath() const { return m_imagePath; }
    bool isSamplePresent() const { return m_samplePresent; }
    RgbColour sample() const { return m_sample; }
    int pickMode() const { return m_pickMode; }
    int selectionMode() const { return m_selectionMode; }
    int multipleCount() const { return m_multipleCount; }
    CMultipleSelect *multipleSlot(int slot) const { return m_slots.at(slot); }
    const CLibColourTable &libraryTable() const { return m_libraryTable; }
    // The page's own buttons and panel parts, as the user sees them.
    QToolButton *commandButton(int command) const;
    QComboBox *pickSizeCombo() const { return m_pickSizeCombo; }
    QComboBox *libraryCombo() const { return m_libraryCombo; }
    QTableWidget *resultsTable() const { return m_resultsTable; }
    QLabel *maximumNotice() const { return m_maximumNotice; }
    QLabel *swatch() const { return m_swatch; }
    QWidget *swatchFrame() const { return m_swatchFrame; }
    QLabel *sampleCaption() const { return m_rgbCaption; }
    // R, G, B, L*, a*, b* in that order.
    QLabel *sampleValue(int index) const { return m_values.at(index); }
    QLabel *sampleValueCaption(int index) const { return m_captions.at(index); }

public slots:
    void processCommand(int action);
    void colourPickSizeChanged(int index);
    void colourTableComboListChanged(int index);
    void multiSelectClearItem(int position);
    void multiSelectClearAll();

private:
    QToolButton *addCommandButton(int command, const QString &text, const QString &icon,
                                  bool checkable, QWidget *parent);
    QToolBar *buildPanel();
    QWidget *buildPickingSection(QWidget *parent);
    QWidget *buildPickModeRow(QWidget *parent);
    QWidget *buildPickSizeRow(QWidget *parent);
    QWidget *buildSamplePanel(QWidget *parent);
    QWidget *buildSampleGrid(QWidget *parent);
    QWidget *buildMultipleSection(QWidget *parent);
    void buildMatchSection(QWidget *parent, QVBoxLayout *layout);
    void buildResultsTable(QWidget *parent);

    void setPickMode(int command);
    void setSelectionMode(int command);
    void emptyMultipleSelection();
    void redrawSelectionMarks();
    void installMultipleAverage();
    void enableSampleCommands(bool enable);
    void maintainLibrary();
    bool execLibraryMaintenance();
    void libraryMaintenanceChanged();
    void addSampleToDataSet();
    void addSampleToLibrary();
    void clearResults();
    void showResultRow(const CMatchResult &record);
    void setResultsToolTip();
    QString selectedTableBaseName() const;
    bool rgbAverage() const;
    int rgbFormat() const;

    CMainWindow *m_mainWindow = nullptr;
    QVector<CMultipleSelect *> m_slots;
    QString m_imagePath;
    CColourImageWindowView *m_view = nullptr;
    CLibColourTable m_libraryTable;
    QSignalMapper *m_mapper = nullptr;
    QSignalMapper *m_clearItemMapper = nullptr;

    QVector<QToolButton *> m_buttons;
    QComboBox *m_pickSizeCombo = nullptr;
    QLabel *m_rgbCaption = nullptr;
    QWidget *m_swatchFrame = nullptr;
    QLabel *m_swatch = nullptr;
    QVector<QLabel *> m_captions;
    QVector<QLabel *> m_values;
    QLabel *m_maximumNotice = nullptr;
    QComboBox *m_libraryCombo = nullptr;
    QTableWidget *m_resultsTable = nullptr;

    int m_zoomIndex = 7;
    int m_pickMode = CmdPickClick;
    int m_selectionMode = CmdSelectSingle;
    RgbColour m_sample;
    bool m_samplePresent = false;
    bool m_matched = false;
    bool m_filling = false;
    int m_multipleCount = 0;
    QVector<CMatchResult> m_results;
};
