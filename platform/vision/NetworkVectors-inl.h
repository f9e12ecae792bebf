// Included once for each instruction set, inside a kernel's file.
#if defined(MURBO_NETWORK_VECTORS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MURBO_NETWORK_VECTORS_INL_H
#undef MURBO_NETWORK_VECTORS_INL_H
#else
#define MURBO_NETWORK_VECTORS_INL_H
#endif

#include "platform/vision/Graph.h"

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace murbo::NetworkKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Activation = Graph::Activation;

/// 1 / (1 + e^-x), e^x by the polynomial of Cephes' expf (Moshier), relative error below 3e-7.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V logistic(D d, V x) {
    const hn::RebindToSigned<D> whole;
    const V clamped = hn::Min(hn::Max(hn::Neg(x), hn::Set(d, -80.f)), hn::Set(d, 80.f));
    const V powers = hn::Round(hn::Mul(clamped, hn::Set(d, 1.44269504f)));
    V rest = hn::Sub(clamped, hn::Mul(powers, hn::Set(d, 0.693359375f)));
    rest = hn::Sub(rest, hn::Mul(powers, hn::Set(d, -2.12194440e-4f)));
    V sum = hn::Set(d, 1.9875691500e-4f);
    for (const float factor :
         {1.3981999507e-3f, 8.3334519073e-3f, 4.1665795894e-2f, 1.6666665459e-1f, 5.0000001201e-1f})
        sum = hn::Add(hn::Mul(sum, rest), hn::Set(d, factor));
    sum = hn::Add(hn::Add(hn::Mul(sum, hn::Mul(rest, rest)), rest), hn::Set(d, 1.f));
    const auto scale = hn::ShiftLeft<23>(hn::Add(hn::ConvertTo(whole, powers), hn::Set(whole, 127)));
    return hn::Div(hn::Set(d, 1.f), hn::Add(hn::Set(d, 1.f), hn::Mul(sum, hn::BitCast(d, scale))));
}

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V activated(D d, V x, Activation activation) {
    const auto clamped = [d](V value) { return hn::Min(hn::Max(value, hn::Zero(d)), hn::Set(d, 6.f)); };
    switch (activation) {
        case Activation::none:
            return x;
        case Activation::relu:
            return hn::Max(x, hn::Zero(d));
        case Activation::relu6:
            return clamped(x);
        case Activation::hardSwish:
            return hn::Mul(hn::Mul(x, clamped(hn::Add(x, hn::Set(d, 3.f)))), hn::Set(d, 1.f / 6));
        case Activation::logistic:
            return logistic(d, x);
    }
    return x;
}

/// Calls `take(tag, at)` over 0…count: eight lanes at a time, then four, then one. Eight suit the channels of
/// networks, which are seldom multiples of more.
template <typename Take>
HWY_INLINE std::size_t inLanes(std::size_t count, const Take& take) {
    std::size_t at = 0;
    const auto run = [&](auto d) {
        for (; at + hn::Lanes(d) <= count; at += hn::Lanes(d)) take(d, at);
    };
    run(hn::CappedTag<float, 8>());
    run(hn::CappedTag<float, 4>());
    run(hn::CappedTag<float, 1>());
    return at;
}

}
HWY_AFTER_NAMESPACE();

#endif
