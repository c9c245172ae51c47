#include "app/commandline.h"

#include "common/appcontext.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace {

const char kUsage[] = "usage: vellora [--help] [--version] [PICTURE]";

bool isHelp(const QString &word)
{
    return word == QLatin1String("--help") || word == QLatin1String("-h");
}

bool isVersion(const QString &word)
{
    return word == QLatin1String("--version");
}

// The options QApplication takes for itself (Qt 5.15 with its X11 and
// Wayland platforms), written with one dash or two: those that stand alone,
// and those that take the next word (or "=value").
const char *const kToolkitFlags[] = {"reverse", "widgetcount", "nograb", "dograb", "sync",
                                     "testability"};
const char *const kToolkitValued[] = {"platform", "platformpluginpath", "platformtheme",
                                      "plugin", "qwindowgeometry", "qwindowtitle",
                                      "qwindowicon", "geometry", "title", "icon", "session",
                                      "style", "stylesheet", "display", "name", "visual",
                                      "qmljsdebugger"};

template <std::size_t N>
bool listed(const char *const (&names)[N], const QString &name)
{
    return std::any_of(std::begin(names), std::end(names),
                       [&name](const char *known) { return name == QLatin1String(known); });
}

// How many words a toolkit option takes up (0 when it is not one).
int toolkitOptionWords(const QString &word)
{
    QString name = word.mid(word.startsWith(QLatin1String("--")) ? 2 : 1);
    const int equals = name.indexOf(QLatin1Char('='));
    if (equals > 0)
        return listed(kToolkitValued, name.left(equals)) ? 1 : 0;
    if (listed(kToolkitFlags, name))
        return 1;
    return listed(kToolkitValued, name) ? 2 : 0;
}

} // namespace

CCommandLine::CCommandLine(const QStringList &arguments)
{
    // --help and --version answer wherever they stand among the options, as
    // with every desktop program, even beside an option we do not know.
    const int end = arguments.indexOf(QStringLiteral("--"));
    const QStringList options = arguments.mid(0, end);
    if (std::any_of(options.begin(), options.end(), isHelp)) {
        m_action = ShowHelp;
        m_message = helpText();
        return;
    }
    if (std::any_of(options.begin(), options.end(), isVersion)) {
        m_action = ShowVersion;
        m_message = versionText();
        return;
    }
    bool optionsEnded = false;
    for (int i = 0; i < arguments.size() && m_action == Start; ++i) {
        const QString &word = arguments.at(i);
        if (optionsEnded || !word.startsWith(QLatin1Char('-')) || word.size() == 1) {
            takePicture(word);
        } else if (word == QLatin1String("--")) {
            optionsEnded = true;
        } else if (const int words = toolkitOptionWords(word)) {
            i += words - 1;
        } else {
            refuse(QStringLiteral("unknown option %1").arg(word));
        }
    }
}

void CCommandLine::takePicture(const QString &word)
{
    if (m_picture.isEmpty())
        m_picture = localPath(word);
    else
        refuse(QStringLiteral("one picture at a time"));
}

void CCommandLine::refuse(const QString &why)
{
    m_action = Refuse;
    m_picture.clear();
    m_message = QStringLiteral("vellora: %1; %2").arg(why, QLatin1String(kUsage));
}

QString CCommandLine::localPath(const QString &word)
{
    // File managers pass file:// URLs, percent-encoded; anything else is a
    // path, taken from the current folder when relative.
    if (word.startsWith(QLatin1String("file:"), Qt::CaseInsensitive)) {
        const QUrl url(word);
        if (url.isValid() && url.isLocalFile())
            return url.toLocalFile();
    }
    return QDir::cleanPath(QFileInfo(word).absoluteFilePath());
}

QString CCommandLine::helpText()
{
    return QStringLiteral(
        "Usage: vellora [PICTURE]\n"
        "\n"
        "Samples colours from images and names them against libraries of named\n"
        "colours (CIEDE2000).\n"
        "\n"
        "  PICTURE      a picture to open (PNG, JPEG, TIFF or GIF): a path, taken\n"
        "               from the current folder when relative, or a file:// URL\n"
        "  --help       show this help and exit\n"
        "  --version    show the version and exit\n"
        "\n"
        "Options of the Qt toolkit (such as -platform or -style) are accepted too.\n"
        "vellora-cli does the same colour maths without a window; see vellora-cli(1).\n");
}

QString CCommandLine::versionText()
{
    return QStringLiteral("%1 %2\n").arg(AppContext::productName(), AppContext::versionText());
}
