#include "help/elidedlabel.h"

#include <QFontMetrics>
#include <QPainter>

CElidedLabel::CElidedLabel(QWidget *parent) : QLabel(parent) {}

CElidedLabel::CElidedLabel(const QString &text, QWidget *parent) : QLabel(text, parent) {}

void CElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    update();
}

bool CElidedLabel::needsEliding() const
{
    if (m_elideMode == Qt::ElideNone)
        return false;
    return QFontMetrics(font()).horizontalAdvance(text()) > contentsRect().width();
}

QString CElidedLabel::displayedText() const
{
    if (!needsEliding())
        return text();
    return QFontMetrics(font()).elidedText(text(), m_elideMode, contentsRect().width());
}

void CElidedLabel::paintEvent(QPaintEvent *event)
{
    if (!needsEliding()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    painter.drawText(contentsRect(), int(alignment()), displayedText());
}
