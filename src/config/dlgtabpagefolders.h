#pragma once

#include "config/dlgtabpage.h"

class CElidedLabel;
class QHBoxLayout;
class QPushButton;

// Where data sets and the colour match library live. Works on copies of
// both folders; nothing is created or tested here.
class CDlgTabPageFolders : public CDlgTabPage
{
    Q_OBJECT

public:
    explicit CDlgTabPageFolders(CAppSettings *settings, QWidget *parent = nullptr);

    // Stores each folder that differs; returns whether the library folder did.
    bool applyChanges() override;

    bool dataChanged() const { return m_dataChanged; }
    bool libraryChanged() const { return m_libChanged; }
    QString dataPath() const { return m_dataPath; }
    QString libraryPath() const { return m_libPath; }
    CElidedLabel *dataLabel() const { return m_dataLabel; }
    CElidedLabel *libraryLabel() const { return m_libLabel; }
    QPushButton *dataBrowseButton() const { return m_dataBrowse; }
    QPushButton *dataDefaultButton() const { return m_dataDefault; }
    QPushButton *libraryBrowseButton() const { return m_libBrowse; }
    QPushButton *libraryDefaultButton() const { return m_libDefault; }

public slots:
    void browseDataPath();
    void defaultDataPath();
    void browseLibPath();
    void defaultLibPath();

private:
    QWidget *makeGroup(const QString &title, CElidedLabel **label, QPushButton **browse,
                       QPushButton **reset);
    void choosePath(const QString &caption, QString *path, CElidedLabel *label);
    static void showPath(CElidedLabel *label, const QString &path);

    QString m_dataPath;
    QString m_libPath;
    QString m_dataDefaultPath;
    QString m_libDefaultPath;
    CElidedLabel *m_dataLabel = nullptr;
    CElidedLabel *m_libLabel = nullptr;
    bool m_dataChanged = false;
    bool m_libChanged = false;
    QPushButton *m_dataBrowse = nullptr;
    QPushButton *m_dataDefault = nullptr;
    QPushButton *m_libBrowse = nullptr;
    QPushButton *m_libDefault = nullptr;
};
