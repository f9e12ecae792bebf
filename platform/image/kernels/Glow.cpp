#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Glow.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V brightness(D d, V pixels) {
    const auto channel = [&](V value, std::uint32_t share) {
        return hn::Mul(hn::And(value, hn::Set(d, 255)), hn::Set(d, share));
    };
    const auto sum = hn::Add(hn::Add(channel(pixels, 18), channel(hn::ShiftRight<8>(pixels), 183)),
                             channel(hn::ShiftRight<16>(pixels), 55));
    return hn::ShiftRight<8>(sum);
}

void KeepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::RebindToSigned<decltype(d)> signs;
        const auto found = load(d, pixels, at);
        const auto share = hn::GatherIndex(d, shares, hn::BitCast(signs, brightness(d, found)));
        store(d, times(d, found, share), pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(KeepBright);

void keepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(KeepBright)(shares, count, pixels);
}

}
#endif
