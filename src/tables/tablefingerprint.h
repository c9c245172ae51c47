#pragma once

#include <QByteArray>
#include <QString>

// What a table file looked like when it was read or written: whether it
// existed, its size, its modification time and a hash of its bytes. Two
// fingerprints differ when the file was changed in between by anyone: a
// second Vellora, a text editor, a sync tool.
class CTableFingerprint
{
public:
    // Reads path now; a missing file has the fingerprint of "no file", one
    // that cannot be read that of an empty file of its size and time.
    static CTableFingerprint ofFile(const QString &path);
    // The file at path as stat reports it now, with bytes as its content
    // (what a reader just read).
    static CTableFingerprint ofContent(const QString &path, const QByteArray &bytes);

    bool exists() const { return m_exists; }
    bool operator==(const CTableFingerprint &other) const;
    bool operator!=(const CTableFingerprint &other) const { return !(*this == other); }

private:
    bool m_exists = false;
    qint64 m_size = -1;
    qint64 m_modifiedMs = 0;
    QByteArray m_hash;
};
