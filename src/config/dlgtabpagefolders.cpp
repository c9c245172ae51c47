#include "config/dlgtabpagefolders.h"

#include "app/appsettings.h"
#include "help/elidedlabel.h"
#include "help/qgroupboxbold.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

CDlgTabPageFolders::CDlgTabPageFolders(CAppSettings *settings, QWidget *parent)
    : CDlgTabPage(settings, QStringLiteral("config.html#configFolders"), parent),
      m_dataPath(settings->dataDir), m_libPath(settings->libraryDir),
      m_dataDefaultPath(settings->dataDefaultDir), m_libDefaultPath(settings->libraryDefaultDir)
{
    auto *layout = new QVBoxLayout(this);
    auto *row = new QHBoxLayout;
    // Side by side, each group half of the page's width.
    row->addWidget(makeGroup(tr("Colour Data Folder"), &m_dataLabel, &m_dataBrowse,
                             &m_dataDefault),
                   1);
    row->addWidget(makeGroup(tr("Colour Match Library Folder"), &m_libLabel, &m_libBrowse,
                             &m_libDefault),
                   1);
    layout->addLayout(row);
    layout->addStretch();
    showPath(m_dataLabel, m_dataPath);
    showPath(m_libLabel, m_libPath);

    connect(m_dataBrowse, &QPushButton::clicked, this, &CDlgTabPageFolders::browseDataPath);
    connect(m_dataDefault, &QPushButton::clicked, this, &CDlgTabPageFolders::defaultDataPath);
    connect(m_libBrowse, &QPushButton::clicked, this, &CDlgTabPageFolders::browseLibPath);
    connect(m_libDefault, &QPushButton::clicked, this, &CDlgTabPageFolders::defaultLibPath);
}

QWidget *CDlgTabPageFolders::makeGroup(const QString &title, CElidedLabel **label,
                                       QPushButton **browse, QPushButton **reset)
{
    auto *group = new QGroupBoxBold(title, this);
    auto *column = new QVBoxLayout(group);
    *label = new CElidedLabel(group);
    (*label)->setElideMode(Qt::ElideMiddle);
    (*label)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    column->addWidget(*label);
    auto *row = new QHBoxLayout;
    *browse = new QPushButton(tr("B&rowse"), group);
    *reset = new QPushButton(tr("Reset &Default"), group);
    row->addWidget(*browse);
    row->addWidget(*reset);
    row->addStretch();
    column->addLayout(row);
    column->addStretch();
    // Both halves equal, whatever the titles' widths.
    group->setMinimumWidth(group->minimumSizeHint().width());
    group->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return group;
}

void CDlgTabPageFolders::showPath(CElidedLabel *label, const QString &path)
{
    label->setText(QDir::toNativeSeparators(path));
    label->setToolTip(QDir::toNativeSeparators(path));
}

void CDlgTabPageFolders::choosePath(const QString &caption, QString *path, CElidedLabel *label)
{
    const QString chosen = QFileDialog::getExistingDirectory(
        this, caption, *path, QFileDialog::ShowDirsOnly | QFileDialog::ReadOnly);
    // The folder already chosen, perhaps spelt with a trailing separator,
    // is no change.
    if (chosen.isEmpty() || QDir::cleanPath(chosen) == QDir::cleanPath(*path))
        return;
    *path = chosen;
    showPath(label, chosen);
}

void CDlgTabPageFolders::browseDataPath()
{
    choosePath(tr("Select the location of the  Data ... FIX THIS MESSAGE"), &m_dataPath,
               m_dataLabel);
}

void CDlgTabPageFolders::defaultDataPath()
{
    m_dataPath = m_dataDefaultPath;
    showPath(m_dataLabel, m_dataPath);
}

void CDlgTabPageFolders::browseLibPath()
{
    choosePath(tr("Select the location of the  colour library match tables  ... FIX THIS MESSAGE"),
               &m_libPath, m_libLabel);
}

void CDlgTabPageFolders::defaultLibPath()
{
    m_libPath = m_libDefaultPath;
    showPath(m_libLabel, m_libPath);
}

// The same folder spelt another way (a trailing separator, "." or a doubled
// separator, as after "Reset Default" over a stored "folder/") is no change,
// as it is for a folder chosen with Browse.
bool CDlgTabPageFolders::applyChanges()
{
    CAppSettings *s = settings();
    if (QDir::cleanPath(m_dataPath) != QDir::cleanPath(s->dataDir)) {
        s->dataDir = m_dataPath;
        m_dataChanged = true;
    }
    if (QDir::cleanPath(m_libPath) != QDir::cleanPath(s->libraryDir)) {
        s->libraryDir = m_libPath;
        m_libChanged = true;
    }
    return m_libChanged;
}
