#include "access/contrastgridmodel.h"

#include "colour/wcagcontrast.h"
#include "palette/palette.h"

#include <QBrush>

CContrastGridModel::CContrastGridModel(QObject *parent) : QAbstractTableModel(parent) {}

void CContrastGridModel::setColours(const QVector<PaletteColour> &colours)
{
    beginResetModel();
    m_grid = ContrastGrid(colours);
    m_colours.clear();
    m_colours.reserve(colours.size());
    for (const PaletteColour &colour : colours)
        m_colours << QColor(CPalette::hex(colour.rgb));
    endResetModel();
}

int CContrastGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_grid.size();
}

int CContrastGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_grid.size();
}

QVariant CContrastGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_grid.size() || index.column() >= m_grid.size())
        return QVariant();
    const double ratio = m_grid.ratio(index.row(), index.column());
    switch (role) {
    case Qt::DisplayRole:
        return QString(WcagContrast::ratioText(ratio) + QLatin1Char('\n') +
                       ContrastGrid::markText(ContrastGrid::mark(ratio)));
    case Qt::BackgroundRole:
        return QBrush(m_colours.at(index.row()));
    case Qt::ForegroundRole:
        return QBrush(m_colours.at(index.column()));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    case Qt::ToolTipRole:
        return tr("%1 text on %2: %3:1, %4")
            .arg(headerData(index.column(), Qt::Horizontal).toString(),
                 headerData(index.row(), Qt::Vertical).toString(), WcagContrast::ratioText(ratio),
                 ContrastGrid::markText(ContrastGrid::mark(ratio)));
    default:
        break;
    }
    return QVariant();
}

QVariant CContrastGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section < 0 || section >= m_grid.size())
        return QVariant();
    const PaletteColour &colour = m_grid.colour(section);
    if (role == Qt::DisplayRole) {
        const QString hex = CPalette::hex(colour.rgb);
        return colour.name.isEmpty() ? hex : colour.name + QLatin1Char('\n') + hex;
    }
    if (role == Qt::DecorationRole)
        return m_colours.at(section);
    Q_UNUSED(orientation)
    return QVariant();
}
