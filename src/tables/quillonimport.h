#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

class CColourTable;
class QIODevice;

// Reads the colour lists of the companion application Quillon (".config"
// files, one "red/green/blue/name" record a line) into a colour table. All
// or nothing: one refused line refuses the whole file. No widgets here; the
// Import tab and vellora-cli import-config show the results.
class CQuillonImport
{
public:
    enum Status { Imported = 0, CannotOpen = 1, BadLine = 2, NoRecords = 3 };
    struct Result
    {
        int status = Imported;
        int lineNumber = 0; // 1-based, set for BadLine
    };

    // One line as it stands in the file. Appends an entry to target when the
    // line holds a record; a blank or comment-only line adds nothing and is
    // accepted. False for a malformed record.
    static bool parseLine(const QString &line, CColourTable &target);
    // Every line of device; 0 when all were accepted, otherwise the number of
    // the first refused line, counting every line read from 1.
    static int parseFile(QIODevice &device, CColourTable &target);

    // Empties target, reads path into it, derives Lab, sorts by name
    // (ignoring case) and sets the note naming the source and `now`. On any
    // failure target is left without entries.
    static Result importFile(const QString &path, CColourTable &target, const QDateTime &now);

    // "#Imported from <file name>\n#yyyy-MM-dd HH:mm:ss\n\n".
    static QString note(const QString &sourcePath, const QDateTime &now);
    // The text that reports a failed import of path; empty for Imported.
    static QString errorText(const Result &result, const QString &path);

private:
    static QString normalised(const QString &line);
    static QString decodedName(QStringView text);
};
