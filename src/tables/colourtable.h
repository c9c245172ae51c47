#pragma once

#include "tables/colourtableentry.h"
#include "tables/tablefingerprint.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

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
    // The form our callers use: the hand-over shows in the type. Goes through
    // the virtual add() above, so a derived table's own lists follow.
    void add(std::unique_ptr<CColourTableEntry> entry);
    virtual void clear();                       // also empties filePath and header
    // Removes the entry from the list without deleting it: whoever calls it
    // must have taken the pointer with at() first. takeAt() is the form that
    // cannot leak, and the one our callers use.
    virtual bool removeAt(int index);
    virtual void sort(); // by name, case-insensitive, unstable

    // Removes the entry at index (through removeAt, so a derived table's own
    // lists follow) and hands it back; nullptr when there is none. A caller
    // that only wants the entry gone lets the result go: it is destroyed.
    std::unique_ptr<CColourTableEntry> takeAt(int index);

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
    static QString collapseSpacesAndTabs(QStringView text);

    QString filePath() const { return m_filePath; }
    void setFilePath(const QString &path) { m_filePath = path; }
    // The file as load() last read it (or a guarded write last wrote it):
    // a later write can tell whether someone else changed it meanwhile.
    const CTableFingerprint &fingerprint() const { return m_fingerprint; }
    void setFingerprint(const CTableFingerprint &print) { m_fingerprint = print; }
    QString header() const { return m_header; }
    void setHeader(const QString &header) { m_header = header; }
    // The entries in order; the table keeps owning them.
    QList<CColourTableEntry *> entries() const;
    int count() const { return int(m_entries.size()); }
    CColourTableEntry *at(int index) const { return m_entries.at(size_t(index)).get(); }

protected:
    // Reads one line already converted and trimmed; false for a bad data line.
    bool readLine(const QString &line);

    QString m_filePath;
    QString m_header;
    CTableFingerprint m_fingerprint;
    std::vector<std::unique_ptr<CColourTableEntry>> m_entries;
};
