#include "cli/clistderrsilencer.h"

#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

CCliStderrSilencer::CCliStderrSilencer()
{
#ifdef Q_OS_UNIX
    std::fflush(stderr);
    const int null = ::open("/dev/null", O_WRONLY);
    if (null < 0)
        return;
    m_saved = ::dup(STDERR_FILENO);
    if (m_saved >= 0)
        ::dup2(null, STDERR_FILENO);
    ::close(null);
#endif
}

CCliStderrSilencer::~CCliStderrSilencer()
{
#ifdef Q_OS_UNIX
    if (m_saved < 0)
        return;
    std::fflush(stderr);
    ::dup2(m_saved, STDERR_FILENO);
    ::close(m_saved);
#endif
}
