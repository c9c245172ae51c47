#include "tables/webcolourstable.h"

#include "colour/colourconversion.h"
#include "tables/colourtable.h"

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

// CSS named colours with this program's own choices kept as they always
// were: grey spellings only, aqua/cyan and fuchsia/magenta as one row each,
// "Szure", Pale Green 98FD98, Pink FFC0CD.
const WebColourRow kRows[] = {
        {"000000", "Black", "black"},
        {"000080", "Navy", "navy"},
        {"00008B", "Dark Blue", "darkblue"},
        {"0000CD", "Medium blue", "mediumblue"},
        {"0000FF", "Blue", "blue"},
        {"006400", "Dark Green", "darkgreen"},
        {"008000", "Green", "green"},
        {"008080", "Teal", "teal"},
        {"008B8B", "Dark Cyan", "darkcyan"},
        {"00BFFF", "Deep Sky Blue", "deepskyblue"},
        {"00CED1", "Dark Turquoise", "darkturquoise"},
        {"00FA9A", "Medium Spring Green", "mediumspringgreen"},
        {"00FF00", "Lime", "lime"},
        {"00FF7F", "Spring Green", "springgreen"},
        {"00FFFF", "Aqua/Cyan", "aqua"},
        {"191970", "Midnight Blue", "midnightblue"},
        {"1E90FF", "Dodger Blue", "dodgerblue"},
        {"20B2AA", "Light Sea Green", "lightseagreen"},
        {"228B22", "Forest Green", "forestgreen"},
        {"2E8B57", "Sea Green", "seagreen"},
        {"2F4F4F", "Dark Slate Grey", "darkslategrey"},
        {"32CD32", "Limegreen", "limegreen"},
        {"3CB371", "Medium Sea Green", "mediumseagreen"},
        {"40E0D0", "Turquoise", "turquoise"},
        {"4169E1", "Royal Blue", "royalblue"},
        {"4682B4", "Steel Blue", "steelblue"},
        {"483D8B", "Dark Slate Blue", "darkslateblue"},
        {"48D1CC", "Medium Turquoise", "mediumturquoise"},
        {"4B0082", "Indigo", "indigo"},
        {"556B2F", "Dark Olive Green", "darkolivegreen"},
        {"5F9EA0", "Cadet Blue", "cadetblue"},
        {"6495ED", "Cornflower Blue", "cornflowerblue"},
        {"663399", "Rebecca Purple", "rebeccaPurple"},
        {"66CDAA", "Medium Aquamarine", "mediumaquamarine"},
        {"696969", "Dim Grey", "dimgrey"},
        {"6A5ACD", "Slate Blue", "slateblue"},
        {"6B8E23", "Olive Drab", "olivedrab"},
        {"708090", "Slate Grey", "slategrey"},
        {"778899", "Light Slate Grey", "lightslategrey"},
        {"7B68EE", "Medium Slate Blue", "mediumslateblue"},
        {"7CFC00", "Lawn Green", "lawngreen"},
        {"7FFF00", "Chartreuse", "chartreuse"},
        {"7FFFD4", "Aquamarine", "aquamarine"},
        {"800000", "Maroon", "maroon"},
        {"800080", "Purple", "purple"},
        {"808000", "Olive", "olive"},
        {"808080", "Grey", "grey"},
        {"87CEEB", "Sky Blue", "skyblue"},
        {"87CEFA", "Light Sky Blue", "lightskyblue"},
        {"8A2BE2", "Blue Violet", "blueviolet"},
        {"8B0000", "Dark Red", "darkred"},
        {"8B008B", "Dark Magenta", "darkmagenta"},
        {"8B4513", "Saddle Brown", "saddlebrown"},
        {"8FBC8F", "Dark Sea Green", "darkseagreen"},
        {"90EE90", "Light Green", "lightgreen"},
        {"9370DB", "Medium Purple", "mediumpurple"},
        {"9400D3", "Dark Violet", "darkviolet"},
        {"98FD98", "Pale Green", "palegreen"},
        {"9932CC", "Dark Orchid", "darkorchid"},
        {"9ACD32", "Yellow Green", "yellowgreen"},
        {"A0522D", "Sienna", "sienna"},
        {"A52A2A", "Brown", "brown"},
        {"A9A9A9", "Dark Grey", "darkgrey"},
        {"ADD8E6", "Light Blue", "lightblue"},
        {"ADFF2F", "Green Yellow", "greenyellow"},
        {"AFEEEE", "Pale Turquoise", "paleturquoise"},
        {"B0C4DE", "Light Steel Blue", "lightsteelblue"},
        {"B0E0E6", "Powder Blue", "powderblue"},
        {"B22222", "Firebrick", "firebrick"},
        {"B8860B", "Dark Goldenrod", "darkgoldenrod"},
        {"BA55D3", "Medium Orchid", "mediumorchid"},
        {"BC8F8F", "Rosy Brown", "rosybrown"},
        {"BDB76B", "Dark Khaki", "darkkhaki"},
        {"C0C0C0", "Silver", "silver"},
        {"C71585", "Medium Violet Red", "mediumvioletred"},
        {"CD5C5C", "Indian Red", "indianred"},
        {"CD853F", "Peru", "peru"},
        {"D2691E", "Chocolate", "chocolate"},
        {"D2B48C", "Tan", "tan"},
        {"D3D3D3", "Light Grey", "lightgrey"},
        {"D8BFD8", "Thistle", "thistle"},
        {"DA70D6", "Orchid", "orchid"},
        {"DAA520", "Goldenrod", "goldenrod"},
        {"DB7093", "Pale Violet Red", "palevioletred"},
        {"DC143C", "Crimson", "crimson"},
        {"DCDCDC", "Gainsboro", "gainsboro"},
        {"DDA0DD", "Plum", "plum"},
        {"DEB887", "Burlywood", "burlywood"},
        {"E0FFFF", "Light Cyan", "lightcyan"},
        {"E6E6FA", "Lavender", "lavender"},
        {"E9967A", "Dark Salmon", "darksalmon"},
        {"EE82EE", "Violet", "violet"},
        {"EEE8AA", "Pale Goldenrod", "palegoldenrod"},
        {"F08080", "Light Coral", "lightcoral"},
        {"F0E68C", "Khaki", "khaki"},
        {"F0F8FF", "Alice Blue", "aliceblue"},
        {"F0FFF0", "Honeydew", "honeydew"},
        {"F0FFFF", "Szure", "azure"},
        {"F4A460", "Sandy Brown", "sandybrown"},
        {"F5DEB3", "Wheat", "wheat"},
        {"F5F5DC", "Beige", "beige"},
        {"F5F5F5", "White Smoke", "whitesmoke"},
        {"F5FFFA", "Mint Cream", "mintcream"},
        {"F8F8FF", "Ghost White", "ghostwhite"},
        {"FA8072", "Salmon", "salmon"},
        {"FAEBD7", "Antique White", "antiquewhite"},
        {"FAF0E6", "Linen", "linen"},
        {"FAFAD2", "Light Goldenrod Yellow", "lightgoldenrodyellow"},
        {"FDF5E6", "Old Lace", "oldlace"},
        {"FF0000", "Red", "red"},
        {"FF00FF", "Fuchsia/Magenta", "fuchsia"},
        {"FF1493", "Deep Pink", "deeppink"},
        {"FF4500", "Orange Red", "orangered"},
        {"FF6347", "Tomato", "tomato"},
        {"FF69B4", "Hot Pink", "hotpink"},
        {"FF7F50", "Coral", "coral"},
        {"FF8C00", "Dark Orange", "darkorange"},
        {"FFA07A", "Light Salmon", "lightsalmon"},
        {"FFA500", "Orange", "orange"},
        {"FFB6C1", "Light Pink", "lightpink"},
        {"FFC0CD", "Pink", "pink"},
        {"FFD700", "Gold", "gold"},
        {"FFDAB9", "Peach Puff", "peachpuff"},
        {"FFDEAD", "Navajo White", "navajowhite"},
        {"FFE4B5", "Moccasin", "moccasin"},
        {"FFE4C4", "Bisque", "bisque"},
        {"FFE4E1", "Misty Rose", "mistyrose"},
        {"FFEBCD", "Blanched Almond", "blanchedalmond"},
        {"FFEFD5", "Papaya Whip", "papayawhip"},
        {"FFF0F5", "Lavender Blush", "lavenderblush"},
        {"FFF5EE", "Sea Shell", "seashell"},
        {"FFF8DC", "Corn Silk", "cornsilk"},
        {"FFFACD", "Lemon Chiffon", "lemonchiffon"},
        {"FFFAF0", "Floral White", "floralwhite"},
        {"FFFAFA", "Snow", "snow"},
        {"FFFF00", "Yellow", "yellow"},
        {"FFFFE0", "Light Yellow", "lightyellow"},
        {"FFFFF0", "Ivory", "ivory"},
        {"FFFFFF", "White", "white"},
        {"", "", ""},
};

