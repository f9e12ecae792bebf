#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/ColourSums.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// White of 15 bits: a level is 128.
constexpr int white = 255 * 128;

template <typename D>
HWY_INLINE auto bothHalves(D d, std::int16_t low, std::int16_t high) {
    return hn::Set(d, std::int32_t(std::uint16_t(low) | std::uint32_t(std::uint16_t(high)) << 16));
}

/// The sum for one channel in 1/4096 level; alpha, which stands beside green, carries what is added.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V summed(D d, V pixels, const std::int16_t* shares) {
    const hn::Repartition<std::int16_t, D> words;
    const hn::RebindToUnsigned<D> whole;
    const auto bits = hn::BitCast(whole, pixels);
    const auto even = hn::Set(whole, 0x00FF00FF);
    const auto blueRed = hn::BitCast(words, hn::And(bits, even));
    const auto greenAlpha = hn::BitCast(words, hn::And(hn::ShiftRight<8>(bits), even));
    return hn::Add(pairProducts(d, blueRed, hn::BitCast(words, bothHalves(d, shares[0], shares[2]))),
                   pairProducts(d, greenAlpha, hn::BitCast(words, bothHalves(d, shares[1], shares[3]))));
}

/// Sums of premultiplied channels are premultiplied sums, and white is alpha: nothing needs to be straight.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V straightSums(D d, V pixels, const ColourSums& sums) {
    const hn::RebindToUnsigned<D> whole;
    const auto alpha = hn::BitCast(d, hn::ShiftRight<24>(hn::BitCast(whole, pixels)));
    const auto channel = [&](int index) {
        const auto sum = hn::Add(summed(d, pixels, sums.shares[index]), hn::Set(d, 2048));
        return hn::Min(hn::Max(hn::ShiftRight<12>(sum), hn::Zero(d)), alpha);
    };
    return hn::Or(hn::Or(channel(0), hn::ShiftLeft<8>(channel(1))),
                  hn::Or(hn::ShiftLeft<16>(channel(2)), hn::ShiftLeft<24>(alpha)));
}

/// v + 4·v·(1 − v)·(lift + contrast·(2·v − 1)), on 15 bits.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V bent(D d, V values, V lift, V contrast) {
    const auto toEnds = hn::MulFixedPoint15(values, hn::Sub(hn::Set(d, white), values));
    const auto fromMiddle = hn::Sub(values, hn::Set(d, white / 2));
    const auto steep = hn::ShiftLeft<1>(hn::MulFixedPoint15(contrast, fromMiddle));
    const auto bend = hn::MulFixedPoint15(hn::ShiftLeft<2>(toEnds), hn::Add(lift, steep));
    return hn::Min(hn::Max(hn::SaturatedAdd(values, bend), hn::Zero(d)), hn::Set(d, white));
}

/// Opaque pixels only: what is bent must be straight.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V bentSums(D d, V pixels, const ColourSums& sums) {
    const hn::Repartition<std::int16_t, D> words;
    const hn::Repartition<std::uint16_t, D> whole;
    const auto channel = [&](int index) {
        const auto sum = hn::Add(summed(d, pixels, sums.shares[index]), hn::Set(d, 16));
        return hn::Min(hn::Max(hn::ShiftRight<5>(sum), hn::Zero(d)), hn::Set(d, white));
    };
    const auto bend = [&](V values, std::int16_t low, std::int16_t high) {
        const auto found = bent(words, hn::BitCast(words, values),
                                hn::BitCast(words, bothHalves(d, low, high)), hn::Set(words, sums.contrast));
        return hn::ShiftRight<7>(hn::BitCast(whole, hn::Add(found, hn::Set(words, 64))));
    };
    const auto blueRed = bend(hn::Or(channel(0), hn::ShiftLeft<16>(channel(2))), sums.lift[0], sums.lift[2]);
    const auto green = bend(channel(1), sums.lift[1], 0);
    const auto colours = hn::BitCast(d, hn::Or(blueRed, hn::ShiftLeft<8>(green)));
    return hn::Or(hn::And(colours, hn::Set(d, 0x00FFFFFF)), hn::Set(d, std::int32_t(0xFF000000)));
}

void SumColours(const ColourSums& sums, int count, std::uint8_t* pixels) {
    if (!sums.bent)
        return inVectors<std::uint32_t>(count, [&](auto d, int at) {
            const hn::RebindToSigned<decltype(d)> signs;
            const auto found = straightSums(signs, hn::BitCast(signs, load(d, pixels, at)), sums);
            store(d, hn::BitCast(d, found), pixels, at);
        });
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        store(d,
              onStraight(d, load(d, pixels, at),
                         [&](auto opaque) {
                             return hn::BitCast(d, bentSums(signs, hn::BitCast(signs, opaque), sums));
                         }),
              pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(SumColours);

void sumColours(const ColourSums& sums, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(SumColours)(sums, count, pixels);
}

}
#endif
