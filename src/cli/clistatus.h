#pragma once

#include <QString>

// What a command came to: the process exit status and, for a failure, the
// one line that explains it. Commands return these instead of exiting, so
// that every failure leaves through the same door.
class CCliStatus
{
public:
    enum Code
    {
        Success = 0,
        UsageError = 1,    // unknown command or option, wrong argument count
        BadInput = 2,      // unreadable or malformed file, image or number
        EmptySelection = 3 // the selection holds no pixels
    };

    CCliStatus() = default;
    static CCliStatus ok() { return CCliStatus(); }
    static CCliStatus usage(const QString &message) { return CCliStatus(UsageError, message); }
    static CCliStatus badInput(const QString &message) { return CCliStatus(BadInput, message); }
    static CCliStatus emptySelection(const QString &message)
    {
        return CCliStatus(EmptySelection, message);
    }

    bool failed() const { return m_code != Success; }
    int code() const { return m_code; }
    QString message() const { return m_message; }

private:
    CCliStatus(Code code, const QString &message) : m_code(code), m_message(message) {}

    Code m_code = Success;
    QString m_message;
};
