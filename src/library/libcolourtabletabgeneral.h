#pragma once

#include "library/libcolourtabletabbase.h"

class CAppSettings;
class QComboBox;
class QPushButton;

// The "Maintenance" page: create a table, and edit, copy, rename or delete
// the one chosen in the list. Every successful operation fillLibraryCombos the list
// and marks the page changed.
class CLibColourTableTabGeneral : public CLibColourTableTabBase
{
    Q_OBJECT

public:
    enum Button { New = 0, Edit = 1, Copy = 2, Rename = 3, Delete = 4 };

    CLibColourTableTabGeneral(CAppSettings *settings, const QString &helpAnchor,
                              QWidget *parent = nullptr);

    QComboBox *tableCombo() const { return m_tableCombo; }
    QPushButton *button(Button id) const { return m_buttons[id]; }

public slots:
    void processButton(int id);
    // Lists the library folder's tables again (after an import, say).
    void fillLibraryCombo();

private:
    QWidget *buildNewGroup();
    QWidget *buildEditGroup();
    QPushButton *makeButton(int id, const QString &text, QWidget *parent);

    bool newTable();
    bool editTable(const QString &name, const QString &path);
    bool copyTable(const QString &name, const QString &path);
    bool renameTable(const QString &name, const QString &path);
    bool deleteTable(const QString &name, const QString &path);
    void showCannotAccess(const QString &name);
    void critical(const QString &text);

    CAppSettings *m_settings = nullptr;
    class QSignalMapper *m_mapper = nullptr;
    QComboBox *m_tableCombo = nullptr;
    QPushButton *m_buttons[5] = {};
};
