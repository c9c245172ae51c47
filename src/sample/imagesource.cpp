#include "sample/imagesource.h"

#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "sample/previewfiledialog.h"

#include <QFileInfo>
#include <QMessageBox>

CImageSource::CImageSource(CMainWindow *parent) : QObject(parent), m_parent(parent) {}

QString CImageSource::fileFilter()
{
    return tr("Images files(*.png *.jpg *.jpeg *.jpe *.tiff *.tif *.gif);;All files (*.*)");
}

bool CImageSource::open(int command, const QString &path)
{
    if (command != CmdOpenImage)
        return false;
    m_loaded = openPath(path);
    return m_loaded;
}

bool CImageSource::openPath(const QString &path)
{
    m_path = path;
    if (m_path.isEmpty()) {
        m_path = askForFile();
        if (m_path.isEmpty())
            return false;
    }
    if (!readFile()) {
        reportUnreadable();
        m_path.clear();
        return false;
    }
    CAppSettings *settings = m_parent ? m_parent->settings() : nullptr;
    if (settings) {
        settings->addRecentFile(m_parent, m_path);
        m_parent->refreshRecentFiles();
    }
    return true;
}

QString CImageSource::askForFile() const
{
    CAppSettings *settings = m_parent ? m_parent->settings() : nullptr;
    CPreviewFileDialog dialog(m_parent, tr("Open Image"), settings ? settings->workDir : QString(),
                              fileFilter());
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().first();
}

bool CImageSource::readFile()
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return false;
    // The folder is remembered even when the file then turns out unreadable:
    // the user was looking there.
    CAppSettings *settings = m_parent ? m_parent->settings() : nullptr;
    if (settings)
        settings->workDir = info.canonicalPath();
    return m_image.load(m_path);
}

void CImageSource::reportUnreadable()
{
    QMessageBox::warning(m_parent, tr("Vellora"),
                         tr("The file:\n\n%1\n\ncould not be opened.").arg(m_path), QMessageBox::Ok);
}
