#pragma once

#include <QMenu>

struct RgbColour;

// A pop-up menu of "Copy ..." entries, each putting its text on the
// clipboard. Pages fill one per click, and others may add their own actions
// to the same menu before it is shown.
class CColourContextMenu : public QMenu
{
    Q_OBJECT

public:
    explicit CColourContextMenu(QWidget *parent = nullptr);

    // Adds "Copy <text>" (or the given label) that copies text.
    QAction *addCopyAction(const QString &text, const QString &label = QString());

    // "Copy Name "<name>"" copying the name.
    QAction *addEntryNameAction(const QString &name);

    // The entries for a colour: hex, rgb(), the RGB text in the display
    // format and the L*a*b* text.
    void addSampleActions(const RgbColour &colour, int rgbFormat);
    // The entries for a named colour: its name, hex and L*a*b* text.
    void addEntryActions(const QString &name, const RgbColour &colour);
};
