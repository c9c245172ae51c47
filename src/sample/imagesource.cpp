#include "sample/imagesource.h"

#include "app/mainwindow.h"

CImageSource::CImageSource(CMainWindow *parent) : QObject(parent), m_parent(parent) {}

bool CImageSource::open(int command, const QString &path)
{
    if (command != 1)
        return false;
    m_path = path;
    m_loaded = !path.isEmpty() && m_image.load(path);
    return m_loaded;
}
