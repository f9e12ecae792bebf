#include "platform/vision/MaskKernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/vision/MaskKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/vision/NetworkVectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::MaskKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void MaskRow(const float* factors, const std::uint8_t* pixels, int count, Curve curve, std::uint8_t* output) {
    const auto* words = reinterpret_cast<const std::int32_t*>(pixels);
    auto* out = reinterpret_cast<std::int32_t*>(output);
    const float steepness = 1 / (curve.all - curve.none);
    NetworkKernels::HWY_NAMESPACE::inLanes(std::size_t(count), [&](auto d, std::size_t at) {
        const hn::RebindToSigned<decltype(d)> whole;
        const auto set = [d](float value) { return hn::Set(d, value); };
        const auto byte = [&](auto shifted) {
            return hn::ConvertTo(d, hn::And(shifted, hn::Set(whole, 255)));
        };
        auto blue = hn::Zero(d), green = blue, red = blue, constant = blue;
        hn::LoadInterleaved4(d, factors + 4 * at, blue, green, red, constant);
        const auto pixel = hn::LoadU(whole, words + at);
        auto value = hn::Add(hn::Mul(blue, byte(pixel)), constant);
        value = hn::Add(value, hn::Mul(green, byte(hn::ShiftRight<8>(pixel))));
        value = hn::Add(value, hn::Mul(red, byte(hn::ShiftRight<16>(pixel))));

        const auto along = hn::Mul(hn::Sub(value, set(curve.none)), set(steepness));
        const auto t = hn::Min(hn::Max(along, hn::Zero(d)), set(1));
        const auto smooth = hn::Mul(hn::Mul(t, t), hn::Sub(set(3), hn::Add(t, t)));
        const auto alpha = hn::ConvertTo(whole, hn::Add(hn::Mul(smooth, set(255)), set(0.5f)));
        hn::StoreU(hn::Mul(alpha, hn::Set(whole, 0x01010101)), whole, out + at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::MaskKernels {

HWY_EXPORT(MaskRow);

void maskRow(const float* factors, const std::uint8_t* pixels, int count, Curve curve, std::uint8_t* output) {
    HWY_DYNAMIC_DISPATCH(MaskRow)(factors, pixels, count, curve, output);
}

}
#endif
