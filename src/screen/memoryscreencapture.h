#pragma once

#include "screen/screencapture.h"

// A capture that hands back a picture it was given, or fails with a reason
// it was given: the overlay and the sampling page are tested with it, and
// the benchmarks time them without a screen.
class CMemoryScreenCapture : public CScreenCapture
{
    Q_OBJECT

public:
    explicit CMemoryScreenCapture(const QImage &image, QObject *parent = nullptr);

    // From now on every start() fails with this reason.
    void setFailure(const QString &reason) { m_failure = reason; }
    void start() override;
    int starts() const { return m_starts; }

private:
    QImage m_image;
    QString m_failure;
    int m_starts = 0;
};
