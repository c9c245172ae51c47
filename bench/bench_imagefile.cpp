// Opening a 20000 x 20000 picture (1.6 GB decoded), the largest kind that
// must still open, and picking in it. The picture is written once per run,
// mostly flat so that it compresses fast.
#include "colour/imagefile.h"
#include "colour/imageregionaverage.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const int kSide = 20000;

class HugePicture
{
public:
    HugePicture()
    {
        QImage image(kSide, kSide, QImage::Format_RGB32);
        image.fill(QColor(40, 120, 200));
        {
            QPainter painter(&image);
            painter.fillRect(0, 0, kSide / 2, kSide / 3, QColor(220, 180, 20));
            painter.fillRect(kSide / 3, kSide / 2, kSide / 2, kSide / 4, QColor(10, 200, 90));
        }
        QImageWriter writer(path(), "png");
        writer.setCompression(1);
        if (!writer.write(image))
            std::abort();
    }
    QString path() const { return m_dir.filePath("huge.png"); }

private:
    QTemporaryDir m_dir;
};

void openTwentyThousandSquarePng(benchmark::State &state)
{
    static const HugePicture picture; // written before the timing starts
    for (auto _ : state) {
        QImage image;
        if (CImageFile::read(picture.path(), &image) != CImageFile::Read
            || image.size() != QSize(kSide, kSide))
            state.SkipWithError("the picture did not open");
        // A pick in the far corner reads the picture as it was written.
        RgbColour colour;
        averageImageRegion(image, QRect(kSide - 5, kSide - 5, 5, 5), false, &colour);
        benchmark::DoNotOptimize(colour);
    }
}
BENCHMARK(openTwentyThousandSquarePng)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

} // namespace

BENCHMARK_MAIN();
