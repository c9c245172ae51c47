#include "colour/rowhalves.h"

#include <system_error>
#include <thread>

void RowHalves::run(const QRect &region, const Work &work)
{
    const bool large = qint64(region.width()) * region.height() >= kThreadedPixels
                       && region.height() > 1 && std::thread::hardware_concurrency() >= 2;
    if (!large) {
        work(region.top(), region.bottom(), 0);
        return;
    }
    const int middle = region.top() + region.height() / 2;
    std::thread helper;
    try {
        helper = std::thread(work, middle, region.bottom(), 1);
    } catch (const std::system_error &) {
        work(region.top(), region.bottom(), 0);
        return;
    }
    work(region.top(), middle - 1, 0);
    helper.join();
}
