#include "common/waitcursor.h"

#include <QApplication>
#include <QCursor>

CWaitCursor::CWaitCursor()
{
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

CWaitCursor::~CWaitCursor()
{
    QApplication::restoreOverrideCursor();
}
