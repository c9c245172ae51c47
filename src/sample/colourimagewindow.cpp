#include "sample/colourimagewindow.h"

#include <QImage>

CColourImageWindow::CColourImageWindow(CMainWindow *mainWindow, QWidget *parent)
    : CMainTabbedWindow(parent), m_mainWindow(mainWindow)
{
}

CColourImageWindow::~CColourImageWindow() = default;

QString CColourImageWindow::title() const { return QString(); }

void CColourImageWindow::showImage(const QString &, const QImage &) {}

void CColourImageWindow::zoomStep(int) {}

int CColourImageWindow::zoomIndex() const { return m_zoomIndex; }

void CColourImageWindow::fillLibraryCombo() {}

void CColourImageWindow::refreshAfterSettingsChange() {}

void CColourImageWindow::processCommand(int) {}
