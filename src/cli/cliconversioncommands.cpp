#include "cli/cliconversioncommands.h"

#include "cli/clinumbercommand.h"
#include "cli/clioutput.h"
#include "colour/colourconversion.h"
#include "colour/deltae2000.h"
#include "colour/matchscore.h"

namespace {

QString labText(const QVector<double> &v)
{
    const LabColour lab = rgbToLab(v.at(0), v.at(1), v.at(2));
    return CCliOutput::fixed({lab.L, lab.a, lab.b}, 10);
}

QString rgbText(const QVector<double> &v)
{
    const RgbColour rgb = labToRgb(v.at(0), v.at(1), v.at(2));
    return CCliOutput::fixed({rgb.red, rgb.green, rgb.blue}, 4);
}

QString singleDeltaEText(const QVector<double> &v)
{
    const float deltaE = deltaE2000(float(v.at(0)), float(v.at(1)), float(v.at(2)), float(v.at(3)),
                                    float(v.at(4)), float(v.at(5)));
    return CCliOutput::fixed(double(deltaE), 6);
}

QString doubleDeltaEText(const QVector<double> &v)
{
    return CCliOutput::fixed(deltaE2000(v.at(0), v.at(1), v.at(2), v.at(3), v.at(4), v.at(5)), 6);
}

CCliStatus runWithoutOptions(const QString &name, int arity,
                             const CCliNumberCommand::Converter &converter,
                             const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status = args.parse(words, {});
    if (status.failed())
        return status;
    return CCliNumberCommand(name, arity, converter).run(args.positionals());
}

} // namespace

CCliStatus CCliConversionCommands::lab(const QStringList &words)
{
    return runWithoutOptions(QStringLiteral("lab"), 3, labText, words);
}

CCliStatus CCliConversionCommands::rgb(const QStringList &words)
{
    return runWithoutOptions(QStringLiteral("rgb"), 3, rgbText, words);
}

CCliStatus CCliConversionCommands::deltae(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status = args.parse(words, {{QStringLiteral("double"), false}});
    if (status.failed())
        return status;
    const bool inDouble = args.has(QStringLiteral("double"));
    return CCliNumberCommand(QStringLiteral("deltae"), 6,
                             inDouble ? doubleDeltaEText : singleDeltaEText)
        .run(args.positionals());
}

CCliStatus CCliConversionCommands::score(const QStringList &words)
{
    CCliArguments args;
    CCliStatus status = args.parse(words, {{QStringLiteral("units"), true}});
    QString units;
    if (!status.failed()) {
        status = args.choice(QStringLiteral("units"),
                             {QStringLiteral("percent"), QStringLiteral("deltae")},
                             QStringLiteral("percent"), &units);
    }
    if (status.failed())
        return status;
    const bool asPercent = units == QLatin1String("percent");
    return CCliNumberCommand(QStringLiteral("score"), 1,
                             [asPercent](const QVector<double> &v) {
                                 return matchText(float(v.at(0)), asPercent);
                             })
        .run(args.positionals());
}
