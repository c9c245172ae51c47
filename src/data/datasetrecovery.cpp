#include "data/datasetrecovery.h"

#include "data/datamodel.h"
#include "tables/datacolourtable.h"
#include "tables/recoverycopy.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QTimer>
#include <QUuid>

#include <algorithm>

namespace {

const QString kCopyPrefix = QStringLiteral("dataset-");
const QString kCopySuffix = QStringLiteral(".txt");
const QString kLockSuffix = QStringLiteral(".lock");

// A lock is only taken over when its process is gone, never for its age:
// an instance may run for days.
bool lockIsFree(QLockFile &lock)
{
    lock.setStaleLockTime(0);
    return lock.tryLock(0);
}

} // namespace

CDataSetRecovery::CDataSetRecovery(CDataModel *model, QObject *parent)
    : QObject(parent), m_model(model), m_timer(new QTimer(this))
{
    // The process id keeps the name readable; the random part keeps an old
    // copy of a process that had the same id apart.
    const QString id = QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-')
                       + QUuid::createUuid().toString(QUuid::Id128).left(8);
    m_copyPath = folder() + QLatin1Char('/') + kCopyPrefix + id + kCopySuffix;
    m_timer->setSingleShot(true);
    m_timer->setInterval(kDelayMs);
    connect(m_timer, &QTimer::timeout, this, &CDataSetRecovery::writeNow);
    connect(m_model, &CDataModel::modifiedChanged, this, &CDataSetRecovery::followModifiedFlag);
}

CDataSetRecovery::~CDataSetRecovery()
{
    removeCopy();
}

QString CDataSetRecovery::folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
           + QStringLiteral("/recovery");
}

QString CDataSetRecovery::lockPathOf(const QString &copyPath)
{
    QString path = copyPath;
    if (path.endsWith(kCopySuffix))
        path.chop(kCopySuffix.size());
    return path + kLockSuffix;
}

QStringList CDataSetRecovery::leftCopies()
{
    QDir dir(folder());
    const QFileInfoList files = dir.entryInfoList({kCopyPrefix + QLatin1Char('*') + kCopySuffix},
                                                  QDir::Files, QDir::Time);
    QStringList left;
    for (const QFileInfo &file : files) {
        QLockFile lock(lockPathOf(file.absoluteFilePath()));
        if (lockIsFree(lock))
            left << file.absoluteFilePath();
    }
    return left;
}

bool CDataSetRecovery::removeLeftCopy(const QString &path)
{
    QLockFile lock(lockPathOf(path));
    if (!lockIsFree(lock))
        return false;
    return QFile::remove(path) || !QFileInfo::exists(path);
}

QString CDataSetRecovery::setAside(const QString &path)
{
    QString aside = path + QStringLiteral(".unreadable");
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = path + QStringLiteral(".unreadable-%1").arg(n);
    if (!QFile::rename(path, aside))
        return QString();
    QFile::remove(lockPathOf(path));
    return aside;
}

void CDataSetRecovery::scheduleWrite()
{
    // Not restarted by later changes: a steady run of edits still gets a
    // copy every kDelayMs.
    if (!m_timer->isActive())
        m_timer->start();
}

void CDataSetRecovery::followModifiedFlag(bool modified)
{
    if (modified) {
        scheduleWrite();
        return;
    }
    m_timer->stop();
    removeCopy();
}

bool CDataSetRecovery::holdLock()
{
    if (m_lock && m_lock->isLocked())
        return true;
    if (!QDir().mkpath(folder()))
        return false;
    m_lock = std::make_unique<QLockFile>(lockPathOf(m_copyPath));
    return lockIsFree(*m_lock);
}

bool CDataSetRecovery::writeNow()
{
    m_timer->stop();
    if (!m_model->isModified()) {
        removeCopy();
        return true;
    }
    if (!holdLock())
        return false;
    CRecoveryCopy copy;
    copy.dataSet = CDataSetSnapshot::capture(*m_model->table());
    copy.savedAt = QDateTime::currentDateTimeUtc();
    copy.processId = QCoreApplication::applicationPid();
    return copy.write(m_copyPath);
}

void CDataSetRecovery::removeCopy()
{
    m_timer->stop();
    QFile::remove(m_copyPath);
    if (m_lock)
        m_lock->unlock();
    m_lock.reset();
}
