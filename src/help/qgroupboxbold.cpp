#include "help/qgroupboxbold.h"

#include <QChildEvent>

namespace {
const QFont::Weight kBoldWeight = QFont::Bold;
const QFont::Weight kNormalWeight = QFont::Normal;
} // namespace

QGroupBoxBold::QGroupBoxBold(const QString &title, QWidget *parent) : QGroupBox(title, parent)
{
    QFont boldFont = font();
    boldFont.setWeight(kBoldWeight);
    setFont(boldFont);
}

void QGroupBoxBold::childEvent(QChildEvent *event)
{
    // A child inherits the box's font; give it back the normal weight as
    // soon as it arrives (directly or through a layout).
    if (event->added() && event->child()->isWidgetType()) {
        auto *child = static_cast<QWidget *>(event->child());
        QFont normalFont = child->font();
        normalFont.setWeight(kNormalWeight);
        child->setFont(normalFont);
    }
    QGroupBox::childEvent(event);
}
