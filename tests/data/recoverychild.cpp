// A Vellora stand-in for the recovery tests, run as a child process: the
// main window and its data page, changed by a script instead of a user.
//
//   recoverychild edits   adds, renames and deletes rows, prints "done", waits
//   recoverychild hold    adds one row, prints "done" once its copy is written, waits
//   recoverychild exit    adds one row, waits for its copy, then quits normally
//
// Each change prints "step <rows>" (names joined by '|') once it is made.
// It runs in the test's private home (the environment it inherits).
#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/datasetcommand.h"
#include "data/datasethistory.h"
#include "data/datasetrecovery.h"
#include "tables/datacolourtable.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QTimer>
#include <QUndoStack>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString rowsOf(CChartDataWindow *page)
{
    QStringList names;
    for (const CColourTableEntry *entry : page->dataTable()->entries())
        names << entry->name;
    return names.join(QLatin1Char('|'));
}

// Runs the steps 150 ms apart, then calls done.
void runSteps(CChartDataWindow *page, std::vector<std::function<void()>> steps,
              std::function<void()> done)
{
    auto *timer = new QTimer(page);
    auto index = std::make_shared<size_t>(0);
    QObject::connect(timer, &QTimer::timeout, page, [=]() {
        if (*index >= steps.size()) {
            timer->stop();
            done();
            return;
        }
        steps[(*index)++]();
        say(QStringLiteral("step ") + rowsOf(page));
    });
    timer->start(150);
}

// Prints "done" once the page's copy is on disk.
void whenCopyWritten(CChartDataWindow *page, std::function<void()> then)
{
    auto *poll = new QTimer(page);
    QObject::connect(poll, &QTimer::timeout, page, [=]() {
        if (QFileInfo::exists(page->recovery()->copyPath())) {
            poll->stop();
            then();
        }
    });
    poll->start(20);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    AppContext::setApplicationIdentity();
    AppContext::initResources();
    const QString mode = application.arguments().value(1);

    CMainWindow window(AppContext::versionTitle());
    window.show();
    CChartDataWindow *page = window.dataPage();
    CDataSetHistory *history = page->history();
    CDataModel *model = page->model();

    std::vector<std::function<void()>> steps;
    steps.emplace_back([=]() { history->add({QStringLiteral("Sky Blue"), 0.53, 0.81, 0.92}); });
    if (mode == QLatin1String("edits")) {
        steps.emplace_back([=]() { history->add({QStringLiteral("Orange"), 1.0, 0.5, 0.0}); });
        steps.emplace_back([=]() { history->add({QStringLiteral("Grey"), 0.5, 0.5, 0.5}); });
        steps.emplace_back([=]() {
            history->stack()->push(CDataSetCommand::rename(model, 1, QStringLiteral("Amber")));
        });
        steps.emplace_back([=]() { model->deleteRecord(model->index(0, CDataModel::ColDelete)); });
        steps.emplace_back([=]() { history->add({QStringLiteral("Teal"), 0.0, 0.5, 0.5}); });
    }
    runSteps(page, steps, [=]() {
        if (mode == QLatin1String("exit"))
            whenCopyWritten(page, []() { QCoreApplication::exit(0); });
        else if (mode == QLatin1String("hold"))
            whenCopyWritten(page, []() { say(QStringLiteral("done")); });
        else
            say(QStringLiteral("done"));
    });
    return application.exec();
}
