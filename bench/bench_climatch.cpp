// vellora-cli match --table FILE - as a script runs it: 100,000 samples, one
// per line, against a 30,000-entry library spread over the colour space,
// every core of the machine, output thrown away. Also a swatch book of 1,000.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const int kEntries = 30000;

class Files
{
public:
    Files()
    {
        QRandomGenerator random(5);
        QByteArray table = "# 30,000 colours\n";
        for (int i = 0; i < kEntries; ++i) {
            table += QByteArray::number(random.generateDouble(), 'f', 4) + ", "
                     + QByteArray::number(random.generateDouble(), 'f', 4) + ", "
                     + QByteArray::number(random.generateDouble(), 'f', 4) + ", Colour "
                     + QByteArray::number(i) + "\n";
        }
        write(tablePath(), table);
        QByteArray samples;
        for (int i = 0; i < 100000; ++i)
            samples += QByteArray::number(random.bounded(0x1000000), 16).rightJustified(6, '0') + "\n";
        write(samplesPath(100000), samples);
        write(samplesPath(1000), samples.left(7 * 1000));
    }
    QString tablePath() const { return m_dir.filePath("Large.clrtable"); }
    QString samplesPath(int count) const { return m_dir.filePath(QString("samples%1.txt").arg(count)); }

private:
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            std::abort();
    }
    QTemporaryDir m_dir;
};

const Files &files()
{
    static const Files f;
    return f;
}

void matchSamplesThroughTheTool(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        QProcess tool;
        tool.setStandardInputFile(files().samplesPath(count));
        tool.setStandardOutputFile(QProcess::nullDevice());
        tool.start(VELLORA_CLI_PATH, {"match", "--table", files().tablePath(), "-"});
        if (!tool.waitForFinished(600000) || tool.exitCode() != 0)
            state.SkipWithError("vellora-cli failed");
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(matchSamplesThroughTheTool)
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kSecond)
    ->UseRealTime()
    ->Iterations(1);

} // namespace

BENCHMARK_MAIN();
