#include "palette/csspalette.h"

#include "palette/csscolourvalue.h"
#include "palette/paletteline.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CCssPalette", text);
}

QString simplified(const QString &text)
{
    return text.simplified();
}

// The 1-based line of a position, from the sorted positions of line feeds.
int lineAt(const QVector<int> &lineFeeds, int pos)
{
    return int(std::upper_bound(lineFeeds.cbegin(), lineFeeds.cend(), pos - 1) - lineFeeds.cbegin())
           + 1;
}

// The sheet with every comment turned into blanks (line feeds kept), so
// that positions and line numbers stay those of the file. -1 in *badPos
// unless a comment is never closed.
QString withoutComments(const QString &sheet, int *badPos)
{
    QString out = sheet;
    *badPos = -1;
    int pos = 0;
    while ((pos = out.indexOf(QLatin1String("/*"), pos)) >= 0) {
        const int close = out.indexOf(QLatin1String("*/"), pos + 2);
        if (close < 0) {
            *badPos = pos;
            return out;
        }
        for (int i = pos; i < close + 2; ++i) {
            if (out.at(i) != QLatin1Char('\n'))
                out[i] = QLatin1Char(' ');
        }
        pos = close + 2;
    }
    return out;
}

// Names a colour found in a declaration; a second colour in the same value
// gets " 2", and so on.
QString colourName(const CCssPalette::Declaration &d, int index)
{
    QString name = d.property.startsWith(QLatin1String("--"))
                       ? d.property.mid(2)
                       : simplified(d.selector + QLatin1Char(' ') + d.property);
    if (index > 0)
        name += QStringLiteral(" %1").arg(index + 1);
    return name;
}

// Where the value's text starts on a line after the declaration's start.
int lineOfOffset(const CCssPalette::Declaration &d, int offset)
{
    return d.line + int(QStringView(d.value).left(offset).count(QLatin1Char('\n')));
}

// A statement that ends at `end` (";", "{" or "}"): a selector opens a
// rule, a "property: value" declaration is kept with its rule's selector
// and the line its value starts on, and "}" closes the rule.
void takeStatement(const QString &statement, QChar end, int start, const QVector<int> &lineFeeds,
                   QStringList *selectors, QVector<CCssPalette::Declaration> *out)
{
    if (end == QLatin1Char('{')) {
        selectors->append(simplified(statement));
        return;
    }
    const int colon = statement.indexOf(QLatin1Char(':'));
    const QString property = simplified(statement.left(colon));
    if (colon > 0 && !property.isEmpty() && !property.startsWith(QLatin1Char('@'))) {
        const int valueStart = start + colon + 1;
        out->append({selectors->value(selectors->size() - 1), property, statement.mid(colon + 1),
                     lineAt(lineFeeds, valueStart)});
    }
    if (end == QLatin1Char('}') && !selectors->isEmpty())
        selectors->removeLast();
}

} // namespace

bool CCssPalette::declarations(const QString &sheet, QVector<Declaration> *out, int *badLine)
{
    int badPos = -1;
    const QString text = withoutComments(sheet, &badPos);
    QVector<int> lineFeeds;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\n'))
            lineFeeds.append(i);
    }
    if (badPos >= 0) {
        *badLine = lineAt(lineFeeds, badPos);
        return false;
    }
    QStringList selectors;
    int start = 0;
    QChar quote;
    for (int i = 0; i <= text.size(); ++i) {
        const QChar c = i < text.size() ? text.at(i) : QLatin1Char(';');
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
            continue;
        }
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
            continue;
        }
        if (c != QLatin1Char(';') && c != QLatin1Char('{') && c != QLatin1Char('}'))
            continue;
        takeStatement(text.mid(start, i - start), c, start, lineFeeds, &selectors, out);
        start = i + 1;
    }
    return true;
}

CPaletteReadResult CCssPalette::read(const QByteArray &bytes)
{
    const QString formatName = translated("a style sheet");
    if (CPaletteLine::looksBinary(bytes))
        return CPaletteReadResult::notThisFormat(formatName, translated("it is not text."));
    QVector<Declaration> found;
    int badLine = 0;
    const QString sheet = QString::fromUtf8(bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes);
    if (!declarations(sheet, &found, &badLine)) {
        return CPaletteReadResult::badPart(translated("line"), badLine,
                                           translated("a comment is never closed."));
    }
    if (found.isEmpty() && !sheet.trimmed().isEmpty()) {
        return CPaletteReadResult::notThisFormat(
            formatName, translated("it holds no declarations such as \"--name: #1e90ff;\"."));
    }
    CPalette palette;
    for (const Declaration &d : found) {
        QVector<CCssColourValue::Found> colours;
        QString reason;
        int offset = 0;
        if (!CCssColourValue::parse(d.value, &colours, &reason, &offset)) {
            return CPaletteReadResult::badPart(translated("line"), lineOfOffset(d, offset),
                                               reason);
        }
        for (int i = 0; i < colours.size(); ++i) {
            const QString name = colourName(d, i);
            palette.colours.append({name, colours.at(i).rgb});
            if (colours.at(i).hadAlpha)
                palette.notes.append(translated("\"%1\": its transparency is not kept.").arg(name));
        }
    }
    return CPaletteReadResult::ok(palette);
}

QString CCssPalette::safeName(const QString &name, QSet<QString> *used)
{
    QString safe;
    for (const QChar c : name.toLower()) {
        const ushort u = c.unicode();
        const bool keep = (u >= 'a' && u <= 'z') || (u >= '0' && u <= '9') || u == '_';
        if (keep)
            safe += c;
        else if (!safe.endsWith(QLatin1Char('-')))
            safe += QLatin1Char('-');
    }
    while (safe.startsWith(QLatin1Char('-')))
        safe.remove(0, 1);
    while (safe.endsWith(QLatin1Char('-')))
        safe.chop(1);
    if (safe.isEmpty() || safe.at(0).isDigit())
        safe.prepend(safe.isEmpty() ? QStringLiteral("colour") : QStringLiteral("colour-"));
    QString unique = safe;
    for (int n = 2; used->contains(unique); ++n)
        unique = QStringLiteral("%1-%2").arg(safe).arg(n);
    used->insert(unique);
    return unique;
}

QByteArray CCssPalette::write(const CPalette &palette)
{
    QString text;
    if (!palette.name.isEmpty()) {
        QString title = palette.name.simplified();
        title.replace(QLatin1String("*/"), QLatin1String("* /"));
        text += QStringLiteral("/* %1 */\n").arg(title);
    }
    text += QStringLiteral(":root {\n");
    QSet<QString> used;
    for (const PaletteColour &c : palette.colours) {
        text += QStringLiteral("  --%1: %2;\n").arg(safeName(c.name, &used), CPalette::hex(c.rgb));
    }
    text += QStringLiteral("}\n");
    return text.toUtf8();
}
