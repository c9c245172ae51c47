#include "colour/labrowsum.h"

#include "colour/colourconversion.h"
#include "colour/cuberoottable.h"

#include <atomic>
#include <cstdint>

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

// xyzToLabFast's f of four arguments, with CubeRootTable::fromPoint's
// arithmetic in the same order. False when a lane on the cube root branch
// falls outside the table (never for 8-bit colours): the caller then takes
// the plain code for those pixels.
__attribute__((target("avx2"))) bool labF4(__m256d t, __m256d *f)
{
    const __m256d cube = _mm256_cmp_pd(t, _mm256_set1_pd(0.008856), _CMP_GT_OQ);
    const __m256i bits = _mm256_castpd_si256(t);
    __m256i index = _mm256_sub_epi64(_mm256_srli_epi64(bits, CubeRootTable::kShift),
                                     _mm256_set1_epi64x(std::int64_t(CubeRootTable::kFirstIndex)));
    const __m256i inside = _mm256_and_si256(
        _mm256_cmpgt_epi64(index, _mm256_set1_epi64x(-1)),
        _mm256_cmpgt_epi64(_mm256_set1_epi64x(CubeRootTable::kSize), index));
    const __m256i cubeBits = _mm256_castpd_si256(cube);
    if (_mm256_movemask_pd(_mm256_castsi256_pd(_mm256_andnot_si256(inside, cubeBits))) != 0)
        return false;
    index = _mm256_and_si256(index, cubeBits); // the linear branch reads point 0
    const __m256i pair = _mm256_slli_epi64(index, 1);
    const double *points = CubeRootTable::pointPairs();
    const __m256d root = _mm256_mask_i64gather_pd(_mm256_setzero_pd(), points, pair, cube, 8);
    const __m256d inverse =
        _mm256_mask_i64gather_pd(_mm256_setzero_pd(), points + 1, pair, cube, 8);
    const __m256i pointBits = _mm256_and_si256(
        bits, _mm256_set1_epi64x(~((std::int64_t(1) << CubeRootTable::kShift) - 1)));
    const __m256d r = _mm256_mul_pd(_mm256_sub_pd(t, _mm256_castsi256_pd(pointBits)), inverse);
    __m256d series = _mm256_mul_pd(r, _mm256_set1_pd(-154.0 / 6561.0));
    series = _mm256_mul_pd(r, _mm256_add_pd(_mm256_set1_pd(22.0 / 729.0), series));
    series = _mm256_mul_pd(r, _mm256_add_pd(_mm256_set1_pd(-10.0 / 243.0), series));
    series = _mm256_mul_pd(r, _mm256_add_pd(_mm256_set1_pd(5.0 / 81.0), series));
    series = _mm256_mul_pd(r, _mm256_add_pd(_mm256_set1_pd(-1.0 / 9.0), series));
    series = _mm256_mul_pd(r, _mm256_add_pd(_mm256_set1_pd(1.0 / 3.0), series));
    const __m256d rooted = _mm256_add_pd(root, _mm256_mul_pd(root, series));
    const __m256d linear = _mm256_add_pd(_mm256_mul_pd(_mm256_set1_pd(7.787), t),
                                         _mm256_set1_pd(16.0 / 116.0));
    *f = _mm256_blendv_pd(linear, rooted, cube);
    return true;
}

// linearisedBytes() of four byte values. (The masked gather, all lanes on:
// the plain one leaves the compiler thinking its source may be unset.)
__attribute__((target("avx2"))) __m256d linearised(__m128i bytes)
{
    const __m256d all = _mm256_castsi256_pd(_mm256_set1_epi64x(-1));
    return _mm256_mask_i32gather_pd(_mm256_setzero_pd(), linearisedBytes().data(), bytes, all, 8);
}

// One row of the sRGB matrix, as linearRgbToXyz adds it up, over the white.
__attribute__((target("avx2"))) __m256d matrixRow(double kr, double kg, double kb, __m256d r,
                                                  __m256d g, __m256d b, double overWhite)
{
    const __m256d sum = _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(_mm256_set1_pd(kr), r),
                                                    _mm256_mul_pd(_mm256_set1_pd(kg), g)),
                                      _mm256_mul_pd(_mm256_set1_pd(kb), b));
    return _mm256_mul_pd(sum, _mm256_set1_pd(overWhite));
}

struct Lab4
{
    __m256d L;
    __m256d a;
    __m256d b;
};

// Four pixels from X, Y, Z of their linearised components, as
// linearRgbToXyz and xyzToLabFast compute them. False as labF4.
__attribute__((target("avx2"))) bool lab4(const QRgb *pixels, Lab4 *lab)
{
    const __m128i packed = _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels));
    const __m128i byte = _mm_set1_epi32(0xff);
    const __m256d r = linearised(_mm_and_si128(_mm_srli_epi32(packed, 16), byte));
    const __m256d g = linearised(_mm_and_si128(_mm_srli_epi32(packed, 8), byte));
    const __m256d b = linearised(_mm_and_si128(packed, byte));
    __m256d fx;
    __m256d fy;
    __m256d fz;
    if (!labF4(matrixRow(0.4124, 0.3576, 0.1805, r, g, b, 1.0 / kWhiteX), &fx)
        || !labF4(matrixRow(0.2126, 0.7152, 0.0722, r, g, b, 1.0 / kWhiteY), &fy)
        || !labF4(matrixRow(0.0193, 0.1192, 0.9505, r, g, b, 1.0 / kWhiteZ), &fz))
        return false;
    lab->L = _mm256_sub_pd(_mm256_mul_pd(_mm256_set1_pd(116.0), fy), _mm256_set1_pd(16.0));
    lab->a = _mm256_mul_pd(_mm256_set1_pd(500.0), _mm256_sub_pd(fx, fy));
    lab->b = _mm256_mul_pd(_mm256_set1_pd(200.0), _mm256_sub_pd(fy, fz));
    return true;
}

__attribute__((target("avx2"))) double laneSum(__m256d v)
{
    alignas(32) double lanes[4];
    _mm256_store_pd(lanes, v);
    return (lanes[0] + lanes[1]) + (lanes[2] + lanes[3]);
}

__attribute__((target("avx2"))) void addAvx2(const QRgb *row, int width, LabColour &sum)
{
    __m256d L = _mm256_setzero_pd();
    __m256d a = _mm256_setzero_pd();
    __m256d b = _mm256_setzero_pd();
    LabColour rest;
    int i = 0;
    for (; i + 4 <= width; i += 4) {
        Lab4 lab;
        if (!lab4(row + i, &lab)) {
            addPlain(row + i, 4, rest);
            continue;
        }
        L = _mm256_add_pd(L, lab.L);
        a = _mm256_add_pd(a, lab.a);
        b = _mm256_add_pd(b, lab.b);
    }
    addPlain(row + i, width - i, rest);
    sum.L += laneSum(L) + rest.L;
    sum.a += laneSum(a) + rest.a;
    sum.b += laneSum(b) + rest.b;
}

bool hasAvx2()
{
    static const bool has = __builtin_cpu_supports("avx2");
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
