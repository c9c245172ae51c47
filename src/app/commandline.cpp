#include "app/commandline.h"

#include "app/appcontext.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <QUrl>

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
    for (const QString &word : arguments) {
        if (!optionsEnded && word == QLatin1String("--")) {
            optionsEnded = true;
        } else if (!optionsEnded && word.startsWith(QLatin1Char('-')) && word.size() > 1) {
            refuse(QStringLiteral("unknown option %1").arg(word));
        } else if (!m_picture.isEmpty()) {
            refuse(QStringLiteral("one picture at a time"));
        } else {
            m_picture = localPath(word);
        }
        if (m_action == Refuse)
            return;
    }
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
