#include "colour/labrowsum.h"

#include "colour/colourconversion.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define VELLORA_HAS_AVX2_PATH 1
#include <immintrin.h>
#endif

namespace {

std::atomic<bool> g_forcePlain{false};

void addPixel(QRgb pixel, LabColour &sum)
{
    const std::array<double, 256> &linear = linearisedBytes();
    const XyzColour xyz = linearRgbToXyz(linear[size_t(qRed(pixel))],
                                         linear[size_t(qGreen(pixel))],
                                         linear[size_t(qBlue(pixel))]);
    const LabColour lab = xyzToLabFast(xyz.X, xyz.Y, xyz.Z);
    sum.L += lab.L;
    sum.a += lab.a;
    sum.b += lab.b;
}

void addPlain(const QRgb *row, int width, LabColour &sum)
{
    for (int i = 0; i < width; ++i)
        addPixel(row[i], sum);
}

#ifdef VELLORA_HAS_AVX2_PATH

// The constants of the vector path, set once per row.
struct Avx2Constants
{
    __m256 mantissaMask;
    __m256 one;
    __m256 exponentRoots; // 2^(-e/3) for e = -7 .. 0, at e + 7
    __m256 fit[6];        // the rough inverse cube root, highest power first
    const double *linear; // linearisedBytes()
};

__attribute__((target("avx2,fma"))) Avx2Constants avx2Constants()
{
    // 2^(-e/3) is irrational for most e: worked out once, not typed in.
    static const std::array<float, 8> roots = [] {
        std::array<float, 8> r{};
        for (size_t k = 0; k < r.size(); ++k)
            r[k] = float(std::exp2((7.0 - double(k)) / 3.0));
        return r;
    }();
    // A least-squares fit of m^(-1/3) on [1, 2): relative error below
    // 7e-6 even in single precision.
    static const float fit[6] = {-0.01651167869567871f, 0.1522495597600937f,
                                 -0.5865141749382019f,  1.2271496057510376f,
                                 -1.5540274381637573f,  1.7776471376419067f};
    Avx2Constants c;
    c.mantissaMask = _mm256_castsi256_ps(_mm256_set1_epi32(0x007fffff));
    c.one = _mm256_set1_ps(1.0f);
    c.exponentRoots = _mm256_loadu_ps(roots.data());
    for (size_t k = 0; k < 6; ++k)
        c.fit[k] = _mm256_set1_ps(fit[k]);
    c.linear = linearisedBytes().data();
    return c;
}

// t^(-1/3) within 7e-6 for eight t of the cube root branch, single
// precision, without a table in memory: t = m 2^e with m in [1, 2) taken
// apart by its bits, m^(-1/3) by the fit, 2^(-e/3) picked from a register
// by the low three bits of the biased exponent (e + 127 = e + 7 mod 8 for
// the branch's e = -7 .. 0: 8-bit colours give 0.008856 < t < 1.0002).
// Other lanes get a finite value the caller throws away.
__attribute__((target("avx2,fma"))) __m256 roughInverseCubeRoot(__m256 t, const Avx2Constants &c)
{
    const __m256 m = _mm256_or_ps(_mm256_and_ps(t, c.mantissaMask), c.one);
    const __m256i exponent = _mm256_srli_epi32(_mm256_castps_si256(t), 23);
    const __m256 scale = _mm256_permutevar8x32_ps(c.exponentRoots, exponent);
    __m256 p = _mm256_fmadd_ps(c.fit[0], m, c.fit[1]);
    for (size_t k = 2; k < 6; ++k)
        p = _mm256_fmadd_ps(p, m, c.fit[k]);
    return _mm256_mul_ps(p, scale);
}

// The cube root of t to full double precision from y close to t^(-1/3):
// with e = 1 - t y^3, t^(1/3) = t y^2 (1 - e)^(-2/3), whose series to e^3
// leaves out less than 1e-19 for the rough root's |e| < 2.2e-5. No
// division: a multiply and add at a time.
__attribute__((target("avx2,fma"))) __m256d refinedCubeRoot(__m256d t, __m256d y)
{
    const __m256d root = _mm256_mul_pd(t, _mm256_mul_pd(y, y));
    const __m256d e = _mm256_fnmadd_pd(root, y, _mm256_set1_pd(1.0));
    __m256d series = _mm256_fmadd_pd(e, _mm256_set1_pd(40.0 / 81.0), _mm256_set1_pd(5.0 / 9.0));
    series = _mm256_fmadd_pd(series, e, _mm256_set1_pd(2.0 / 3.0));
    return _mm256_fmadd_pd(_mm256_mul_pd(root, e), series, root);
}

// xyzToLabFast's f of t, the cube root or the straight line near black.
__attribute__((target("avx2,fma"))) __m256d labF(__m256d t, __m256d roughRoot)
{
    const __m256d cube = _mm256_cmp_pd(t, _mm256_set1_pd(0.008856), _CMP_GT_OQ);
    const __m256d linear =
        _mm256_fmadd_pd(_mm256_set1_pd(7.787), t, _mm256_set1_pd(16.0 / 116.0));
    return _mm256_blendv_pd(linear, refinedCubeRoot(t, roughRoot), cube);
}

// linearisedBytes() of four byte values. (The masked gather, all lanes on:
// the plain one leaves the compiler thinking its source may be unset.)
__attribute__((target("avx2,fma"))) __m256d linearised(const double *linear, __m128i bytes)
{
    const __m256d all = _mm256_castsi256_pd(_mm256_set1_epi64x(-1));
    return _mm256_mask_i32gather_pd(_mm256_setzero_pd(), linear, bytes, all, 8);
}

// The linearised red, green and blue of eight pixels, four to a vector.
struct Rgb8
{
    __m256d r[2];
    __m256d g[2];
    __m256d b[2];
};

__attribute__((target("avx2,fma"))) Rgb8 linearisedRgb8(const QRgb *pixels, const double *linear)
{
    const __m256i packed = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(pixels));
    const __m256i byte = _mm256_set1_epi32(0xff);
    const __m256i red = _mm256_and_si256(_mm256_srli_epi32(packed, 16), byte);
    const __m256i green = _mm256_and_si256(_mm256_srli_epi32(packed, 8), byte);
    const __m256i blue = _mm256_and_si256(packed, byte);
    Rgb8 rgb;
    rgb.r[0] = linearised(linear, _mm256_castsi256_si128(red));
    rgb.r[1] = linearised(linear, _mm256_extracti128_si256(red, 1));
    rgb.g[0] = linearised(linear, _mm256_castsi256_si128(green));
    rgb.g[1] = linearised(linear, _mm256_extracti128_si256(green, 1));
    rgb.b[0] = linearised(linear, _mm256_castsi256_si128(blue));
    rgb.b[1] = linearised(linear, _mm256_extracti128_si256(blue, 1));
    return rgb;
}

