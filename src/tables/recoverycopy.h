#pragma once

#include "tables/datasetsnapshot.h"

#include <QDateTime>
#include <QString>

// The recovery copy of an unsaved data set: the set in the table format,
// preceded by a few header lines of its own that record the set's file (if
// any), whether it was untitled, when the copy was made and by which
// process. Written through the same writer as a saved set, so a copy on
// disk is always whole: the old one or the new one.
class CRecoveryCopy
{
public:
    enum ReadStatus { Read = 0, CannotOpen = 1, Unreadable = 2 };

    // Replaces path with the copy; false (and the reason in errorText) when
    // the write failed, leaving any earlier copy as it was.
    bool write(const QString &path, QString *errorText = nullptr) const;
    // Reads a copy written by write(). Unreadable: not a recovery copy, or a
    // line that is not a colour.
    static ReadStatus read(const QString &path, CRecoveryCopy *copy);

    CDataSetSnapshot dataSet;
    QDateTime savedAt;
    qint64 processId = 0;
};
