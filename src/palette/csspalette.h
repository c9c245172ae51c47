#pragma once

#include "palette/palette.h"
#include "palette/palettereadresult.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

// Colours in a style sheet: every #rgb, #rrggbb, rgb() and rgba() in the
// value of a declaration. A custom property names its colour
// ("--brand-blue: #1e90ff" gives "brand-blue"); other declarations are
// named by their selector and property ("body color"). Writing gives one
// custom property per colour in a ":root" rule, with names made safe.
class CCssPalette
{
public:
    static CPaletteReadResult read(const QByteArray &bytes);
    static QByteArray write(const CPalette &palette);

    // A custom property name (without "--") for any colour name: lower case
    // ASCII letters, digits, "-" and "_", never empty, never starting with
    // a digit. Used names get "-2", "-3", ... to stay unique.
    static QString safeName(const QString &name, QSet<QString> *used);

    // One declaration as found in the sheet, with the line its value
    // starts on.
    struct Declaration
    {
        QString selector;
        QString property;
        QString value;
        int line = 0;
    };
    // Comments removed and statements split; false with the line of an
    // unterminated comment.
    static bool declarations(const QString &sheet, QVector<Declaration> *out, int *badLine);
};
