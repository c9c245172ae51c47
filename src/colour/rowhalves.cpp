#include "colour/rowhalves.h"

#include <system_error>
#include <thread>

void RowHalves::run(const QRect &region, const Work &work)
{
    run(region.top(), region.bottom(),
        qint64(region.width()) * region.height() >= kThreadedPixels, work);
}

void RowHalves::run(int first, int last, bool large, const Work &work)
{
    if (!large || last <= first || std::thread::hardware_concurrency() < 2) {
        work(first, last, 0);
        return;
    }
    const int middle = first + (last - first + 1) / 2;
    std::thread helper;
    try {
        helper = std::thread(work, middle, last, 1);
    } catch (const std::system_error &) {
        work(first, last, 0);
        return;
    }
    work(first, middle - 1, 0);
    helper.join();
}
