#pragma once

#include "tables/colourtableentry.h"

#include <QByteArray>
#include <QList>
#include <QString>

// A named list of colours kept in a line-oriented text file: the format of
// library tables and data sets alike. The core only reports what happened;
// messages and questions are shown by the widget layer (CTableMessages).
class CColourTable
{
public:
    enum LoadStatus { Loaded = 0, CannotOpen = 1, BadLine = 2 };
    struct LoadResult
    {
        int status = Loaded;
        int lineNumber = 0; // 1-based, set for BadLine
    };

    CColourTable() = default;
    CColourTable(const CColourTable &) = delete;
    CColourTable &operator=(const CColourTable &) = delete;
    virtual ~CColourTable();

    // The four list operations derived tables may extend.
    virtual void add(CColourTableEntry *entry); // takes ownership
    virtual void clear();                       // also empties filePath and header
    virtual bool removeAt(int index);           // does not delete the entry
    virtual void sort();                        // by name, case-insensitive, unstable

    // Replaces the whole content. CannotOpen leaves the table untouched;
    // BadLine leaves it empty. Entries are appended directly, not via add().
    LoadResult load(const QString &path);

    // The exact bytes a save writes: header + "\n", then "R, G, B, name\n"
    // lines (four decimals, "," in names written as ";"), UTF-8.
    QByteArray serialise() const;
    // Writes serialise() to path, creating missing folders. The old file is
    // replaced only once the new content is safely written. On failure
    // returns false and, when errorText is given, stores the reason.
    bool write(const QString &path, QString *errorText = nullptr) const;
    // Replaces path with bytes so that a failed write (disk full, I/O error)
    // leaves any old file as it was. Does not create folders.
    static bool writeFileSafely(const QString &path, const QByteArray &bytes,
                                QString *errorText = nullptr);

    bool containsName(const QString &name) const; // exact, case-sensitive

    // Every run of spaces and tabs becomes one space; other white space
    // stays. Shared with the readers of other colour list formats.
    static QString collapseSpacesAndTabs(const QStringRef &text);

    QString filePath() const { return m_filePath; }
    void setFilePath(const QString &path) { m_filePath = path; }
    QString header() const { return m_header; }
    void setHeader(const QString &header) { m_header = header; }
    const QList<CColourTableEntry *> &entries() const { return m_entries; }
    int count() const { return m_entries.size(); }
    CColourTableEntry *at(int index) const { return m_entries.at(index); }

protected:
    // Reads one line already converted and trimmed; false for a bad data line.
    bool readLine(const QString &line);

    QString m_filePath;
    QString m_header;
    QList<CColourTableEntry *> m_entries;
};
