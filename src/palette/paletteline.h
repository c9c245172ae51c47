#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// Splits the text of a line-based palette file into lines: UTF-8 (a leading
// byte order mark dropped), line feed endings with an optional carriage
// return, and no line cut at a NUL byte. Also the C-locale number parsing
// every palette reader shares.
class CPaletteLine
{
public:
    static QVector<QString> split(const QByteArray &bytes);
    // Digits only (no sign, no spaces), value in min..max.
    static bool wholeNumber(const QString &text, int min, int max, int *value);
    // A finite C-locale number ("." as the decimal point), nothing around it.
    static bool number(const QString &text, double *value);
    // True when the bytes hold a NUL: such a file is not text.
    static bool looksBinary(const QByteArray &bytes);
};
