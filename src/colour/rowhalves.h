#pragma once

#include <QRect>
#include <QtGlobal>

#include <functional>

// Splits the rows of a large region between the calling thread and one
// helper thread: the caller takes the upper half, the helper the lower one.
// Small regions, a machine with one core, or a thread that cannot be
// started leave all the rows to the caller. Each half is handed to `work`
// with its first and last row and its number (0 upper, 1 lower); the
// halves' results are the caller's to combine.
class RowHalves
{
public:
    using Work = std::function<void(int first, int last, int half)>;

    // Rows of at least this many pixels are worth a second thread.
    static constexpr qint64 kThreadedPixels = qint64(1) << 19;

    static void run(const QRect &region, const Work &work);
    // The same for items first..last of any list, on two threads when
    // `large` says the work is worth it.
    static void run(int first, int last, bool large, const Work &work);
};
