#pragma once

// CIEDE2000 with kL = kC = kH = 1, hue angles in radians. The mean-hue
// offset of pi is always added, never subtracted, so the mean hue may lie in
// [0, 3pi): only the rotation term notices, and that is how results have
// always been scored.
//
// Single precision: what matching uses (first colour = table entry, second =
// sample). A hue difference counts as "greater than pi" when d > float pi.
float deltaE2000(float L1, float a1, float b1, float L2, float a2, float b2);

// Double precision: same formula; a hue difference within 1e-14 of pi counts
// as not greater (d >= pi + 1e-14 takes the offset).
double deltaE2000(double L1, double a1, double b1, double L2, double a2, double b2);

// The hue angles h1', h2' (radians, [0, 2pi)), the mean hue H' with its
// offset, the rotation term R_T, the weighted differences
// lightness = dL'/S_L, chroma = dC'/S_C and hue = dH'/S_H (signed: positive
// when the second colour is lighter, more chromatic or turned
// counter-clockwise from the first) and the result of one evaluation: what a
// diagnostic needs to see why two colours score as they do. The float
// overload holds the single-precision values, widened, so
// sqrt(l^2 + c^2 + h^2 + R_T c h) in float gives back its deltaE exactly.
struct DeltaE2000Terms
{
    double hue1 = 0.0;
    double hue2 = 0.0;
    double meanHue = 0.0;
    double rotation = 0.0;
    double deltaE = 0.0;
    double lightness = 0.0;
    double chroma = 0.0;
    double hue = 0.0;
};

DeltaE2000Terms deltaE2000Terms(float L1, float a1, float b1, float L2, float a2, float b2);
DeltaE2000Terms deltaE2000Terms(double L1, double a1, double b1, double L2, double a2, double b2);
