#include "data/chart3dplot.h"

#include <QLabel>
#include <QVBoxLayout>

CChart3dPlot::CChart3dPlot(QWidget *parent) : QWidget(parent)
{
    auto *label = new QLabel(tr("<h1><br />3D Plot<br />Coming soon<br /></h1>"), this);
    label->setTextFormat(Qt::RichText);
    label->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
}
