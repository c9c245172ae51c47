#pragma once

// How RGB components are shown; the value of the setting "Colour/rgbFormat".
// Any value other than 0 or 1 shows hex, so stored garbage still displays.
enum RgbDisplayFormat
{
    RgbFormatInteger = 0, // "Integer (0 - 255)"
    RgbFormatDecimal = 1, // "Decimal (0.0 - 1.0)"
    RgbFormatHex = 2      // "Hex (0x00 - 0xff)"
};
