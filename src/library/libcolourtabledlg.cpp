#include "library/libcolourtabledlg.h"

#include "common/appcontext.h"
#include "library/libcolourtabletabgeneral.h"
#include "library/libcolourtabletabimport.h"
#include "library/libdialogrows.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
const char *const kMaintenanceAnchor = "library.html#libMaintTabA";
const char *const kImportAnchor = "library.html#libMaintTabB";
} // namespace

CLibColourTableDlg::CLibColourTableDlg(CAppSettings *settings, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint)
{
    setWindowTitle(AppContext::productName() + tr(" - Library Maintenance"));
    setWindowModality(Qt::WindowModal);
    setMinimumSize(250, 200);
    m_tabs = new QTabWidget(this);
    m_generalTab = new CLibColourTableTabGeneral(settings, QLatin1String(kMaintenanceAnchor), this);
    m_importTab = new CLibColourTableTabImport(settings, QLatin1String(kImportAnchor), this);
    m_tabs->addTab(m_generalTab, tr("Maintenance"));
    m_tabs->addTab(m_importTab, tr("Import"));
    connect(m_generalTab, &CLibColourTableTabBase::displayHelpSignal, this,
            &CLibColourTableDlg::displayHelpSignal);
    connect(m_importTab, &CLibColourTableTabBase::displayHelpSignal, this,
            &CLibColourTableDlg::displayHelpSignal);
    // An imported table is at once in the Maintenance page's list too.
    connect(m_importTab, &CLibColourTableTabImport::tableImported, m_generalTab,
            &CLibColourTableTabGeneral::fillLibraryCombo);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(CLibDialogRows::horizontalRule(this));
    layout->addLayout(buildButtonRow());
}

QLayout *CLibColourTableDlg::buildButtonRow()
{
    m_helpButton = CLibDialogRows::button(tr("&Help"), this);
    m_closeButton = CLibDialogRows::button(tr("&Close"), this, true);
    connect(m_helpButton, &QPushButton::clicked, this, &CLibColourTableDlg::displayHelp);
    connect(m_closeButton, &QPushButton::clicked, this, &CLibColourTableDlg::accept);
    auto *helpKey = new QShortcut(QKeySequence(QKeySequence::HelpContents), this);
    connect(helpKey, &QShortcut::activated, this, &CLibColourTableDlg::displayHelp);
    return CLibDialogRows::buttonRow(m_helpButton, {m_closeButton});
}

void CLibColourTableDlg::displayHelp()
{
    const auto *page = qobject_cast<const CLibColourTableTabBase *>(m_tabs->currentWidget());
    QString anchor = page ? page->helpAnchor() : QString();
    if (anchor.isEmpty())
        anchor = QLatin1String(kMaintenanceAnchor);
    emit displayHelpSignal(anchor);
}

void CLibColourTableDlg::updateChangedFlag()
{
    m_libraryChanged = m_generalTab->isChanged() || m_importTab->isChanged();
}

void CLibColourTableDlg::accept()
{
    updateChangedFlag();
    QDialog::accept();
}

// Escape and the window's close button report the changes too, so that the
// opener's list never misses a table made before the dialog was dismissed.
void CLibColourTableDlg::reject()
{
    updateChangedFlag();
    QDialog::reject();
}
