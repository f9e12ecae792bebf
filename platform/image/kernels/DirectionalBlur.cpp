#include "platform/image/kernels/Kernels.h"

#include <algorithm>

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/DirectionalBlur.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// A sum runs along the row, a pixel's four channels side by side.
void SmearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out) {
    const hn::FixedTag<std::uint32_t, 4> d;
    const hn::FixedTag<std::uint8_t, 4> bytes;
    const int whole = (reach - 32) / 64;
    const auto part = hn::Set(d, std::uint32_t((reach - 32) % 64));
    const auto share = hn::Set(d, (1u << 24) / std::uint32_t(2 * reach));
    const auto half = hn::Set(d, 1u << 23);
    const auto pixel = [&](int at) {
        return hn::PromoteTo(d, hn::LoadU(bytes, in + std::ptrdiff_t(std::clamp(at, 0, count - 1)) * 4));
    };
    auto sum = hn::Zero(d);
    for (int at = -whole; at <= whole; ++at) sum = hn::Add(sum, pixel(at));
    for (int at = 0; at < count; ++at) {
        const auto next = pixel(at + whole + 1);
        const auto ends = hn::Mul(hn::Add(pixel(at - whole - 1), next), part);
        const auto mean = hn::Mul(hn::Add(hn::ShiftLeft<6>(sum), ends), share);
        hn::StoreU(hn::U8FromU32(hn::ShiftRight<24>(hn::Add(mean, half))), bytes,
                   out + std::ptrdiff_t(at) * 4);
        sum = hn::Add(sum, hn::Sub(next, pixel(at - whole)));
    }
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(SmearRow);

void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(SmearRow)(in, count, reach, out);
}

}
#endif
