#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Resample.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Vectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

template <typename D>
HWY_INLINE hn::VFromD<D> levels(D d, const std::uint8_t* row, int at, SampleDepth depth, bool bytes) {
    if (bytes) return hn::ShiftLeft<7>(hn::PromoteTo(d, hn::LoadU(hn::Rebind<std::uint8_t, D>(), row + at)));
    const hn::RebindToUnsigned<D> stored;
    const auto words = hn::LoadU(stored, reinterpret_cast<const std::uint16_t*>(row) + at);
    return hn::BitCast(d, hn::ShiftRightSame(hn::ShiftLeftSame(words, depth.left), depth.right));
}

/// `taps` of 0 stands for any number.
template <int taps, bool bytes>
void blend(const std::uint8_t* const* rows, const std::int16_t* weights, int many, SampleDepth depth,
           int count, std::int16_t* out) {
    const int all = taps == 0 ? many : taps;
    inVectors<std::int16_t>(count, [&](auto d, int at) {
        const auto first = levels(d, rows[0], at, depth, bytes);
        auto sum = first;
        for (int tap = 1; tap < all; ++tap) {
            const auto difference = hn::Sub(levels(d, rows[tap], at, depth, bytes), first);
            sum = hn::Add(sum, hn::MulFixedPoint15(difference, hn::Set(d, weights[tap])));
        }
        hn::StoreU(sum, d, out + at);
    });
}

template <bool bytes>
void blendAny(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
              int count, std::int16_t* out) {
    if (taps == 1) return blend<1, bytes>(rows, weights, taps, depth, count, out);
    if (taps == 2) return blend<2, bytes>(rows, weights, taps, depth, count, out);
    if (taps == 3) return blend<3, bytes>(rows, weights, taps, depth, count, out);
    blend<0, bytes>(rows, weights, taps, depth, count, out);
}

void BlendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
               int count, std::int16_t* out) {
    if (depth.bytes == 1) return blendAny<true>(rows, weights, taps, depth, count, out);
    blendAny<false>(rows, weights, taps, depth, count, out);
}

// Columns are made in blocks of 128 bits on every instruction set: each reads from a place of its own.

using Block = hn::FixedTag<std::int16_t, 8>;
using BlockBytes = hn::FixedTag<std::uint8_t, 16>;
using BlockVector = hn::VFromD<Block>;

/// Eight samples from places within sixteen, or within eight where they are `near`.
template <bool near>
HWY_INLINE BlockVector pick(BlockVector low, BlockVector high, hn::VFromD<BlockBytes> places) {
    const Block d;
    const BlockBytes bytes;
    if (near) return hn::BitCast(d, hn::TableLookupBytes(hn::BitCast(bytes, low), places));
    // A place beyond a table has its top bit set, which reads as zero.
    const auto inLow = hn::SaturatedAdd(places, hn::Set(bytes, 0x70));
    const auto inHigh = hn::Sub(places, hn::Set(bytes, 16));
    return hn::BitCast(d, hn::Or(hn::TableLookupBytesOr0(hn::BitCast(bytes, low), inLow),
                                 hn::TableLookupBytesOr0(hn::BitCast(bytes, high), inHigh)));
}

HWY_INLINE BlockVector weighed(BlockVector sample, BlockVector first, const std::int16_t* weights) {
    return hn::MulFixedPoint15(hn::Sub(sample, first), hn::Load(Block(), weights));
}

template <bool near, bool pairs>
void samples(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const Block d;
    const BlockBytes bytes;
    const auto* group = &columns.groups[(from - columns.taps.from) / 8];
    in -= columns.taps.low;
    for (int at = from; at < to; at += 8, ++group, out += 8) {
        const auto low = hn::LoadU(d, in + group->first[0]);
        const auto high = near ? low : hn::LoadU(d, in + group->first[0] + 8);
        const auto places = hn::Load(bytes, group->bytes);
        const auto first = pick<near>(low, high, places);
        const auto second = pick<near>(low, high, hn::Add(places, hn::Set(bytes, 2)));
        auto sum = hn::Add(first, weighed(second, first, group->second));
        if (!pairs) {
            const auto third = pick<near>(low, high, hn::Add(places, hn::Set(bytes, 4)));
            sum = hn::Add(sum, weighed(third, first, group->third));
        }
        hn::StoreU(sum, d, out);
    }
}

template <bool pairs>
void pixels(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const Block d;
    const auto* group = &columns.groups[(from - columns.taps.from) / 2];
    in -= std::ptrdiff_t(columns.taps.low) * 4;
    for (int at = from; at < to; at += 2, ++group, out += 8) {
        const auto* left = in + std::ptrdiff_t(group->first[0]) * 4;
        const auto* right = in + std::ptrdiff_t(group->first[1]) * 4;
        const auto one = hn::LoadU(d, left);
        const auto other = hn::LoadU(d, right);
        const auto first = hn::ConcatLowerLower(d, other, one);
        auto sum = hn::Add(first, weighed(hn::ConcatUpperUpper(d, other, one), first, group->second));
        if (!pairs) {
            const auto third = hn::ConcatLowerLower(d, hn::LoadU(d, right + 8), hn::LoadU(d, left + 8));
            sum = hn::Add(sum, weighed(third, first, group->third));
        }
        hn::StoreU(sum, d, out);
    }
}

using Sums = hn::VFromD<hn::FixedTag<std::int32_t, 4>>;

