#pragma once

#include <QDialog>

class CAppSettings;
class CColourProfilesGroup;
class CDlgTabPage;
class CDlgTabPageAdvanced;
class CDlgTabPageFolders;
class CDlgTabPageGeneral;
class QPushButton;
class QTabWidget;

// The preferences on three pages. Nothing reaches the settings until "&OK";
// the owner then reads what changed and brings its pages up to date.
class CConfigDlg : public QDialog
{
    Q_OBJECT

public:
    // `updateAddress` is the update service the General page's "&Check" asks.
    CConfigDlg(CAppSettings *settings, const QString &updateAddress, QWidget *parent = nullptr);

    // True after "&OK" when any page reported a change.
    bool changed() const { return m_changed; }
    // Whether "&OK" moved the colour match library to another folder.
    bool libraryChanged() const;

    QTabWidget *tabWidget() const { return m_tabs; }
    CDlgTabPageGeneral *generalPage() const { return m_general; }
    CDlgTabPageFolders *foldersPage() const { return m_folders; }
    CDlgTabPageAdvanced *advancedPage() const { return m_advanced; }
    // Added below the Advanced page's own groups.
    CColourProfilesGroup *profilesGroup() const { return m_profiles; }
    QPushButton *okButton() const { return m_ok; }
    QPushButton *helpButton() const { return m_help; }
    QPushButton *cancelButton() const { return m_cancel; }

signals:
    void displayHelpSignal(const QString &page);

public slots:
    void displayHelp();
    void accept() override;

private:
    void addButtonRow();

    QTabWidget *m_tabs = nullptr;
    CDlgTabPageGeneral *m_general = nullptr;
    CDlgTabPageFolders *m_folders = nullptr;
    CDlgTabPageAdvanced *m_advanced = nullptr;
    CColourProfilesGroup *m_profiles = nullptr;
    QPushButton *m_ok = nullptr;
    QPushButton *m_help = nullptr;
    QPushButton *m_cancel = nullptr;
    bool m_changed = false;
};
