#pragma once

#include <QWidget>

class QAction;
class QGroupBox;
class QLabel;
class QSignalMapper;
class QToolButton;

// Base of the two tab pages: an activation hook, the page's part of the
// window title, and builders for the pages' own toolbars and status fields.
class CMainTabbedWindow : public QWidget
{
    Q_OBJECT

public:
    explicit CMainTabbedWindow(QWidget *parent = nullptr);

    // Called by the main window when the page becomes current.
    virtual void activatePage();
    // The page's part of the window title ("" when it has none).
    virtual QString title() const;

    // A 46 x 34 auto-raise tool button for `action`, whose triggered() is
    // mapped to `commandId` by `mapper`.
    static QToolButton *createToolButton(QAction *action, QSignalMapper *mapper, int commandId,
                                         bool checkable, QWidget *parent);
    // Flat group boxes used as rules between groups of buttons.
    static QGroupBox *createHorizontalRule(QWidget *parent);
    static QGroupBox *createVerticalRule(QWidget *parent);
    // A caption (e.g. " L*:"), right-aligned, and a value label sized for
    // "-00.000"; both keep their space when hidden.
    static QLabel *createCaptionLabel(const QString &text, QWidget *parent);
    static QLabel *createValueLabel(QWidget *parent);
};
