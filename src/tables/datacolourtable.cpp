#include "tables/datacolourtable.h"

#include <algorithm>
#include <utility>

CDataColourTable::~CDataColourTable() = default;

void CDataColourTable::add(CColourTableEntry *entry)
{
    m_markerA.append(0);
    m_markerB.append(0);
    CColourTable::add(entry);
}

void CDataColourTable::clear()
{
    m_markerA.clear();
    m_markerB.clear();
    CColourTable::clear();
}

// Each list is checked against its own length: after a load the marker
// lists are shorter than the entries.
bool CDataColourTable::removeAt(int index)
{
    if (index < 0)
        return false;
    if (index < m_markerA.size())
        m_markerA.removeAt(index);
    if (index < m_markerB.size())
        m_markerB.removeAt(index);
    return CColourTable::removeAt(index);
}

void CDataColourTable::insertAt(int index, std::unique_ptr<CColourTableEntry> entry)
{
    index = std::max(0, std::min(index, count()));
    if (index <= m_markerA.size())
        m_markerA.insert(index, 0);
    if (index <= m_markerB.size())
        m_markerB.insert(index, 0);
    m_entries.insert(m_entries.begin() + index, std::move(entry));
}

// Markers are reset rather than moved with their entries.
void CDataColourTable::sort()
{
    std::fill(m_markerA.begin(), m_markerA.end(), 0);
    std::fill(m_markerB.begin(), m_markerB.end(), 0);
    CColourTable::sort();
}

int CDataColourTable::markerA(int index) const
{
    return m_markerA.value(index, 0);
}

int CDataColourTable::markerB(int index) const
{
    return m_markerB.value(index, 0);
}

void CDataColourTable::setMarkerA(int index, int value)
{
    if (index >= 0 && index < m_markerA.size())
        m_markerA[index] = value;
}

void CDataColourTable::setMarkerB(int index, int value)
{
    if (index >= 0 && index < m_markerB.size())
        m_markerB[index] = value;
}
