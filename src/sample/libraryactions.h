#pragma once

#include "colour/rgbcolour.h"

#include <QObject>

class CAppSettings;
class CLibrarySelector;
class QWidget;

// The sampling page's two library commands: "Maintain Colour Library" runs
// the maintenance dialog, "Add Colour to Colour Library" the add dialog and
// writes the new entry into the selected table. Both dialogs and their
// messages open over `dialogParent`; what follows for the page (the results
// going, the list of tables read again) is signalled.
class CLibraryActions : public QObject
{
    Q_OBJECT

public:
    // `settings` may be null: the maintenance dialog then does not open.
    CLibraryActions(CAppSettings *settings, CLibrarySelector *library, QWidget *dialogParent);

    // Runs the maintenance dialog; libraryChanged follows when it made,
    // changed, copied, renamed, deleted or imported any table.
    void maintain();
    // Asks for a name for `sample` and adds it to the selected table;
    // without a sample (`present` false) says what to do first.
    void addSample(const RgbColour &sample, bool present);
    // Adds the entry to the selected table, which writes itself back to its
    // file at once. When that fails the entry is taken out again, so that the
    // table shown matches its file. Returns whether it was written.
    bool addEntry(const QString &name, const RgbColour &colour);

signals:
    // The library folder's tables changed.
    void libraryChanged();
    // A dialog asks for a page of the manual.
    void displayHelpSignal(const QString &page);

private:
    bool execMaintenance();

    CAppSettings *m_settings = nullptr;
    CLibrarySelector *m_library = nullptr;
    QWidget *m_parent = nullptr;
};
