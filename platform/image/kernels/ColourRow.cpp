#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/ColourRow.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Vectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

template <typename V>
struct Rgb {
    V red, green, blue;
};

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE Rgb<V> light(D d, V y, V u, V v, const YCbCrMatrix& matrix) {
    const auto luma = hn::Add(hn::MulFixedPoint15(y, hn::Set(d, matrix.luma)), hn::Set(d, matrix.bias));
    const auto cb = hn::Sub(u, hn::Set(d, 16384));
    const auto cr = hn::Sub(v, hn::Set(d, 16384));
    const auto green = hn::Add(hn::MulFixedPoint15(cb, hn::Set(d, matrix.greenU)),
                               hn::MulFixedPoint15(cr, hn::Set(d, matrix.greenV)));
    return {hn::Add(luma, hn::MulFixedPoint15(cr, hn::Set(d, matrix.redV))), hn::Add(luma, green),
            hn::Add(luma, hn::MulFixedPoint15(cb, hn::Set(d, matrix.blueU)))};
}

void ColourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, std::uint8_t* out) {
    inVectors<std::int16_t>(count, [&](auto d, int at) {
        const hn::RebindToUnsigned<decltype(d)> words;
        const auto byte = [&](auto value) {
            const auto shifted = hn::ShiftRight<5>(value);
            return hn::BitCast(words, hn::Min(hn::Max(shifted, hn::Zero(d)), hn::Set(d, 255)));
        };
        const auto found = light(d, hn::LoadU(d, y + at), hn::LoadU(d, u + at), hn::LoadU(d, v + at), matrix);
        const auto low = hn::Or(byte(found.blue), hn::ShiftLeft<8>(byte(found.green)));
        const auto high = hn::Or(byte(found.red), hn::Set(words, 0xFF00));
        hn::StoreInterleaved2(low, high, words, reinterpret_cast<std::uint16_t*>(out) + 2 * at);
    });
}

/// Between the four corners of the tetrahedron that holds the colour: from the cell's darkest corner along
/// the longest fraction first.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V fromCube(D d, V red, V green, V blue, const std::uint32_t* cube) {
    const auto clamped = [&](V value) { return hn::Min(hn::Max(value, hn::Zero(d)), hn::Set(d, 8191)); };
    const auto cell = [&](V value, int stride) {
        return hn::Mul(hn::ShiftRight<8>(value), hn::Set(d, stride));
    };
    // A fraction travels with its stride, so that sorting one sorts the other.
    const auto key = [&](V value, int stride) {
        return hn::Or(hn::ShiftLeft<12>(hn::And(value, hn::Set(d, 255))), hn::Set(d, stride));
    };
    constexpr int redStride = cubeSide * cubeSide;
    red = clamped(red);
    green = clamped(green);
    blue = clamped(blue);
    const V keyR = key(red, redStride);
    const V keyG = key(green, cubeSide);
    const V keyB = key(blue, 1);
    const V longest = hn::Max(hn::Max(keyR, keyG), keyB);
    const V shortest = hn::Min(hn::Min(keyR, keyG), keyB);
    const V middle = hn::Sub(hn::Add(hn::Add(keyR, keyG), keyB), hn::Add(longest, shortest));
    const auto stride = [&](V sorted) { return hn::And(sorted, hn::Set(d, 4095)); };

    auto at = hn::Add(hn::Add(cell(red, redStride), cell(green, cubeSide)), hn::ShiftRight<8>(blue));
    V sums[3] = {hn::Set(d, 512), hn::Set(d, 512), hn::Set(d, 512)};
    const auto add = [&](V weight) {
        const auto entry = hn::GatherIndex(d, reinterpret_cast<const std::int32_t*>(cube), at);
        const V ten = hn::Set(d, 1023);
        sums[0] = hn::Add(sums[0], hn::Mul(hn::And(entry, ten), weight));
        sums[1] = hn::Add(sums[1], hn::Mul(hn::And(hn::ShiftRight<10>(entry), ten), weight));
        sums[2] = hn::Add(sums[2], hn::Mul(hn::ShiftRight<20>(entry), weight));
    };
    const V one = hn::ShiftRight<12>(longest);
    const V two = hn::ShiftRight<12>(middle);
    const V three = hn::ShiftRight<12>(shortest);
    add(hn::Sub(hn::Set(d, 256), one));
    at = hn::Add(at, stride(longest));
    add(hn::Sub(one, two));
    at = hn::Add(at, stride(middle));
    add(hn::Sub(two, three));
    at = hn::Add(at, stride(shortest));
    add(three);
    const auto low = hn::Or(hn::ShiftRight<10>(sums[0]), hn::ShiftLeft<8>(hn::ShiftRight<10>(sums[1])));
    return hn::Or(
        low, hn::Or(hn::ShiftLeft<16>(hn::ShiftRight<10>(sums[2])), hn::Set(d, std::int32_t(0xFF000000))));
}

void ColourCubeRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
                   const YCbCrMatrix& matrix, const std::uint32_t* cube, std::uint8_t* out) {
    inVectors<std::int32_t>(count, [&](auto d, int at) {
        const hn::Rebind<std::int16_t, decltype(d)> narrow;
        const auto found = light(narrow, hn::LoadU(narrow, y + at), hn::LoadU(narrow, u + at),
                                 hn::LoadU(narrow, v + at), matrix);
        const auto pixels = fromCube(d, hn::PromoteTo(d, found.red), hn::PromoteTo(d, found.green),
                                     hn::PromoteTo(d, found.blue), cube);
        hn::StoreU(pixels, d, reinterpret_cast<std::int32_t*>(out) + at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(ColourRow);
HWY_EXPORT(ColourCubeRow);

void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(ColourRow)(y, u, v, count, matrix, out);
}

void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, const std::uint32_t* cube, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(ColourCubeRow)(y, u, v, count, matrix, cube, out);
}

}
#endif
