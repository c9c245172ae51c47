#include "tables/colourtable.h"


#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CColourTable", text);
}

void setError(QString *errorText, const QString &text)
{
    if (errorText)
        *errorText = text;
}

// A raw line as text: single bytes up to the first NUL, without the carriage
// return of a CR LF ending, trimmed.
QString lineText(const char *begin, const char *end, bool endedByLineFeed)
{
    if (endedByLineFeed && end > begin && end[-1] == '\r')
        --end;
    if (const void *nul = std::memchr(begin, '\0', size_t(end - begin)))
        end = static_cast<const char *>(nul);
    return QString::fromLatin1(begin, int(end - begin)).trimmed();
}

// "R, G, B[, name]": three numbers, each ended by a comma except that the
// third may end the line (empty name); the rest after the third comma is the
// name. Runs of spaces and tabs only matter in the name: toDouble ignores
// surrounding white space and rejects it inside a number either way.
std::unique_ptr<CColourTableEntry> parseEntry(QStringView data)
{
    double values[3] = {0.0, 0.0, 0.0};
    qsizetype pos = 0;
    for (int i = 0; i < 3; ++i) {
        qsizetype comma = data.indexOf(QLatin1Char(','), pos);
        if (comma < 0 && i < 2)
            return nullptr;
        if (comma < 0)
            comma = data.size();
        bool ok = false;
        values[i] = data.mid(pos, comma - pos).toDouble(&ok);
        if (!ok)
            return nullptr;
        pos = comma + 1;
    }
    const QString name = pos <= data.size()
                             ? CColourTable::collapseSpacesAndTabs(data.mid(pos).trimmed())
                             : QString();
    return std::make_unique<CColourTableEntry>(name, values[0], values[1], values[2]);
}

} // namespace

// Every run of spaces and tabs becomes one space; other white space stays.
QString CColourTable::collapseSpacesAndTabs(QStringView text)
{
    QString out;
    out.reserve(text.size());
    bool inRun = false;
    for (const QChar c : text) {
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t')) {
            if (!inRun)
                out += QLatin1Char(' ');
            inRun = true;
        } else {
            out += c;
            inRun = false;
        }
    }
    return out;
}

CColourTable::~CColourTable() = default;

void CColourTable::add(CColourTableEntry *entry)
{
    m_entries.emplace_back(entry);
}

void CColourTable::add(std::unique_ptr<CColourTableEntry> entry)
{
    add(entry.release());
}

void CColourTable::clear()
{
    m_entries.clear();
    m_filePath.clear();
    m_header.clear();
}

bool CColourTable::removeAt(int index)
{
    if (index < 0 || index >= count())
        return false;
    // The caller holds the entry (see the header): ownership goes with it.
    static_cast<void>(m_entries[size_t(index)].release());
    m_entries.erase(m_entries.begin() + index);
    return true;
}

std::unique_ptr<CColourTableEntry> CColourTable::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    std::unique_ptr<CColourTableEntry> entry(at(index));
    if (!removeAt(index)) {
        static_cast<void>(entry.release()); // still listed, still the table's
        return nullptr;
    }
    return entry;
}

QList<CColourTableEntry *> CColourTable::entries() const
{
    QList<CColourTableEntry *> list;
    list.reserve(count());
    for (const std::unique_ptr<CColourTableEntry> &entry : m_entries)
        list.append(entry.get());
    return list;
}

void CColourTable::sort()
{
    std::sort(m_entries.begin(), m_entries.end(),
              [](const std::unique_ptr<CColourTableEntry> &x,
                 const std::unique_ptr<CColourTableEntry> &y) {
                  return QString::compare(x->name, y->name, Qt::CaseInsensitive) < 0;
              });
}

bool CColourTable::containsName(const QString &name) const
{
    return std::any_of(m_entries.cbegin(), m_entries.cend(),
                       [&name](const std::unique_ptr<CColourTableEntry> &e) {
                           return e->name == name;
                       });
}

CColourTable::LoadResult CColourTable::load(const QString &path)
{
    LoadResult result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.status = CannotOpen;
        return result;
    }
    clear();
    m_filePath = path;
    const QByteArray bytes = file.readAll();
    m_fingerprint = CTableFingerprint::ofContent(path, bytes);
    const char *pos = bytes.constData();
    const char *end = pos + bytes.size();
    int lineNumber = 0;
    while (pos < end) {
        ++lineNumber;
        const char *lineFeed = static_cast<const char *>(std::memchr(pos, '\n', size_t(end - pos)));
        const char *lineEnd = lineFeed ? lineFeed : end;
        const QString line = lineText(pos, lineEnd, lineFeed != nullptr);
        pos = lineFeed ? lineFeed + 1 : end;
        if (!readLine(line)) {
            clear();
            result.status = BadLine;
            result.lineNumber = lineNumber;
            return result;
        }
    }
    return result;
}

bool CColourTable::readLine(const QString &line)
{
    if (line.isEmpty())
        return true;
    if (line.at(0) == QLatin1Char('#')) {
        if (!m_header.isEmpty())
            m_header += QLatin1Char('\n');
        m_header += line;
        return true;
    }
    const QStringView data = QStringView(line).left(line.indexOf(QLatin1Char('#'))).trimmed();
    if (data.isEmpty())
        return true;
    std::unique_ptr<CColourTableEntry> entry = parseEntry(data);
    if (!entry)
        return false;
    // Appended directly: loading must not extend a derived table's own lists.
    m_entries.push_back(std::move(entry));
    return true;
}

QByteArray CColourTable::serialise() const
{
    QByteArray out;
    if (!m_header.isEmpty()) {
        out += m_header.toUtf8();
        out += '\n';
    }
    const QString line = QStringLiteral("%1, %2, %3, %4\n");
    for (const std::unique_ptr<CColourTableEntry> &e : m_entries) {
        QString name = e->name;
        name.replace(QLatin1Char(','), QLatin1Char(';'));
        out += line.arg(QString::number(e->red, 'f', 4), QString::number(e->green, 'f', 4),
                        QString::number(e->blue, 'f', 4), name)
                   .toUtf8();
    }
    return out;
}

bool CColourTable::write(const QString &path, QString *errorText) const
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        setError(errorText, translated("Cannot create the folder %1.").arg(folder));
        return false;
    }
    return writeFileSafely(path, serialise(), errorText);
}

bool CColourTable::writeFileSafely(const QString &path, const QByteArray &bytes, QString *errorText)
{
    if (QFileInfo(path).isDir()) {
        setError(errorText, translated("%1 is a folder.").arg(path));
        return false;
    }
    QByteArray content = bytes;
#ifdef Q_OS_WIN
    // Text files get the platform's line ends.
    content.replace("\n", "\r\n");
#endif
    QSaveFile file(path);
    // Where no temporary file can be made beside the target, write in place
    // rather than not at all.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        setError(errorText, file.errorString());
        return false;
    }
    // A full disk or a file size limit shows up as a short write that Qt
    // does not report as an error, and commit() would then replace the old
    // file by a truncated one: check the size before committing.
    if (file.write(content) != content.size() || !file.flush() || file.size() != content.size()) {
        setError(errorText, translated("Could not write all of %1: the disk may be full.").arg(path));
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        setError(errorText, file.errorString());
        return false;
    }
    return true;
}
