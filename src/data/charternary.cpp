#include "data/charternary.h"

#include <QLabel>
#include <QVBoxLayout>

CChartTernary::CChartTernary(QWidget *parent) : QWidget(parent)
{
    auto *label = new QLabel(tr("<h1><br />Ternary Chart<br />Coming soon<br /></h1>"), this);
    label->setTextFormat(Qt::RichText);
    label->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
}
