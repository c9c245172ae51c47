#pragma once

#include <QImage>
#include <QSize>

// Pictures the benchmarks of the widgets draw, the same every run.
namespace BenchPictures {

// Smooth gradients with fine grain, so that neither scaling nor the colour
// caches get an easy ride: red rises every xStep columns, green every yStep
// rows, blue every diagonalStep along the diagonal, each with up to 15
// levels of noise.
QImage grainyGradient(const QSize &size, int xStep, int yStep, int diagonalStep);

} // namespace BenchPictures
