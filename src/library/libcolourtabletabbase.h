#pragma once

#include <QString>
#include <QWidget>

// A page of the library maintenance dialog: its help anchor and whether any
// of its operations changed the library. The flag only ever becomes true.
class CLibColourTableTabBase : public QWidget
{
    Q_OBJECT

public:
    CLibColourTableTabBase(const QString &helpAnchor, QWidget *parent = nullptr);

    QString helpAnchor() const { return m_helpAnchor; }
    bool isChanged() const { return m_changed; }

signals:
    // Help asked for from a dialog this page opened.
    void displayHelpSignal(const QString &page);

protected:
    void setChanged() { m_changed = true; }

private:
    QString m_helpAnchor;
    bool m_changed = false;
};
