#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>

class QProcess;

// Runs the built vellora-cli as a user's script would, feeding it standard
// input and collecting both output streams.
class CliRunner
{
public:
    struct Result
    {
        bool finished = false; // false when it crashed or hung
        int exitCode = -1;
        QByteArray out;
        QByteArray err;

        QString outText() const { return QString::fromUtf8(out); }
        QString errText() const { return QString::fromUtf8(err); }
        // Output lines without the final line feed.
        QStringList outLines() const;
    };

    static Result run(const QStringList &arguments, const QByteArray &input = QByteArray(),
                      const QProcessEnvironment &environment = defaultEnvironment());
    // The same with standard output sent to a file (out stays empty).
    static Result runToFile(const QStringList &arguments, const QString &outputFile);
    // The test's environment with LC_ALL=C.UTF-8.
    static QProcessEnvironment defaultEnvironment();

private:
    static Result finish(QProcess &process, const QByteArray &input);
};
