#pragma once

#include "palette/palette.h"

#include <QString>

// What reading a palette came to. Reading is all or nothing: on any failure
// the palette is empty and the first bad line, block or entry is named.
class CPaletteReadResult
{
public:
    enum Status
    {
        Ok,
        CannotOpen,    // the file could not be read at all
        NotThisFormat, // the content is not the format asked for
        BadPart        // a line, block or entry could not be used
    };

    static CPaletteReadResult ok(const CPalette &palette);
    static CPaletteReadResult cannotOpen(const QString &reason);
    // formatName: "a GIMP palette"; reason: why the content is not one.
    static CPaletteReadResult notThisFormat(const QString &formatName, const QString &reason);
    // kind: "line", "block" or "entry"; position counts from 1.
    static CPaletteReadResult badPart(const QString &kind, int position, const QString &reason);

    bool isOk() const { return m_status == Ok; }
    Status status() const { return m_status; }
    int position() const { return m_position; }
    QString kind() const { return m_kind; }
    QString reason() const { return m_reason; }
    const CPalette &palette() const { return m_palette; }

    // The complete text for the user, naming the file.
    QString message(const QString &path) const;

private:
    Status m_status = Ok;
    int m_position = 0;
    QString m_kind;
    QString m_formatName;
    QString m_reason;
    CPalette m_palette;
};
