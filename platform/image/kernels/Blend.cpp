#include "platform/image/kernels/Kernels.h"

#include <array>
#include <cmath>

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Blend.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Pixels-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// Values over 255, rounded; up to 65152.
template <typename V>
HWY_INLINE V over255(V values) {
    const hn::DFromV<V> d;
    const auto rounded = hn::Add(values, hn::Set(d, 128));
    return hn::ShiftRight<8>(hn::Add(rounded, hn::ShiftRight<8>(rounded)));
}

/// Mixes pixels that have something to mix in. `mixed(d, above, below)` gives those of a vector.
template <typename Mixed>
HWY_INLINE void mix(const std::uint8_t* above, int count, std::uint8_t* pixels, const Mixed& mixed) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto upper = load(d, above, at);
        if (hn::AllTrue(d, hn::Eq(upper, hn::Zero(d)))) return;
        store(d, mixed(d, upper, load(d, pixels, at)), pixels, at);
    });
}

/// Every channel, alpha too, by `mixed(above, below, alpha above, alpha below)`. A colour that rounding has
/// left above its alpha is held there: sums would not fit.
template <typename D, typename V, typename Mixed>
HWY_INLINE V inHalves(D d, V above, V below, const Mixed& mixed) {
    const hn::Repartition<std::uint16_t, D> words;
    const auto even = hn::Set(words, 0x00FF);
    const auto upperAlpha = hn::BitCast(words, inBothHalves(hn::ShiftRight<24>(above)));
    const auto lowerAlpha = hn::BitCast(words, inBothHalves(hn::ShiftRight<24>(below)));
    const auto channel = [&](auto upper, auto lower) {
        return mixed(hn::Min(upper, upperAlpha), hn::Min(lower, lowerAlpha), upperAlpha, lowerAlpha);
    };
    const auto upper = hn::BitCast(words, above);
    const auto lower = hn::BitCast(words, below);
    const auto low = channel(hn::And(upper, even), hn::And(lower, even));
    const auto high = channel(hn::ShiftRight<8>(upper), hn::ShiftRight<8>(lower));
    return hn::BitCast(d, hn::Or(low, hn::ShiftLeft<8>(high)));
}

/// What of both shows where the other is clear.
template <typename V>
HWY_INLINE V uncovered(V above, V below, V alphaAbove, V alphaBelow) {
    const auto all = hn::Set(hn::DFromV<V>(), 255);
    return hn::Add(hn::Mul(above, hn::Sub(all, alphaBelow)), hn::Mul(below, hn::Sub(all, alphaAbove)));
}

void Multiply(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mix(above, count, pixels, [](auto d, auto upper, auto lower) {
        return inHalves(d, upper, lower, [](auto cs, auto cb, auto as, auto ab) {
            return over255(hn::Add(uncovered(cs, cb, as, ab), hn::Mul(cs, cb)));
        });
    });
}

void Screen(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mix(above, count, pixels, [](auto d, auto upper, auto lower) {
        return inHalves(d, upper, lower, [](auto cs, auto cb, auto, auto) {
            const auto all = hn::Set(hn::DFromV<decltype(cs)>(), 255);
            return hn::Add(cs, over255(hn::Mul(cb, hn::Sub(all, cs))));
        });
    });
}

void Overlay(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mix(above, count, pixels, [](auto d, auto upper, auto lower) {
        return inHalves(d, upper, lower, [](auto cs, auto cb, auto as, auto ab) {
            const auto twice = [](auto value) { return hn::Add(value, value); };
            const auto dark = twice(hn::Mul(cs, cb));
            const auto light = hn::Sub(hn::Mul(as, ab), twice(hn::Mul(hn::Sub(ab, cb), hn::Sub(as, cs))));
            const auto both = hn::IfThenElse(hn::Gt(twice(cb), ab), light, dark);
            return over255(hn::Add(uncovered(cs, cb, as, ab), both));
        });
    });
}

void Add(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mix(above, count, pixels, [](auto d, auto upper, auto lower) {
        const hn::Repartition<std::uint8_t, decltype(d)> bytes;
        return hn::BitCast(d, hn::SaturatedAdd(hn::BitCast(bytes, upper), hn::BitCast(bytes, lower)));
    });
}

/// Straight levels of premultiplied ones, rounded. Quotients of such small whole numbers are far enough from
/// the next whole number for a float to get them right.
template <typename D, typename V>
HWY_INLINE V straight(D d, V value, V alpha) {
    const hn::Rebind<float, D> floats;
    const auto by = hn::Max(alpha, hn::Set(d, 1));
    const auto scaled = hn::Add(hn::Mul(value, hn::Set(d, 255)), hn::ShiftRight<1>(by));
    return hn::ConvertTo(d, hn::Div(hn::ConvertTo(floats, scaled), hn::ConvertTo(floats, by)));
}

