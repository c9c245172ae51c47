#include "data/datasetcommand.h"

#include "data/datamodel.h"
#include "tables/datacolourtable.h"

namespace {

QString quoted(const QString &name)
{
    return QLatin1Char('"') + name + QLatin1Char('"');
}

CDataSetSnapshot::Row rowOf(const CColourTableEntry *entry)
{
    return {entry->name, entry->red, entry->green, entry->blue};
}

} // namespace

CDataSetCommand::CDataSetCommand(CDataModel *model, Kind kind, const QString &text)
    : m_model(model), m_kind(kind)
{
    setText(text);
}

CDataSetCommand *CDataSetCommand::add(CDataModel *model, const CDataSetSnapshot::Row &row)
{
    auto *command = new CDataSetCommand(model, Add, tr("Add %1").arg(quoted(row.name)));
    command->m_row = model->rowCount();
    command->m_value = row;
    return command;
}

CDataSetCommand *CDataSetCommand::remove(CDataModel *model, int row)
{
    const CDataSetSnapshot::Row value = rowOf(model->table()->at(row));
    auto *command = new CDataSetCommand(model, Delete, tr("Delete %1").arg(quoted(value.name)));
    command->m_row = row;
    command->m_value = value;
    return command;
}

CDataSetCommand *CDataSetCommand::rename(CDataModel *model, int row, const QString &newName)
{
    const CDataSetSnapshot::Row value = rowOf(model->table()->at(row));
    auto *command = new CDataSetCommand(model, Rename, tr("Rename %1").arg(quoted(value.name)));
    command->m_row = row;
    command->m_value = value;
    command->m_otherName = newName;
    return command;
}

CDataSetCommand *CDataSetCommand::replace(CDataModel *model, const QString &text,
                                          const CDataSetSnapshot &before,
                                          const CDataSetSnapshot &after)
{
    auto *command = new CDataSetCommand(model, Replace, text);
    command->m_before = before;
    command->m_after = after;
    command->m_skipFirstRedo = true;
    return command;
}

void CDataSetCommand::insertRow(const CDataSetSnapshot::Row &row, int at)
{
    m_model->insertEntryAt(
        at, std::make_unique<CColourTableEntry>(row.name, row.red, row.green, row.blue));
}

void CDataSetCommand::redo()
{
    if (m_skipFirstRedo) {
        m_skipFirstRedo = false;
        return;
    }
    switch (m_kind) {
    case Add:
        insertRow(m_value, m_row);
        break;
    case Delete:
        m_model->takeEntryAt(m_row);
        break;
    case Rename:
        m_model->renameEntry(m_row, m_otherName);
        break;
    case Replace:
        m_model->resetTo(m_after);
        break;
    }
    m_model->setModified(true);
}

void CDataSetCommand::undo()
{
    switch (m_kind) {
    case Add:
        m_model->takeEntryAt(m_row);
        break;
    case Delete:
        insertRow(m_value, m_row);
        break;
    case Rename:
        m_model->renameEntry(m_row, m_value.name);
        break;
    case Replace:
        m_model->resetTo(m_before);
        break;
    }
    m_model->setModified(true);
}
