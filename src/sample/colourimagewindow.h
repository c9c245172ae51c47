#pragma once

#include "app/maintabbedwindow.h"

class CMainWindow;
class QImage;

// The "Sample && Match" page: image view and zoom, picking, multiple
// selection and the match panel.
// (Interface used by the main window; the page itself is built out in
// sample/.)
class CColourImageWindow : public CMainTabbedWindow
{
    Q_OBJECT

public:
    CColourImageWindow(CMainWindow *mainWindow, QWidget *parent = nullptr);
    ~CColourImageWindow() override;

    QString title() const override;

    // Shows a newly opened image (path for the title, image for the view).
    void showImage(const QString &path, const QImage &image);
    // Main window zoom commands 6, 7, 8.
    void zoomStep(int command);
    int zoomIndex() const;
    // Re-reads the list of library tables.
    void fillLibraryCombo();
    // After a settings change: rebuild the multiple-selection list texts and
    // repeat the last match quietly.
    void refreshAfterSettingsChange();

public slots:
    void processCommand(int action);

private:
    CMainWindow *m_mainWindow = nullptr;
    int m_zoomIndex = 7;
};