/// `pulls` holds for each level below how far a darker colour above pulls it down (low half) and a lighter
/// one up (high half), in 1/2^16.
void SoftLight(const std::int32_t* pulls, const std::uint8_t* above, int count, std::uint8_t* pixels) {
    inVectors<std::int32_t>(count, [&](auto d, int at) {
        const hn::RebindToUnsigned<decltype(d)> whole;
        const auto upper = hn::BitCast(d, load(whole, above, at));
        if (hn::AllTrue(d, hn::Eq(upper, hn::Zero(d)))) return;
        const auto lower = hn::BitCast(d, load(whole, pixels, at));
        const auto byte = hn::Set(d, 255);
        const auto as = hn::And(hn::ShiftRight<24>(upper), byte);
        const auto ab = hn::And(hn::ShiftRight<24>(lower), byte);
        const bool solid = hn::AllTrue(d, hn::Eq(ab, byte));
        const auto alpha = over255(hn::Sub(hn::Mul(hn::Add(as, ab), byte), hn::Mul(as, ab)));
        const auto channel = [&](auto shiftedAbove, auto shiftedBelow) {
            const auto cs = hn::Min(hn::And(shiftedAbove, byte), as);
            const auto cb = hn::Min(hn::And(shiftedBelow, byte), ab);
            const auto both = hn::GatherIndex(d, pulls, solid ? cb : straight(d, cb, ab));
            const auto lean = hn::Sub(hn::Add(cs, cs), as);
            const auto pull = hn::IfThenElse(hn::Gt(lean, hn::Zero(d)), hn::ShiftRight<16>(both),
                                             hn::And(both, hn::Set(d, 0xFFFF)));
            const auto pulled = hn::Mul(hn::Mul(lean, ab), pull);
            const auto kept = hn::Add(hn::Mul(cs, hn::Sub(byte, ab)), hn::Mul(cb, byte));
            const auto sum = hn::Add(kept, hn::ShiftRight<16>(hn::Add(pulled, hn::Set(d, 1 << 15))));
            return hn::Min(over255(hn::Max(sum, hn::Zero(d))), alpha);
        };
        const auto blue = channel(upper, lower);
        const auto green = channel(hn::ShiftRight<8>(upper), hn::ShiftRight<8>(lower));
        const auto red = channel(hn::ShiftRight<16>(upper), hn::ShiftRight<16>(lower));
        const auto mixed = hn::Or(hn::Or(blue, hn::ShiftLeft<8>(green)),
                                  hn::Or(hn::ShiftLeft<16>(red), hn::ShiftLeft<24>(alpha)));
        store(whole, hn::BitCast(whole, mixed), pixels, at);
    });
}

/// Each channel times the other pixels' alpha.
void Mask(const std::uint8_t* masks, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto alpha = hn::ShiftRight<24>(load(d, masks, at));
        if (hn::AllTrue(d, hn::Eq(alpha, hn::Set(d, 255)))) return;
        store(d, times(d, load(d, pixels, at), inBothHalves(alpha)), pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {
namespace {

/// W3C Compositing and Blending Level 1, 10.1.9: B(Cb, Cs) = Cb + (2 Cs - 1) · pull, which is Cb (1 - Cb) for
/// the darker half of Cs, and D(Cb) - Cb for the lighter.
std::array<std::int32_t, 256> softPulls() {
    std::array<std::int32_t, 256> pulls;
    for (int level = 0; level < 256; ++level) {
        const double x = level / 255.0;
        const double lit = x <= 0.25 ? ((16 * x - 12) * x + 4) * x : std::sqrt(x);
        pulls[level] = std::int32_t(std::lround((lit - x) * 65536)) << 16 |
                       std::int32_t(std::lround(x * (1 - x) * 65536));
    }
    return pulls;
}

}

HWY_EXPORT(Multiply);
HWY_EXPORT(Screen);
HWY_EXPORT(Overlay);
HWY_EXPORT(Add);
HWY_EXPORT(SoftLight);
HWY_EXPORT(Mask);

void multiply(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Multiply)(above, count, pixels);
}

void screen(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Screen)(above, count, pixels);
}

void overlay(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Overlay)(above, count, pixels);
}

void add(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Add)(above, count, pixels);
}

void softLight(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    static const auto pulls = softPulls();
    HWY_DYNAMIC_DISPATCH(SoftLight)(pulls.data(), above, count, pixels);
}

void mask(const std::uint8_t* masks, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Mask)(masks, count, pixels);
}

}
#endif
