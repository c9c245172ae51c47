#include "sample/libraryselector.h"

#include "app/appsettings.h"
#include "common/tablemessages.h"

#include <QFileInfo>

CLibrarySelector::CLibrarySelector(CAppSettings *settings, QWidget *parent)
    : QComboBox(parent), m_settings(settings)
{
    connect(this, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CLibrarySelector::currentItemChanged);
}

void CLibrarySelector::fillLibraryCombo()
{
    if (!m_settings)
        return;
    // Refilling moves the selection through several items: only the final
    // choice is announced.
    m_filling = true;
    CTableMessages::fillLibraryCombo(m_settings->libraryDir, this);
    m_filling = false;
    CTableMessages::selectLibraryTable(this, m_settings->selectedTable);
}

void CLibrarySelector::currentItemChanged(int index)
{
    if (index < 0 || m_filling)
        return;
    emit tableSelected(index);
}

CLibColourTable &CLibrarySelector::table()
{
    m_matcher.reset();
    return m_table;
}

const CColourMatcher &CLibrarySelector::matcher() const
{
    if (!m_matcher)
        m_matcher = std::make_unique<CColourMatcher>(m_table);
    return *m_matcher;
}

bool CLibrarySelector::loadTable(int index)
{
    const QString path = itemData(index).toString();
    m_matcher.reset();
    const bool loaded = CTableMessages::loadWithMessages(this, m_table, itemText(index), path);
    if (loaded && m_settings && path != m_settings->selectedTable)
        m_settings->selectedTable = path;
    return loaded;
}

QString CLibrarySelector::selectedTableBaseName() const
{
    const QString selected = m_settings ? m_settings->selectedTable : QString();
    if (selected.isEmpty())
        return tr("selected");
    return QFileInfo(selected).baseName();
}
