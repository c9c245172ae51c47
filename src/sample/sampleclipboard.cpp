#include "sample/sampleclipboard.h"

#include "palette/colourcopytext.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QWidget>

CSampleClipboard::CSampleClipboard(QWidget *page) : QObject(page)
{
    auto *copy = new QAction(page);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QAction::triggered, this, &CSampleClipboard::copyRequested);
    auto *paste = new QAction(page);
    paste->setShortcut(QKeySequence::Paste);
    paste->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(paste, &QAction::triggered, this, &CSampleClipboard::paste);
    page->addActions({copy, paste});
}

void CSampleClipboard::copyColour(const RgbColour &colour)
{
    QApplication::clipboard()->setText(CColourCopyText::hex(colour));
}

void CSampleClipboard::paste()
{
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) {
        emit statusMessage(tr("The clipboard holds no picture."));
        return;
    }
    emit imagePasted(image);
}
