#include "cli/climatchbatch.h"

#include "cli/clilinereader.h"
#include "cli/climatchformatter.h"
#include "cli/clinumbers.h"
#include "colour/colourformat.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <atomic>
#include <system_error>
#include <thread>

namespace {

// Samples read before they are matched and printed: enough to keep every
// thread busy, few enough that output follows input closely.
const size_t kSamplesPerRound = 2048;

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Runs work(0) .. work(count - 1) on up to `jobs` threads; the calling
// thread takes part, and carries on alone when no thread can be started.
template <typename Work>
void runShared(size_t count, int jobs, const Work &work)
{
    std::atomic<size_t> next(0);
    const auto worker = [&] {
        for (size_t i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::thread> helpers;
    for (int t = 1; t < jobs && size_t(t) < count; ++t) {
        try {
            helpers.emplace_back(worker);
        } catch (const std::system_error &) {
            break;
        }
    }
    worker();
    for (std::thread &helper : helpers)
        helper.join();
}

} // namespace

CCliMatchBatch::CCliMatchBatch(const CColourTable &table, int count, bool json, int jobs)
    : m_matcher(table), m_count(count), m_json(json), m_jobs(jobs)
{}

QByteArray CCliMatchBatch::samplePart(const QByteArray &line)
{
    int end = line.size();
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) != '#')
            continue;
        const bool blankBefore = i > 0 && isBlank(line.at(i - 1));
        const bool blankAfter = i + 1 == line.size() || isBlank(line.at(i + 1));
        if (blankBefore || blankAfter) {
            end = i;
            break;
        }
    }
    return line.left(end).trimmed();
}

CCliStatus CCliMatchBatch::run(std::FILE *input)
{
    if (!m_json) {
        std::fputs(QStringLiteral("line\tsample\t%1\n")
                       .arg(CCliMatchFormatter::tsvHeader())
                       .toUtf8()
                       .constData(),
                   stdout);
    }
    CCliLineReader reader(input);
    bool atEnd = false;
    while (!atEnd) {
        std::vector<Sample> samples;
        const CCliStatus status = readSamples(&reader, &samples, &atEnd);
        printMatches(samples);
        if (status.failed())
            return status;
    }
    return CCliStatus::ok();
}

CCliStatus CCliMatchBatch::readSamples(CCliLineReader *reader, std::vector<Sample> *samples,
                                       bool *atEnd) const
{
    QByteArray line;
    while (samples->size() < kSamplesPerRound) {
        const CCliLineReader::Result result = reader->next(&line);
        if (result != CCliLineReader::Line) {
            if (result == CCliLineReader::End)
                *atEnd = true;
            return reader->stopStatus(result);
        }
        const QByteArray text = samplePart(line);
        if (text.isEmpty())
            continue;
        Sample sample{reader->lineNumber(), RgbColour{}};
        const CCliStatus status = CCliNumbers::anyColour(QString::fromLatin1(text), &sample.colour);
        if (status.failed()) {
            return CCliStatus::badInput(
                QStringLiteral("line %1: %2").arg(reader->lineNumber()).arg(status.message()));
        }
        samples->push_back(sample);
    }
    return CCliStatus::ok();
}

void CCliMatchBatch::printMatches(const std::vector<Sample> &samples) const
{
    std::vector<QByteArray> texts(samples.size());
    runShared(samples.size(), m_jobs, [&](size_t i) { texts[i] = format(samples[i]); });
    for (const QByteArray &text : texts)
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
}

QByteArray CCliMatchBatch::format(const Sample &sample) const
{
    const QVector<CMatchResult> sorted = m_matcher.bestRows(sample.colour, m_count);
    const int rows = CColourMatcher::rowsToShow(sorted, m_count);
    const QString hex = colourName(sample.colour.red, sample.colour.green, sample.colour.blue);
    if (m_json) {
        const QJsonObject object{{QStringLiteral("line"), sample.line},
                                 {QStringLiteral("sample"), hex},
                                 {QStringLiteral("matches"), CCliMatchFormatter::jsonRows(sorted, rows)}};
        return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    }
    const QString lead = QStringLiteral("%1\t%2\t").arg(sample.line).arg(hex);
    QByteArray text;
    for (const QString &row : CCliMatchFormatter::tsvRows(sorted, rows))
        text += (lead + row).toUtf8() + '\n';
    return text;
}
