// Included once for each instruction set, inside a kernel's file.
#if defined(MURBO_PIXELS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MURBO_PIXELS_INL_H
#undef MURBO_PIXELS_INL_H
#else
#define MURBO_PIXELS_INL_H
#endif

#include "platform/image/kernels/Vectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

template <typename D>
HWY_INLINE hn::VFromD<D> load(D d, const std::uint8_t* pixels, int at) {
    return hn::LoadU(d, reinterpret_cast<const std::uint32_t*>(pixels) + at);
}

template <typename D, typename V>
HWY_INLINE void store(D d, V vector, std::uint8_t* pixels, int at) {
    hn::StoreU(vector, d, reinterpret_cast<std::uint32_t*>(pixels) + at);
}

/// Each byte times its pixel's share of 255, rounded. `shares` holds it in both halves of the pixel.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V times(D d, V pixels, V shares) {
    const hn::Repartition<std::uint16_t, D> words;
    const auto even = hn::Set(words, 0x00FF);
    const auto product = [&](auto values) {
        const auto rounded = hn::Add(hn::Mul(values, hn::BitCast(words, shares)), hn::Set(words, 128));
        return hn::Add(rounded, hn::ShiftRight<8>(rounded));
    };
    const auto both = hn::BitCast(words, pixels);
    const auto low = hn::ShiftRight<8>(product(hn::And(both, even)));
    const auto high = hn::AndNot(even, product(hn::ShiftRight<8>(both)));
    return hn::BitCast(d, hn::Or(low, high));
}

template <typename V>
HWY_INLINE V inBothHalves(V value) {
    return hn::Or(value, hn::ShiftLeft<16>(value));
}

}
HWY_AFTER_NAMESPACE();

#endif
