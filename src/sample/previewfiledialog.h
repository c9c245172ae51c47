#pragma once

#include <QFileDialog>

#include <memory>

class QLabel;

// The "Open Image" file dialog. It carries a preview label and the slot that
// fills it, but does not place the label or connect the slot: the dialog is
// shown without a preview.
class CPreviewFileDialog : public QFileDialog
{
    Q_OBJECT

public:
    CPreviewFileDialog(QWidget *parent, const QString &caption, const QString &directory,
                       const QString &filter);
    ~CPreviewFileDialog() override;

    QLabel *previewLabel() const { return m_preview.get(); }

public slots:
    // Shows the file as a thumbnail fitted to the label, or "No image".
    void OnCurrentChanged(const QString &path);

private:
    std::unique_ptr<QLabel> m_preview;
};
