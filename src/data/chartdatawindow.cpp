#include "data/chartdatawindow.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/tablemessages.h"
#include "data/chartdatatabcontainer.h"
#include "data/datagrid.h"
#include "data/datamodel.h"
#include "data/datasethistory.h"
#include "data/datasetrecovery.h"
#include "data/datasetexport.h"
#include "data/dlgdatacolouradd.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSignalMapper>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QString dataFileFilter()
{
    return QCoreApplication::translate("CChartDataWindow",
                                       "Data File(*.txt *.csv);;All files (*.*)");
}

} // namespace

CChartDataWindow::CChartDataWindow(CAppSettings *settings, QWidget *parent)
    : CMainTabbedWindow(parent), m_settings(settings),
      m_saveIcon(AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_save_data.png"))),
      m_saveModifiedIcon(
          AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_save_data_mod.png")))
{
    m_mapper = new QSignalMapper(this);
    connect(m_mapper, &QSignalMapper::mappedInt, this, &CChartDataWindow::processCommand);
    m_container = new CChartDataTabContainer(m_settings, &m_table, this);
    m_model = m_container->grid()->model();
    connect(m_model, &CDataModel::modifiedChanged, this, &CChartDataWindow::showSaveIcon);
    connect(m_model, &CDataModel::titleChanged, this, &CChartDataWindow::titleChanged);
    connect(m_container->grid(), &CDataGrid::exportRequested, this,
            &CChartDataWindow::exportDataSet);
    m_history = new CDataSetHistory(m_model, this);
    m_recovery = new CDataSetRecovery(m_model, this);
    connect(m_history, &CDataSetHistory::changed, m_recovery, &CDataSetRecovery::scheduleWrite);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(buildToolBar());
    layout->addWidget(m_container, 1);
}

CChartDataWindow::~CChartDataWindow()
{
    // A page closed normally leaves no recovery copy behind.
    delete m_recovery;
    m_recovery = nullptr;
    // The grid goes before the table it shows.
    delete m_container;
    m_container = nullptr;
}

QToolBar *CChartDataWindow::buildToolBar()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setOrientation(Qt::Vertical);
    m_toolBar->setAllowedAreas(Qt::LeftToolBarArea);
    m_toolBar->setMovable(false);
    m_toolBar->setFloatable(false);

    auto *box = new QGroupBox(m_toolBar);
    box->setFlat(true);
    auto *column = new QVBoxLayout(box);
    auto *caption = new QLabel(tr("Colour Data"), box);
    caption->setAlignment(Qt::AlignCenter);
    column->addWidget(caption);
    m_newButton = addCommandButton(
        CmdNewData, tr("New data file"),
        AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_new_data.png")), box);
    m_openButton = addCommandButton(
        CmdOpenData, tr("Open data file"),
        AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_open_data.png")), box);
    m_saveButton = addCommandButton(CmdSaveData, tr("Save data file"), m_saveIcon, box);
    m_saveAsButton = addCommandButton(
        CmdSaveDataAs, tr("Save data file As"),
        AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_save_as_data.png")), box);
    for (QToolButton *button : {m_newButton, m_openButton, m_saveButton, m_saveAsButton})
        column->addWidget(button, 0, Qt::AlignHCenter);
    m_toolBar->addWidget(box);
    return m_toolBar;
}

QToolButton *CChartDataWindow::addCommandButton(int id, const QString &toolTip, const QIcon &icon,
                                                QWidget *parent)
{
    auto *action = new QAction(icon, toolTip, this);
    action->setToolTip(toolTip);
    return createToolButton(action, m_mapper, id, false, parent);
}

QToolButton *CChartDataWindow::commandButton(int id) const
{
    switch (id) {
    case CmdNewData:
        return m_newButton;
    case CmdOpenData:
        return m_openButton;
    case CmdSaveData:
        return m_saveButton;
    case CmdSaveDataAs:
        return m_saveAsButton;
    default:
        return nullptr;
    }
}

CDataGrid *CChartDataWindow::grid() const
{
    return m_container->grid();
}

QString CChartDataWindow::title() const
{
    if (m_table.isUntitled())
        return tr("Untitled - ");
    if (!m_table.filePath().isEmpty())
        return QFileInfo(m_table.filePath()).fileName() + QStringLiteral(" - ");
    return QString();
}

bool CChartDataWindow::isModified() const
{
    return m_model->isModified();
}

void CChartDataWindow::showSaveIcon(bool modified)
{
    m_saveButton->defaultAction()->setIcon(modified ? m_saveModifiedIcon : m_saveIcon);
}

QString CChartDataWindow::exportDataSet()
{
    // Exporting copies the colours out; the data set stays as it is.
    const QString folder = m_table.isUntitled() || m_table.filePath().isEmpty()
                               ? dataFolderSetting()
                               : QFileInfo(m_table.filePath()).absolutePath();
    return CDataSetExport::run(this, m_table, folder);
}

QString CChartDataWindow::dataFolderSetting() const
{
    return m_settings ? m_settings->dataDir : QString();
}

void CChartDataWindow::processCommand(int action)
{
    switch (action) {
    case CmdNewData:
        if (maybeSave()) {
            newDataSetWithHistory();
            m_model->setModified(false);
        }
        break;
    case CmdOpenData:
        if (maybeSave())
            open();
        break;
    case CmdSaveData:
        if (save())
            m_model->setModified(false);
        break;
    case CmdSaveDataAs:
        if (saveAs())
            m_model->setModified(false);
        break;
    default:
        break;
    }
}

bool CChartDataWindow::maybeSave()
{
    if (!isModified())
        return true;
    QMessageBox box(QMessageBox::Question, AppContext::productName(),
                    tr("Colour Data has been modified.\nWould you like to save your changes?"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Yes);
    const int answer = box.exec();
    if (answer == QMessageBox::Yes) {
        if (!save())
            return false;
        m_model->setModified(false);
        return true;
    }
    return answer == QMessageBox::No;
}

void CChartDataWindow::newDataSetWithHistory()
{
    const CDataSetSnapshot before = CDataSetSnapshot::capture(m_table);
    newDataSet();
    m_history->recordReplace(tr("New"), before);
}

void CChartDataWindow::newDataSet()
{
    m_table.clear();
    m_table.setUntitled(true);
    m_model->setTable(&m_table);
}

bool CChartDataWindow::save()
{
    if (!m_table.isUntitled() && !m_table.filePath().isEmpty())
        return CTableMessages::save(this, m_table, m_table.filePath(), true);
    return saveAs();
}

QString CChartDataWindow::saveAsStartFolder() const
{
    if (!m_table.isUntitled() && !m_table.filePath().isEmpty())
        return m_table.filePath();
    return dataFolderSetting();
}

bool CChartDataWindow::saveAs()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Save File As"), saveAsStartFolder(),
                                                dataFileFilter());
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).completeSuffix().isEmpty())
        path += QStringLiteral(".txt");
    // The file dialog has asked about replacing an existing file.
    if (!CTableMessages::save(this, m_table, path, true))
        return false;
    m_table.setFilePath(path);
    m_table.setUntitled(false);
    rememberDataFolder(path);
    return true;
}

void CChartDataWindow::rememberDataFolder(const QString &filePath)
{
    const QString folder = QFileInfo(filePath).canonicalPath();
    if (m_settings && !folder.isEmpty() && m_settings->dataDir != folder)
        m_settings->dataDir = folder;
}

bool CChartDataWindow::open()
{
    QFileDialog dialog(this, tr("Open File"), dataFolderSetting(), dataFileFilter());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString path = dialog.selectedFiles().value(0);
    if (path.isEmpty())
        return false;
    return openFile(path);
}

bool CChartDataWindow::openFile(const QString &path)
{
    const CDataSetSnapshot before = CDataSetSnapshot::capture(m_table);
    if (QFileInfo::exists(path)) {
        m_table.clear();
        rememberDataFolder(path);
    }
    const CColourTable::LoadResult result = CTableMessages::loadWithWaitCursor(m_table, path);
    m_model->setTable(&m_table);
    if (result.status == CColourTable::Loaded)
        m_table.setUntitled(false);
    m_history->recordReplace(tr("Open \"%1\"").arg(QFileInfo(path).fileName()), before);
    emit titleChanged();
    return CTableMessages::reportDataTableLoad(this, result, path);
}

void CChartDataWindow::showRecovered(const CDataSetSnapshot &dataSet)
{
    m_model->resetTo(dataSet);
    m_model->setModified(true);
    // This page keeps the copy from now on.
    m_recovery->writeNow();
}

bool CChartDataWindow::addColour(double red, double green, double blue)
{
    CDlgDataColourAdd dialog(this, m_settings, &m_table, red, green, blue);
    connect(&dialog, &CDlgDataColourAdd::displayHelpSignal, this,
            &CChartDataWindow::displayHelpSignal);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    switch (dialog.choice()) {
    case CDlgDataColourAdd::OpenAndAdd:
        if (!maybeSave() || !open())
            return false;
        break;
    case CDlgDataColourAdd::AddToNew:
        if (!maybeSave())
            return false;
        newDataSetWithHistory();
        break;
    default:
        break;
    }
    // The history's change marks the set modified.
    m_history->add({dialog.name(), red, green, blue});
    return true;
}
