#include "screen/screencapture.h"

CScreenCapture::CScreenCapture(QObject *parent)
    : QObject(parent)
{
}

CScreenCapture::~CScreenCapture() = default;

QString CScreenCapture::failureText(const QString &reason)
{
    return tr("The screen could not be captured: %1\nNothing has been changed.").arg(reason);
}
