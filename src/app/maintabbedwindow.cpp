#include "app/maintabbedwindow.h"

#include "common/commandmapping.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QSignalMapper>
#include <QToolButton>

CMainTabbedWindow::CMainTabbedWindow(QWidget *parent) : QWidget(parent) {}

void CMainTabbedWindow::activatePage() {}

QString CMainTabbedWindow::title() const { return QString(); }

QToolButton *CMainTabbedWindow::createToolButton(QAction *action, QSignalMapper *mapper,
                                                 int commandId, bool checkable, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    action->setCheckable(checkable);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setCheckable(checkable);
    button->setFixedSize(46, 34);
    button->setIconSize(QSize(46, 34));
    mapCommand(action, mapper, commandId);
    return button;
}

QGroupBox *CMainTabbedWindow::createHorizontalRule(QWidget *parent)
{
    auto *rule = new QGroupBox(parent);
    rule->setFlat(true);
    rule->setMaximumHeight(2);
    return rule;
}

QGroupBox *CMainTabbedWindow::createVerticalRule(QWidget *parent)
{
    auto *rule = new QGroupBox(parent);
    rule->setFlat(true);
    rule->setMaximumWidth(2);
    // The spacing on each side is left to the layout that holds the rule.
    rule->setContentsMargins(17, 0, 17, 0);
    return rule;
}

static void retainSizeWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QLabel *CMainTabbedWindow::createCaptionLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(QStringLiteral(" L*:"), parent);
    label->setText(text);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    retainSizeWhenHidden(label);
    return label;
}

QLabel *CMainTabbedWindow::createValueLabel(QWidget *parent)
{
    auto *label = new QLabel(QStringLiteral("-00.000"), parent);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setMinimumWidth(label->sizeHint().width());
    retainSizeWhenHidden(label);
    return label;
}
