#pragma once

#include "cli/clistatus.h"

#include <QStringList>

// The entry of vellora-cli: picks the command named by the first word, runs
// it and turns its status into the exit status and error line.
class CCliCommands
{
public:
    // words: the arguments after the program name. Returns the exit status.
    static int run(const QStringList &words);

    static QString usage();
    static QString version();

private:
    static CCliStatus execute(const QStringList &words);
    static CCliStatus dispatch(const QString &command, const QStringList &words);
};
