#pragma once

#include "cli/cliarguments.h"
#include "cli/clistatus.h"
#include "colour/pickspread.h"
#include "colour/rgbcolour.h"

#include <QImage>
#include <QPoint>
#include <QRect>

// sample IMAGE: averages the pixels a click (--point, --size) or a rubber
// band (--band) would pick at zoom 1, prints "R G B #rrggbb", with --stats
// the pixel count and how far the pixels lie from that colour, and, with
// --table, the match rows for that colour. --srgb first converts an image
// tagged with a colour profile other than sRGB; without it pixels are read
// as stored.
class CCliSampleCommand
{
public:
    static CCliStatus run(const QStringList &words);

    // Everything the options say, checked before any file is read.
    struct Request
    {
        QString imagePath;
        bool useBand = false;
        QPoint point;
        int pickSize = 1;
        QRect band; // normalised
        bool useRgb = true;
        QString tablePath;
        int count = 0;
        bool stats = false;
        bool toSrgb = false;
    };

    static CCliStatus parse(const QStringList &words, CCliArguments *args);
    // Fills the request from parsed options; whatever an option refused to
    // parse is left as it was, so a failed request is never half made up.
    static CCliStatus readRequest(const CCliArguments &args, Request *request);
    static CCliStatus readPick(const CCliArguments &args, Request *request);
    // Reads a picture with its size checked first (also used by simulate).
    static CCliStatus readImage(const QString &path, QImage *image);

private:
    static QRect pickRect(const Request &request, const QImage &image);
    static void printSpread(const PickSpread &spread);
    static CCliStatus averagePick(const Request &request, const QImage &image, RgbColour *colour,
                                  PickSpread *spread);
};
