#pragma once

#include <QWidget>

// The 3D plot page: a placeholder, not shown in this version.
class CChart3dPlot : public QWidget
{
    Q_OBJECT

public:
    explicit CChart3dPlot(QWidget *parent = nullptr);
};
