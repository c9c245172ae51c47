#pragma once

#include <QList>
#include <QString>

class QGroupBox;
class QHBoxLayout;
class QPushButton;
class QWidget;

// The parts every library dialog ends with: a thin rule, then "&Help" on the
// left and the closing buttons on the right.
class CLibDialogRows
{
public:
    // A flat group box two pixels high, drawn as a horizontal line.
    static QGroupBox *horizontalRule(QWidget *parent);
    // A push button; only the default one reacts to Enter.
    static QPushButton *button(const QString &text, QWidget *parent, bool isDefault = false);
    // help, a stretch, then the closing buttons in order.
    static QHBoxLayout *buttonRow(QPushButton *help, const QList<QPushButton *> &closing);
};
