#include "palette/palettereadresult.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CPaletteReadResult", text);
}

} // namespace

CPaletteReadResult CPaletteReadResult::ok(const CPalette &palette)
{
    CPaletteReadResult result;
    result.m_palette = palette;
    return result;
}

CPaletteReadResult CPaletteReadResult::cannotOpen(const QString &reason)
{
    CPaletteReadResult result;
    result.m_status = CannotOpen;
    result.m_reason = reason;
    return result;
}

CPaletteReadResult CPaletteReadResult::notThisFormat(const QString &formatName,
                                                     const QString &reason)
{
    CPaletteReadResult result;
    result.m_status = NotThisFormat;
    result.m_formatName = formatName;
    result.m_reason = reason;
    return result;
}

CPaletteReadResult CPaletteReadResult::badPart(const QString &kind, int position,
                                               const QString &reason)
{
    CPaletteReadResult result;
    result.m_status = BadPart;
    result.m_kind = kind;
    result.m_position = position;
    result.m_reason = reason;
    return result;
}

QString CPaletteReadResult::message(const QString &path) const
{
    const QString file = QDir::toNativeSeparators(path);
    switch (m_status) {
    case Ok:
        return QString();
    case CannotOpen:
        return translated("Error, opening file: %1.").arg(file);
    case NotThisFormat:
        return translated("The file:\n%1\nis not %2:\n%3").arg(file, m_formatName, m_reason);
    case BadPart:
        break;
    }
    return translated("Error in %1 %2\nwhile processing:\n%3\n%4")
        .arg(m_kind)
        .arg(m_position)
        .arg(file, m_reason);
}
