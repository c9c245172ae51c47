#include "tables/tablefingerprint.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

CTableFingerprint CTableFingerprint::ofFile(const QString &path)
{
    // Something that exists but cannot be read (a folder, a file without
    // read permission) still exists: only its bytes are unknown.
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return ofContent(path, bytes);
}

CTableFingerprint CTableFingerprint::ofContent(const QString &path, const QByteArray &bytes)
{
    CTableFingerprint print;
    const QFileInfo info(path);
    if (!info.exists())
        return print;
    print.m_exists = true;
    print.m_size = info.size();
    print.m_modifiedMs = info.lastModified().toMSecsSinceEpoch();
    print.m_hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    return print;
}

bool CTableFingerprint::operator==(const CTableFingerprint &other) const
{
    return m_exists == other.m_exists && m_size == other.m_size
           && m_modifiedMs == other.m_modifiedMs && m_hash == other.m_hash;
}
