#include "cli/clisimulatecommand.h"

#include "cli/clinumbers.h"
#include "cli/clisamplecommand.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace {

CCliStatus writePng(const QString &path, const QImage &image)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return CCliStatus::badInput(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    QImageWriter writer(&file, "png");
    if (!writer.write(image)) {
        file.cancelWriting();
        return CCliStatus::badInput(
            QStringLiteral("cannot write %1: %2").arg(path, writer.errorString()));
    }
    if (!file.commit())
        return CCliStatus::badInput(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    return CCliStatus::ok();
}

} // namespace

CCliStatus CCliSimulateCommand::run(const QStringList &words)
{
    CCliArguments args;
    CCliStatus status = args.parse(words, {{QStringLiteral("cvd"), true},
                                           {QStringLiteral("severity"), true},
                                           {QStringLiteral("force"), false}});
    if (!status.failed() && args.positionals().size() != 2) {
        status = CCliStatus::usage(QStringLiteral("simulate needs IN and OUT (got %1 arguments)")
                                       .arg(args.positionals().size()));
    }
    ColourVision vision;
    if (!status.failed())
        status = readVision(args, &vision);
    const QString out = args.positionals().value(1);
    if (!status.failed() && QFileInfo::exists(out) && !args.has(QStringLiteral("force"))) {
        status = CCliStatus::usage(
            QStringLiteral("%1 already exists; give --force to replace it").arg(out));
    }
    QImage image;
    if (!status.failed())
        status = CCliSampleCommand::readImage(args.positionals().at(0), &image);
    if (status.failed())
        return status;
    const QImage simulated = vision.simulatedImage(image);
    if (simulated.isNull())
        return CCliStatus::badInput(QStringLiteral("not enough memory for the simulated picture"));
    return writePng(out, simulated);
}

CCliStatus CCliSimulateCommand::readVision(const CCliArguments &args, ColourVision *vision)
{
    if (!args.has(QStringLiteral("cvd")))
        return CCliStatus::usage(QStringLiteral("simulate needs --cvd TYPE"));
    ColourVision::Type type = ColourVision::Normal;
    if (!ColourVision::fromKey(args.value(QStringLiteral("cvd")), &type)) {
        return CCliStatus::usage(QStringLiteral("option --cvd must be one of %1, not \"%2\"")
                                     .arg(ColourVision::keys().join(QLatin1Char('|')),
                                          args.value(QStringLiteral("cvd")).left(40)));
    }
    double severity = ColourVision::kMaximumSeverity;
    if (args.has(QStringLiteral("severity"))) {
        if (!ColourVision::hasSeverity(type)) {
            return CCliStatus::usage(QStringLiteral("option --severity belongs to protanomaly, "
                                                    "deuteranomaly and tritanomaly only"));
        }
        const CCliStatus status =
            CCliNumbers::toFinite(args.value(QStringLiteral("severity")), &severity);
        if (status.failed())
            return status;
        if (severity < ColourVision::kMinimumSeverity || severity > ColourVision::kMaximumSeverity)
            return CCliStatus::badInput(QStringLiteral("--severity must lie from 0.1 to 1.0"));
    }
    *vision = ColourVision(type, severity);
    return CCliStatus::ok();
}
