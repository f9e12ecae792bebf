// Included once for each instruction set, inside a kernel's file.
#if defined(MURBO_STRAIGHT_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MURBO_STRAIGHT_INL_H
#undef MURBO_STRAIGHT_INL_H
#else
#define MURBO_STRAIGHT_INL_H
#endif

#include "platform/image/kernels/Pixels-inl.h"
#include "platform/image/kernels/StraightShares.h"

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// Colours without their alpha, which stands at 255; where alpha is 0 they are black.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V straightened(D d, V pixels, V alpha) {
    const hn::RebindToSigned<D> signs;
    const auto shares = hn::GatherIndex(d, straightShares.data(), hn::BitCast(signs, alpha));
    const auto level = hn::Set(d, 255);
    const auto channel = [&](V value) {
        const auto product = hn::Mul(hn::And(value, level), shares);
        return hn::Min(hn::ShiftRight<16>(hn::Add(product, hn::Set(d, 1 << 15))), level);
    };
    const auto blue = channel(pixels);
    const auto green = hn::ShiftLeft<8>(channel(hn::ShiftRight<8>(pixels)));
    const auto red = hn::ShiftLeft<16>(channel(hn::ShiftRight<16>(pixels)));
    return hn::Or(hn::Or(blue, green), hn::Or(red, hn::Set(d, 0xFF000000)));
}

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V withAlpha(D d, V pixels, V alpha) {
    const auto colours = hn::And(times(d, pixels, inBothHalves(alpha)), hn::Set(d, 0x00FFFFFF));
    return hn::Or(colours, hn::ShiftLeft<24>(alpha));
}

/// What `change` makes of opaque pixels, for pixels of any alpha. Most vectors are opaque or clear all over.
template <typename D, typename Change, typename V = hn::VFromD<D>>
HWY_INLINE V onStraight(D d, V pixels, const Change& change) {
    const auto alpha = hn::ShiftRight<24>(pixels);
    if (hn::AllTrue(d, hn::Eq(alpha, hn::Set(d, 255)))) return change(pixels);
    if (hn::AllTrue(d, hn::Eq(alpha, hn::Zero(d)))) return pixels;
    return withAlpha(d, change(straightened(d, pixels, alpha)), alpha);
}

}
HWY_AFTER_NAMESPACE();

#endif
