#pragma once

// Shows the wait cursor for its lifetime, around the long operations of the
// widget layer (loading a table, listing the library). The core's loading
// code knows nothing of cursors: the command-line tool runs it too.
class CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor &) = delete;
    CWaitCursor &operator=(const CWaitCursor &) = delete;
};
