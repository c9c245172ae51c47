#include "sample/imagesource.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "colour/imagefile.h"
#include "sample/previewfiledialog.h"

#include <QFileInfo>
#include <QMessageBox>

CImageSource::CImageSource(CAppSettings *settings, QWidget *parent)
    : QObject(parent), m_settings(settings), m_parent(parent)
{
}

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
    emit fileOpened(m_path);
    return true;
}

QString CImageSource::askForFile() const
{
    CPreviewFileDialog dialog(m_parent, tr("Open Image"), m_settings ? m_settings->workDir : QString(),
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
    if (m_settings)
        m_settings->workDir = info.canonicalPath();
    // Sized up before decoding: a picture too large for memory is refused
    // like any other unreadable file.
    return CImageFile::read(m_path, &m_image) == CImageFile::Read;
}

void CImageSource::reportUnreadable()
{
    warnUnreadable(m_path);
}

void CImageSource::warnUnreadable(const QString &what) const
{
    QMessageBox::warning(m_parent, AppContext::productName(),
                         tr("The file:\n\n%1\n\ncould not be opened.").arg(what), QMessageBox::Ok);
}
