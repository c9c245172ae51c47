#include "config/configdlg.h"

#include "common/appcontext.h"
#include "config/colourprofilesgroup.h"
#include "config/dlgtabpageadvanced.h"
#include "config/dlgtabpagefolders.h"
#include "config/dlgtabpagegeneral.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

CConfigDlg::CConfigDlg(CAppSettings *settings, const QString &updateAddress, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setWindowTitle(AppContext::productName() + tr(" - Configuration"));
    auto *layout = new QVBoxLayout(this);
    m_tabs = new QTabWidget(this);
    m_general = new CDlgTabPageGeneral(settings, updateAddress, m_tabs);
    m_folders = new CDlgTabPageFolders(settings, m_tabs);
    m_advanced = new CDlgTabPageAdvanced(settings, m_tabs);
    m_profiles = new CColourProfilesGroup(settings, m_advanced);
    m_advanced->groupLayout()->addWidget(m_profiles);
    m_tabs->addTab(m_general, tr("General"));
    m_tabs->addTab(m_folders, tr("Data Folders"));
    m_tabs->addTab(m_advanced, tr("Advanced"));
    layout->addWidget(m_tabs);
    addButtonRow();

    auto *helpKey = new QShortcut(QKeySequence::HelpContents, this);
    connect(helpKey, &QShortcut::activated, this, &CConfigDlg::displayHelp);
}

void CConfigDlg::addButtonRow()
{
    auto *row = new QHBoxLayout;
    m_cancel = new QPushButton(tr("&Cancel"), this);
    m_help = new QPushButton(tr("&Help"), this);
    m_ok = new QPushButton(tr("&OK"), this);
    m_ok->setDefault(true);
    connect(m_cancel, &QPushButton::clicked, this, &CConfigDlg::reject);
    connect(m_help, &QPushButton::clicked, this, &CConfigDlg::displayHelp);
    connect(m_ok, &QPushButton::clicked, this, &CConfigDlg::accept);
    row->addWidget(m_cancel);
    row->addWidget(m_help);
    row->addStretch();
    row->addWidget(m_ok);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

bool CConfigDlg::libraryChanged() const
{
    return m_folders->libraryChanged();
}

void CConfigDlg::displayHelp()
{
    auto *page = qobject_cast<CDlgTabPage *>(m_tabs->currentWidget());
    emit displayHelpSignal(page ? page->helpAnchor() : QStringLiteral("config.html"));
}

void CConfigDlg::accept()
{
    // Every page applies, even after one has reported a change.
    const bool general = m_general->applyChanges();
    const bool folders = m_folders->applyChanges();
    const bool advanced = m_advanced->applyChanges();
    const bool profiles = m_profiles->applyChanges();
    m_changed = general || folders || advanced || profiles;
    QDialog::accept();
}
