#pragma once

#include "common/commandid.h"
#include "app/maintabbedwindow.h"
#include "colour/rgbcolour.h"
#include "sample/multipleselectionmodel.h"
#include "sample/shownimage.h"

#include <QRect>

class CAppSettings;
class CColourImageWindowView;
class CImageWidget;
class CLibColourTable;
class CLibraryActions;
class CLibrarySelector;
class CMatchResultsView;
class CMatchRunner;
class CMultipleSelect;
class CMultipleSelectionRows;
class CPickNotes;
class CSampleClipboard;
class CSamplePanel;
class CSampleToolPanel;
class CSpreadWorker;
class QComboBox;
class QImage;
class QLabel;
class QSignalMapper;
class QTableWidget;
class QToolButton;

// The "Sample && Match" page: the tool panel (pick modes, sample, multiple
// selection, library and results) on the left, the image view on the right.
// It coordinates its parts: the view reports picks, the page averages them
// into the sample panel or the multiple-selection rows, and has the match
// runner match the sample through the library selector's table into the
// results view. Building the panel, the library commands and the clipboard
// keys are classes of their own. What the main window must do (zoom buttons,
// status bar, adding to the data set) is signalled.
class CColourImageWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    static const int kMultipleRows = CMultipleSelectionModel::kCapacity;

    // `settings` may be null (a page shown on its own).
    explicit CColourImageWindow(CAppSettings *settings, QWidget *parent = nullptr);
    ~CColourImageWindow() override;

    QString title() const override { return m_shown.title(); }

    // Shows a newly opened image (path for the title, image for the view).
    void showImage(const QString &path, const QImage &image);
    // Shows a picture that came from the clipboard: it has no file, and
    // the title calls it "Pasted image".
    void showPastedImage(const QImage &image);
    // "Pick from Screen": shown as a pasted picture, titled "Screen capture".
    void showScreenCapture(const QImage &image);
    bool isPastedImage() const { return m_shown.isPasted(); }
    // Ctrl+C: the sample as "#rrggbb" on the clipboard (nothing without one).
    void copySample();
    // Ctrl+V: signals the clipboard's picture to be shown, or says in the
    // status bar that there is none.
    void pasteImage();
    // Main window zoom commands 6, 7, 8.
    void zoomStep(int command);
    int zoomIndex() const { return m_zoomIndex; }
    // The view reports its level; signalled on as zoomChanged.
    void setZoomIndex(int index);
    // Re-reads the list of library tables.
    void fillLibraryCombo();
    // After a settings change: rebuild the multiple-selection list texts and
    // repeat the last match quietly.
    void refreshAfterSettingsChange();

    // Signals a message for the status bar, shown until replaced.
    void showStatusMessage(const QString &text);
    // Averages a picked rectangle of the source image (nothing happens for an
    // empty one) and installs it as the sample or a new selection entry.
    void pickImageRegion(const QRect &imageRect);
    // Installs a sample (clear false) or shows the empty sample panel.
    void setSample(const RgbColour &colour, bool clear);
    void addToMultipleSelection(const RgbColour &colour, const QRect &rect);
    // quiet false: the user's "Match Library Colour", which explains in a
    // message why it cannot match. quiet true: the silent repeat of the last
    // match after a change of settings.
    void runMatch(bool quiet);
    void resetPage(bool resetModes);
    void refreshSampleText();

    CColourImageWindowView *view() const { return m_view; }
    CImageWidget *imageWidget() const;
    QString imagePath() const { return m_shown.path(); }
    bool isSamplePresent() const { return m_samplePresent; }
    RgbColour sample() const { return m_sample; }
    int pickMode() const { return m_pickMode; }
    int selectionMode() const { return m_selectionMode; }
    int multipleCount() const { return multipleSelection().count(); }
    const CMultipleSelectionModel &multipleSelection() const;
    CMultipleSelect *multipleRow(int position) const;
    const CLibColourTable &libraryTable() const;
    CLibrarySelector *librarySelector() const { return m_library; }
    // The page's own buttons and panel parts, as the user sees them.
    QToolButton *commandButton(int command) const;
    QComboBox *pickSizeCombo() const;
    QComboBox *libraryCombo() const;
    QTableWidget *resultsTable() const;
    QLabel *maximumNotice() const;
    CSamplePanel *samplePanel() const { return m_samplePanel; }
    // "Mixed colours" and the converted profile, under the sample.
    CPickNotes *pickNotes() const { return m_notes; }
    // Measures each pick's spread for the note, off the GUI thread.
    CSpreadWorker *spreadWorker() const { return m_spread; }
    QLabel *swatch() const;
    QWidget *swatchFrame() const;
    QLabel *sampleCaption() const;
    // R, G, B, L*, a*, b* in that order.
    QLabel *sampleValue(int index) const;
    QLabel *sampleValueCaption(int index) const;

signals:
    // The view's zoom index changed (0 to 15).
    void zoomChanged(int index);
    // A text for the status bar; empty clears it.
    void statusMessage(const QString &text);
    // "Add Colour to DataSet" with the current sample.
    void addToDataSetRequested(double red, double green, double blue);
    // Ctrl+V found a picture on the clipboard.
    void imagePasted(const QImage &image);
    // A dialog opened from this page asks for a page of the manual.
    void displayHelpSignal(const QString &page);

public slots:
    void processCommand(int action);
    void colourPickSizeChanged(int index);
    void colourTableComboListChanged(int index);
    void multiSelectClearItem(int position);
    void multiSelectClearAll();
    // The library folder's tables changed (maintenance): the results go and
    // the list of tables is read again.
    void libraryChanged();

private:
    // Shows the picture, converted to sRGB first when the user asked for it.
    void showConverted(const QImage &image);
    void connectView();
    void connectPanel();
    void connectHelpers();
    // "Find Colour…" chose a named colour. It has no spread: one still
    // measured for the last pick must not land on it.
    void showNamedColour(const RgbColour &colour);

    void setPickMode(int command);
    void setSelectionMode(int command);
    void emptyMultipleSelection();
    void installMultipleAverage();
    bool rgbAverage() const;
    int rgbFormat() const;

    CAppSettings *m_settings = nullptr;
    CShownImage m_shown;
    CColourImageWindowView *m_view = nullptr;
    QSignalMapper *m_mapper = nullptr;
    QSignalMapper *m_clearItemMapper = nullptr;

    CSampleToolPanel *m_panel = nullptr;
    CSamplePanel *m_samplePanel = nullptr;
    CPickNotes *m_notes = nullptr;
    CSpreadWorker *m_spread = nullptr;
    CLibrarySelector *m_library = nullptr;
    CMatchResultsView *m_results = nullptr;
    CMultipleSelectionRows *m_multiple = nullptr;
    CMatchRunner *m_match = nullptr;
    CLibraryActions *m_libraryActions = nullptr;
    CSampleClipboard *m_clipboard = nullptr;

    int m_zoomIndex = 7;
    int m_pickMode = CmdPickClick;
    int m_selectionMode = CmdSelectSingle;
    RgbColour m_sample;
    bool m_samplePresent = false;
};
