#include "tables/quillonimport.h"

#include "tables/colourtable.h"
#include "tables/colourtableentry.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFile>
#include <QIODevice>

#include <cstring>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CQuillonImport", text);
}

// Bytes of one line as Latin-1 text, up to the first NUL (as a C string
// would read them).
QString latin1Line(const QByteArray &bytes)
{
    const char *begin = bytes.constData();
    const void *nul = std::memchr(begin, '\0', size_t(bytes.size()));
    const int length = nul ? int(static_cast<const char *>(nul) - begin) : bytes.size();
    return QString::fromLatin1(begin, length);
}

// One number field: C-locale, surrounding blanks allowed, nothing else.
bool readNumber(QStringView field, double *value)
{
    bool ok = false;
    *value = field.toDouble(&ok);
    return ok;
}

} // namespace

QString CQuillonImport::normalised(const QString &line)
{
    QString text = line.trimmed();
    const int hash = text.indexOf(QLatin1Char('#'));
    if (hash >= 0)
        text = text.left(hash).trimmed();
    return CColourTable::collapseSpacesAndTabs(text);
}

// A backslash makes the next character literal; a trailing "=" is dropped;
// a backslash that ends the name stays.
QString CQuillonImport::decodedName(QStringView text)
{
    QString name;
    name.reserve(text.size());
    const qsizetype last = text.size() - 1;
    for (qsizetype i = 0; i <= last; ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\\') && i < last) {
            name += text.at(++i);
        } else if (c == QLatin1Char('=') && i == last) {
            break;
        } else {
            name += c;
        }
    }
    return name;
}

bool CQuillonImport::parseLine(const QString &line, CColourTable &target)
{
    const QString text = normalised(line);
    if (text.isEmpty())
        return true;
    double values[3] = {0.0, 0.0, 0.0};
    int pos = 0;
    for (double &value : values) {
        const int slash = text.indexOf(QLatin1Char('/'), pos);
        if (slash < 0 || !readNumber(QStringView(text).mid(pos, slash - pos), &value))
            return false;
        pos = slash + 1;
    }
    target.add(std::make_unique<CColourTableEntry>(decodedName(QStringView(text).mid(pos)),
                                                   values[0], values[1], values[2]));
    return true;
}

int CQuillonImport::parseFile(QIODevice &device, CColourTable &target)
{
    int lineNumber = 0;
    while (!device.atEnd()) {
        ++lineNumber;
        if (!parseLine(latin1Line(device.readLine()), target))
            return lineNumber;
    }
    return 0;
}

CQuillonImport::Result CQuillonImport::importFile(const QString &path, CColourTable &target,
                                                  const QDateTime &now)
{
    Result result;
    target.clear();
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        result.status = CannotOpen;
        return result;
    }
    result.lineNumber = parseFile(file, target);
    if (result.lineNumber != 0) {
        target.clear();
        result.status = BadLine;
        return result;
    }
    if (target.count() == 0) {
        result.status = NoRecords;
        return result;
    }
    // Each entry derived its Lab values when parseLine made it.
    target.sort();
    target.setHeader(note(path, now));
    return result;
}

QString CQuillonImport::note(const QString &sourcePath, const QDateTime &now)
{
    return QStringLiteral("#Imported from %1\n#%2\n\n")
        .arg(QFileInfo(sourcePath).fileName(), now.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

QString CQuillonImport::errorText(const Result &result, const QString &path)
{
    switch (result.status) {
    case CannotOpen:
        return translated("Error, opening file: %1.").arg(path);
    case BadLine:
        return translated("Error in line %1\nwhile processing:\n%2.")
            .arg(QString::number(result.lineNumber), path);
    case NoRecords:
        return translated("Error while processing:\n%1\nNo records found").arg(path);
    default:
        return QString();
    }
}
