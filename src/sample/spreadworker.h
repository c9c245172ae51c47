#pragma once

#include "colour/pickspread.h"
#include "colour/rgbcolour.h"

#include <QImage>
#include <QMetaType>
#include <QObject>
#include <QRect>
#include <QThreadPool>

#include <atomic>
#include <memory>

// Carried by spreadReady (signal spies and queued connections need it).
Q_DECLARE_METATYPE(PickSpread)

// Measures the spread of a pick (pickSpread) away from the GUI thread, so
// that the sample and its values show at once whatever the picture; the
// "Mixed colours" note follows when the spread is ready. One spread runs at
// a time, so two never hold the colour counters together. Starting a new
// one, cancel() and the worker's end (the page closing) stop the one still
// running, and every start has its own number, so a result that arrives
// late for an older pick is dropped rather than shown beside a newer one.
class CSpreadWorker : public QObject
{
    Q_OBJECT

public:
    explicit CSpreadWorker(QObject *parent = nullptr);
    // Cancels the running spread and waits for it to stop.
    ~CSpreadWorker() override;

    // The spread of region of image around average. The image is shared,
    // not copied: QImage keeps its pixels alive while the spread reads them,
    // and the picture shown is never written to.
    void start(const QImage &image, const QRect &region, const RgbColour &average);
    // Nothing started so far will be reported.
    void cancel();

    // A spread was started and has been neither reported nor cancelled.
    bool isBusy() const { return m_busy; }
    // How many spreads were started: the number of the latest.
    quint64 generation() const { return m_generation; }
    // Waits until no spread runs (the last result may still be on its way
    // through the event loop). False when msecs ran out first.
    bool waitForIdle(int msecs = -1);

signals:
    // The latest start's spread, on the GUI thread.
    void spreadReady(const PickSpread &spread);

private:
    void deliver(quint64 generation, const PickSpread &spread);

    QThreadPool m_pool;
    std::shared_ptr<std::atomic<bool>> m_cancel;
    quint64 m_generation = 0;
    bool m_busy = false;
};
