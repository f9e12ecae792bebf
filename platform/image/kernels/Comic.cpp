#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Comic.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

constexpr int white = 255 * 128;

template <bool bytes>
void evenOut(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, int tolerance, int count,
             std::int16_t* out) {
    inVectors<std::int16_t>(count, [&](auto d, int at) {
        const auto values = [&](int tap) {
            if constexpr (bytes) {
                const hn::Rebind<std::uint8_t, decltype(d)> narrow;
                return hn::ShiftLeft<7>(hn::PromoteTo(d, hn::LoadU(narrow, rows[tap] + at)));
            } else {
                return hn::LoadU(d, reinterpret_cast<const std::int16_t*>(rows[tap]) + at);
            }
        };
        const hn::RebindToUnsigned<decltype(d)> whole;
        const auto far = hn::Set(whole, std::uint16_t(32767 >> tolerance));
        const auto first = values(0);
        auto sum = first;
        for (int tap = 1; tap < taps; ++tap) {
            const auto difference = hn::Sub(values(tap), first);
            const auto near = hn::SaturatedSub(far, hn::BitCast(whole, hn::Abs(difference)));
            const auto share = hn::MulFixedPoint15(hn::BitCast(d, hn::ShiftLeftSame(near, tolerance)),
                                                   hn::Set(d, weights[tap]));
            sum = hn::Add(sum, hn::MulFixedPoint15(difference, share));
        }
        hn::StoreU(sum, d, out + at);
    });
}

void EvenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
                 int tolerance, int count, std::int16_t* out) {
    if (depth.bytes == 1) return evenOut<true>(rows, weights, taps, tolerance, count, out);
    evenOut<false>(rows, weights, taps, tolerance, count, out);
}

/// The brightness of a pixel in 1/256 level: shares of 256.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V brightness(D d, V pixels) {
    const hn::RebindToSigned<D> signs;
    const hn::Repartition<std::int16_t, D> words;
    const auto even = hn::Set(d, 0x00FF00FF);
    const auto blueRed = hn::BitCast(words, hn::And(pixels, even));
    const auto green = hn::BitCast(words, hn::And(hn::ShiftRight<8>(pixels), hn::Set(d, 0xFF)));
    const auto sum = hn::Add(pairProducts(signs, blueRed, hn::BitCast(words, hn::Set(d, 18u | 55u << 16))),
                             pairProducts(signs, green, hn::BitCast(words, hn::Set(d, 183u))));
    return hn::BitCast(d, sum);
}

void Brightness(const std::uint8_t* pixels, int count, std::int16_t* out) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        const hn::Rebind<std::int16_t, decltype(d)> narrow;
        const auto found = hn::BitCast(signs, hn::ShiftRight<1>(brightness(d, load(d, pixels, at))));
        hn::StoreU(hn::DemoteTo(narrow, found), narrow, out + at);
    });
}

void Ink(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        const hn::Rebind<std::int16_t, decltype(d)> narrow;
        const auto difference =
            hn::PromoteTo(signs, hn::Sub(hn::LoadU(narrow, coarse + at), hn::LoadU(narrow, fine + at)));
        const auto code =
            hn::Add(hn::ShiftRight<11>(hn::Mul(difference, hn::Set(signs, steep))), hn::Set(signs, 128));
        const auto clamped = hn::Min(hn::Max(code, hn::Zero(signs)), hn::Set(signs, 255));
        const auto colours = hn::And(load(d, pixels, at), hn::Set(d, 0x00FFFFFF));
        store(d, hn::Or(colours, hn::ShiftLeft<24>(hn::BitCast(d, clamped))), pixels, at);
    });
}

void Comic(const ComicRow& print, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        const hn::Rebind<std::int16_t, decltype(d)> narrow;
        const hn::Repartition<std::int16_t, decltype(d)> words;
        const auto level = hn::Set(signs, 255);
        const auto found = load(d, pixels, at);
        const auto bright = hn::BitCast(signs, hn::ShiftRight<8>(brightness(d, found)));
        // Dots grow towards the middle tones and vanish in black and white.
        const auto dots = hn::MulFixedPoint15(hn::LoadU(narrow, print.screen + at),
                                              hn::Set(narrow, std::int16_t(print.down)));
        const auto room = hn::Mul(bright, hn::Sub(level, bright));
        const auto moved = hn::ShiftRight<18>(hn::Mul(hn::PromoteTo(signs, dots), hn::ShiftRight<7>(room)));
        const auto dotted = hn::Min(hn::Max(hn::Add(bright, moved), hn::Zero(signs)), level);
        const auto tone = hn::GatherIndex(d, print.tones, dotted);

        const auto ink =
            hn::Mul(hn::Sub(hn::BitCast(signs, hn::ShiftRight<24>(found)), hn::Set(signs, print.minInk)),
                    hn::Set(signs, print.steep));
        const auto paper = hn::BitCast(d, hn::Sub(level, hn::Min(hn::Max(ink, hn::Zero(signs)), level)));

        // The tone, and the colour's distance from its own brightness.
        const auto even = hn::Set(d, 0x00FF00FF);
        const auto own = inBothHalves(hn::BitCast(d, bright));
        const auto toned = hn::BitCast(words, inBothHalves(tone));
        const auto strong = hn::Set(words, std::int16_t(print.colour));
        const auto coloured = [&](auto values) {
            const auto distance = hn::Sub(hn::BitCast(words, values), hn::BitCast(words, own));
            const auto sum = hn::Add(toned, hn::ShiftRight<4>(hn::Mul(distance, strong)));
            return hn::BitCast(d, hn::Min(hn::Max(sum, hn::Zero(words)), hn::Set(words, 255)));
        };
        const auto blueRed = coloured(hn::And(found, even));
        const auto green = hn::And(coloured(hn::And(hn::ShiftRight<8>(found), even)), hn::Set(d, 0xFF));
        const auto colours = times(d, hn::Or(blueRed, hn::ShiftLeft<8>(green)), inBothHalves(paper));
        store(d, hn::Or(colours, hn::Set(d, 0xFF000000)), pixels, at);
    });
}

void TakeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto alpha = hn::ShiftRight<24>(load(d, others, at));
        store(d, withAlpha(d, load(d, pixels, at), alpha), pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(EvenOutRows);
HWY_EXPORT(Brightness);
HWY_EXPORT(Ink);
HWY_EXPORT(Comic);
HWY_EXPORT(TakeAlpha);

void evenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
                 int tolerance, int count, std::int16_t* out) {
    HWY_DYNAMIC_DISPATCH(EvenOutRows)(rows, weights, taps, depth, tolerance, count, out);
}

void brightnessRow(const std::uint8_t* pixels, int count, std::int16_t* out) {
    HWY_DYNAMIC_DISPATCH(Brightness)(pixels, count, out);
}

void inkRow(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count,
            std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Ink)(fine, coarse, steep, count, pixels);
}

void comicRow(const ComicRow& print, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Comic)(print, count, pixels);
}

void takeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(TakeAlpha)(others, count, pixels);
}

}
#endif
