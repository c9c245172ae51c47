#pragma once

#include <sys/resource.h>

// Makes every write of this process beyond `bytes` in one file fail (EFBIG)
// for its lifetime: a disk-full style write error that also happens for
// root, who ignores file permissions. SIGXFSZ is ignored meanwhile so that
// the failing write returns an error instead of ending the process.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

    bool isActive() const { return m_active; }

private:
    struct rlimit m_old;
    void (*m_oldHandler)(int) = nullptr;
    bool m_active = false;
};
