// "Find Colour" on the largest ready-made table, the Color Name List of
// 31,918 names: the name search alone, and a key press in the window from
// the changed text to the repainted list. The target is 30 ms a key press.
// Runs offscreen.

#include "sample/dlgfindcolour.h"
#include "tables/colournamesearch.h"
#include "tables/libcolourtable.h"
#include "tables/readymadetables.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

CLibColourTable *g_table = nullptr;

// Each of these is one key press of someone typing "blue jay"; the
// emptied field lists all 31,918 names again.
const char *const kTyping[] = {"b", "bl", "blu", "blue", "blue ", "blue j", "blue ja", "blue jay", ""};
const int kTypingCount = int(sizeof(kTyping) / sizeof(kTyping[0]));

void BM_NameSearch(benchmark::State &state)
{
    const CColourNameSearch search(*g_table);
    const QString text = QString::fromLatin1(kTyping[state.range(0)]);
    for (auto _ : state)
        benchmark::DoNotOptimize(search.find(text));
    state.SetLabel(QStringLiteral("\"%1\": %2 hits").arg(text).arg(search.find(text).size()).toStdString());
}
BENCHMARK(BM_NameSearch)->DenseRange(0, kTypingCount - 1)->Unit(benchmark::kMicrosecond);

// The library selector's own load path (CColourTable::load) on the table
// as the Import tab writes it into the library.
void BM_LoadColorNameList(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Color Name List.clrtable"));
    CColourTable::writeFileSafely(path, CReadyMadeTables::content(CReadyMadeTables::all().at(2)));
    CLibColourTable table;
    for (auto _ : state)
        benchmark::DoNotOptimize(table.load(path).status);
    state.SetLabel(QStringLiteral("%1 entries").arg(table.count()).toStdString());
}
BENCHMARK(BM_LoadColorNameList)->Unit(benchmark::kMillisecond);

// Setting the field's text is what a key press does; the repaint makes the
// view lay out and draw the rows the user then sees.
void BM_FindWindowKeyPress(benchmark::State &state)
{
    CDlgFindColour window(QStringLiteral("Color Name List"), *g_table, 0);
    window.show();
    QApplication::processEvents();
    int key = 0;
    for (auto _ : state) {
        window.searchField()->setText(QString::fromLatin1(kTyping[key]));
        window.resultsView()->viewport()->repaint();
        key = (key + 1) % kTypingCount;
    }
    state.SetLabel("one key of typing \"blue jay\", then clearing the field");
}
BENCHMARK(BM_FindWindowKeyPress)->Unit(benchmark::kMillisecond);

// The slowest key: a single common letter, every other name a hit.
void BM_FindWindowSingleLetter(benchmark::State &state)
{
    CDlgFindColour window(QStringLiteral("Color Name List"), *g_table, 0);
    window.show();
    QApplication::processEvents();
    bool flip = false;
    int hits = 0;
    for (auto _ : state) {
        window.searchField()->setText(flip ? QStringLiteral("a") : QStringLiteral("e"));
        window.resultsView()->viewport()->repaint();
        hits = window.resultsView()->model()->rowCount();
        flip = !flip;
    }
    state.SetLabel(QStringLiteral("\"a\" and \"e\" in turn, about %1 hits").arg(hits).toStdString());
}
BENCHMARK(BM_FindWindowSingleLetter)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    auto table = std::make_unique<CLibColourTable>();
    if (CReadyMadeTables::load(CReadyMadeTables::all().at(2), *table).status != CColourTable::Loaded)
        return 1;
    g_table = table.get();
    benchmark::RunSpecifiedBenchmarks();
    g_table = nullptr;
    return 0;
}
