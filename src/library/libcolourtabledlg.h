#pragma once

#include <QDialog>

class CAppSettings;
class CLibColourTableTabGeneral;
class CLibColourTableTabImport;
class QPushButton;
class QTabWidget;

// "Library Maintenance": the "Maintenance" and "Import" pages. Its opener
// runs it with exec() and then reads libraryChanged() to know whether to
// refill its own list of tables.
class CLibColourTableDlg : public QDialog
{
    Q_OBJECT

public:
    CLibColourTableDlg(CAppSettings *settings, QWidget *parent = nullptr);

    // Whether any page created, changed, copied, renamed, deleted or
    // imported a table; set when the dialog closes.
    bool libraryChanged() const { return m_libraryChanged; }

    QTabWidget *tabs() const { return m_tabs; }
    CLibColourTableTabGeneral *generalTab() const { return m_generalTab; }
    CLibColourTableTabImport *importTab() const { return m_importTab; }
    QPushButton *helpButton() const { return m_helpButton; }
    QPushButton *closeButton() const { return m_closeButton; }

public slots:
    void accept() override;
    void reject() override;
    void displayHelp();

signals:
    void displayHelpSignal(const QString &page);

private:
    QLayout *buildButtonRow();
    void updateChangedFlag();

    bool m_libraryChanged = false;
    QTabWidget *m_tabs = nullptr;
    CLibColourTableTabGeneral *m_generalTab = nullptr;
    CLibColourTableTabImport *m_importTab = nullptr;
    QPushButton *m_helpButton = nullptr;
    QPushButton *m_closeButton = nullptr;
};
