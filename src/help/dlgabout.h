#pragma once

#include <QDialog>

class QLabel;

// The About box: product name, version and the owner's notice. Complete, but
// no command opens it in this release.
class CDlgAbout : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgAbout(QWidget *parent = nullptr);

    // "v" major "." minor ".0"
    static QString versionText(int major, int minor);

    QLabel *nameLabel() const { return m_nameLabel; }
    QLabel *versionLabel() const { return m_versionLabel; }
    QLabel *noticeLabel() const { return m_noticeLabel; }

private:
    QLabel *m_nameLabel = nullptr;
    QLabel *m_versionLabel = nullptr;
    QLabel *m_noticeLabel = nullptr;
};
