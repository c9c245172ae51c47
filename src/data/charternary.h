#pragma once

#include <QWidget>

// The ternary chart page: a placeholder, not shown in this version.
class CChartTernary : public QWidget
{
    Q_OBJECT

public:
    explicit CChartTernary(QWidget *parent = nullptr);
};
