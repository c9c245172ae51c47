#pragma once

#include <QString>
#include <QVector>

class CColourTable;

// Finds the entries of a table whose names contain a few letters, ignoring
// case and accents ("cafe" finds "Café au Lait", "CAFÉ" finds "Cafe"). The
// folded names are made once, so that each search over a 31,000-name table
// is one pass of a substring matcher.
class CColourNameSearch
{
public:
    CColourNameSearch() = default;
    explicit CColourNameSearch(const CColourTable &table);

    // Folds the names of table anew (the table's entries may have changed).
    void setTable(const CColourTable &table);

    // The indexes, in table order, of the entries whose names contain text
    // (folded the same way). Blank text finds every entry.
    QVector<int> find(const QString &text) const;

    // Lower case (full case folding), accents and other combining marks
    // dropped, runs of blanks as one space.
    static QString fold(const QString &text);

    int count() const { return m_names.size(); }

private:
    QVector<QString> m_names;
};
