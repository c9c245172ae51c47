#pragma once

#include <QWidget>

// A fixed gap of the given size, e.g. between groups of toolbar buttons.
class CSpacerWidget : public QWidget
{
    Q_OBJECT

public:
    CSpacerWidget(int width, int height, QWidget *parent = nullptr);

    QSize sizeHint() const override;

private:
    int m_width;
    int m_height;
};
