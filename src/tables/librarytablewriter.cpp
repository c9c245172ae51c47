#include "tables/librarytablewriter.h"

#include "tables/colourtable.h"
#include "tables/libcolourtable.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>

namespace {

// A writer that died holding the lock frees it at once (its process is
// gone); one that hangs for this long is taken to be stuck.
const int kStaleLockMs = 10000;

bool takeLock(QLockFile &lock, const QString &tablePath)
{
    QDir().mkpath(QFileInfo(tablePath).absolutePath());
    lock.setStaleLockTime(kStaleLockMs);
    return lock.tryLock(CLibraryTableWriter::kLockWaitMs);
}

CLibraryTableWriter::Status writeLocked(CColourTable &table, const QString &path,
                                        QString *errorText)
{
    if (!table.write(path, errorText))
        return CLibraryTableWriter::WriteFailed;
    table.setFingerprint(CTableFingerprint::ofFile(path));
    return CLibraryTableWriter::Written;
}

} // namespace

QString CLibraryTableWriter::lockPathOf(const QString &tablePath)
{
    return tablePath + QStringLiteral(".lock");
}

CLibraryTableWriter::Status CLibraryTableWriter::write(CColourTable &table, const QString &path,
                                                       const CTableFingerprint &expected,
                                                       bool overwriteChanged, QString *errorText)
{
    QLockFile lock(lockPathOf(path));
    if (!takeLock(lock, path))
        return Busy;
    if (!overwriteChanged && CTableFingerprint::ofFile(path) != expected)
        return ChangedOnDisk;
    return writeLocked(table, path, errorText);
}

CLibraryTableWriter::Status CLibraryTableWriter::addEntry(CColourTable &table,
                                                          const CColourTableEntry &entry,
                                                          QString *errorText)
{
    const QString path = table.filePath();
    QLockFile lock(lockPathOf(path));
    if (!takeLock(lock, path))
        return Busy;
    if (CTableFingerprint::ofFile(path) != table.fingerprint()) {
        // Read into a table of its own first: a file that no longer parses
        // must not empty the one shown.
        CLibColourTable reread;
        if (reread.load(path).status != CColourTable::Loaded)
            return Unreadable;
        if (table.load(path).status != CColourTable::Loaded)
            return Unreadable;
    }
    if (table.containsName(entry.name))
        return DuplicateName;
    table.add(std::make_unique<CColourTableEntry>(entry));
    const Status status = writeLocked(table, path, errorText);
    if (status != Written)
        table.takeAt(table.count() - 1);
    return status;
}