/// One output by products, eight samples at a time.
HWY_INLINE Sums products(const std::int16_t* in, const std::int16_t* weights, int count) {
    const Block d;
    const hn::FixedTag<std::int32_t, 4> wide;
    auto sum = hn::Zero(wide);
    for (int at = 0; at < count; at += 8)
        sum = hn::Add(sum, pairProducts(wide, hn::LoadU(d, in + at), hn::LoadU(d, weights + at)));
    return sum;
}

HWY_INLINE Sums halvesAdded(Sums one, Sums other) {
    const hn::FixedTag<std::int32_t, 4> wide;
    return hn::Add(hn::InterleaveLower(wide, one, other), hn::InterleaveUpper(wide, one, other));
}

/// The sums of four vectors' lanes.
HWY_INLINE Sums sumsOfLanes(Sums a, Sums b, Sums c, Sums e) {
    const hn::FixedTag<std::int32_t, 4> wide;
    const auto low = halvesAdded(a, b);
    const auto high = halvesAdded(c, e);
    return hn::Add(hn::ConcatLowerLower(wide, high, low), hn::ConcatUpperUpper(wide, high, low));
}

HWY_INLINE void storeRounded(Sums sums, std::int16_t* out) {
    const hn::FixedTag<std::int32_t, 4> wide;
    const hn::FixedTag<std::int16_t, 4> narrow;
    hn::StoreU(hn::DemoteTo(narrow, hn::ShiftRight<14>(hn::Add(sums, hn::Set(wide, 1 << 13)))), narrow, out);
}

void samplesByProducts(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const auto& taps = columns.taps;
    in -= taps.low;
    const auto sum = [&](int at) {
        const auto& output = taps.outputs[std::min(at, to - 1) - taps.from];
        return products(in + output.first, &taps.weights[output.weights], output.count);
    };
    for (int at = from; at < to; at += 4, out += 4)
        storeRounded(sumsOfLanes(sum(at), sum(at + 1), sum(at + 2), sum(at + 3)), out);
}

void pixelsByProducts(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const hn::FixedTag<std::int16_t, 4> pixel;
    const hn::FixedTag<std::int32_t, 4> wide;
    const auto& taps = columns.taps;
    in -= std::ptrdiff_t(taps.low) * 4;
    for (int at = from; at < to; ++at, out += 4) {
        const auto& output = taps.outputs[at - taps.from];
        const auto* samples = in + std::ptrdiff_t(output.first) * 4;
        const auto* weights = &taps.weights[output.weights];
        auto sum = hn::Zero(wide);
        for (int tap = 0; tap < output.count; ++tap) {
            const auto values = hn::PromoteTo(wide, hn::LoadU(pixel, samples + tap * 4));
            sum = hn::Add(sum, hn::Mul(values, hn::Set(wide, weights[tap])));
        }
        storeRounded(sum, out);
    }
}

void ResampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const bool products = columns.taps.sum == Taps::Sum::products;
    if (columns.values == 4) {
        if (products) return pixelsByProducts(columns, from, to, in, out);
        return (columns.pairs ? pixels<true> : pixels<false>)(columns, from, to, in, out);
    }
    if (products) return samplesByProducts(columns, from, to, in, out);
    if (columns.near)
        return (columns.pairs ? samples<true, true> : samples<true, false>)(columns, from, to, in, out);
    (columns.pairs ? samples<false, true> : samples<false, false>)(columns, from, to, in, out);
}

void SplitPairs(const std::int16_t* in, int count, std::int16_t* first, std::int16_t* second) {
    inVectors<std::int16_t>(count, [&](auto d, int at) {
        hn::VFromD<decltype(d)> one;
        hn::VFromD<decltype(d)> other;
        hn::LoadInterleaved2(d, in + 2 * at, one, other);
        hn::StoreU(one, d, first + at);
        hn::StoreU(other, d, second + at);
    });
}

void PackPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out) {
    inVectors<std::int16_t>(pixels * 4, [&](auto d, int at) {
        const hn::Rebind<std::uint8_t, decltype(d)> bytes;
        auto packed = hn::DemoteTo(bytes, hn::ShiftRight<7>(hn::Add(hn::LoadU(d, in + at), hn::Set(d, 64))));
        if constexpr (hn::MaxLanes(decltype(d)()) >= 8) {
            const hn::Repartition<std::uint32_t, decltype(bytes)> whole;
            packed = hn::Or(packed, hn::BitCast(bytes, hn::Set(whole, opaque ? 0xFF000000 : 0)));
        } else if (opaque && at % 4 == 3) {
            packed = hn::Set(bytes, 255);
        }
        hn::StoreU(packed, bytes, out + at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(BlendRows);
HWY_EXPORT(ResampleRow);
HWY_EXPORT(SplitPairs);
HWY_EXPORT(PackPixels);

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
               int count, std::int16_t* out) {
    HWY_DYNAMIC_DISPATCH(BlendRows)(rows, weights, taps, depth, count, out);
}

void resampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    HWY_DYNAMIC_DISPATCH(ResampleRow)(columns, from, to, in, out);
}

void splitPairs(const std::int16_t* in, int count, std::int16_t* first, std::int16_t* second) {
    HWY_DYNAMIC_DISPATCH(SplitPairs)(in, count, first, second);
}

void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(PackPixels)(in, pixels, opaque, out);
}

}
#endif
