#pragma once

#include <QString>
#include <QVector>

class CDataColourTable;

// The whole of a data set held by value: its rows, file, header and whether
// it was started by New. Undoing a New or an Open puts the earlier set back
// from one, and the recovery copy is read into one.
class CDataSetSnapshot
{
public:
    struct Row
    {
        QString name;
        double red = 0.0;
        double green = 0.0;
        double blue = 0.0;
    };

    static CDataSetSnapshot capture(const CDataColourTable &table);
    // Replaces the table's content, file, header and untitled flag.
    void restoreInto(CDataColourTable &table) const;

    bool operator==(const CDataSetSnapshot &other) const;
    bool operator!=(const CDataSetSnapshot &other) const { return !(*this == other); }

    QVector<Row> rows;
    QString filePath;
    QString header;
    bool untitled = false;
};
