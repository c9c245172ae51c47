#include "tables/recoverycopy.h"

#include "tables/datacolourtable.h"

#include <QStringList>

namespace {

// The first header line of every copy; the lines of our own that follow all
// start with "#@", which a data set's own header never needs.
const QString kMarker = QStringLiteral("#@vellora-recovery 1");
const QString kPath = QStringLiteral("#@path ");
const QString kUntitled = QStringLiteral("#@untitled ");
const QString kTime = QStringLiteral("#@time ");
const QString kProcess = QStringLiteral("#@process ");

// Our own header lines are read off the front; what follows is the set's.
bool readOwnLine(const QString &line, CRecoveryCopy *copy)
{
    if (line.startsWith(kPath))
        copy->dataSet.filePath = line.mid(kPath.size());
    else if (line.startsWith(kUntitled))
        copy->dataSet.untitled = line.mid(kUntitled.size()) == QLatin1String("1");
    else if (line.startsWith(kTime))
        copy->savedAt = QDateTime::fromString(line.mid(kTime.size()), Qt::ISODateWithMs);
    else if (line.startsWith(kProcess))
        copy->processId = line.mid(kProcess.size()).toLongLong();
    else
        return false;
    return true;
}

} // namespace

bool CRecoveryCopy::write(const QString &path, QString *errorText) const
{
    CDataColourTable table;
    dataSet.restoreInto(table);
    QStringList header{kMarker};
    if (!dataSet.filePath.isEmpty())
        header << kPath + dataSet.filePath;
    header << kUntitled + QLatin1String(dataSet.untitled ? "1" : "0");
    header << kTime + savedAt.toUTC().toString(Qt::ISODateWithMs);
    header << kProcess + QString::number(processId);
    if (!dataSet.header.isEmpty())
        header << dataSet.header;
    table.setHeader(header.join(QLatin1Char('\n')));
    return table.write(path, errorText);
}

CRecoveryCopy::ReadStatus CRecoveryCopy::read(const QString &path, CRecoveryCopy *copy)
{
    CDataColourTable table;
    const CColourTable::LoadResult result = table.load(path);
    if (result.status == CColourTable::CannotOpen)
        return CannotOpen;
    QStringList lines = table.header().split(QLatin1Char('\n'));
    if (result.status != CColourTable::Loaded || lines.value(0) != kMarker)
        return Unreadable;
    *copy = CRecoveryCopy();
    lines.removeFirst();
    while (!lines.isEmpty() && readOwnLine(lines.first(), copy))
        lines.removeFirst();
    if (!copy->savedAt.isValid())
        return Unreadable;
    table.setHeader(lines.join(QLatin1Char('\n')));
    const QString filePath = copy->dataSet.filePath;
    const bool untitled = copy->dataSet.untitled;
    copy->dataSet = CDataSetSnapshot::capture(table);
    copy->dataSet.filePath = filePath;
    copy->dataSet.untitled = untitled;
    return Read;
}
