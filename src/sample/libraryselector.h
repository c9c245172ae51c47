#pragma once

#include "tables/colourmatcher.h"
#include "tables/libcolourtable.h"

#include <QComboBox>

#include <memory>

class CAppSettings;

// The choice of colour match library table on the sampling page: lists the
// tables of the library folder, loads the chosen one and remembers it in the
// settings. Whatever changes the library folder's tables (the maintenance
// dialog, a new library folder) calls fillLibraryCombo() afterwards.
class CLibrarySelector : public QComboBox
{
    Q_OBJECT

public:
    // `settings` may be null: the list then stays empty.
    explicit CLibrarySelector(CAppSettings *settings, QWidget *parent = nullptr);

    // The table last loaded (empty when loading failed).
    const CLibColourTable &table() const { return m_table; }
    // The same table for adding an entry to it (it keeps its file path).
    // Whoever asks for it may change it, so the matcher is built anew.
    CLibColourTable &table();
    // The loaded table prepared for matching, built once per load (or
    // change) rather than for every sample.
    const CColourMatcher &matcher() const;
    // The remembered table's base name, "selected" when none is remembered:
    // how the messages name the library.
    QString selectedTableBaseName() const;
    // Loads the table of the item at `index`, with the usual messages when
    // it cannot be read; remembers it once loaded. False when not loaded.
    bool loadTable(int index);

public slots:
    // Lists the library folder's tables again and selects the remembered
    // one, which is loaded anew (a tableSelected signal follows).
    void fillLibraryCombo();

signals:
    // The user (or a refill of the list) chose the item at `index`; its table is not
    // loaded yet.
    void tableSelected(int index);

private:
    void currentItemChanged(int index);

    CAppSettings *m_settings = nullptr;
    CLibColourTable m_table;
    mutable std::unique_ptr<CColourMatcher> m_matcher;
    bool m_filling = false;
};
