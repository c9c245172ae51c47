#include "cli/clisamplecommand.h"

#include "cli/clinumbers.h"
#include "cli/clioutput.h"
#include "cli/clistderrsilencer.h"
#include "cli/clitablecommands.h"
#include "colour/colourformat.h"
#include "colour/colourprofile.h"
#include "colour/imagefile.h"
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"
#include "colour/pickgeometry.h"
#include "colour/qtversioncompat.h"
#include "tables/libcolourtable.h"


namespace {

// Far beyond any image, yet small enough that no sum of two overflows.
const int kCoordinateLimit = 1000000000;
const double kZoom = 1.0;

CCliStatus coordinates(const QString &text, int count, const QString &what, QVector<int> *values)
{
    return CCliNumbers::toIntegerList(text, count, -kCoordinateLimit, kCoordinateLimit, what,
                                      values);
}

CCliStatus pickSize(const CCliArguments &args, int *size)
{
    QString text;
    const CCliStatus status =
        args.choice(QStringLiteral("size"),
                    {QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("5"),
                     QStringLiteral("7"), QStringLiteral("9")},
                    QStringLiteral("1"), &text);
    if (!status.failed())
        *size = text.toInt();
    return status;
}

QString sampleLine(const RgbColour &colour)
{
    return CCliOutput::fixed({colour.red, colour.green, colour.blue}, 6) + QLatin1Char(' ')
           + colourName(colour.red, colour.green, colour.blue);
}

} // namespace

CCliStatus CCliSampleCommand::run(const QStringList &words)
{
    CCliArguments args;
    Request request;
    CCliStatus status = parse(words, &args);
    if (!status.failed())
        status = readRequest(args, &request);
    CLibColourTable table;
    if (!status.failed() && !request.tablePath.isNull())
        status = CCliTableCommands::loadTable(request.tablePath, &table);
    if (!status.failed() && !request.tablePath.isNull())
        status = CCliTableCommands::checkMatchable(table);
    QImage image;
    if (!status.failed())
        status = readImage(request.imagePath, &image);
    if (!status.failed() && request.toSrgb)
        CColourProfile::convertToSrgb(&image);
    RgbColour colour;
    PickSpread spread;
    if (!status.failed())
        status = averagePick(request, image, &colour, request.stats ? &spread : nullptr);
    if (status.failed())
        return status;
    CCliOutput::line(sampleLine(colour));
    if (request.stats)
        printSpread(spread);
    if (request.tablePath.isNull())
        return CCliStatus::ok();
    return CCliTableCommands::printMatch(table, colour, request.count, false);
}

CCliStatus CCliSampleCommand::parse(const QStringList &words, CCliArguments *args)
{
    CCliStatus status = args->parse(words, {{QStringLiteral("point"), true},
                                            {QStringLiteral("size"), true},
                                            {QStringLiteral("band"), true},
                                            {QStringLiteral("average"), true},
                                            {QStringLiteral("table"), true},
                                            {QStringLiteral("count"), true},
                                            {QStringLiteral("stats"), false},
                                            {QStringLiteral("srgb"), false}});
    if (status.failed())
        return status;
    if (args->positionals().size() != 1) {
        return CCliStatus::usage(QStringLiteral("sample needs one IMAGE (got %1 arguments)")
                                     .arg(args->positionals().size()));
    }
    if (!args->has(QStringLiteral("point")) && !args->has(QStringLiteral("band")))
        return CCliStatus::usage(QStringLiteral("sample needs --point X,Y or --band X0,Y0,X1,Y1"));
    status = args->exclusive(QStringLiteral("point"), QStringLiteral("band"));
    if (!status.failed())
        status = args->exclusive(QStringLiteral("band"), QStringLiteral("size"));
    if (!status.failed())
        status = args->needs(QStringLiteral("count"), QStringLiteral("table"));
    return status;
}

CCliStatus CCliSampleCommand::readImage(const QString &path, QImage *image)
{
    QString reason;
    CImageFile::Status status = CImageFile::CannotRead;
    {
        CCliStderrSilencer silencer;
        status = CImageFile::read(path, image, &reason);
    }
    if (status != CImageFile::Read)
        return CCliStatus::badInput(QStringLiteral("cannot read image %1: %2").arg(path, reason));
    return CCliStatus::ok();
}

CCliStatus CCliSampleCommand::readRequest(const CCliArguments &args, Request *request)
{
    request->imagePath = args.positionals().value(0);
    request->tablePath = args.value(QStringLiteral("table"));
    QString average;
    CCliStatus status =
        args.choice(QStringLiteral("average"), {QStringLiteral("rgb"), QStringLiteral("lab")},
                    QStringLiteral("rgb"), &average);
    if (!status.failed()) {
        request->useRgb = average == QLatin1String("rgb");
        request->stats = args.has(QStringLiteral("stats"));
        request->toSrgb = args.has(QStringLiteral("srgb"));
        status = readPick(args, request);
    }
    if (!status.failed())
        status =
            CCliTableCommands::rowCountOption(args.value(QStringLiteral("count")), &request->count);
    return status;
}

CCliStatus CCliSampleCommand::readPick(const CCliArguments &args, Request *request)
{
    // The coordinates are only read once their option parsed: a refused
    // option leaves the list empty and the request as it was.
    QVector<int> v;
    request->useBand = args.has(QStringLiteral("band"));
    if (request->useBand) {
        const CCliStatus status = coordinates(args.value(QStringLiteral("band")), 4,
                                              QStringLiteral("--band X0,Y0,X1,Y1"), &v);
        if (!status.failed())
            request->band = VersionCompat::normalised(
                QRect(QPoint(v.at(0), v.at(1)), QPoint(v.at(2), v.at(3))));
        return status;
    }
    CCliStatus status = pickSize(args, &request->pickSize);
    if (!status.failed())
        status =
            coordinates(args.value(QStringLiteral("point")), 2, QStringLiteral("--point X,Y"), &v);
    if (!status.failed())
        request->point = QPoint(v.at(0), v.at(1));
    return status;
}

QRect CCliSampleCommand::pickRect(const Request &request, const QImage &image)
{
    return request.useBand ? bandPickRect(request.band, kZoom, image.size())
                           : clickPickRect(request.point, kZoom, request.pickSize, image.size());
}

void CCliSampleCommand::printSpread(const PickSpread &spread)
{
    CCliOutput::line(QStringLiteral("pixels %1").arg(spread.pixels));
    CCliOutput::line(QStringLiteral("spread-mean ") + CCliOutput::fixed(spread.mean, 4));
    CCliOutput::line(QStringLiteral("spread-p95 ") + CCliOutput::fixed(spread.p95, 4));
}

// With `spread`, the pick's spread too, read in the same pass where it can be.
CCliStatus CCliSampleCommand::averagePick(const Request &request, const QImage &image,
                                          RgbColour *colour, PickSpread *spread)
{
    const QRect region = pickRect(request, image);
    const bool picked = spread ? averageWithSpread(image, region, request.useRgb, colour, spread)
                               : averageImageRegion(image, region, request.useRgb, colour);
    if (!picked) {
        return CCliStatus::emptySelection(
            QStringLiteral("the selection holds no pixels of the %1 x %2 image")
                .arg(image.width())
                .arg(image.height()));
    }
    return CCliStatus::ok();
}