QString component(const char *hex, int index)
{
    const int value = QByteArray(hex + 2 * index, 2).toInt(nullptr, 16);
    return QString::number(roundToFourDecimals(value / 255.0), 'f', 4);
}

QByteArray webColoursContent()
{
    QByteArray out = "#Sample colour table containing Web HTML colours\n";
    out += "#Generated:";
    out += QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")).toUtf8();
    out += "\n\n";
    const QString line = QStringLiteral("%1, %2, %3, %4\n");
    for (const WebColourRow *row = kRows; row->hex[0] != '\0'; ++row) {
        out += line.arg(component(row->hex, 0), component(row->hex, 1), component(row->hex, 2),
                        QString::fromUtf8(row->name))
                   .toUtf8();
    }
    return out;
}

} // namespace

const WebColourRow *webColourRows()
{
    return kRows;
}

int webColourCount()
{
    return int(sizeof(kRows) / sizeof(kRows[0])) - 1;
}

QString webColoursFileName()
{
    return QStringLiteral("WebColours.clrtable");
}

bool writeWebColoursTable(const QString &path)
{
    return CColourTable::writeFileSafely(path, webColoursContent());
}

bool writeWebColoursTableOnce(const QString &libraryFolder, bool sampleCreated)
{
    if (libraryFolder.isEmpty() || sampleCreated)
        return false;
    const QString path = QDir(libraryFolder).filePath(webColoursFileName());
    if (QFileInfo::exists(path))
        return false;
    return writeWebColoursTable(path);
}
