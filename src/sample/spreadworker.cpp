#include "sample/spreadworker.h"

#include <QMetaObject>

CSpreadWorker::CSpreadWorker(QObject *parent) : QObject(parent)
{
    qRegisterMetaType<PickSpread>();
    // The spread splits its work over two threads itself.
    m_pool.setMaxThreadCount(1);
}

CSpreadWorker::~CSpreadWorker()
{
    cancel();
    m_pool.waitForDone();
}

void CSpreadWorker::start(const QImage &image, const QRect &region, const RgbColour &average)
{
    cancel();
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    const quint64 generation = ++m_generation;
    m_busy = true;
    const std::shared_ptr<std::atomic<bool>> stop = m_cancel;
    m_pool.start([this, image, region, average, stop, generation]() {
        PickSpread spread;
        if (!pickSpread(image, region, average, &spread, stop.get()))
            return;
        // Queued to the GUI thread; dropped there if the worker is gone.
        QMetaObject::invokeMethod(
            this, [this, generation, spread]() { deliver(generation, spread); },
            Qt::QueuedConnection);
    });
}

void CSpreadWorker::cancel()
{
    if (m_cancel)
        m_cancel->store(true);
    m_cancel.reset();
    m_busy = false;
}

bool CSpreadWorker::waitForIdle(int msecs)
{
    return m_pool.waitForDone(msecs);
}

void CSpreadWorker::deliver(quint64 generation, const PickSpread &spread)
{
    // A spread cancelled just after it finished, or overtaken by a newer
    // pick, says nothing.
    if (generation != m_generation || !m_busy)
        return;
    m_busy = false;
    emit spreadReady(spread);
}