// One row of the sRGB matrix over the white, as t of xyzToLabFast (each
// coefficient already over the white: the same t within a unit or two in
// the last place).
__attribute__((target("avx2,fma"))) __m256d matrixRow(const double (&k)[3], __m256d r, __m256d g,
                                                      __m256d b)
{
    return _mm256_fmadd_pd(_mm256_set1_pd(k[2]), b,
                           _mm256_fmadd_pd(_mm256_set1_pd(k[1]), g,
                                           _mm256_mul_pd(_mm256_set1_pd(k[0]), r)));
}

const double kOverWhite[3][3] = {
    {0.4124 / kWhiteX, 0.3576 / kWhiteX, 0.1805 / kWhiteX},
    {0.2126 / kWhiteY, 0.7152 / kWhiteY, 0.0722 / kWhiteY},
    {0.0193 / kWhiteZ, 0.1192 / kWhiteZ, 0.9505 / kWhiteZ},
};

// The t of X, Y and Z of up to kChunk pixels. Worked out first and stored,
// the lookups' and the cube roots' long chains of dependent steps do not
// hold each other up: each loop's steps overlap those of its next round.
constexpr int kChunk = 64;
struct alignas(32) TChunk
{
    double t[3][kChunk];
};

// t of `count` pixels (a multiple of eight up to kChunk).
__attribute__((target("avx2,fma"))) void fillT(const QRgb *pixels, int count,
                                               const Avx2Constants &c, TChunk &chunk)
{
    for (int j = 0; j < count; j += 8) {
        const Rgb8 rgb = linearisedRgb8(pixels + j, c.linear);
        for (size_t k = 0; k < 3; ++k) {
            for (int h = 0; h < 2; ++h)
                _mm256_store_pd(&chunk.t[k][j + 4 * h],
                                matrixRow(kOverWhite[k], rgb.r[h], rgb.g[h], rgb.b[h]));
        }
    }
}

