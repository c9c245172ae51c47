#pragma once

#include <QObject>
#include <QRandomGenerator>
#include <QString>

#include <memory>

class CMainWindow;
class QTimer;
class QWidget;

// The scripted user of the fault-injection test: in a real main window it
// adds colours to the data set, renames and deletes rows, undoes and redoes
// them, saves the set and adds colours to a library table, a step every 40
// to 120 ms, seeded. Every step goes through the widgets as a user's would:
// a click in a small pasted picture picks a sample, "Add Colour to DataSet"
// and "Add Colour to Colour Library" (after "Match Library Colour") open
// their dialogs, which are typed into and accepted; a row's edit icon opens
// the rename prompt and its delete icon deletes it; the desktop's Undo and
// Redo keys go to the window; the page's Save button saves. It writes a
// journal line to stdout around every step:
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

    // Opens the data set and selects the library table, then runs until
    // killed.
    bool start();

private:
    void step();
    void changeDataSet(int choice);
    void addDataColour();
    void renameRow();
    void deleteRow();
    void pressKey(int standardKey);
    void saveDataSet();
    void addLibraryColour();
    bool pickSample();
    void showTab(QWidget *page);
    void clickCell(int row, int column);
    void journalState();
    QString rows() const;
    static void say(const QString &line);

    QRandomGenerator m_random;
    quint32 m_seed;
    QString m_dataPath;
    QString m_libraryPath;
    std::unique_ptr<CMainWindow> m_window;
    QTimer *m_timer;
    int m_counter = 0;
};
