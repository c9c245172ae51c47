#pragma once

#include "colour/rgbcolour.h"

#include <QAbstractTableModel>
#include <QVector>

class CColourTable;

// The rows of the "Find Colour" window: the entries of one table that a
// search found, as swatch, name, hex and the RGB and L*a*b* texts. It holds
// its own copy of the names and colours, so a table reloaded meanwhile on
// the page cannot pull them away; only the rows shown are ever formatted.
class CColourNameModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { SwatchColumn, NameColumn, HexColumn, RgbColumn, LabColumn, ColumnCount };

    explicit CColourNameModel(int rgbFormat, QObject *parent = nullptr);

    // Copies the table's names and colours; shows no rows until setHits().
    void setTable(const CColourTable &table);
    // The rows to show: indexes into the table, in that order.
    void setHits(const QVector<int> &hits);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    QString name(int row) const;
    RgbColour colour(int row) const;

private:
    struct Entry
    {
        QString name;
        RgbColour colour;
    };

    QVector<Entry> m_entries;
    QVector<int> m_hits;
    int m_rgbFormat = 0;
};
