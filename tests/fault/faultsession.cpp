#include "faultsession.h"

#include "common/appcontext.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "data/datamodel.h"
#include "data/dlgdatacolouradd.h"
#include "library/dlglibcolourtableadd.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "tables/datacolourtable.h"
#include "tables/libcolourtable.h"

#include "support/modalanswerer.h"
#include "support/samplefixture.h"

#include <QApplication>
#include <QDateTime>
#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <cstdio>

namespace {

// The pasted picture samples are picked from: a gradient, so that picks in
// different places give different colours.
const int kPictureSize = 24;

QString now()
{
    return QString::number(QDateTime::currentMSecsSinceEpoch());
}

QString namesOf(const CColourTable &table)
{
    QStringList names;
    for (const CColourTableEntry *entry : table.entries())
        names << entry->name;
    return names.join(QLatin1Char('|'));
}

QImage picture()
{
    QImage image(kPictureSize, kPictureSize, QImage::Format_RGB32);
    for (int y = 0; y < kPictureSize; ++y)
        for (int x = 0; x < kPictureSize; ++x)
            image.setPixel(x, y, qRgb(x * 10, y * 10, 255 - x * 5));
    return image;
}

// Types `name` into a name dialog's line edit, as a user would, before the
// answerer presses its OK.
ModalAnswerer::Action typeName(const QString &name)
{
    return [name](QWidget *dialog) {
        QLineEdit *edit = nullptr;
        if (auto *data = qobject_cast<CDlgDataColourAdd *>(dialog))
            edit = data->nameEdit();
        else if (auto *library = qobject_cast<CDlgLibColourTableAdd *>(dialog))
            edit = library->nameEdit();
        else
            edit = dialog->findChild<QLineEdit *>();
        if (!edit)
            return;
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, name);
    };
}

} // namespace

FaultSession::FaultSession(quint32 seed, const QString &dataPath, const QString &libraryPath)
    : m_random(seed), m_seed(seed), m_dataPath(dataPath), m_libraryPath(libraryPath),
      m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &FaultSession::step);
}

FaultSession::~FaultSession() = default;

void FaultSession::say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString FaultSession::rows() const
{
    return namesOf(*m_window->dataPage()->dataTable());
}

bool FaultSession::start()
{
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        return false;
    if (!m_window->dataPage()->openFile(m_dataPath))
        return false;
    // The selected table is the one the driver's settings named.
    const CLibColourTable &library = m_window->samplingPage()->libraryTable();
    if (library.filePath() != m_libraryPath)
        return false;
    // As Ctrl+V with a picture on the clipboard shows it.
    m_window->showPastedImage(picture());
    say(QStringLiteral("ready ") + now());
    say(QStringLiteral("lib0 ") + now() + QLatin1Char(' ') + namesOf(library));
    say(QStringLiteral("data0 ") + now() + QLatin1Char(' ') + rows());
    journalState();
    m_timer->start(int(m_random.bounded(40, 120)));
    return true;
}

void FaultSession::journalState()
{
    say(QStringLiteral("S %1 %2 %3")
            .arg(now(), m_window->dataPage()->isModified() ? QStringLiteral("1")
                                                            : QStringLiteral("0"),
                 rows()));
}

void FaultSession::step()
{
    const int choice = int(m_random.bounded(100));
    // Saves are rare: a saved set has no copy, and the check wants copies.
    if (choice < 87)
        changeDataSet(choice);
    else if (choice < 97)
        addLibraryColour();
    else
        saveDataSet();
    m_timer->start(int(m_random.bounded(40, 120)));
}

void FaultSession::changeDataSet(int choice)
{
    const int count = m_window->dataPage()->model()->rowCount();
    if (choice < 35 || count == 0)
        addDataColour();
    else if (choice < 50)
        renameRow();
    else if (choice < 65)
        deleteRow();
    else if (choice < 75)
        pressKey(QKeySequence::Undo);
    else
        pressKey(QKeySequence::Redo);
    journalState();
}

