#include "common/tablemessages.h"

#include "common/appcontext.h"
#include "common/waitcursor.h"
#include "tables/colourlibrary.h"
#include "tables/colourtable.h"
#include "tables/tablemessagetext.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>

namespace {

// One critical box per failed load; the text comes from the core so that
// the command-line tool words it the same way.
bool reportLoad(QWidget *parent, const CColourTable::LoadResult &result, const QString &text)
{
    if (result.status == CColourTable::Loaded)
        return true;
    QMessageBox::critical(parent, AppContext::productName(), text, QMessageBox::Ok);
    return false;
}

} // namespace

bool CTableMessages::loadWithMessages(QWidget *parent, CColourTable &table, const QString &tableName,
                                      const QString &path)
{
    const CColourTable::LoadResult result = loadWithWaitCursor(table, path);
    return reportLoad(parent, result, CTableMessageText::loadError(result, tableName, path));
}

CColourTable::LoadResult CTableMessages::loadWithWaitCursor(CColourTable &table,
                                                            const QString &path)
{
    const CWaitCursor waitCursor;
    return table.load(path);
}

bool CTableMessages::reportDataTableLoad(QWidget *parent, const CColourTable::LoadResult &result,
                                         const QString &path)
{
    return reportLoad(parent, result, CTableMessageText::dataLoadError(result, path));
}

bool CTableMessages::save(QWidget *parent, CColourTable &table, const QString &path,
                          bool overwriteWithoutAsking)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!overwriteWithoutAsking && QFileInfo::exists(path)) {
        const QMessageBox::StandardButton answer = QMessageBox::question(
            parent, AppContext::productName(),
            tr("The file:\n%1\nalready exists.\nWould you like to overwrite it?").arg(path),
            QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return false;
    }
    if (!table.write(path)) {
        showWriteError(parent, path);
        return false;
    }
    return true;
}

void CTableMessages::showWriteError(QWidget *parent, const QString &path)
{
    QMessageBox::critical(parent, AppContext::productName(), tr("Error, writing to file: %1.").arg(path),
                          QMessageBox::Ok);
}

void CTableMessages::fillLibraryCombo(const QString &folder, QComboBox *combo)
{
    CWaitCursor waitCursor;
    combo->clear();
    for (const LibraryTableItem &item : listLibraryTables(folder))
        combo->addItem(QIcon(), item.name, item.canonicalPath);
}

int CTableMessages::selectLibraryTable(QComboBox *combo, const QString &rememberedPath)
{
    if (combo->count() == 0)
        return -1;
    int chosen = 0;
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemData(i).toString() == rememberedPath)
            chosen = i;
    }
    if (combo->currentIndex() == chosen)
        combo->setCurrentIndex(-1);
    combo->setCurrentIndex(chosen);
    return chosen;
}
