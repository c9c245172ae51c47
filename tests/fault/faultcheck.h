#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// Checks the files a killed FaultSession left against its journal:
// - the library table parses and holds the colours confirmed before the
//   kill, plus at most the one being added when it came;
// - the saved data set parses and is the last saved set or the one being
//   saved when the kill came;
// - the recovery copy (or its absence) is a state of the data set from the
//   last second before the kill.
// Afterwards the copy is removed, so that the next round starts clean.
class FaultCheck
{
public:
    FaultCheck(const QString &journalPath, qint64 killMs, const QString &dataPath,
               const QString &libraryPath);

    // False with the reasons in problems().
    bool run();
    QStringList problems() const { return m_problems; }
    int statesChecked() const { return m_statesChecked; }
    QString summary() const;

private:
    struct State
    {
        qint64 ms = 0;
        bool modified = false;
        QString rows;
    };

    bool readJournal();
    void checkLibrary();
    void checkDataSet();
    void checkRecovery();
    QVector<State> statesOfTheLastSecond() const;

    QString m_journalPath;
    qint64 m_killMs;
    QString m_dataPath;
    QString m_libraryPath;
    QString m_library0;
    QStringList m_libraryConfirmed;
    QString m_libraryPending;
    QString m_dataSaved;
    QString m_dataPending;
    bool m_dataIsPending = false;
    QVector<State> m_states;
    QString m_recovered;
    QStringList m_problems;
    int m_statesChecked = 0;
};