// The rough roots of eight stored t, in single precision.
__attribute__((target("avx2,fma"))) __m256 roughInverseCubeRoot8(const double *t,
                                                                 const Avx2Constants &c)
{
    const __m128 low = _mm256_cvtpd_ps(_mm256_load_pd(t));
    const __m128 high = _mm256_cvtpd_ps(_mm256_load_pd(t + 4));
    return roughInverseCubeRoot(_mm256_set_m128(high, low), c);
}

// Adds f of `count` stored t of one of X, Y and Z to its sum: the rough
// roots of all of them first, then the refinements, for the same reason
// as the chunks.
__attribute__((target("avx2,fma"))) __m256d addF(const double *t, int count, const Avx2Constants &c,
                                                 __m256d sum)
{
    __m256 rough[kChunk / 8];
    for (int j = 0; j < count; j += 8)
        rough[j / 8] = roughInverseCubeRoot8(t + j, c);
    for (int j = 0; j < count; j += 8) {
        const __m256 y = rough[j / 8];
        const __m256d low = labF(_mm256_load_pd(t + j), _mm256_cvtps_pd(_mm256_castps256_ps128(y)));
        const __m256d high =
            labF(_mm256_load_pd(t + j + 4), _mm256_cvtps_pd(_mm256_extractf128_ps(y, 1)));
        sum = _mm256_add_pd(sum, _mm256_add_pd(low, high));
    }
    return sum;
}

__attribute__((target("avx2,fma"))) double laneSum(__m256d v)
{
    alignas(32) double lanes[4];
    _mm256_store_pd(lanes, v);
    return (lanes[0] + lanes[1]) + (lanes[2] + lanes[3]);
}

// L*a*b* is linear in fx, fy and fz, so a row's sums of them give its sum
// of L*a*b* at the end, with three multiplications instead of a pixel's.
__attribute__((target("avx2,fma"))) void addAvx2(const QRgb *row, int width, LabColour &sum)
{
    const Avx2Constants c = avx2Constants();
    __m256d f[3] = {_mm256_setzero_pd(), _mm256_setzero_pd(), _mm256_setzero_pd()};
    TChunk chunk;
    int i = 0;
    while (i + 8 <= width) {
        const int count = std::min(kChunk, (width - i) & ~7);
        fillT(row + i, count, c, chunk);
        for (size_t k = 0; k < 3; ++k)
            f[k] = addF(chunk.t[k], count, c, f[k]);
        i += count;
    }
    const double fx = laneSum(f[0]);
    const double fy = laneSum(f[1]);
    const double fz = laneSum(f[2]);
    sum.L += 116.0 * fy - 16.0 * double(i);
    sum.a += 500.0 * (fx - fy);
    sum.b += 200.0 * (fy - fz);
    addPlain(row + i, width - i, sum);
}

bool hasAvx2()
{
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return has;
}

#endif

} // namespace

bool LabRowSum::available(Path path)
{
#ifdef VELLORA_HAS_AVX2_PATH
    if (path == Path::Avx2)
        return hasAvx2();
#endif
    return path == Path::Plain;
}

LabRowSum::Path LabRowSum::chosen()
{
    if (!g_forcePlain.load(std::memory_order_relaxed) && available(Path::Avx2))
        return Path::Avx2;
    return Path::Plain;
}

void LabRowSum::forcePlain(bool plain)
{
    g_forcePlain.store(plain, std::memory_order_relaxed);
}

void LabRowSum::add(const QRgb *row, int width, LabColour &sum)
{
    add(chosen(), row, width, sum);
}

void LabRowSum::add(Path path, const QRgb *row, int width, LabColour &sum)
{
#ifdef VELLORA_HAS_AVX2_PATH
    if (path == Path::Avx2) {
        addAvx2(row, width, sum);
        return;
    }
#endif
    Q_UNUSED(path)
    addPlain(row, width, sum);
}
