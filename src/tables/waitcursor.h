#pragma once

// Shows the wait cursor for its lifetime. Does nothing without a GUI
// application object: the same loading code runs in the command-line tool,
// which only has a QCoreApplication.
class CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor &) = delete;
    CWaitCursor &operator=(const CWaitCursor &) = delete;

private:
    bool m_shown = false;
};
