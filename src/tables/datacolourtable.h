#pragma once

#include "tables/colourtable.h"

#include <QList>

// The user's data set. Carries two per-entry marker lists for the grid
// (markerA: edit button state, markerB: delete button state).
//
// load() empties the marker lists but does not extend them, while add()
// appends to them: after a load, marker i belongs to the i-th entry added
// since, and the grid reads it as row i. That is the intended behaviour.
class CDataColourTable : public CColourTable
{
public:
    CDataColourTable() = default;
    ~CDataColourTable() override;

    using CColourTable::add; // the owning form stays visible beside the override
    void add(CColourTableEntry *entry) override;
    void clear() override;
    bool removeAt(int index) override;
    // Puts entry at index, clamped to the list; its markers start at 0.
    // Undoing a deletion puts the row back where it was.
    void insertAt(int index, std::unique_ptr<CColourTableEntry> entry);
    void sort() override; // resets every marker to 0

    // Read 0 / write ignored for an index beyond the list.
    int markerA(int index) const;
    int markerB(int index) const;
    void setMarkerA(int index, int value);
    void setMarkerB(int index, int value);
    const QList<int> &markerAList() const { return m_markerA; }
    const QList<int> &markerBList() const { return m_markerB; }

    // True when the set was started by New and has no file yet.
    bool isUntitled() const { return m_untitled; }
    void setUntitled(bool untitled) { m_untitled = untitled; }

private:
    QList<int> m_markerA;
    QList<int> m_markerB;
    bool m_untitled = false;
};
