#include "data/datamodel.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "colour/colourformat.h"
#include "data/datasetcommand.h"
#include "help/textinputdlg.h"
#include "tables/datacolourtable.h"
#include "tables/datasetsnapshot.h"

#include <QUndoStack>

namespace {

const int kGridDecimals = 4;

QString labText(double value)
{
    return QString::number(value, 'f', kGridDecimals);
}

} // namespace

CDataModel::CDataModel(const CAppSettings *settings, CDataColourTable *table, QObject *parent)
    : QAbstractTableModel(parent), m_settings(settings), m_table(table)
{
    m_headers << tr(" ") << tr("Colour Name") << tr("Red") << tr("Green") << tr("Blue")
              << tr("L*") << tr("a*") << tr("b*") << tr("Edit") << tr("Delete") << tr(" ");
}

int CDataModel::rgbFormat() const
{
    return CAppSettings::rgbFormatOf(m_settings);
}

int CDataModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || !m_table)
        return 0;
    return m_table->count();
}

int CDataModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_headers.size();
}

bool CDataModel::isDataRow(const QModelIndex &index) const
{
    return m_table && index.isValid() && index.row() >= 0 && index.column() >= 0
        && index.row() < m_table->count();
}

QVariant CDataModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !isDataRow(index))
        return QVariant();
    return displayText(index.row(), index.column());
}

QVariant CDataModel::displayText(int row, int column) const
{
    const CColourTableEntry *entry = m_table->at(row);
    switch (column) {
    case ColSwatch:
        return colourName(entry->red, entry->green, entry->blue);
    case ColName:
        return entry->name;
    case ColRed:
    case ColGreen:
    case ColBlue:
        // The grid follows the user's display format, like the rest of the
        // program, with four places where the format has decimals.
        return formatRgb(entry->red, entry->green, entry->blue, kGridDecimals, false, rgbFormat())
            .at(column - ColRed);
    case ColL:
        return labText(entry->L);
    case ColA:
        return labText(entry->a);
    case ColB:
        return labText(entry->b);
    case ColEdit:
        return m_table->markerA(row);
    case ColDelete:
        return m_table->markerB(row);
    default:
        return QVariant();
    }
}

// Only the button states are stored. Nothing is reported: the delegate that
// changes them repaints the view, and a change signal per mouse move would
// cost a repaint of its own.
bool CDataModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !isDataRow(index))
        return false;
    if (index.column() == ColEdit)
        m_table->setMarkerA(index.row(), value.toInt());
    else if (index.column() == ColDelete)
        m_table->setMarkerB(index.row(), value.toInt());
    return false;
}

QVariant CDataModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= m_headers.size())
        return QVariant();
    return m_headers.at(section);
}

void CDataModel::setTable(CDataColourTable *table)
{
    beginResetModel();
    m_table = table;
    endResetModel();
}

void CDataModel::appendEntry(std::unique_ptr<CColourTableEntry> entry)
{
    const int row = rowCount();
    beginInsertRows(QModelIndex(), row, row);
    m_table->add(std::move(entry));
    endInsertRows();
}

void CDataModel::setModified(bool modified)
{
    m_modified = modified;
    emit modifiedChanged(modified);
    emit layoutAboutToBeChanged();
    emit layoutChanged();
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    emit titleChanged();
}

void CDataModel::editRecord(const QModelIndex &index)
{
    if (!isDataRow(index))
        return;
    CColourTableEntry *entry = m_table->at(index.row());
    CTextInputDlg dialog(AppContext::productName() + tr(" - Edit Record"), tr("Renaming:"),
                         entry->name, tr("New Name:"), tr("Please enter a new name."), m_dialogParent,
                         QString(), true);
    if (dialog.exec() != QDialog::Accepted || dialog.text() == entry->name)
        return;
    // The entry may have gone while the prompt was open (it is modal, but
    // only to its window).
    if (!isDataRow(index) || m_table->at(index.row()) != entry)
        return;
    if (m_undoStack) {
        m_undoStack->push(CDataSetCommand::rename(this, index.row(), dialog.text()));
        return;
    }
    entry->name = dialog.text();
    setModified(true);
}

void CDataModel::deleteRecord(const QModelIndex &index)
{
    if (!isDataRow(index))
        return;
    const int row = index.row();
    if (m_undoStack) {
        m_undoStack->push(CDataSetCommand::remove(this, row));
        return;
    }
    takeEntryAt(row);
    setModified(true);
}

void CDataModel::insertEntryAt(int row, std::unique_ptr<CColourTableEntry> entry)
{
    row = qBound(0, row, rowCount());
    beginInsertRows(QModelIndex(), row, row);
    m_table->insertAt(row, std::move(entry));
    endInsertRows();
}

std::unique_ptr<CColourTableEntry> CDataModel::takeEntryAt(int row)
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    beginRemoveRows(QModelIndex(), row, row);
    std::unique_ptr<CColourTableEntry> entry = m_table->takeAt(row);
    endRemoveRows();
    return entry;
}

void CDataModel::renameEntry(int row, const QString &name)
{
    if (row < 0 || row >= rowCount())
        return;
    m_table->at(row)->name = name;
    emit dataChanged(index(row, ColName), index(row, ColName));
}

void CDataModel::resetTo(const CDataSetSnapshot &snapshot)
{
    beginResetModel();
    snapshot.restoreInto(*m_table);
    endResetModel();
}
