#include "filesizelimit.h"

#include <csignal>

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    if (getrlimit(RLIMIT_FSIZE, &m_old) != 0)
        return;
    m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit limited = m_old;
    limited.rlim_cur = bytes;
    m_active = setrlimit(RLIMIT_FSIZE, &limited) == 0;
}

FileSizeLimit::~FileSizeLimit()
{
    if (m_active)
        setrlimit(RLIMIT_FSIZE, &m_old);
    std::signal(SIGXFSZ, m_oldHandler ? m_oldHandler : SIG_DFL);
}
