#pragma once

#include <QString>
#include <QVector>

// Everything the tool prints goes through here: UTF-8 whatever the locale,
// numbers with "." as the decimal point, and errors as one line on standard
// error that starts with "vellora-cli: ".
class CCliOutput
{
public:
    // Fixed-point text with exactly `decimals` digits after the point.
    static QString fixed(double value, int decimals);
    // The values in fixed-point notation, separated by one space.
    static QString fixed(const QVector<double> &values, int decimals);

    // Writes text and a line feed to standard output.
    static void line(const QString &text);
    // Writes "vellora-cli: <message>" to standard error, on one line.
    static void error(const QString &message);
    // A message written for a box, its lines joined into one: a line ending
    // in ":" continues after a space, others after ": ".
    static QString oneLine(const QString &message);
    // Pushes standard output out; false when it could not all be written
    // (a full disk, a closed file), which the caller reports.
    static bool flush();
};
