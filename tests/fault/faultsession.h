#pragma once

#include <QObject>
#include <QRandomGenerator>
#include <QString>

#include <memory>

class CLibColourTable;
class CMainWindow;
class QTimer;

// The scripted user of the fault-injection test: in a real main window it
// adds, renames and deletes rows of the data set, undoes and redoes them,
// saves the set and adds colours to a library table, a step every 40 to
// 120 ms, seeded. It writes a journal line to stdout around every step:
//
//   ready <ms> / lib0 <ms> <names> / data0 <ms> <rows>
//   S <ms> <modified 0|1> <rows>       the data set after a change
//   d <ms> <rows> / D <ms> <rows>      a save begins / is done
//   l <ms> <name> / L <ms> <name>      a library addition begins / is done
//
// (<ms>: milliseconds since the epoch; names and rows joined by '|').
class FaultSession : public QObject
{
    Q_OBJECT

public:
    FaultSession(quint32 seed, const QString &dataPath, const QString &libraryPath);
    ~FaultSession() override;

    // Opens the data set and the library table, then runs until killed.
    bool start();

private:
    void step();
    void changeDataSet(int choice);
    void saveDataSet();
    void addLibraryColour();
    void journalState();
    QString rows() const;
    static void say(const QString &line);

    QRandomGenerator m_random;
    quint32 m_seed;
    QString m_dataPath;
    QString m_libraryPath;
    std::unique_ptr<CMainWindow> m_window;
    std::unique_ptr<CLibColourTable> m_library;
    QTimer *m_timer;
    int m_counter = 0;
};
