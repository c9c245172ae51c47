#include "faultcheck.h"

#include "data/datasetrecovery.h"
#include "tables/datacolourtable.h"
#include "tables/libcolourtable.h"
#include "tables/recoverycopy.h"

#include <QFile>
#include <QTextStream>

namespace {

QString namesOf(const CColourTable &table)
{
    QStringList names;
    for (const CColourTableEntry *entry : table.entries())
        names << entry->name;
    return names.join(QLatin1Char('|'));
}

QString rowsOf(const CDataSetSnapshot &set)
{
    QStringList names;
    for (const CDataSetSnapshot::Row &row : set.rows)
        names << row.name;
    return names.join(QLatin1Char('|'));
}

} // namespace

FaultCheck::FaultCheck(const QString &journalPath, qint64 killMs, const QString &dataPath,
                       const QString &libraryPath)
    : m_journalPath(journalPath), m_killMs(killMs), m_dataPath(dataPath),
      m_libraryPath(libraryPath)
{
}

bool FaultCheck::run()
{
    if (!readJournal())
        return false;
    checkLibrary();
    checkDataSet();
    checkRecovery();
    return m_problems.isEmpty();
}

// Each line is "<kind> <ms> [fields]"; the last field may be empty.
bool FaultCheck::readJournal()
{
    QFile file(m_journalPath);
    if (!file.open(QIODevice::ReadOnly)) {
        m_problems << QStringLiteral("no journal");
        return false;
    }
    bool ready = false;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &raw : lines) {
        const QString line = QString::fromUtf8(raw);
        const QString kind = line.section(QLatin1Char(' '), 0, 0);
        const qint64 ms = line.section(QLatin1Char(' '), 1, 1).toLongLong();
        const QString rest = line.section(QLatin1Char(' '), 2);
        if (kind == QLatin1String("ready")) {
            ready = true;
        } else if (kind == QLatin1String("lib0")) {
            m_library0 = rest;
        } else if (kind == QLatin1String("data0")) {
            m_dataSaved = rest;
        } else if (kind == QLatin1String("S")) {
            m_states.append({ms, rest.section(QLatin1Char(' '), 0, 0) == QLatin1String("1"),
                             rest.section(QLatin1Char(' '), 1)});
        } else if (kind == QLatin1String("d")) {
            m_dataPending = rest;
            m_dataIsPending = true;
        } else if (kind == QLatin1String("D")) {
            m_dataSaved = rest;
            m_dataIsPending = false;
        } else if (kind == QLatin1String("l")) {
            m_libraryPending = rest;
        } else if (kind == QLatin1String("L")) {
            m_libraryConfirmed << rest;
            m_libraryPending.clear();
        }
    }
    if (!ready || m_states.isEmpty()) {
        // Killed before the session began: nothing may have changed.
        m_states.append({0, false, m_dataSaved});
    }
    return true;
}

void FaultCheck::checkLibrary()
{
    CLibColourTable table;
    if (table.load(m_libraryPath).status != CColourTable::Loaded) {
        m_problems << QStringLiteral("library table does not parse");
        return;
    }
    QStringList old = m_library0.isEmpty() ? QStringList() : m_library0.split(QLatin1Char('|'));
    old << m_libraryConfirmed;
    const QString found = namesOf(table);
    const QString before = old.join(QLatin1Char('|'));
    QStringList withPending = old;
    if (!m_libraryPending.isEmpty())
        withPending << m_libraryPending;
    ++m_statesChecked;
    if (m_library0.isEmpty() && m_states.first().ms == 0)
        return; // killed before the journal began: any whole table will do
    if (found != before && found != withPending.join(QLatin1Char('|')))
        m_problems << QStringLiteral("library table is neither old nor new: %1").arg(found);
}

void FaultCheck::checkDataSet()
{
    CDataColourTable table;
    if (table.load(m_dataPath).status != CColourTable::Loaded) {
        m_problems << QStringLiteral("saved data set does not parse");
        return;
    }
    ++m_statesChecked;
    const QString found = namesOf(table);
    if (m_states.first().ms == 0)
        return;
    if (found != m_dataSaved && !(m_dataIsPending && found == m_dataPending))
        m_problems << QStringLiteral("saved data set is neither old nor new: %1").arg(found);
}

// The state current one second before the kill and every later one.
QVector<FaultCheck::State> FaultCheck::statesOfTheLastSecond() const
{
    int first = 0;
    for (int i = 0; i < m_states.size(); ++i) {
        if (m_states.at(i).ms <= m_killMs - 1000)
            first = i;
    }
    return m_states.mid(first);
}

void FaultCheck::checkRecovery()
{
    const QStringList copies = CDataSetRecovery::leftCopies();
    if (copies.size() > 1)
        m_problems << QStringLiteral("%1 recovery copies").arg(copies.size());
    bool found = false;
    CRecoveryCopy copy;
    if (!copies.isEmpty()) {
        if (CRecoveryCopy::read(copies.first(), &copy) != CRecoveryCopy::Read)
            m_problems << QStringLiteral("recovery copy does not parse");
        else
            found = true;
    }
    m_recovered = found ? rowsOf(copy.dataSet) : QStringLiteral("(none)");
    bool allowed = false;
    for (const State &state : statesOfTheLastSecond()) {
        ++m_statesChecked;
        if (found ? (state.modified && state.rows == m_recovered) : !state.modified)
            allowed = true;
    }
    if (!allowed)
        m_problems << QStringLiteral("recovered %1, not a state of the last second (the state "
                                     "then: %2)")
                          .arg(m_recovered, statesOfTheLastSecond().first().rows);
    for (const QString &path : copies)
        CDataSetRecovery::removeLeftCopy(path);
}

QString FaultCheck::summary() const
{
    const QString recovered =
        m_recovered == QLatin1String("(none)")
            ? QStringLiteral("no copy")
            : QStringLiteral("a copy of %1 rows")
                  .arg(m_recovered.isEmpty() ? 0 : m_recovered.count(QLatin1Char('|')) + 1);
    return QStringLiteral("states %1, journal states %2, library +%3, recovered %4")
        .arg(m_statesChecked)
        .arg(m_states.size())
        .arg(m_libraryConfirmed.size())
        .arg(recovered);
}
