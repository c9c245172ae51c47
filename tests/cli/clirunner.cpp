#include "clirunner.h"

#include <QProcess>

QStringList CliRunner::Result::outLines() const
{
    QString text = outText();
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text.split(QLatin1Char('\n'));
}

CliRunner::Result CliRunner::run(const QStringList &arguments, const QByteArray &input,
                                 const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VELLORA_CLI_PATH), arguments);
    return finish(process, input);
}

CliRunner::Result CliRunner::runToFile(const QStringList &arguments, const QString &outputFile)
{
    QProcess process;
    process.setProcessEnvironment(defaultEnvironment());
    process.setStandardOutputFile(outputFile);
    process.start(QStringLiteral(VELLORA_CLI_PATH), arguments);
    return finish(process, QByteArray());
}

CliRunner::Result CliRunner::finish(QProcess &process, const QByteArray &input)
{
    Result result;
    if (!process.waitForStarted(10000))
        return result;
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished(5000);
        return result;
    }
    result.finished = process.exitStatus() == QProcess::NormalExit;
    result.exitCode = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

QProcessEnvironment CliRunner::defaultEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LC_NUMERIC"));
    environment.remove(QStringLiteral("LANG"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}
