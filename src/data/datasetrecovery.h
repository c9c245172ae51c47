#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class CDataModel;
class QLockFile;
class QTimer;

// Keeps the recovery copy of the data set while it has unsaved changes: at
// most one second after each change (an undo and a redo included) the copy
// is rewritten in the recovery folder of the application's data location;
// once the set is saved or its changes discarded, and when the page closes
// normally, the copy goes. Each instance holds a lock beside its copy for
// as long as it runs, so that another instance can tell a copy left by a
// Vellora that is gone from one that is still being kept.
class CDataSetRecovery : public QObject
{
    Q_OBJECT

public:
    // The longest a change waits for its copy to be started. Well under the
    // second promised, as a busy disk can hold up the write itself.
    static const int kDelayMs = 300;

    explicit CDataSetRecovery(CDataModel *model, QObject *parent = nullptr);
    ~CDataSetRecovery() override;

    // <application data>/recovery
    static QString folder();
    // Copies in folder() whose instance no longer runs, newest first.
    static QStringList leftCopies();
    // Removes a left copy and its lock.
    static bool removeLeftCopy(const QString &path);
    // Renames a copy that cannot be read so that it is kept but no longer
    // offered; the new path, empty when the rename failed.
    static QString setAside(const QString &path);
    // The lock file beside a copy.
    static QString lockPathOf(const QString &copyPath);

    // This instance's copy (it exists only while the set has unsaved
    // changes).
    QString copyPath() const { return m_copyPath; }

public slots:
    // The set changed: the copy follows within kDelayMs.
    void scheduleWrite();
    // Writes the copy now when the set has unsaved changes, removes it
    // otherwise. False when a write failed.
    bool writeNow();
    void removeCopy();

private:
    void followModifiedFlag(bool modified);
    bool holdLock();

    CDataModel *m_model;
    QTimer *m_timer;
    QString m_copyPath;
    std::unique_ptr<QLockFile> m_lock;
};
