#pragma once

#include <QByteArray>
#include <QStringList>

// A line of contrast -: two colours separated by blanks, or by a tab (which
// lets "R, G, B" keep its spaces). A comment starts at a "#" that follows a
// blank or starts the line and is itself followed by a blank or the end of
// the line, so "#000000 #ffffff" is a pair and "# text" a comment.
class CCliContrastLine
{
public:
    // The colour words of the line, comments and surrounding blanks removed;
    // true when there are exactly two (none at all for a blank line).
    static bool pairWords(const QByteArray &line, QStringList *words);
};
