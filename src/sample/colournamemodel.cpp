#include "sample/colournamemodel.h"

#include "palette/colourcopytext.h"
#include "sample/colourtexts.h"
#include "tables/colourtable.h"

#include <QColor>

CColourNameModel::CColourNameModel(int rgbFormat, QObject *parent)
    : QAbstractTableModel(parent), m_rgbFormat(rgbFormat)
{
}

void CColourNameModel::setTable(const CColourTable &table)
{
    beginResetModel();
    m_hits.clear();
    m_entries.clear();
    m_entries.reserve(table.count());
    for (int i = 0; i < table.count(); ++i) {
        const CColourTableEntry *entry = table.at(i);
        m_entries.append({entry->name, {entry->red, entry->green, entry->blue}});
    }
    endResetModel();
}

void CColourNameModel::setHits(const QVector<int> &hits)
{
    beginResetModel();
    m_hits = hits;
    endResetModel();
}

int CColourNameModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_hits.size();
}

int CColourNameModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString CColourNameModel::name(int row) const
{
    return row >= 0 && row < m_hits.size() ? m_entries.at(m_hits.at(row)).name : QString();
}

RgbColour CColourNameModel::colour(int row) const
{
    return row >= 0 && row < m_hits.size() ? m_entries.at(m_hits.at(row)).colour : RgbColour{};
}

QVariant CColourNameModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_hits.size())
        return QVariant();
    const Entry &entry = m_entries.at(m_hits.at(index.row()));
    // The whole cell, and a square inside it that stays visible on the
    // selected row.
    if ((role == Qt::BackgroundRole || role == Qt::DecorationRole) && index.column() == SwatchColumn)
        return QColor(CColourCopyText::hex(entry.colour));
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return QVariant();
    switch (index.column()) {
    case NameColumn:
        return entry.name;
    case HexColumn:
        return CColourCopyText::hex(entry.colour);
    case RgbColumn:
        return CColourTexts::rgbLine(entry.colour, m_rgbFormat);
    case LabColumn:
        return CColourTexts::labLine(entry.colour);
    default:
        return QVariant();
    }
}

QVariant CColourNameModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case NameColumn:
        return tr("Name");
    case HexColumn:
        return tr("Hex");
    case RgbColumn:
        return tr("RGB");
    case LabColumn:
        return tr("L*a*b*");
    default:
        return QString();
    }
}
