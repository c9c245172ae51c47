#pragma once

#include <QString>
#include <QWidget>

class CAppSettings;

// One page of the configuration dialog. A page works on copies of the
// settings it shows and writes them back only in applyChanges().
class CDlgTabPage : public QWidget
{
    Q_OBJECT

public:
    CDlgTabPage(CAppSettings *settings, const QString &helpAnchor, QWidget *parent = nullptr);

    // Copies the page's values into the settings; what the result reports
    // is up to each page.
    virtual bool applyChanges() = 0;

    QString helpAnchor() const { return m_helpAnchor; }

protected:
    CAppSettings *settings() const { return m_settings; }

private:
    CAppSettings *m_settings = nullptr;
    QString m_helpAnchor;
};
