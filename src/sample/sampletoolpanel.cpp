#include "sample/sampletoolpanel.h"

#include "common/appcontext.h"
#include "app/maintabbedwindow.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/multipleselect.h"
#include "sample/picknotes.h"
#include "sample/samplepanel.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int kSectionSpacing = 17;

QLabel *centredCaption(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    return label;
}

QHBoxLayout *bareRow(QWidget *owner)
{
    auto *row = new QHBoxLayout(owner);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

QVBoxLayout *bareColumn(QWidget *owner)
{
    auto *column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    return column;
}

} // namespace

CSampleToolPanel::CSampleToolPanel(CAppSettings *settings, QSignalMapper *commands,
                                   QSignalMapper *clearItems, QWidget *parent)
    : QToolBar(parent), m_settings(settings), m_commands(commands)
{
    m_buttons.fill(nullptr, kLastCommand - kFirstCommand + 1);
    setOrientation(Qt::Vertical);
    setAllowedAreas(Qt::LeftToolBarArea);
    setMovable(false);
    setFloatable(false);

    auto *box = new QGroupBox(this);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(centredCaption(tr("Select Colour"), box));

    auto *columns = new QWidget(box);
    QHBoxLayout *columnsLayout = bareRow(columns);
    columnsLayout->addWidget(buildPickingSection(columns));
    columnsLayout->addWidget(CMainTabbedWindow::createVerticalRule(columns));
    columnsLayout->addWidget(buildMultipleSection(columns, clearItems));
    layout->addWidget(columns);
    layout->addWidget(CMainTabbedWindow::createHorizontalRule(box));
    buildMatchSection(box, layout);
    addWidget(box);
}

QToolButton *CSampleToolPanel::addCommandButton(int command, const QString &text,
                                                const QString &icon, bool checkable,
                                                QWidget *parent)
{
    auto *action = new QAction(AppContext::widgetIcon(icon), text, parent);
    QToolButton *button =
        CMainTabbedWindow::createToolButton(action, m_commands, command, checkable, parent);
    m_buttons[command - kFirstCommand] = button;
    return button;
}

QToolButton *CSampleToolPanel::commandButton(int command) const
{
    if (command < kFirstCommand || command > kLastCommand)
        return nullptr;
    return m_buttons.at(command - kFirstCommand);
}

void CSampleToolPanel::checkCommand(int command, std::initializer_list<int> group)
{
    for (int other : group)
        commandButton(other)->setChecked(false);
    commandButton(command)->setChecked(true);
}

void CSampleToolPanel::enableSampleCommands(bool enable)
{
    commandButton(CmdMatchColour)->setEnabled(enable);
    commandButton(CmdAddToDataSet)->setEnabled(enable);
    commandButton(CmdAddToLibrary)->setEnabled(enable);
}

QWidget *CSampleToolPanel::buildPickingSection(QWidget *parent)
{
    auto *section = new QWidget(parent);
    QVBoxLayout *layout = bareColumn(section);
    layout->addWidget(buildPickModeRow(section));
    layout->addWidget(buildPickSizeRow(section));
    m_samplePanel = new CSamplePanel(section);
    layout->addWidget(m_samplePanel);
    m_notes = new CPickNotes(section);
    layout->addWidget(m_notes);
    layout->addSpacing(kSectionSpacing);
    return section;
}

QWidget *CSampleToolPanel::buildPickModeRow(QWidget *parent)
{
    auto *row = new QWidget(parent);
    QHBoxLayout *layout = bareRow(row);
    layout->addWidget(addCommandButton(CmdPickClick, tr("Click Select Colour"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick.png"), true,
                                       row));
    layout->addWidget(addCommandButton(CmdPickRubberBand, tr("Rubber Band Select Colour"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick_drag.png"),
                                       true, row));
    layout->addStretch();
    layout->addWidget(addCommandButton(CmdSelectSingle, tr("Single Selection"),
                                       QStringLiteral("sm_toolbar/btn_toolbar_pick_single.png"),
                                       true, row));
    return row;
}

QWidget *CSampleToolPanel::buildPickSizeRow(QWidget *parent)
{
    auto *row = new QWidget(parent);
    QHBoxLayout *layout = bareRow(row);
    layout->addWidget(new QLabel(tr("Pick Size:"), row));
    m_pickSizeCombo = new QComboBox(row);
    for (int size : {1, 3, 5, 7, 9})
        m_pickSizeCombo->addItem(QStringLiteral("%1x%1").arg(size), size);
    layout->addWidget(m_pickSizeCombo);
    return row;
}

QWidget *CSampleToolPanel::buildMultipleSection(QWidget *parent, QSignalMapper *clearItems)
{
    auto *section = new QWidget(parent);
    QVBoxLayout *layout = bareColumn(section);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(addCommandButton(CmdSelectMultiple, tr("Multiple Selection"),
                                        QStringLiteral("sm_toolbar/btn_toolbar_multi_done.png"),
                                        true, section));
    buttons->addWidget(addCommandButton(CmdClearMultiple, tr("Clear Multiple Selection"),
                                        QStringLiteral("sm_toolbar/btn_toolbar_multi_clear.png"),
                                        false, section));
    commandButton(CmdClearMultiple)->setEnabled(false);
    layout->addLayout(buttons);

    auto *grid = new QGridLayout;
    for (int position = 0; position < kMultipleRows; ++position) {
        auto *entry = new CMultipleSelect(position, section, clearItems);
        m_rows.append(entry);
        grid->addWidget(entry->row(), position / 2, position % 2);
    }
    layout->addLayout(grid);
    m_maximumNotice =
        new QLabel(tr("<font color='Crimson'>Maximum %1 Items</font>").arg(kMultipleRows), section);
    m_maximumNotice->hide();
    layout->addWidget(m_maximumNotice);
    layout->addStretch();
    return section;
}

void CSampleToolPanel::buildMatchSection(QWidget *parent, QVBoxLayout *layout)
{
    layout->addWidget(new QLabel(tr("Colour Match Library"), parent));
    layout->addLayout(buildLibraryRow(parent));

    auto *matchRow = new QHBoxLayout;
    matchRow->addWidget(addCommandButton(CmdMatchColour, tr("Match Library Colour"),
                                         QStringLiteral("sm_toolbar/btn_toolbar_match.png"),
                                         false, parent));
    matchRow->addWidget(addCommandButton(CmdAddToDataSet, tr("Add Colour to DataSet"),
                                         QStringLiteral("sm_toolbar/btn_toolbar_add_data.png"),
                                         false, parent));
    layout->addLayout(matchRow);
    layout->addSpacing(kSectionSpacing);
    m_results = new CMatchResultsView(m_settings, parent);
    layout->addWidget(m_results, 1);
    layout->addStretch();
}

QLayout *CSampleToolPanel::buildLibraryRow(QWidget *parent)
{
    auto *libraryRow = new QHBoxLayout;
    libraryRow->addWidget(addCommandButton(CmdAddToLibrary, tr("Add Colour to Colour Library"),
                                           QStringLiteral("sm_toolbar/btn_toolbar_add_lib.png"),
                                           false, parent));
    libraryRow->addStretch();
    m_library = new CLibrarySelector(m_settings, parent);
    libraryRow->addWidget(m_library);
    libraryRow->addSpacing(8);
    libraryRow->addWidget(addCommandButton(CmdMaintainLibrary, tr("Maintain Colour Library"),
                                           QStringLiteral("sm_toolbar/btn_toolbar_maintain.png"),
                                           false, parent));
    libraryRow->addStretch();
    return libraryRow;
}
