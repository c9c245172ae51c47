#include "screen/memoryscreencapture.h"

CMemoryScreenCapture::CMemoryScreenCapture(const QImage &image, QObject *parent)
    : CScreenCapture(parent)
    , m_image(image)
{
}

void CMemoryScreenCapture::start()
{
    ++m_starts;
    if (!m_failure.isEmpty() || m_image.isNull())
        emit failed(failureText(m_failure.isEmpty() ? tr("there is no picture.") : m_failure));
    else
        emit captured(m_image);
}
