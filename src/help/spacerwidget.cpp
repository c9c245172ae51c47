#include "help/spacerwidget.h"

CSpacerWidget::CSpacerWidget(int width, int height, QWidget *parent)
    : QWidget(parent), m_width(width), m_height(height)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CSpacerWidget::sizeHint() const
{
    return QSize(m_width, m_height);
}
