#include "library/libdialogrows.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

QGroupBox *CLibDialogRows::horizontalRule(QWidget *parent)
{
    auto *rule = new QGroupBox(parent);
    rule->setFlat(true);
    rule->setMaximumHeight(2);
    return rule;
}

QPushButton *CLibDialogRows::button(const QString &text, QWidget *parent, bool isDefault)
{
    auto *button = new QPushButton(text, parent);
    if (isDefault)
        button->setDefault(true);
    else
        button->setAutoDefault(false);
    return button;
}

QHBoxLayout *CLibDialogRows::buttonRow(QPushButton *help, const QList<QPushButton *> &closing)
{
    auto *row = new QHBoxLayout;
    row->addWidget(help);
    row->addStretch();
    for (QPushButton *button : closing)
        row->addWidget(button);
    return row;
}
