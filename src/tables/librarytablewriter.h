#pragma once

#include "tables/tablefingerprint.h"

#include <QString>

class CColourTable;
class CColourTableEntry;

// Every write of a library table goes through here: under a lock file
// beside the table (so that two Vellora windows cannot interleave a read
// and a write), and only onto the file that was read. A table changed on
// disk meanwhile is never overwritten silently: an added colour is added to
// the new contents instead, and any other write is refused until its
// caller has asked the user.
class CLibraryTableWriter
{
public:
    enum Status {
        Written = 0,
        ChangedOnDisk = 1, // nothing written: the file is not the one expected
        DuplicateName = 2, // nothing written: the reread table has the name
        Unreadable = 3,    // nothing written: the changed file does not parse
        Busy = 4,          // nothing written: another writer kept the lock
        WriteFailed = 5    // the old file stays as it was
    };

    // How long a writer waits for another one to finish.
    static const int kLockWaitMs = 5000;

    // <table>.lock
    static QString lockPathOf(const QString &tablePath);

    // Writes table to path when the file is still what expected describes
    // (or overwriteChanged); afterwards the table's fingerprint is that of
    // the written file.
    static Status write(CColourTable &table, const QString &path,
                        const CTableFingerprint &expected, bool overwriteChanged,
                        QString *errorText = nullptr);
    // Adds a copy of entry to table and writes it to the table's file. When
    // the file changed since the table read it, the table first rereads it
    // and the name is checked against the new contents. On any status but
    // Written the table holds what the file holds.
    static Status addEntry(CColourTable &table, const CColourTableEntry &entry,
                           QString *errorText = nullptr);
};
