#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Posterize.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Straight-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

void Posterize(int levels, int count, std::uint8_t* pixels) {
    const auto steps = std::uint16_t(levels - 1);
    const auto step = std::uint16_t(255 * 256 / steps);
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::Repartition<std::uint16_t, decltype(d)> words;
        const auto nearest = [&](auto values) {
            const auto product = hn::Add(hn::Mul(values, hn::Set(words, steps)), hn::Set(words, 128));
            const auto index = hn::ShiftRight<8>(hn::Add(product, hn::ShiftRight<8>(product)));
            return hn::ShiftRight<8>(hn::Add(hn::Mul(index, hn::Set(words, step)), hn::Set(words, 255)));
        };
        store(d,
              onStraight(d, load(d, pixels, at),
                         [&](auto opaque) {
                             const auto both = hn::BitCast(words, opaque);
                             const auto low = nearest(hn::And(both, hn::Set(words, 0x00FF)));
                             const auto high = hn::ShiftLeft<8>(nearest(hn::ShiftRight<8>(both)));
                             return hn::BitCast(d, hn::Or(low, high));
                         }),
              pixels, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(Posterize);

void posterize(int levels, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Posterize)(levels, count, pixels);
}

}
#endif
