#include "tables/colournamesearch.h"

#include "tables/colourtable.h"

#include <QStringMatcher>

namespace {

// Letters that do not decompose into a plain letter and a mark, spelt as
// the ready-made tables spell them, so that typing the original finds them.
QString spelling(QChar c)
{
    switch (c.unicode()) {
    case 0x00df: // sharp s
    case 0x1e9e:
        return QStringLiteral("ss");
    case 0x00e6: // ae
    case 0x00c6:
        return QStringLiteral("ae");
    case 0x0153: // oe
    case 0x0152:
        return QStringLiteral("oe");
    case 0x00f8: // o with stroke
    case 0x00d8:
        return QStringLiteral("o");
    case 0x0142: // l with stroke
    case 0x0141:
        return QStringLiteral("l");
    case 0x0131: // dotless i
        return QStringLiteral("i");
    case 0x0111: // d with stroke, eth
    case 0x0110:
    case 0x00f0:
        return QStringLiteral("d");
    case 0x2018: // curly apostrophes
    case 0x2019:
        return QStringLiteral("'");
    default:
        return QString(c);
    }
}

} // namespace

CColourNameSearch::CColourNameSearch(const CColourTable &table)
{
    setTable(table);
}

void CColourNameSearch::setTable(const CColourTable &table)
{
    m_names.clear();
    m_names.reserve(table.count());
    for (int i = 0; i < table.count(); ++i)
        m_names.append(fold(table.at(i)->name));
}

QString CColourNameSearch::fold(const QString &text)
{
    // Plain ASCII names are by far the most common: only lower-case them.
    bool plain = true;
    for (const QChar c : text) {
        if (c.unicode() > 0x7f) {
            plain = false;
            break;
        }
    }
    const QString decomposed =
        plain ? text : text.normalized(QString::NormalizationForm_KD);
    QString out;
    out.reserve(decomposed.size());
    bool inBlank = false;
    for (const QChar c : decomposed) {
        if (c.isMark())
            continue;
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t')) {
            if (!inBlank)
                out += QLatin1Char(' ');
            inBlank = true;
            continue;
        }
        inBlank = false;
        if (c.unicode() > 0x7f)
            out += spelling(c);
        else
            out += c;
    }
    return out.toCaseFolded();
}

QVector<int> CColourNameSearch::find(const QString &text) const
{
    const QString needle = fold(text.trimmed());
    QVector<int> hits;
    if (needle.isEmpty()) {
        hits.reserve(m_names.size());
        for (int i = 0; i < m_names.size(); ++i)
            hits.append(i);
        return hits;
    }
    const QStringMatcher matcher(needle, Qt::CaseSensitive);
    for (int i = 0; i < m_names.size(); ++i) {
        if (matcher.indexIn(m_names.at(i)) >= 0)
            hits.append(i);
    }
    return hits;
}
