#include "cli/clicommands.h"

#include "cli/clicontrastcommand.h"
#include "cli/cliconvertcommand.h"
#include "cli/cliconversioncommands.h"
#include "cli/cliimportcommand.h"
#include "cli/clioutput.h"
#include "cli/clireadymadecommands.h"
#include "cli/clisamplecommand.h"
#include "cli/clisimulatecommand.h"
#include "cli/clitablecommands.h"
#include "version.h"

#include <QHash>

#include <functional>

namespace {

bool asksForHelp(const QStringList &words)
{
    const int end = words.indexOf(QStringLiteral("--"));
    const QStringList options = words.mid(0, end); // all of them when there is no "--"
    return options.contains(QStringLiteral("--help")) || options.contains(QStringLiteral("-h"));
}

} // namespace

int CCliCommands::run(const QStringList &words)
{
    CCliStatus status = execute(words);
    if (!CCliOutput::flush() && !status.failed())
        status = CCliStatus::badInput(QStringLiteral("cannot write to standard output"));
    if (status.failed())
        CCliOutput::error(status.message());
    return status.code();
}

CCliStatus CCliCommands::execute(const QStringList &words)
{
    if (asksForHelp(words)) {
        CCliOutput::line(usage());
        return CCliStatus::ok();
    }
    if (words.value(0) == QLatin1String("--version")) {
        CCliOutput::line(version());
        return CCliStatus::ok();
    }
    if (words.isEmpty())
        return CCliStatus::usage(QStringLiteral("no command given (try --help)"));
    return dispatch(words.first(), words.mid(1));
}

CCliStatus CCliCommands::dispatch(const QString &command, const QStringList &words)
{
    using Command = std::function<CCliStatus(const QStringList &)>;
    static const QHash<QString, Command> commands{
        {QStringLiteral("lab"), CCliConversionCommands::lab},
        {QStringLiteral("rgb"), CCliConversionCommands::rgb},
        {QStringLiteral("deltae"), CCliConversionCommands::deltae},
        {QStringLiteral("score"), CCliConversionCommands::score},
        {QStringLiteral("table"), CCliTableCommands::table},
        {QStringLiteral("match"), CCliTableCommands::match},
        {QStringLiteral("sample"), CCliSampleCommand::run},
        {QStringLiteral("convert"), CCliConvertCommand::run},
        {QStringLiteral("import-config"), CCliImportCommand::run},
        {QStringLiteral("tables"), CCliReadyMadeCommands::tables},
        {QStringLiteral("find"), CCliReadyMadeCommands::find},
        {QStringLiteral("contrast"), [](const QStringList &w) { return CCliContrastCommand::run(w); }},
        {QStringLiteral("simulate"), CCliSimulateCommand::run},
    };
    const auto found = commands.constFind(command);
    if (found == commands.constEnd()) {
        return CCliStatus::usage(
            QStringLiteral("unknown command \"%1\" (try --help)").arg(command.left(40)));
    }
    return found.value()(words);
}

QString CCliCommands::version()
{
    return QStringLiteral("vellora-cli " VELLORA_VERSION);
}

namespace {

// What --help prints (UTF-8).
const char kUsage[] =
        "Usage: vellora-cli COMMAND [ARGUMENTS] [OPTIONS]\n"
        "\n"
        "Colour matching in bulk, with the same colour maths as Vellora.\n"
        "Numbers use \".\" as the decimal point; RGB fractions run from 0 to 1.\n"
        "\n"
        "Commands:\n"
        "  lab R G B                   sRGB fractions to CIE L*a*b*\n"
        "  rgb L a b                   CIE L*a*b* to sRGB fractions\n"
        "  deltae L1 a1 b1 L2 a2 b2 [--double]\n"
        "                              CIEDE2000 difference (single precision\n"
        "                              unless --double)\n"
        "  score DELTAE [--units percent|deltae]\n"
        "                              verdict and match text for a \u0394E\n"
        "  table FILE                  print a colour table as Vellora saves it\n"
        "  match --table FILE (--rgb R,G,B | --hex RRGGBB) [--count N]\n"
        "        [--format tsv|json]   closest colours of a table (at least N,\n"
        "        [--explain]           default 4, then those below \u0394E 2.5, up to 32);\n"
        "                              --explain adds how the colour differs, in words\n"
        "  match --table FILE - [--count N] [--format tsv|json] [--jobs N]\n"
        "                              the same for every colour read from standard\n"
        "                              input (#rrggbb, rrggbb or R,G,B per line), in\n"
        "                              input order, on N threads (default: all cores)\n"
        "  sample IMAGE (--point X,Y [--size 1|3|5|7|9] | --band X0,Y0,X1,Y1)\n"
        "        [--average rgb|lab] [--table FILE [--count N]]\n"
        "        [--stats] [--srgb]    average colour of a click or rubber band\n"
        "                              at 100% zoom, and its closest colours;\n"
        "                              --stats adds the pixel count and the mean\n"
        "                              and 95th percentile \u0394E from the average,\n"
        "                              --srgb converts a tagged image to sRGB first\n"
        "  convert IN OUT [--from F] [--to F] [--force]\n"
        "                              copy colours between formats, chosen by\n"
        "                              suffix or F: clrtable, txt, csv, gpl, ase,\n"
        "                              css, json; OUT is replaced only with --force\n"
        "  import-config FILE [--out TABLE [--force]]\n"
        "                              turn a Quillon .config colour list into a\n"
        "                              library table: print it as it would be\n"
        "                              saved, or write it to the file TABLE\n"
        "                              (an existing file only with --force)\n"
        "  tables                      list the ready-made colour-name tables\n"
        "                              (name, entries, licence, source)\n"
        "  tables --write NAME FILE [--force]\n"
        "                              write a ready-made table as a library\n"
        "                              table file (an existing file only with --force)\n"
        "  find --table FILE TEXT      the entries whose names contain TEXT,\n"
        "                              ignoring case and accents\n"
        "  contrast FG BG [--format tsv|json]\n"
        "                              WCAG 2.2 contrast ratio of a text and a\n"
        "                              background colour (#rrggbb, rrggbb or R,G,B),\n"
        "                              its five verdicts (1.4.3 AA and 1.4.6 AAA\n"
        "                              for normal and large text, 1.4.11 non-text)\n"
        "                              and the APCA lightness contrast Lc\n"
        "  contrast - [--format tsv|json]\n"
        "                              the same for a pair per line of standard\n"
        "                              input (\"FG BG\"), in input order\n"
        "  contrast --grid TABLE [--format tsv|json]\n"
        "                              the ratio of every pair of a file's colours\n"
        "                              (any format convert reads), as a matrix\n"
        "  simulate IN OUT --cvd TYPE [--severity S] [--force]\n"
        "                              write IN as PNG as seen with a colour vision\n"
        "                              deficiency: protanopia, deuteranopia,\n"
        "                              tritanopia, achromatopsia, or protanomaly,\n"
        "                              deuteranomaly, tritanomaly with S from 0.1\n"
        "                              to 1.0 (default 1.0); OUT is replaced only\n"
        "                              with --force\n"
        "\n"
        "Give - instead of the numbers of lab, rgb, deltae or score to read one\n"
        "set of numbers per line from standard input.\n"
        "\n"
        "Options:\n"
        "  --help                      show this help\n"
        "  --version                   show the version\n"
        "\n"
        "Exit status: 0 success, 1 usage error, 2 unreadable or malformed input,\n"
        "3 a selection that holds no pixels.";

} // namespace

QString CCliCommands::usage()
{
    return QString::fromUtf8(kUsage);
}
