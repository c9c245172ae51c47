#pragma once

#include "palette/contrastgrid.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QVector>

// The contrast grid as a table: row i and column j hold the ratio of
// colour i as background and colour j as text, the cell painted in the
// pair and marked AAA / AA / large only / fail. Cells are worked out as
// they are shown, so hundreds of colours open at once.
class CContrastGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit CContrastGridModel(QObject *parent = nullptr);

    void setColours(const QVector<PaletteColour> &colours);
    const ContrastGrid &grid() const { return m_grid; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    ContrastGrid m_grid;
    QVector<QColor> m_colours;
};
