#include "sample/multipleselectionmodel.h"

#include "colour/colouraverage.h"

bool CMultipleSelectionModel::add(const RgbColour &colour, const QRect &rect)
{
    if (isFull())
        return false;
    m_entries.append(Entry{colour, rect});
    return true;
}

bool CMultipleSelectionModel::removeAt(int position)
{
    if (position < 0 || position >= m_entries.size())
        return false;
    m_entries.remove(position);
    return true;
}

RgbColour CMultipleSelectionModel::average(bool rgbAverage) const
{
    QVector<RgbColour> colours;
    colours.reserve(m_entries.size());
    for (const Entry &entry : m_entries)
        colours.append(entry.colour);
    return averageColours(colours, rgbAverage);
}