void FaultSession::showTab(QWidget *page)
{
    QTabWidget *tabs = m_window->tabWidget();
    const int index = tabs->indexOf(page);
    if (tabs->currentIndex() == index)
        return;
    QTabBar *bar = tabs->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(index).center());
}

bool FaultSession::pickSample()
{
    CColourImageWindow *page = m_window->samplingPage();
    showTab(page);
    const QPoint point(int(m_random.bounded(2, kPictureSize - 2)),
                       int(m_random.bounded(2, kPictureSize - 2)));
    SampleFixture::leftClick(page->imageWidget(), point);
    return page->isSamplePresent();
}

void FaultSession::addDataColour()
{
    if (!pickSample())
        return;
    const QString name = QStringLiteral("R%1-%2").arg(m_seed).arg(++m_counter);
    // The dialog's "Add to current data file" is chosen: the set has its file.
    ModalAnswerer answer(QStringLiteral("OK"), typeName(name));
    QTest::mouseClick(m_window->samplingPage()->commandButton(CmdAddToDataSet), Qt::LeftButton);
}

void FaultSession::clickCell(int row, int column)
{
    QTableView *view = m_window->dataPage()->grid()->view();
    const QModelIndex index = view->model()->index(row, column);
    view->scrollTo(index);
    const QPoint pos = view->visualRect(index).center();
    // The icons answer a press under the cursor, so the cursor comes first.
    QMouseEvent move(QEvent::MouseMove, pos, view->viewport()->mapToGlobal(pos), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &move);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
}

void FaultSession::renameRow()
{
    CChartDataWindow *page = m_window->dataPage();
    showTab(page);
    const int row = int(m_random.bounded(page->model()->rowCount()));
    const QString name = page->dataTable()->at(row)->name + QLatin1Char('x');
    ModalAnswerer answer(QStringLiteral("OK"), typeName(name));
    clickCell(row, CDataModel::ColEdit);
}

void FaultSession::deleteRow()
{
    CChartDataWindow *page = m_window->dataPage();
    showTab(page);
    clickCell(int(m_random.bounded(page->model()->rowCount())), CDataModel::ColDelete);
}

void FaultSession::pressKey(int standardKey)
{
    showTab(m_window->dataPage());
    // A dialog that just closed may have left no window active; a user
    // would be back in the main window.
    QApplication::setActiveWindow(m_window.get());
    QTest::keySequence(m_window.get(),
                       QKeySequence(static_cast<QKeySequence::StandardKey>(standardKey)));
}

void FaultSession::saveDataSet()
{
    showTab(m_window->dataPage());
    say(QStringLiteral("d ") + now() + QLatin1Char(' ') + rows());
    // The set has its file: Save writes it without asking.
    QTest::mouseClick(m_window->dataPage()->commandButton(CmdSaveData), Qt::LeftButton);
    say(QStringLiteral("D ") + now() + QLatin1Char(' ') + rows());
    journalState();
}

void FaultSession::addLibraryColour()
{
    if (!pickSample())
        return;
    CColourImageWindow *page = m_window->samplingPage();
    // "Add Colour to Colour Library" opens once the sample is matched.
    QTest::mouseClick(page->commandButton(CmdMatchColour), Qt::LeftButton);
    QToolButton *add = page->commandButton(CmdAddToLibrary);
    if (!add->isEnabled())
        return;
    const QString name = QStringLiteral("L%1-%2").arg(m_seed).arg(++m_counter);
    say(QStringLiteral("l ") + now() + QLatin1Char(' ') + name);
    {
        ModalAnswerer answer(QStringLiteral("OK"), typeName(name));
        QTest::mouseClick(add, Qt::LeftButton);
    }
    if (page->libraryTable().containsName(name))
        say(QStringLiteral("L ") + now() + QLatin1Char(' ') + name);
}
