#include "tables/waitcursor.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

CWaitCursor::CWaitCursor()
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        m_shown = true;
    }
}

CWaitCursor::~CWaitCursor()
{
    if (m_shown && qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        QGuiApplication::restoreOverrideCursor();
}
