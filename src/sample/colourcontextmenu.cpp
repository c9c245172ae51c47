#include "sample/colourcontextmenu.h"

#include "palette/colourcopytext.h"
#include "sample/colourtexts.h"

#include <QApplication>
#include <QClipboard>

namespace {

// "&" would become a mnemonic in a menu label.
QString menuText(const QString &text)
{
    QString out = text;
    return out.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

CColourContextMenu::CColourContextMenu(QWidget *parent) : QMenu(parent)
{
}

QAction *CColourContextMenu::addCopyAction(const QString &text, const QString &label)
{
    const QString shown = label.isEmpty() ? tr("Copy %1").arg(menuText(text)) : label;
    QAction *action = addAction(shown);
    connect(action, &QAction::triggered, this,
            [text]() { QApplication::clipboard()->setText(text); });
    return action;
}

void CColourContextMenu::addSampleActions(const RgbColour &colour, int rgbFormat)
{
    addCopyAction(CColourCopyText::hex(colour));
    addCopyAction(CColourCopyText::cssRgb(colour));
    addCopyAction(CColourTexts::rgbLine(colour, rgbFormat));
    addCopyAction(CColourTexts::labLine(colour));
}

QAction *CColourContextMenu::addEntryNameAction(const QString &name)
{
    return addCopyAction(name, tr("Copy Name \"%1\"").arg(menuText(name)));
}

void CColourContextMenu::addEntryActions(const QString &name, const RgbColour &colour)
{
    addEntryNameAction(name);
    addCopyAction(CColourCopyText::hex(colour));
    addCopyAction(CColourTexts::labLine(colour));
}
