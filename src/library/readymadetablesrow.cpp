#include "library/readymadetablesrow.h"

#include "tables/readymadetables.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CReadyMadeTablesRow::CReadyMadeTablesRow(QWidget *parent) : QWidget(parent)
{
    // The caption sits above its buttons, so the page keeps the width of
    // the rows above it.
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QLabel(tr("Ready-made Tables"), this));
    auto *row = new QHBoxLayout;
    column->addLayout(row);
    const QVector<ReadyMadeTable> &tables = CReadyMadeTables::all();
    for (int index = 0; index < tables.size(); ++index) {
        // No mnemonic: the letters of the rows above are taken.
        QString text = tables.at(index).name;
        auto *button = new QPushButton(text.replace(QLatin1Char('&'), QLatin1String("&&")), this);
        button->setAutoDefault(false);
        button->setToolTip(tr("%1 colours, licence %2, from %3")
                               .arg(CReadyMadeTables::entryCount(tables.at(index)))
                               .arg(tables.at(index).licence, tables.at(index).source));
        connect(button, &QPushButton::clicked, this, [this, index]() { emit tableChosen(index); });
        m_buttons.append(button);
        row->addWidget(button);
    }
    row->addStretch();
}
