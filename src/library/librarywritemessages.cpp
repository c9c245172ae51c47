#include "library/librarywritemessages.h"

#include "common/appcontext.h"
#include "common/tablemessages.h"
#include "tables/colourtable.h"
#include "tables/librarytablewriter.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

namespace {

QString tableNameOf(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

} // namespace

bool CLibraryWriteMessages::addEntry(QWidget *parent, CColourTable &table,
                                     const CColourTableEntry &entry)
{
    const QString path = table.filePath();
    switch (CLibraryTableWriter::addEntry(table, entry)) {
    case CLibraryTableWriter::Written:
        return true;
    case CLibraryTableWriter::DuplicateName:
        QMessageBox::critical(parent, AppContext::productName(),
                              tr("The library already contains a colour called:<br />\"%1\"<br />"
                                 "Please enter a unique name for this entry.")
                                  .arg(entry.name),
                              QMessageBox::Ok);
        return false;
    case CLibraryTableWriter::Unreadable:
        QMessageBox::critical(parent, AppContext::productName(),
                              tr("The colour table \"%1\" was changed on disk and can no longer "
                                 "be read:\n%2\nThe colour was not added.")
                                  .arg(tableNameOf(path), QDir::toNativeSeparators(path)),
                              QMessageBox::Ok);
        return false;
    case CLibraryTableWriter::Busy:
        reportBusy(parent, path);
        return false;
    default:
        CTableMessages::showWriteError(parent, path);
        return false;
    }
}

CLibraryWriteMessages::EditOutcome CLibraryWriteMessages::saveEdited(QWidget *parent,
                                                                     CColourTable &table,
                                                                     const QString &path,
                                                                     const QString &tableName)
{
    CLibraryTableWriter::Status status =
        CLibraryTableWriter::write(table, path, table.fingerprint(), false);
    if (status == CLibraryTableWriter::ChangedOnDisk) {
        if (!askOverwriteChange(parent, tableName))
            return KeepOpen;
        status = CLibraryTableWriter::write(table, path, table.fingerprint(), true);
    }
    if (status == CLibraryTableWriter::Written)
        return Saved;
    if (status == CLibraryTableWriter::Busy) {
        reportBusy(parent, path);
        return KeepOpen;
    }
    CTableMessages::showWriteError(parent, path);
    return Failed;
}

bool CLibraryWriteMessages::saveNew(QWidget *parent, CColourTable &table, const QString &path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const CTableFingerprint seen = CTableFingerprint::ofFile(path);
    if (seen.exists()) {
        const QMessageBox::StandardButton answer = QMessageBox::question(
            parent, AppContext::productName(),
            CTableMessages::tr("The file:\n%1\nalready exists.\nWould you like to overwrite it?")
                .arg(path),
            QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return false;
    }
    CLibraryTableWriter::Status status = CLibraryTableWriter::write(table, path, seen, false);
    if (status == CLibraryTableWriter::ChangedOnDisk) {
        if (!askOverwriteChange(parent, tableNameOf(path)))
            return false;
        status = CLibraryTableWriter::write(table, path, seen, true);
    }
    if (status == CLibraryTableWriter::Busy) {
        reportBusy(parent, path);
        return false;
    }
    if (status != CLibraryTableWriter::Written) {
        CTableMessages::showWriteError(parent, path);
        return false;
    }
    return true;
}

bool CLibraryWriteMessages::askOverwriteChange(QWidget *parent, const QString &tableName)
{
    const QMessageBox::StandardButton answer = QMessageBox::question(
        parent, AppContext::productName(),
        tr("The colour table \"%1\" has been changed on disk, by another window or program, "
           "since it was read here.\nOverwrite that change with yours?")
            .arg(tableName),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return answer == QMessageBox::Yes;
}

void CLibraryWriteMessages::reportBusy(QWidget *parent, const QString &path)
{
    QMessageBox::warning(parent, AppContext::productName(),
                         tr("The colour table \"%1\" is being written by another window.\n"
                            "Nothing was written; please try again.")
                             .arg(tableNameOf(path)),
                         QMessageBox::Ok);
}
