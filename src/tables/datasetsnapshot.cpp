#include "tables/datasetsnapshot.h"

#include "tables/datacolourtable.h"

CDataSetSnapshot CDataSetSnapshot::capture(const CDataColourTable &table)
{
    CDataSetSnapshot snapshot;
    snapshot.rows.reserve(table.count());
    for (int i = 0; i < table.count(); ++i) {
        const CColourTableEntry *entry = table.at(i);
        snapshot.rows.append({entry->name, entry->red, entry->green, entry->blue});
    }
    snapshot.filePath = table.filePath();
    snapshot.header = table.header();
    snapshot.untitled = table.isUntitled();
    return snapshot;
}

void CDataSetSnapshot::restoreInto(CDataColourTable &table) const
{
    table.clear();
    for (const Row &row : rows)
        table.add(std::make_unique<CColourTableEntry>(row.name, row.red, row.green, row.blue));
    table.setFilePath(filePath);
    table.setHeader(header);
    table.setUntitled(untitled);
}

bool CDataSetSnapshot::operator==(const CDataSetSnapshot &other) const
{
    if (filePath != other.filePath || header != other.header || untitled != other.untitled
        || rows.size() != other.rows.size())
        return false;
    for (int i = 0; i < rows.size(); ++i) {
        const Row &x = rows.at(i);
        const Row &y = other.rows.at(i);
        if (x.name != y.name || x.red != y.red || x.green != y.green || x.blue != y.blue)
            return false;
    }
    return true;
}
