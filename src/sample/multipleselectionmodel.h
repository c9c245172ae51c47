#pragma once

#include "colour/rgbcolour.h"

#include <QRect>
#include <QVector>

// The picks of a multiple selection, without any widget: up to eight entries
// in the order they were picked, each the average of its rectangle of image
// pixels. Removing an entry moves the later ones up, so an entry's position
// is always its number minus one.
class CMultipleSelectionModel
{
public:
    static const int kCapacity = 8;

    struct Entry
    {
        RgbColour colour;
        QRect rect;
    };

    // Appends a pick; false (and nothing changes) when all eight are taken.
    bool add(const RgbColour &colour, const QRect &rect);
    // Removes the entry at `position`; false when there is none there.
    bool removeAt(int position);
    void clear() { m_entries.clear(); }

    int count() const { return m_entries.size(); }
    bool isEmpty() const { return m_entries.isEmpty(); }
    bool isFull() const { return m_entries.size() >= kCapacity; }
    const Entry &at(int position) const { return m_entries.at(position); }

    // Every entry weighs the same: the average of the entries' colours by the
    // RMS rule (rgbAverage) or through Lab. Grey or black for no entries, as
    // averageColours gives.
    RgbColour average(bool rgbAverage) const;

private:
    QVector<Entry> m_entries;
};
