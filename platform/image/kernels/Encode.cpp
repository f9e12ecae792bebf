#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Encode.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Vectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// ITU-R BT.709 to limited range in 1/2^15, each sum exact: white is 235, and a grey has no colour.
struct Weights {
    std::int16_t blue, green, red;
};
constexpr Weights lumaWeights{2032, 20127, 5983};
constexpr Weights cbWeights{14392, -11094, -3298};
constexpr Weights crWeights{-1320, -13072, 14392};

/// Pixels, or sums of them, as pairs of 16-bit values: blue and red, green and alpha.
template <typename D>
struct Pairs {
    using Words = hn::Repartition<std::int16_t, D>;
    hn::VFromD<Words> blueRed;
    hn::VFromD<Words> greenAlpha;

    static HWY_INLINE Pairs of(hn::VFromD<D> pixels) {
        const hn::RebindToUnsigned<D> whole;
        const auto bits = hn::BitCast(whole, pixels);
        const auto even = hn::Set(whole, 0x00FF00FF);
        return {hn::BitCast(Words(), hn::And(bits, even)),
                hn::BitCast(Words(), hn::And(hn::ShiftRight<8>(bits), even))};
    }

    HWY_INLINE Pairs plus(const Pairs& other) const {
        return {hn::Add(blueRed, other.blueRed), hn::Add(greenAlpha, other.greenAlpha)};
    }

    HWY_INLINE hn::VFromD<D> weighed(const Weights& weights) const {
        const D d;
        const auto both = [&](std::int16_t low, std::int16_t high) {
            return hn::BitCast(Words(), hn::Set(d, std::int32_t(std::uint16_t(low) |
                                                                std::uint32_t(std::uint16_t(high)) << 16)));
        };
        return hn::Add(pairProducts(d, blueRed, both(weights.blue, weights.red)),
                       pairProducts(d, greenAlpha, both(weights.green, 0)));
    }
};

template <typename D>
HWY_INLINE void storeBytes(D d, hn::VFromD<D> values, std::uint8_t* out) {
    const hn::Rebind<std::uint8_t, D> bytes;
    hn::StoreU(hn::U8FromU32(hn::BitCast(hn::RebindToUnsigned<D>(), values)), bytes, out);
    (void)d;
}

void LumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y) {
    inVectors<std::int32_t>(count, [&](auto d, int at) {
        const auto found =
            Pairs<decltype(d)>::of(hn::LoadU(d, reinterpret_cast<const std::int32_t*>(pixels) + at));
        const auto sum = hn::Add(found.weighed(lumaWeights), hn::Set(d, (16 << 15) + (1 << 14)));
        storeBytes(d, hn::ShiftRight<15>(sum), y + at);
    });
}

/// A pair's left pixel twice, its right one once, and the one before it once.
template <typename D>
HWY_INLINE Pairs<D> aroundLeft(D d, const std::uint8_t* pixels, int pair, bool first) {
    const auto* row = reinterpret_cast<const std::int32_t*>(pixels) + 2 * pair;
    hn::VFromD<D> before, here, after;
    hn::LoadInterleaved2(d, row, here, after);
    if (first)
        before = here;
    else
        hn::LoadInterleaved2(d, row - 1, before, here);
    const auto left = Pairs<D>::of(here);
    return left.plus(left).plus(Pairs<D>::of(before)).plus(Pairs<D>::of(after));
}

void ChromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr) {
    const auto pair = [&](auto d, int at, bool first) {
        const auto sums = aroundLeft(d, upper, at, first).plus(aroundLeft(d, lower, at, first));
        const auto rounding = hn::Set(d, (128 << 18) + (1 << 17));
        storeBytes(d, hn::ShiftRight<18>(hn::Add(sums.weighed(cbWeights), rounding)), cb + at);
        storeBytes(d, hn::ShiftRight<18>(hn::Add(sums.weighed(crWeights), rounding)), cr + at);
    };
    if (count < 2) return;
    pair(hn::CappedTag<std::int32_t, 1>(), 0, true);
    inVectors<std::int32_t>(count / 2 - 1, [&](auto d, int at) { pair(d, at + 1, false); });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(LumaRow);
HWY_EXPORT(ChromaRow);

void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y) {
    HWY_DYNAMIC_DISPATCH(LumaRow)(pixels, count, y);
}

void chromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr) {
    HWY_DYNAMIC_DISPATCH(ChromaRow)(upper, lower, count, cb, cr);
}

}
#endif
