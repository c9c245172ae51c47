#include "faultsession.h"

#include "app/appcontext.h"
#include "app/commandid.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/datasetcommand.h"
#include "data/datasethistory.h"
#include "library/librarywritemessages.h"
#include "tables/datacolourtable.h"
#include "tables/libcolourtable.h"

#include <QDateTime>
#include <QTimer>
#include <QToolButton>
#include <QUndoStack>

#include <cstdio>

namespace {

QString now()
{
    return QString::number(QDateTime::currentMSecsSinceEpoch());
}

QString namesOf(const CColourTable &table)
{
    QStringList names;
    for (const CColourTableEntry *entry : table.entries())
        names << entry->name;
    return names.join(QLatin1Char('|'));
}

} // namespace

FaultSession::FaultSession(quint32 seed, const QString &dataPath, const QString &libraryPath)
    : m_random(seed), m_seed(seed), m_dataPath(dataPath), m_libraryPath(libraryPath),
      m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &FaultSession::step);
}

FaultSession::~FaultSession() = default;

void FaultSession::say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString FaultSession::rows() const
{
    return namesOf(*m_window->dataPage()->dataTable());
}

bool FaultSession::start()
{
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    if (!m_window->dataPage()->openFile(m_dataPath))
        return false;
    m_library = std::make_unique<CLibColourTable>();
    if (m_library->load(m_libraryPath).status != CColourTable::Loaded)
        return false;
    say(QStringLiteral("ready ") + now());
    say(QStringLiteral("lib0 ") + now() + QLatin1Char(' ') + namesOf(*m_library));
    say(QStringLiteral("data0 ") + now() + QLatin1Char(' ') + rows());
    journalState();
    m_timer->start(int(m_random.bounded(40, 120)));
    return true;
}

void FaultSession::journalState()
{
    say(QStringLiteral("S %1 %2 %3")
            .arg(now(), m_window->dataPage()->isModified() ? QStringLiteral("1")
                                                            : QStringLiteral("0"),
                 rows()));
}

void FaultSession::step()
{
    const int choice = int(m_random.bounded(100));
    // Saves are rare: a saved set has no copy, and the check wants copies.
    if (choice < 87)
        changeDataSet(choice);
    else if (choice < 97)
        addLibraryColour();
    else
        saveDataSet();
    m_timer->start(int(m_random.bounded(40, 120)));
}

void FaultSession::changeDataSet(int choice)
{
    CChartDataWindow *page = m_window->dataPage();
    CDataModel *model = page->model();
    QUndoStack *stack = page->history()->stack();
    const int count = model->rowCount();
    if (choice < 35 || count == 0) {
        const QString name = QStringLiteral("R%1-%2").arg(m_seed).arg(++m_counter);
        page->history()->add({name, m_random.generateDouble(), 0.5, 0.25});
    } else if (choice < 50) {
        const int row = int(m_random.bounded(count));
        const QString name = model->table()->at(row)->name + QLatin1Char('x');
        stack->push(CDataSetCommand::rename(model, row, name));
    } else if (choice < 65) {
        model->deleteRecord(model->index(int(m_random.bounded(count)), CDataModel::ColDelete));
    } else if (choice < 75) {
        if (!stack->canUndo())
            return;
        stack->undo();
    } else {
        if (!stack->canRedo())
            return;
        stack->redo();
    }
    journalState();
}

void FaultSession::saveDataSet()
{
    say(QStringLiteral("d ") + now() + QLatin1Char(' ') + rows());
    // As a user saves: the page's Save button (the set has its file).
    m_window->dataPage()->commandButton(CmdSaveData)->click();
    say(QStringLiteral("D ") + now() + QLatin1Char(' ') + rows());
    journalState();
}

void FaultSession::addLibraryColour()
{
    const QString name = QStringLiteral("L%1-%2").arg(m_seed).arg(++m_counter);
    say(QStringLiteral("l ") + now() + QLatin1Char(' ') + name);
    const CColourTableEntry entry(name, m_random.generateDouble(), 0.25, 0.75);
    if (CLibraryWriteMessages::addEntry(m_window.get(), *m_library, entry))
        say(QStringLiteral("L ") + now() + QLatin1Char(' ') + name);
}
