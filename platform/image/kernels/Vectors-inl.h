// Included once for each instruction set, inside a kernel's file.
#if defined(MURBO_VECTORS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MURBO_VECTORS_INL_H
#undef MURBO_VECTORS_INL_H
#else
#define MURBO_VECTORS_INL_H
#endif

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Calls `take(tag, at)` over 0…count: as many whole vectors as there are, then eight lanes at a time, then
/// one, so that nothing past the end is touched and every lane follows the same rule.
template <typename T, typename Take>
HWY_INLINE void inVectors(int count, const Take& take) {
    const hn::ScalableTag<T> whole;
    const hn::CappedTag<T, 8> eight;
    const hn::CappedTag<T, 1> one;
    int at = 0;
    for (; at + int(hn::Lanes(whole)) <= count; at += int(hn::Lanes(whole))) take(whole, at);
    for (; at + int(hn::Lanes(eight)) <= count; at += int(hn::Lanes(eight))) take(eight, at);
    for (; at < count; ++at) take(one, at);
}

/// Sums of neighbouring products: lane i is a[2i]·b[2i] + a[2i+1]·b[2i+1].
template <typename D, typename V>
HWY_INLINE hn::VFromD<D> pairProducts(D wide, V a, V b) {
    auto odd = hn::Zero(wide);
    const auto even = hn::ReorderWidenMulAccumulate(wide, a, b, hn::Zero(wide), odd);
    return hn::RearrangeToOddPlusEven(even, odd);
}

}
HWY_AFTER_NAMESPACE();

#endif
