// Feeds arbitrary text to the parsers of vellora-cli's number and colour
// arguments: finite numbers, whole numbers in a range, comma lists, "R,G,B",
// "RRGGBB", the sample lines of match - and the pair lines of contrast -. Whatever they accept must be in
// range; whatever they refuse must come with a message.
#include "cli/clicontrastline.h"
#include "cli/climatchbatch.h"
#include "cli/clinumbers.h"

#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

void checkColour(const CCliStatus &status, const RgbColour &colour)
{
    if (status.failed()) {
        check(!status.message().isEmpty());
        return;
    }
    for (const double c : {colour.red, colour.green, colour.blue})
        check(c >= 0.0 && c <= 1.0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString text = QString::fromLatin1(bytes);
    const QString utf8 = QString::fromUtf8(bytes);

    double number = 0.0;
    if (!CCliNumbers::toFinite(utf8, &number).failed())
        check(std::isfinite(number));
    int whole = 0;
    if (!CCliNumbers::toInteger(text, -5, 1000, QStringLiteral("--n"), &whole).failed())
        check(whole >= -5 && whole <= 1000);
    QVector<int> list;
    if (!CCliNumbers::toIntegerList(text, 4, 0, 9999, QStringLiteral("--band"), &list).failed()) {
        check(list.size() == 4);
        for (const int v : list)
            check(v >= 0 && v <= 9999);
    }
    QVector<double> numbers;
    CCliNumbers::toFinites(utf8.split(QLatin1Char(' ')), &numbers);

    RgbColour colour;
    checkColour(CCliNumbers::rgbBytes(text, &colour), colour);
    checkColour(CCliNumbers::hexColour(text, &colour), colour);
    checkColour(CCliNumbers::anyColour(text, &colour), colour);
    const QByteArray sample = CCliMatchBatch::samplePart(bytes);
    check(sample.size() <= bytes.size());
    checkColour(CCliNumbers::anyColour(QString::fromLatin1(sample), &colour), colour);
    QStringList pair;
    const bool isPair = CCliContrastLine::pairWords(bytes, &pair);
    check(isPair == (pair.size() == 2));
    for (const QString &word : pair) {
        check(!word.isEmpty() && word.size() <= bytes.size());
        checkColour(CCliNumbers::anyColour(word, &colour), colour);
    }
    return 0;
}
