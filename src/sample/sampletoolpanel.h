#pragma once

#include "common/commandid.h"
#include "sample/multipleselectionmodel.h"

#include <QToolBar>
#include <QVector>

#include <initializer_list>

class CAppSettings;
class CLibrarySelector;
class CMatchResultsView;
class CMultipleSelect;
class CPickNotes;
class CSamplePanel;
class QComboBox;
class QLabel;
class QSignalMapper;
class QToolButton;
class QVBoxLayout;

// The left-hand panel of the sampling page, built once: the pick mode and
// size, the sample and its notes, the multiple-selection column, the library
// choice and the match results. It only builds and hands out its parts: the
// command buttons trigger through the page's mapper and the rows' clear
// buttons through the page's clear mapper, so every decision stays the page's.
class CSampleToolPanel : public QToolBar
{
    Q_OBJECT

public:
    static const int kMultipleRows = CMultipleSelectionModel::kCapacity;
    // The page's commands that have a button here, first and last.
    static const int kFirstCommand = CmdMaintainLibrary;
    static const int kLastCommand = CmdClearMultiple;

    // `settings` may be null (a page shown on its own).
    CSampleToolPanel(CAppSettings *settings, QSignalMapper *commands, QSignalMapper *clearItems,
                     QWidget *parent = nullptr);

    // The button of a page command; null for any other number.
    QToolButton *commandButton(int command) const;
    // Checks `command`'s button and unchecks the other buttons of `group`.
    void checkCommand(int command, std::initializer_list<int> group);
    // Match, add to the data set and add to the library need a sample.
    void enableSampleCommands(bool enable);

    QComboBox *pickSizeCombo() const { return m_pickSizeCombo; }
    CSamplePanel *samplePanel() const { return m_samplePanel; }
    CPickNotes *pickNotes() const { return m_notes; }
    const QVector<CMultipleSelect *> &selectionRows() const { return m_rows; }
    QLabel *maximumNotice() const { return m_maximumNotice; }
    CLibrarySelector *librarySelector() const { return m_library; }
    CMatchResultsView *results() const { return m_results; }

private:
    QToolButton *addCommandButton(int command, const QString &text, const QString &icon,
                                  bool checkable, QWidget *parent);
    QWidget *buildPickingSection(QWidget *parent);
    QWidget *buildPickModeRow(QWidget *parent);
    QWidget *buildPickSizeRow(QWidget *parent);
    QWidget *buildMultipleSection(QWidget *parent, QSignalMapper *clearItems);
    void buildMatchSection(QWidget *parent, QVBoxLayout *layout);
    QLayout *buildLibraryRow(QWidget *parent);

    CAppSettings *m_settings = nullptr;
    QSignalMapper *m_commands = nullptr;
    QVector<QToolButton *> m_buttons;
    QComboBox *m_pickSizeCombo = nullptr;
    CSamplePanel *m_samplePanel = nullptr;
    CPickNotes *m_notes = nullptr;
    QVector<CMultipleSelect *> m_rows;
    QLabel *m_maximumNotice = nullptr;
    CLibrarySelector *m_library = nullptr;
    CMatchResultsView *m_results = nullptr;
};
