#include "sample/previewfiledialog.h"

#include <QLabel>
#include <QPixmap>

CPreviewFileDialog::CPreviewFileDialog(QWidget *parent, const QString &caption,
                                       const QString &directory, const QString &filter)
    : QFileDialog(parent, caption, directory, filter), m_preview(new QLabel)
{
}

CPreviewFileDialog::~CPreviewFileDialog() = default;

void CPreviewFileDialog::OnCurrentChanged(const QString &path)
{
    const QPixmap pixmap(path);
    if (pixmap.isNull()) {
        m_preview->setText(tr("No image"));
        return;
    }
    m_preview->setPixmap(
        pixmap.scaled(m_preview->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}
